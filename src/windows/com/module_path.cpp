// Asks with a larger buffer until the path fits.
#include "windows/com/module_path.h"

#include "windows/com/system_error.h"

namespace pricedown::windows {

std::wstring ModulePath(HINSTANCE module) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) ThrowLastError();
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace pricedown::windows
