// Key tables of the item class form.
#pragma once

#include <cstddef>
#include <optional>

#include "editor/form_tools.h"
#include "editor/form_view.h"
#include "platform/key.h"

namespace pricedown {

// Keys of the whole form; Shift makes no difference.
constexpr std::optional<FormTool> ToolOfKey(const KeyPress& press) {
  const KeyPress unshifted{press.key, false, press.control, press.alt};
  for (const FormToolRow& row : kFormTools) {
    if (press.key != Key::None && row.keys.front() == unshifted) return row.tool;
  }
  return std::nullopt;
}

// Keys of an account field.
constexpr bool OpensLookup(const KeyPress& press) {
  if (press.key == Key::F7) return !press.alt;
  if (press.control) return false;
  // Alt+F4 closes the form.
  return press.key == (press.alt ? Key::Down : Key::F4);
}

// The field that Enter goes on to; none after the last one, where the member list follows.
constexpr std::optional<FormField> FieldAfter(FormField field) {
  for (std::size_t i = 0; i + 1 < kFormRows.size(); ++i) {
    if (kFormRows[i] == field) return kFormRows[i + 1];
  }
  return std::nullopt;
}

// Keys of the member list. Delete is none of them: removing deletes provisions for good without
// a question.
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
