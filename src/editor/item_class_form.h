// The core of `frmItemClass`, the modal form in which one item class is created or changed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "editor/form_state.h"

namespace pricedown {

class ItemClassForm {
 public:
  // All references must outlive the form.
  ItemClassForm(Environment& environment, ItemClassFormView& view, MemberListView& members)
      : context_{environment, view, members, {}, {}} {
    context_.showing.End();
  }
  ItemClassForm(const ItemClassForm&) = delete;
  ItemClassForm& operator=(const ItemClassForm&) = delete;

  // What the browser sets before Load; Unload forgets all of it.
  void SetMode(std::int16_t mode) { context_.state.mode = mode; }
  void SetOpeningNumber(std::u16string number) { context_.state.openingNumber = std::move(number); }
  void SetMemberList(Recordset members) { context_.state.memberList = std::move(members); }
  void SetSecondRecordSet(Recordset rows) { context_.state.secondRecordSet = std::move(rows); }
  void OnSaved(std::function<void(bool added, std::u16string_view number)> handler) {
    context_.state.whenSaved = std::move(handler);
  }
  void OnFailed(std::function<void(const Failure& failure)> handler) {
    context_.state.whenFailed = std::move(handler);
  }
  const Recordset& MemberList() const { return context_.state.memberList; }

  // Fills the form. Throws AutomationError, and is then unloaded. Requires: a member list, open.
  void Load();
  // Ends the showing without a question and releases the recordsets; a no-op when not loaded.
  void Unload();

  // Events of the window; ignored while the form is not loaded. Throw AutomationError.
  void FieldChanged();
  // By the field's button or a key; only account fields have a lookup.
  void LookupRequested(FormField field);
  void ToolClicked(FormTool tool);

  // A member by name only: it checks nothing and saves nothing.
  void CheckRecordSave() const {}

  bool IsLoaded() const { return !context_.HasEnded(); }
  const FormState& State() const { return context_.state; }

 private:
  void SetCaptions();
  void FillFields();
  void EmptyFields();
  void EmptyMembers();
  void ShowRows();
  void Run(FormTool tool);
  // Whether the class was written.
  bool Save();
  void Add();
  void Exit();

  FormContext context_;
};

}  // namespace pricedown
