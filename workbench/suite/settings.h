// `ZEPWorkbench.Settings`: what a person, a host or a script sets in the stand-in suite. The
// library never uses it.
#pragma once

#include "workbench/suite/services.h"

namespace workbench {

// Members: Open(location), or in two steps Connect(location), which leaves the previous company
// open, and OpenConnected; Close, Location (without passwords), LoginTimeout and StatementTimeout
// in seconds (0: none; for companies opened afterwards), Begin, Commit and Rollback of several
// changes that are stored together, UserID (one that the company has), Language, Profile(category,
// key) get and put, ItemClassType, UseShortNumber, CurrentYear, CurrentPeriod (short for profiles),
// Rights(objectType, objectNumber) get and put, VoucherPresent get and put (of the current period),
// QueueAccount(number), QueueItems(ids separated by ",") answer the next lookup instead of the
// user, empty texts as if cancelled, Query(text) returns the first cell,
// Replay(file) answers from a recording from now on, in place of the company ("": no longer),
// ReplayDifference is the text of the first call that differs from it, ReplayCallsLeft how many
// calls of it were not made, Users returns "id=name" entries, one to a line.
class Settings : public pricedown::LocalObject<Settings> {
 public:
  explicit Settings(SuiteStatePtr suite) : suite_(std::move(suite)) {}
  SuiteState& Suite() { return *suite_; }

  // Both throw AutomationError.
  void Connect(std::u16string_view company);
  void OpenConnected();
  bool VoucherPresent();
  void SetVoucherPresent(bool present);
  // Throws AutomationError without a company and when it has no such user.
  void SetUser(std::int32_t id);
  // Throws AutomationError when the pickers have no queue.
  QueuedPickers& Queue();
  // Throws AutomationError when nothing is replayed.
  const Replay& CurrentReplay();
  std::u16string Users();
  pricedown::Value Query(std::u16string_view statement);

  std::u16string location;
  static std::span<const pricedown::Member<Settings>> Members();

 private:
  SuiteStatePtr suite_;
  std::u16string connectedLocation_;
};

}  // namespace workbench
