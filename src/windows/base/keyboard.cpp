// The system's key codes are the core's; checked when this is compiled.
#include "windows/base/keyboard.h"

namespace pricedown::windows {
namespace {

constexpr bool Is(Key key, int code) { return static_cast<int>(key) == code; }

static_assert(Is(Key::Tab, VK_TAB) && Is(Key::Enter, VK_RETURN) && Is(Key::Escape, VK_ESCAPE));
static_assert(Is(Key::Space, VK_SPACE) && Is(Key::PageUp, VK_PRIOR) && Is(Key::PageDown, VK_NEXT));
static_assert(Is(Key::End, VK_END) && Is(Key::Home, VK_HOME));
static_assert(Is(Key::Left, VK_LEFT) && Is(Key::Up, VK_UP));
static_assert(Is(Key::Right, VK_RIGHT) && Is(Key::Down, VK_DOWN));
static_assert(Is(Key::Insert, VK_INSERT) && Is(Key::Delete, VK_DELETE) && Is(Key::Menu, VK_APPS));
static_assert(Is(Key::Add, VK_ADD) && Is(Key::Subtract, VK_SUBTRACT));
static_assert(Is(Key::Plus, VK_OEM_PLUS) && Is(Key::Minus, VK_OEM_MINUS));
static_assert(Is(Key::F2, VK_F2) && Is(Key::F3, VK_F3) && Is(Key::F4, VK_F4) && Is(Key::F5, VK_F5));
static_assert(Is(Key::F6, VK_F6) && Is(Key::F7, VK_F7) && Is(Key::F10, VK_F10));

}  // namespace

KeyPress PressOf(WPARAM key) {
  return {static_cast<Key>(key), GetKeyState(VK_SHIFT) < 0, GetKeyState(VK_CONTROL) < 0,
          GetKeyState(VK_MENU) < 0};
}

}  // namespace pricedown::windows
