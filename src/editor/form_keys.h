// Key tables of the item class form.
#pragma once

#include <cstddef>
#include <optional>

#include "editor/form_view.h"
#include "platform/key.h"

namespace pricedown {

// Keys of the whole form.
constexpr std::optional<FormTool> ToolOfKey(const KeyPress& press) {
  if (!press.control || press.alt) return std::nullopt;
  if (press.key == Key::N) return FormTool::Add;
  if (press.key == Key::S) return FormTool::Save;
  return std::nullopt;
}

// Keys of an account field.
constexpr bool OpensLookup(const KeyPress& press) { return press.key == Key::F7; }

// The field that Enter goes on to; none behind the last, where the member list follows.
constexpr std::optional<FormField> FieldAfter(FormField field) {
  for (std::size_t i = 0; i + 1 < kFormRows.size(); ++i) {
    if (kFormRows[i] == field) return kFormRows[i + 1];
  }
  return std::nullopt;
}

// Keys of the member list. Delete is none of them: removing takes provisions away for good and
// does not ask.
enum class MemberListCommand { SelectAll, Copy, AddItem };

constexpr std::optional<MemberListCommand> MemberListCommandOf(const KeyPress& press) {
  if (press.control && press.key == Key::A) return MemberListCommand::SelectAll;
  if (press.control && (press.key == Key::C || press.key == Key::Insert)) {
    return MemberListCommand::Copy;
  }
  if (!press.control && press.key == Key::Insert) return MemberListCommand::AddItem;
  return std::nullopt;
}

}  // namespace pricedown
