// The state of the stand-in suite: the open company, the user, the language.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "platform/value.h"
#include "workbench/company/connection.h"
#include "workbench/suite/pickers.h"

namespace workbench {

class Replay;

struct SuiteState {
  // Shared with the calls that run messages, in which the company may be closed.
  std::shared_ptr<Connection> company;
  // Of Connect, and whether it has the user.
  std::unique_ptr<Connection> connected;
  bool connectedHasUser = false;
  ConnectOptions options;
  static constexpr std::int32_t kFirstUser = 1;
  std::int32_t userId = kFirstUser;
  // Who was signed in earlier since the company was opened.
  std::set<std::int32_t> earlierUsers;
  std::u16string language = u"chs";
  // Answers in place of the suite's objects; null without a replay.
  std::shared_ptr<Replay> replay;
  // Never null.
  std::unique_ptr<Pickers> pickers = std::make_unique<QueuedPickers>();

  // Connects to the company at a path or connection string for OpenConnected. Throws
  // AutomationError, also for a database that is no company. The previous company stays open.
  void Connect(std::u16string_view location);
  // Opens the company of the last Connect and closes the previous one. The user stays if the
  // company has it and is the first one otherwise. Throws AutomationError without a Connect.
  void OpenConnected();
  void OpenCompany(std::u16string_view location) {
    Connect(location);
    OpenConnected();
  }

  // Runs a statement on the company. Throws AutomationError without a company and when the
  // statement fails.
  ResultSet Execute(std::u16string_view statement);

  // Several changes that are stored together or not at all. Begin and Commit throw AutomationError.
  void Begin();
  void Commit();
  void Rollback() noexcept;

  // A text as a literal of a statement.
  static std::u16string Literal(std::u16string_view text);

  // The value of a system profile; null when absent.
  pricedown::Value Profile(std::u16string_view category, std::u16string_view key);
  void SetProfile(std::u16string_view category, std::u16string_view key, std::u16string_view value);

  // The rights of the user on an object, as a mask.
  std::int32_t RightsMask(std::int32_t objectType, std::int32_t objectNumber);
  void SetRightsMask(std::int32_t objectType, std::int32_t objectNumber, std::int32_t mask);

 private:
  template <class Use>
  auto OnCompany(Use&& use);
};

}  // namespace workbench
