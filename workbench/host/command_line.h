// The command line of WorkbenchHost.exe.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/automation.h"

namespace workbench {

struct CommandLine {
  std::wstring company;  // path or connection string
  std::wstring replay;   // a recording, in place of a company
  std::wstring tour;
  std::wstring keys;  // the tour with the keyboard alone
  // In seconds.
  std::optional<int> loginTimeout;
  std::optional<int> statementTimeout;
};

inline constexpr const wchar_t* kUsage =
    L"WorkbenchHost.exe [--company 公司文件或连接串] [--tour 文件夹 | --keys 文件夹]\n"
    L"[--login-timeout 秒] [--statement-timeout 秒]\n"
    L"WorkbenchHost.exe --replay 记录文件";

// `words` without the program's name. Nothing for a bad command line.
std::optional<CommandLine> ParseCommandLine(const std::vector<std::wstring>& words);

// Sets the time limits that were given, for companies that are opened afterwards. Throws
// AutomationError.
void SetTimeouts(pricedown::AutomationObject& settings, const CommandLine& commandLine);

}  // namespace workbench
