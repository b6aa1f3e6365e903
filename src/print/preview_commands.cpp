// The table of keys.
#include "print/preview_commands.h"

namespace pricedown {
namespace {

enum class Control : std::uint8_t { Without, With, Either };
// The parts in which a key is the preview's.
enum class Parts : std::uint8_t { Page, PageAndButtons, All };

struct KeyRow {
  Key key;
  Control control;
  Parts parts;
  PreviewCommand command;
};

constexpr KeyRow kKeys[] = {
    {Key::P, Control::With, Parts::All, PreviewCommand::Print},
    {Key::G, Control::With, Parts::All, PreviewCommand::EnterPage},
    {Key::PageUp, Control::Without, Parts::All, PreviewCommand::ScreenUp},
    {Key::PageUp, Control::With, Parts::All, PreviewCommand::Previous},
    {Key::PageDown, Control::Without, Parts::All, PreviewCommand::ScreenDown},
    {Key::PageDown, Control::With, Parts::All, PreviewCommand::Next},
    {Key::Home, Control::Without, Parts::Page, PreviewCommand::Top},
    {Key::Home, Control::With, Parts::PageAndButtons, PreviewCommand::First},
    {Key::End, Control::Without, Parts::Page, PreviewCommand::Bottom},
    {Key::End, Control::With, Parts::PageAndButtons, PreviewCommand::Last},
    {Key::Up, Control::Either, Parts::Page, PreviewCommand::LineUp},
    {Key::Down, Control::Either, Parts::Page, PreviewCommand::LineDown},
    {Key::Left, Control::Either, Parts::Page, PreviewCommand::LineLeft},
    {Key::Right, Control::Either, Parts::Page, PreviewCommand::LineRight},
    {Key::Add, Control::With, Parts::All, PreviewCommand::ZoomIn},
    {Key::Add, Control::Without, Parts::PageAndButtons, PreviewCommand::ZoomIn},
    {Key::Plus, Control::With, Parts::All, PreviewCommand::ZoomIn},
    {Key::Plus, Control::Without, Parts::PageAndButtons, PreviewCommand::ZoomIn},
    {Key::Subtract, Control::With, Parts::All, PreviewCommand::ZoomOut},
    {Key::Subtract, Control::Without, Parts::PageAndButtons, PreviewCommand::ZoomOut},
    {Key::Minus, Control::With, Parts::All, PreviewCommand::ZoomOut},
    {Key::Minus, Control::Without, Parts::PageAndButtons, PreviewCommand::ZoomOut},
};

bool Includes(Parts parts, PreviewFocus focus) {
  return focus == PreviewFocus::Page || parts == Parts::All ||
         (focus == PreviewFocus::Buttons && parts == Parts::PageAndButtons);
}

}  // namespace

std::optional<PreviewCommand> CommandOfKey(const KeyPress& press, PreviewFocus focus) {
  // Alt with Ctrl types a character.
  const Control held = press.control && !press.alt ? Control::With : Control::Without;
  for (const KeyRow& row : kKeys) {
    if (row.key == press.key && (row.control == held || row.control == Control::Either) &&
        Includes(row.parts, focus)) {
      return row.command;
    }
  }
  return std::nullopt;
}

}  // namespace pricedown
