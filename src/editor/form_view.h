// What the item class form needs of its window: fields, captions, tools, and the item grid.
// The window decides nothing: every event is reported to ItemClassForm.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

// The most characters that a field takes; 0 is no limit.
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

enum class FormCaption { Title, Frame1, FrameAdd, Label5, Label4, Label3, Label2, Label1 };

// The tools of `tlbSPCA` by position; positions 3 and 6 only space the groups.
enum class FormTool : std::size_t { Add = 1, Save = 2, AddItem = 4, DelItem = 5, Exit = 7 };

class ItemClassFormView {
 public:
  virtual ~ItemClassFormView() = default;
  virtual std::u16string Text(FormField field) const = 0;
  // A text that changes, here or by the user's hand, is reported to FieldChanged.
  virtual void SetText(FormField field, std::u16string_view text) = 0;
  virtual void Focus(FormField field) = 0;
  virtual void SetCaption(FormCaption target, std::u16string_view text) = 0;
  // An empty tool tip is none.
  virtual void SetToolTexts(FormTool tool, std::u16string_view caption,
                            std::u16string_view toolTip) = 0;
  // Every tool is enabled before the form is loaded.
  virtual void SetToolEnabled(FormTool tool, bool enabled) = 0;
  // The form as the suite's form resources see it: its captions by name.
  virtual ObjectPtr FormObject() = 0;
  // Ends the showing of the form. The window may die later, but reports no more events.
  virtual void Unload() = 0;
};

// The item grid `ItemLedger`: row 1 holds the titles, the items begin at row 2.
class MemberListView {
 public:
  virtual ~MemberListView() = default;
  virtual void SetColumnWidth(std::int32_t column, std::int32_t twips) = 0;
  virtual std::int32_t RowCount() const = 0;
  // Setting the count and reloading make the grid ask ItemClassForm::RowRequested for every row,
  // from row 1 up and in one go: not from inside these two calls, but before it is painted or
  // used next.
  virtual void SetRowCount(std::int32_t count) = 0;
  virtual void Reload() = 0;
  // Item rows only, in the grid's order.
  virtual std::vector<std::int32_t> SelectedRows() const = 0;
  virtual std::u16string Text(std::int32_t column, std::int32_t row) const = 0;
};

// The grid's columns.
namespace member_columns {
inline constexpr std::int32_t kCode = 1;
inline constexpr std::int32_t kName = 2;
inline constexpr std::int32_t kModel = 3;
}  // namespace member_columns

}  // namespace pricedown
