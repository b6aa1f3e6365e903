// The ring of stops, and the table of kept keys.
#include "control/focus.h"

namespace pricedown {
namespace {

bool IsMoveKey(Key key) { return key >= Key::PageUp && key <= Key::Down; }

bool IsEditingLetter(Key key) {
  return key == Key::A || key == Key::C || key == Key::V || key == Key::X || key == Key::Z;
}

}  // namespace

std::optional<std::size_t> NextStop(std::span<const bool> open, std::optional<std::size_t> current,
                                    bool backwards, bool wrap) {
  const std::size_t count = open.size();
  // Places from 1 to `count`; 0 and count + 1 are outside.
  std::size_t place = current ? *current + 1 : backwards ? count + 1 : 0;
  for (std::size_t tries = 0; tries < count; ++tries) {
    place = backwards ? place - 1 : place + 1;
    if (place == 0 || place > count) {
      if (!wrap) return std::nullopt;
      place = backwards ? count : 1;
    }
    if (open[place - 1]) return place - 1;
  }
  return std::nullopt;
}

bool KeepsKey(FocusPlace place, const KeyPress& press) {
  const Key key = press.key;
  if (IsMoveKey(key)) return true;
  switch (place) {
    case FocusPlace::ToolStrip:
      return key == Key::Enter || key == Key::Space;
    case FocusPlace::Grid:
      return press.control && key == Key::A;
    case FocusPlace::CellEditor:
      // Editing keys apply to the number that is typed, even if the host uses them.
      return press == KeyPress{Key::F5} || key == Key::Delete || key == Key::Insert ||
             key == Key::Enter || key == Key::Escape || (press.control && IsEditingLetter(key));
    case FocusPlace::FindField:
      return key == Key::F3 || key == Key::Delete || key == Key::Insert || key == Key::Enter ||
             key == Key::Escape || (press.control && (IsEditingLetter(key) || key == Key::F));
    case FocusPlace::Splitter:
      return key == Key::Enter || key == Key::Escape;
    case FocusPlace::Tree:
    case FocusPlace::Other:
      break;
  }
  return false;
}

}  // namespace pricedown
