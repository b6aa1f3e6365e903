// `frmItemClass`: the modal form in which one item class is created or changed, without its
// window. The browser prepares it, the window reports events; what the parts do is their files'.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "editor/form_state.h"

namespace pricedown {

// The key that opens the account lookup in an account field.
inline constexpr std::int32_t kLookupKey = 118;  // F7

class ItemClassForm {
 public:
  // All references must outlive the form.
  ItemClassForm(Environment& environment, ItemClassFormView& view, MemberListView& grid);
  ItemClassForm(const ItemClassForm&) = delete;
  ItemClassForm& operator=(const ItemClassForm&) = delete;

  // What the browser sets before Load; Unload forgets all of it.
  void SetMode(std::int16_t mode) { parts_.state.mode = mode; }
  void SetOpeningNumber(std::u16string number) { parts_.state.openingNumber = std::move(number); }
  void SetMemberList(Recordset members) { parts_.state.memberList = std::move(members); }
  void SetSecondRecordSet(Recordset rows) { parts_.state.secondRecordSet = std::move(rows); }
  void SetYearAndPeriod(std::int32_t year, std::int32_t period);
  const Recordset& MemberList() const { return parts_.state.memberList; }

  // Fills the form. Throws AutomationError, and is then unloaded. Requires: a member list, open.
  void Load();
  // Ends the showing and releases what the form kept or was given; harmless when not loaded.
  void Unload();

  // Events of the window; ignored while the form is not loaded. Throw AutomationError.
  void FieldChanged(FormField field);
  // Whether the character may be typed.
  bool KeyPressed(FormField field, char16_t character) const;
  void KeyDown(FormField field, std::int32_t keyCode);
  void LookupClicked(FormField field);
  void ToolClicked(std::u16string_view key);
  void CloseByFrame() { Unload(); }
  // The text of a row of the item grid, its cells each followed by "|". Rows are right only when
  // asked for from row 1 up.
  std::u16string RowRequested(std::int32_t row);

  // The commands of the toolbar. Throw AutomationError.
  void AddItem();
  void Add();
  void iExit();
  void DelItem();
  void Save();

  // The checks of a save and of closing, see check_data and change_check.
  bool CheckData();
  bool Check() const;
  void CheckTextSave();
  void checkRecord();
  // A member that does nothing, kept because clients may call it.
  void CheckRecordSave() const {}

  const FormState& State() const { return parts_.state; }

 private:
  void SetCaptions();
  void PrepareGrid();
  void FillFields();
  void EmptyFields();
  void EmptyMembers();
  void SaveByTool();

  FormParts parts_;
};

}  // namespace pricedown
