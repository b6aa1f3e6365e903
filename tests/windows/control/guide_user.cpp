// The steps of the guide's user. Modifiers are set in the keyboard state of this thread.
#include "tests/windows/control/guide_user.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "tests/support/utf8.h"
#include "tests/windows/control/context_menus.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

// More than any window has of either.
constexpr int kMaximumTabs = 8;
constexpr int kMaximumButtons = 12;

void PostFocusKey(WPARAM key) { PostMessageW(GetFocus(), WM_KEYDOWN, key, 1); }

constexpr LPARAM kAltIsHeld = 1 << 29;

// The menu opens when the key is released.
void PostMenuKey() {
  PostFocusKey(VK_APPS);
  PostMessageW(GetFocus(), WM_KEYUP, VK_APPS, static_cast<LPARAM>(0xC0000001));
}

void HoldModifiers(bool shift, bool control, bool alt) {
  std::array<BYTE, 256> keys{};
  GetKeyboardState(keys.data());
  keys[VK_SHIFT] = shift ? 0x80 : 0;
  keys[VK_CONTROL] = control ? 0x80 : 0;
  keys[VK_MENU] = alt ? 0x80 : 0;
  SetKeyboardState(keys.data());
}

bool IsToolBar(HWND window) {
  std::array<wchar_t, 32> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return std::wstring_view(name.data()) == TOOLBARCLASSNAMEW;
}

std::string CaptionOfButton(HWND bar, WPARAM index) {
  TBBUTTON button{};
  std::array<wchar_t, 64> text{};
  if (SendMessageW(bar, TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button)) == 0) return {};
  SendMessageW(bar, TB_GETBUTTONTEXTW, static_cast<WPARAM>(button.idCommand),
               reinterpret_cast<LPARAM>(text.data()));
  return Utf8(windows::FromWide(text.data()));
}

bool HasButton(HWND window, const std::string& caption) {
  if (!IsToolBar(window)) return false;
  const auto count = static_cast<WPARAM>(SendMessageW(window, TB_BUTTONCOUNT, 0, 0));
  for (WPARAM index = 0; index < count; ++index) {
    if (CaptionOfButton(window, index) == caption) return true;
  }
  return false;
}

std::string HotCaption() {
  if (!IsToolBar(GetFocus())) return {};
  const LRESULT hot = SendMessageW(GetFocus(), TB_GETHOTITEM, 0, 0);
  return hot < 0 ? std::string() : CaptionOfButton(GetFocus(), static_cast<WPARAM>(hot));
}

}  // namespace

Steps StepsOfKey(const KeyPress& press) {
  return {[press] {
            HoldModifiers(press.shift, press.control, press.alt);
            const auto key = static_cast<WPARAM>(press.key);
            if (press.alt) {
              PostMessageW(GetFocus(), WM_SYSKEYDOWN, key, 1 | kAltIsHeld);
            } else {
              PostFocusKey(key);
            }
          },
          [] { HoldModifiers(false, false, false); }};
}

Steps StepsByBar(const std::string& caption) {
  Steps steps;
  for (int i = 0; i < kMaximumTabs; ++i) {
    steps.emplace_back([caption] {
      if (!HasButton(GetFocus(), caption)) PostFocusKey(VK_TAB);
    });
  }
  steps.emplace_back([] { PostFocusKey(VK_HOME); });
  for (int i = 0; i < kMaximumButtons; ++i) {
    steps.emplace_back([caption] {
      if (HotCaption() != caption) PostFocusKey(VK_RIGHT);
    });
  }
  steps.emplace_back([caption] {
    EXPECT_EQ(HotCaption(), caption);
    PostFocusKey(VK_RETURN);
  });
  return steps;
}

Steps StepsByMenu(const std::string& caption) {
  const auto menu = std::make_shared<std::unique_ptr<ContextMenus>>();
  return {[menu] {
            *menu = std::make_unique<ContextMenus>();
            PostMenuKey();
          },
          [] {},
          [menu, caption] {
            int position = 0;
            for (const std::string& line : (*menu)->Lines()) {
              if (line != "-") ++position;
              if (line.substr(0, line.find('\t')) == caption) break;
            }
            menu->reset();
            *menu = std::make_unique<ContextMenus>(position);
            PostMenuKey();
          },
          [] {}, [menu] { menu->reset(); }};
}

}  // namespace pricedown::testing
