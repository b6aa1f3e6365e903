// Options and their values, and the time limits that they set.
#include "workbench/host/command_line.h"

namespace workbench {
namespace {

constexpr int kLongestTimeout = 86400;

std::optional<int> Seconds(const std::wstring& text) {
  if (text.empty()) return std::nullopt;
  int seconds = 0;
  for (const wchar_t digit : text) {
    if (digit < L'0' || digit > L'9') return std::nullopt;
    seconds = seconds * 10 + (digit - L'0');
    if (seconds > kLongestTimeout) return std::nullopt;
  }
  return seconds;
}

// False for an option that does not exist and a value that it cannot have.
bool Set(CommandLine& commandLine, const std::wstring& option, const std::wstring& value) {
  if (option == L"--company") {
    commandLine.company = value;
  } else if (option == L"--replay") {
    commandLine.replay = value;
  } else if (option == L"--tour") {
    commandLine.tour = value;
  } else if (option == L"--keys") {
    commandLine.keys = value;
  } else if (option == L"--login-timeout") {
    return (commandLine.loginTimeout = Seconds(value)).has_value();
  } else if (option == L"--statement-timeout") {
    return (commandLine.statementTimeout = Seconds(value)).has_value();
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(const std::vector<std::wstring>& words) {
  CommandLine commandLine;
  for (std::size_t i = 0; i < words.size(); i += 2) {
    if (i + 1 == words.size() || !Set(commandLine, words[i], words[i + 1])) return std::nullopt;
  }
  return commandLine;
}

void SetTimeouts(pricedown::AutomationObject& settings, const CommandLine& commandLine) {
  if (commandLine.loginTimeout) settings.Put(u"LoginTimeout", *commandLine.loginTimeout);
  if (commandLine.statementTimeout) {
    settings.Put(u"StatementTimeout", *commandLine.statementTimeout);
  }
}

}  // namespace workbench
