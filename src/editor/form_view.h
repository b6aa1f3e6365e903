// What the item class form needs of its window: fields, captions, tools and the member list.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "editor/member_rows.h"
#include "platform/automation.h"

namespace pricedown {

enum class FormField {
  ClassNumber,     // itemClassNumber
  ClassName,       // ItemClassName
  LossAccount,     // txtitem(0)
  ReserveAccount,  // txtitem(1)
  Percentage       // txtPencent
};

// In the order in which loading fills them.
inline constexpr std::array kFormFields{FormField::ClassNumber, FormField::ClassName,
                                        FormField::LossAccount, FormField::ReserveAccount,
                                        FormField::Percentage};

// The fields from top to bottom; the reserve account is above the loss account.
inline constexpr std::array kFormRows{FormField::ClassNumber, FormField::ClassName,
                                      FormField::ReserveAccount, FormField::LossAccount,
                                      FormField::Percentage};

constexpr bool IsAccountField(FormField field) {
  return field == FormField::LossAccount || field == FormField::ReserveAccount;
}

// The most characters that a field holds; 0 is no limit.
constexpr std::size_t MaximumLength(FormField field) {
  switch (field) {
    case FormField::ClassNumber:
    case FormField::ClassName:
      return 40;
    case FormField::Percentage:
      return 7;
    default:
      return 0;
  }
}

// Whether the character may be typed into the field.
constexpr bool IsTypeable(FormField field, char16_t character) {
  const bool filters = field == FormField::ClassNumber || field == FormField::ClassName;
  return !filters || (character != u' ' && character != u'\'');
}

enum class FormCaption { Title, Frame1, FrameAdd, Label5, Label4, Label3, Label2, Label1 };

// The tools of `tlbSPCA` by position; positions 3 and 6 only space the groups.
enum class FormTool : std::size_t { Add = 1, Save = 2, AddItem = 4, DelItem = 5, Exit = 7 };

class ItemClassFormView {
 public:
  virtual ~ItemClassFormView() = default;
  virtual std::u16string Text(FormField field) const = 0;
  // A text that changes, here or by the user, is reported to FieldChanged.
  virtual void SetText(FormField field, std::u16string_view text) = 0;
  // Sets the focus to the field and selects its text.
  virtual void Focus(FormField field) = 0;
  virtual void SetCaption(FormCaption target, std::u16string_view text) = 0;
  // An empty tool tip is none.
  virtual void SetToolTexts(FormTool tool, std::u16string_view caption,
                            std::u16string_view toolTip) = 0;
  // Every tool is enabled before the form is loaded.
  virtual void SetToolEnabled(FormTool tool, bool enabled) = 0;
  // The form as the suite's form resources see it: its captions by name.
  virtual ObjectPtr FormObject() = 0;
  // Ends the showing of the form. The window may be destroyed later, but reports no more events.
  virtual void Unload() = 0;
};

// The member list `ItemLedger`.
class MemberListView {
 public:
  virtual ~MemberListView() = default;
  virtual void SetColumnWidth(std::int32_t column, std::int32_t twips) = 0;
  // Shows the rows as they are now, none selected. `rows` outlives the showing of the form.
  virtual void ShowRows(const MemberRows& rows) = 0;
  // Item rows only, from the top down.
  virtual std::vector<std::int32_t> SelectedRows() const = 0;
};

}  // namespace pricedown
