// The system's registry functions with errors as exceptions.
#include "windows/com/registry_key.h"

#include <algorithm>
#include <optional>

#include "windows/com/system_error.h"

namespace pricedown::windows {
namespace {

void ThrowIfError(LSTATUS status) {
  if (status != ERROR_SUCCESS) ThrowIfFailed(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

// Closes itself.
class OpenKey {
 public:
  OpenKey() = default;
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  ~OpenKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  HKEY get() const { return key_; }
  HKEY* put() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

struct Contents {
  DWORD subkeys = 0;
  DWORD values = 0;
};

// Nothing when the key does not exist or cannot be read.
std::optional<Contents> ContentsOf(HKEY root, const std::wstring& key) {
  OpenKey open;
  Contents contents;
  if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ, open.put()) != ERROR_SUCCESS ||
      RegQueryInfoKeyW(open.get(), nullptr, nullptr, nullptr, &contents.subkeys, nullptr, nullptr,
                       &contents.values, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  return contents;
}

bool IsSixtyFourBitSystem() {
  if constexpr (sizeof(void*) == 8) return true;
  BOOL emulated = FALSE;
  return IsWow64Process(GetCurrentProcess(), &emulated) != FALSE && emulated != FALSE;
}

}  // namespace

void WriteText(HKEY root, const std::wstring& key, const std::wstring& name,
               const std::wstring& text) {
  OpenKey open;
  ThrowIfError(
      RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, open.put(), nullptr));
  ThrowIfError(RegSetValueExW(open.get(), name.empty() ? nullptr : name.c_str(), 0, REG_SZ,
                              reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
}

std::wstring ReadText(HKEY root, const std::wstring& key) {
  DWORD bytes = 0;
  const auto read = [&](wchar_t* text) {
    return RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &bytes) ==
           ERROR_SUCCESS;
  };
  if (!read(nullptr)) return {};
  std::wstring text(bytes / sizeof(wchar_t), L'\0');
  if (!read(text.data())) return {};
  text.resize(std::min(text.size(), text.find(L'\0')));
  return text;
}

LSTATUS RemoveTree(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, key.c_str());
  return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

void RemoveIfEmpty(HKEY root, const std::wstring& key) {
  const std::optional<Contents> contents = ContentsOf(root, key);
  // The system refuses to delete a key that has acquired subkeys meanwhile.
  if (contents && contents->subkeys == 0 && contents->values == 0) RegDeleteKeyW(root, key.c_str());
}

bool HasSubkeys(HKEY root, const std::wstring& key) {
  const std::optional<Contents> contents = ContentsOf(root, key);
  return contents && contents->subkeys > 0;
}

bool ExistsForOtherWordSize(HKEY root, const std::wstring& key) {
  if (!IsSixtyFourBitSystem()) return false;
  constexpr REGSAM other = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  OpenKey open;
  return RegOpenKeyExW(root, key.c_str(), 0, KEY_READ | other, open.put()) == ERROR_SUCCESS;
}

void FirstRemovalFailure::Rethrow() const { ThrowIfError(status_); }

}  // namespace pricedown::windows
