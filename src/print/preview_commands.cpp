// The keys of the buttons, and the table of the others.
#include "print/preview_commands.h"

#include <span>

namespace pricedown {
namespace {

enum class Control : std::uint8_t { Without, With, Either };
struct KeyRow {
  Key key;
  Control control;
  KeyScope scope;
  PreviewCommand command;
};

constexpr KeyRow kOtherKeys[] = {
    {Key::G, Control::With, KeyScope::All, PreviewCommand::EnterPage},
    {Key::PageUp, Control::Without, KeyScope::All, PreviewCommand::ScreenUp},
    {Key::PageDown, Control::Without, KeyScope::All, PreviewCommand::ScreenDown},
    {Key::Home, Control::Without, KeyScope::Page, PreviewCommand::Top},
    {Key::End, Control::Without, KeyScope::Page, PreviewCommand::Bottom},
    {Key::Up, Control::Either, KeyScope::Page, PreviewCommand::LineUp},
    {Key::Down, Control::Either, KeyScope::Page, PreviewCommand::LineDown},
    {Key::Left, Control::Either, KeyScope::Page, PreviewCommand::LineLeft},
    {Key::Right, Control::Either, KeyScope::Page, PreviewCommand::LineRight},
    {Key::Add, Control::With, KeyScope::All, PreviewCommand::ZoomIn},
    {Key::Plus, Control::With, KeyScope::All, PreviewCommand::ZoomIn},
    {Key::Subtract, Control::With, KeyScope::All, PreviewCommand::ZoomOut},
    {Key::Minus, Control::With, KeyScope::All, PreviewCommand::ZoomOut},
};

bool Includes(KeyScope scope, PreviewFocus focus) {
  return focus == PreviewFocus::Page || scope == KeyScope::All ||
         (focus == PreviewFocus::Buttons && scope == KeyScope::PageAndButtons);
}

std::optional<PreviewCommand> CommandOfButtonKey(std::span<const PreviewButton> buttons,
                                                 const KeyPress& press, PreviewFocus focus) {
  for (const PreviewButton& button : buttons) {
    if (button.Has(press) && Includes(button.scope, focus)) return button.command;
  }
  return std::nullopt;
}

}  // namespace

std::optional<PreviewCommand> CommandOfKey(const KeyPress& press, PreviewFocus focus) {
  // The system sends Escape as a command of its own.
  if (press.key == Key::None || press.key == Key::Escape) return std::nullopt;
  // Alt with Ctrl types a character.
  const KeyPress plain{press.key, false, press.control && !press.alt};
  auto command = CommandOfButtonKey(kDocumentButtons, plain, focus);
  if (!command) command = CommandOfButtonKey(kViewButtons, plain, focus);
  if (command) return command;
  const Control held = plain.control ? Control::With : Control::Without;
  for (const KeyRow& row : kOtherKeys) {
    if (row.key == press.key && (row.control == held || row.control == Control::Either) &&
        Includes(row.scope, focus)) {
      return row.command;
    }
  }
  return std::nullopt;
}

}  // namespace pricedown
