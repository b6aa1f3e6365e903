// The commands on a class that the grid shows: deleting it, and the refusals of all of them.
// Who may run a command, and what is reloaded after it, is decided by the dispatch of commands.
#pragma once

#include <string_view>

#include "browser/browser_state.h"
#include "browser/class_tree.h"
#include "env/environment.h"

namespace pricedown {

class ClassCommands {
 public:
  ClassCommands(Environment& environment, BrowserState& state, ClassTree& tree)
      : environment_(environment), state_(state), tree_(tree) {}

  // Deletes the class of the rows in the grid after a question, unless its period has a voucher or
  // it has provision history; then selects the root. Throws AutomationError where a step fails;
  // what ran before stays done.
  void Delete();

  // Whether the grid shows rows of a class; when not, the user has been told `message`.
  // Throws AutomationError.
  bool RequireClass(std::u16string_view message);

 private:
  bool IsConfirmed(std::u16string_view number, std::u16string_view name);
  // False when a guard refused, and then nothing is deleted.
  bool DeleteGuarded(std::u16string_view number);

  Environment& environment_;
  BrowserState& state_;
  ClassTree& tree_;
};

}  // namespace pricedown
