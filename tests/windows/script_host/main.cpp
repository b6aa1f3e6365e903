// script_host FILE: runs one VBScript file in UTF-8 and reports its errors with file and line.
// Exit code: 0, 1 when the script failed or a check of it did, 2 when it could not be started.
#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <cstdio>
#include <string>

#include "platform/failure.h"
#include "platform/text.h"
#include "tests/windows/script_host/script_engine.h"
#include "tests/windows/script_host/script_services.h"
#include "windows/com/wide_text.h"

namespace {

using pricedown::testing::RunScript;
using pricedown::testing::ScriptServices;

bool ReadFile(const wchar_t* name, std::u16string& text) {
  const HANDLE file =
      CreateFileW(name, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  std::string bytes;
  char block[4096];
  DWORD read = 0;
  while (::ReadFile(file, block, sizeof block, &read, nullptr) != FALSE && read > 0) {
    bytes.append(block, read);
  }
  CloseHandle(file);
  text = pricedown::FromUtf8(bytes);
  return true;
}

int Run(const wchar_t* file) {
  std::u16string script;
  if (!ReadFile(file, script)) {
    std::fprintf(stderr, "script_host: cannot read the script\n");
    return 2;
  }
  const auto services = std::make_shared<ScriptServices>();
  const bool ran = RunScript(script, pricedown::windows::FromWide(file), services);
  services->CloseWindows();
  return ran && services->FailedChecks() == 0 ? 0 : 1;
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (arguments == nullptr || count != 2) {
    std::fprintf(stderr, "usage: script_host FILE\n");
    return 2;
  }
  int result = 2;
  if (const HRESULT code = OleInitialize(nullptr); FAILED(code)) {
    std::fprintf(stderr, "script_host: OLE: %08lX\n", static_cast<unsigned long>(code));
  } else {
    try {
      result = Run(arguments[1]);
    } catch (...) {
      const auto failure = pricedown::CurrentFailure();
      std::fprintf(stderr, "script_host: %s\n", pricedown::ToUtf8(failure.description).c_str());
    }
    OleUninitialize();
  }
  LocalFree(arguments);
  return result;
}
