// The commands on classes: adding one, editing or deleting the one that the grid shows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "browser/browser_state.h"
#include "browser/class_tree.h"
#include "editor/class_editor.h"
#include "env/environment.h"
#include "platform/recordset.h"

namespace pricedown {

class ClassCommands {
 public:
  // All must outlive the commands.
  ClassCommands(Environment& environment, BrowserState& state, ClassTree& tree,
                ItemClassEditor& editor)
      : environment_(environment), state_(state), tree_(tree), editor_(editor) {}

  // Open the editor for a new class, or on the class of the rows in the grid, and return when it
  // has closed; nothing is reloaded. Editing releases the grid's recordset: until the next node
  // click the grid has no class. Throw AutomationError; the form has nothing then. The commands may
  // be destroyed while the editor is shown.
  void Add();
  void Edit();

  // Deletes the class of the rows in the grid after a question, unless its period has a voucher or
  // it has provision history; then selects the root. A control that ends while the question is open
  // deletes nothing. Throws AutomationError where a step fails; what ran before stays done.
  void Delete();

 private:
  // Whether the grid shows rows of a class and the control still lives; if there are no rows,
  // shows the user `message`.
  bool RequireClass(std::u16string_view message);
  // What the form gets before it is shown.
  struct Preparation {
    std::int16_t mode = 0;
    std::u16string openingNumber;
    Recordset memberList;
    Recordset secondRecordSet;
  };
  Preparation PrepareAdd();
  Preparation PrepareEdit();
  void Open(Preparation (ClassCommands::*prepare)());
  void ReportEvents(ItemClassForm& form);
  bool IsConfirmed(std::u16string_view number, std::u16string_view name);
  // False when a guard refused; nothing is deleted then.
  bool DeleteGuarded(std::u16string_view number);

  Environment& environment_;
  BrowserState& state_;
  ClassTree& tree_;
  ItemClassEditor& editor_;
};

}  // namespace pricedown
