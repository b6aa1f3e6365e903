// The table of keys.
#include "print/preview_commands.h"

namespace pricedown {
namespace {

enum class Control : std::uint8_t { Without, With, Either };
// The parts of the preview that answer a key.
enum class KeyScope : std::uint8_t { Page, PageAndButtons, All };

struct KeyRow {
  Key key;
  Control control;
  KeyScope scope;
  PreviewCommand command;
};

constexpr KeyRow kKeys[] = {
    {Key::P, Control::With, KeyScope::All, PreviewCommand::Print},
    {Key::G, Control::With, KeyScope::All, PreviewCommand::EnterPage},
    {Key::PageUp, Control::Without, KeyScope::All, PreviewCommand::ScreenUp},
    {Key::PageUp, Control::With, KeyScope::All, PreviewCommand::Previous},
    {Key::PageDown, Control::Without, KeyScope::All, PreviewCommand::ScreenDown},
    {Key::PageDown, Control::With, KeyScope::All, PreviewCommand::Next},
    {Key::Home, Control::Without, KeyScope::Page, PreviewCommand::Top},
    {Key::Home, Control::With, KeyScope::PageAndButtons, PreviewCommand::First},
    {Key::End, Control::Without, KeyScope::Page, PreviewCommand::Bottom},
    {Key::End, Control::With, KeyScope::PageAndButtons, PreviewCommand::Last},
    {Key::Up, Control::Either, KeyScope::Page, PreviewCommand::LineUp},
    {Key::Down, Control::Either, KeyScope::Page, PreviewCommand::LineDown},
    {Key::Left, Control::Either, KeyScope::Page, PreviewCommand::LineLeft},
    {Key::Right, Control::Either, KeyScope::Page, PreviewCommand::LineRight},
    {Key::Add, Control::With, KeyScope::All, PreviewCommand::ZoomIn},
    {Key::Add, Control::Without, KeyScope::PageAndButtons, PreviewCommand::ZoomIn},
    {Key::Plus, Control::With, KeyScope::All, PreviewCommand::ZoomIn},
    {Key::Plus, Control::Without, KeyScope::PageAndButtons, PreviewCommand::ZoomIn},
    {Key::Subtract, Control::With, KeyScope::All, PreviewCommand::ZoomOut},
    {Key::Subtract, Control::Without, KeyScope::PageAndButtons, PreviewCommand::ZoomOut},
    {Key::Minus, Control::With, KeyScope::All, PreviewCommand::ZoomOut},
    {Key::Minus, Control::Without, KeyScope::PageAndButtons, PreviewCommand::ZoomOut},
};

bool Includes(KeyScope scope, PreviewFocus focus) {
  return focus == PreviewFocus::Page || scope == KeyScope::All ||
         (focus == PreviewFocus::Buttons && scope == KeyScope::PageAndButtons);
}

}  // namespace

std::optional<PreviewCommand> CommandOfKey(const KeyPress& press, PreviewFocus focus) {
  // Alt with Ctrl types a character.
  const Control held = press.control && !press.alt ? Control::With : Control::Without;
  for (const KeyRow& row : kKeys) {
    if (row.key == press.key && (row.control == held || row.control == Control::Either) &&
        Includes(row.scope, focus)) {
      return row.command;
    }
  }
  return std::nullopt;
}

}  // namespace pricedown
