// Plays the user of a host whose company does not open: declines another one, opens 打开公司 and
// closes the frame. Prints in UTF-8 what the windows show.
//   host_start COMPANY     exit code 0, or 1 when a window does not appear or stays
#include <windows.h>

#include <shellapi.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>

#include "workbench/host/resource_ids.h"

namespace {

constexpr int kTextOfBox = 0xFFFF;
constexpr std::chrono::seconds kLongestWait{60};
constexpr const wchar_t* kDialogClass = L"#32770";

struct Search {
  DWORD process;
  const wchar_t* className;
  HWND found = nullptr;
};

BOOL CALLBACK IsWanted(HWND window, LPARAM lParam) {
  auto& search = *reinterpret_cast<Search*>(lParam);
  DWORD process = 0;
  wchar_t name[64] = {};
  GetWindowThreadProcessId(window, &process);
  GetClassNameW(window, name, 64);
  if (process != search.process || lstrcmpW(name, search.className) != 0) return TRUE;
  if (IsWindowVisible(window) == FALSE) return TRUE;
  search.found = window;
  return FALSE;
}

// The visible window of that class; null when the process has none.
HWND Find(DWORD process, const wchar_t* className) {
  Search search{process, className};
  EnumWindows(IsWanted, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool WaitUntil(const std::function<bool()>& holds) {
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    Sleep(50);
  }
  return true;
}

std::string TextOf(HWND window) {
  wchar_t text[2048] = {};
  SendMessageW(window, WM_GETTEXT, 2048, reinterpret_cast<LPARAM>(text));
  std::string utf8(3 * static_cast<std::size_t>(lstrlenW(text)) + 1, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(),
                                       static_cast<int>(utf8.size()), nullptr, nullptr);
  return utf8.substr(0, size > 0 ? static_cast<std::size_t>(size) - 1 : 0);
}

void Print(const char* what, HWND window) {
  std::printf("%s: %s\n", what, window == nullptr ? "none" : TextOf(window).c_str());
}

bool Play(DWORD process) {
  const auto dialog = [process] { return Find(process, kDialogClass); };
  if (!WaitUntil([&] { return dialog() != nullptr; })) return false;
  const HWND frame = Find(process, L"WorkbenchFrame");
  const HWND status = FindWindowExW(frame, nullptr, L"msctls_statusbar32", nullptr);
  Print("frame", frame);
  Print("message", GetDlgItem(dialog(), kTextOfBox));
  Print("status", status);
  PostMessageW(dialog(), WM_COMMAND, IDNO, 0);
  if (!WaitUntil([&] { return dialog() == nullptr; })) return false;
  Print("status afterwards", status);

  PostMessageW(frame, WM_COMMAND, IDM_FILE_OPEN, 0);
  if (!WaitUntil([&] { return dialog() != nullptr; })) return false;
  Print("dialog", dialog());
  PostMessageW(dialog(), WM_COMMAND, IDCANCEL, 0);
  if (!WaitUntil([&] { return dialog() == nullptr; })) return false;
  PostMessageW(frame, WM_CLOSE, 0, 0);
  return true;
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (words == nullptr || count != 2) return 2;
  const std::filesystem::path host =
      std::filesystem::path(words[0]).parent_path() / L"WorkbenchHost.exe";
  std::wstring command = L"\"" + host.wstring() + L"\" --company \"" + words[1] + L"\"";
  LocalFree(words);
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  PROCESS_INFORMATION started{};
  if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                     &started) == FALSE) {
    std::printf("cannot start: %lu\n", GetLastError());
    return 1;
  }
  bool isPlayed = Play(started.dwProcessId);
  if (WaitForSingleObject(started.hProcess, isPlayed ? 20000 : 0) != WAIT_OBJECT_0) {
    TerminateProcess(started.hProcess, 1);
    isPlayed = false;
  }
  DWORD code = 0;
  GetExitCodeProcess(started.hProcess, &code);
  std::printf("exit code: %lu\n", code);
  CloseHandle(started.hThread);
  CloseHandle(started.hProcess);
  return isPlayed ? 0 : 1;
}
