// Key tables of the item class form, and the menu of its list.
#pragma once

#include <array>
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
    if (row.Has(unshifted)) return row.tool;
  }
  return std::nullopt;
}

// The key of an account field's lookup that its tooltip shows.
inline constexpr Key kLookupKey = Key::F7;

// Keys of an account field.
constexpr bool OpensLookup(const KeyPress& press) {
  if (press.key == kLookupKey) return !press.alt;
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

// Commands of the member list: its context menu, and keys.
enum class MemberListCommand { AddItem, RemoveItems, Copy, CopyTitled, SelectAll };

struct MemberListRow : Command {
  MemberListCommand command = MemberListCommand::AddItem;
  bool beginsGroup = false;
};

// Removing has no key: it deletes provisions for good without a question.
inline constexpr std::array<MemberListRow, 5> kMemberListMenu{{
    {{.key = u"AddItem", .caption = u"增加物料", .keys = {{{Key::Insert}}}},
     MemberListCommand::AddItem},
    {{.key = u"DelItem", .caption = u"删除物料"}, MemberListCommand::RemoveItems},
    {{.key = u"Copy",
      .caption = u"复制",
      .keys = {{{Key::C, false, true}, {Key::Insert, false, true}}}},
     MemberListCommand::Copy,
     true},
    {{.key = u"CopyTitled", .caption = u"连同标题复制", .keys = {{{Key::C, true, true}}}},
     MemberListCommand::CopyTitled},
    {{.key = u"SelectAll", .caption = u"全选", .keys = {{{Key::A, false, true}}}},
     MemberListCommand::SelectAll,
     true},
}};

constexpr std::optional<MemberListCommand> MemberListCommandOf(const KeyPress& press) {
  for (const MemberListRow& row : kMemberListMenu) {
    if (row.Has(press)) return row.command;
  }
  return std::nullopt;
}

// The tool that does the same; none for commands of the list alone.
constexpr std::optional<FormTool> ToolOf(MemberListCommand command) {
  if (command == MemberListCommand::AddItem) return FormTool::AddItem;
  if (command == MemberListCommand::RemoveItems) return FormTool::DelItem;
  return std::nullopt;
}

// Whether the command applies to a list with so many items and so many of them selected.
constexpr bool HasItemsFor(MemberListCommand command, std::size_t items, std::size_t selected) {
  if (command == MemberListCommand::AddItem) return true;
  return command == MemberListCommand::SelectAll ? items > 0 : selected > 0;
}

}  // namespace pricedown
