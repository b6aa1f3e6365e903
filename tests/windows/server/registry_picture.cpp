// Reads the registry.
#include "tests/windows/server/registry_picture.h"

#include <algorithm>
#include <iterator>

#include "tests/support/utf8.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

std::string Utf8Of(const std::wstring& text) { return Utf8(windows::FromWide(text)); }

std::string ValueText(DWORD type, const std::vector<wchar_t>& data, DWORD bytes) {
  if (type != REG_SZ && type != REG_EXPAND_SZ) return "(type " + std::to_string(type) + ")";
  std::wstring text(data.data(), bytes / sizeof(wchar_t));
  while (!text.empty() && text.back() == L'\0') text.pop_back();
  return Utf8Of(text);
}

void ReadValues(HKEY key, const std::string& path, std::set<std::string>& lines) {
  std::vector<wchar_t> name(16384);
  std::vector<wchar_t> data(65536);
  for (DWORD index = 0;; ++index) {
    DWORD nameLength = static_cast<DWORD>(name.size());
    DWORD bytes = static_cast<DWORD>(data.size() * sizeof(wchar_t));
    DWORD type = 0;
    if (RegEnumValueW(key, index, name.data(), &nameLength, nullptr, &type,
                      reinterpret_cast<BYTE*>(data.data()), &bytes) != ERROR_SUCCESS) {
      return;
    }
    lines.insert(path + ": " + Utf8Of(std::wstring(name.data(), nameLength)) + " = " +
                 ValueText(type, data, bytes));
  }
}

std::vector<std::wstring> ChildrenOf(HKEY key) {
  std::vector<std::wstring> children;
  wchar_t name[256];
  for (DWORD index = 0;; ++index) {
    DWORD length = static_cast<DWORD>(std::size(name));
    if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return children;
    }
    children.emplace_back(name, length);
  }
}

void ReadAll(HKEY parent, const std::wstring& name, const std::string& path,
             std::set<std::string>& lines) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  lines.insert(path);
  ReadValues(key, path, lines);
  for (const std::wstring& child : ChildrenOf(key)) {
    ReadAll(key, child, path + "\\" + Utf8Of(child), lines);
  }
  RegCloseKey(key);
}

}  // namespace

std::set<std::string> RegisteredClasses(HKEY root, const std::vector<std::wstring>& marks) {
  std::set<std::string> lines;
  for (const wchar_t* container : {L"", L"\\CLSID", L"\\Interface", L"\\TypeLib"}) {
    HKEY key = nullptr;
    const std::wstring path = std::wstring(L"Software\\Classes") + container;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) continue;
    const std::string prefix = *container == L'\0' ? "" : Utf8Of(container + 1) + "\\";
    lines.insert(prefix);
    for (const std::wstring& child : ChildrenOf(key)) {
      const std::string name = prefix + Utf8Of(child);
      const bool marked = std::any_of(marks.begin(), marks.end(), [&](const std::wstring& mark) {
        return child.find(mark) != std::wstring::npos;
      });
      if (marked) {
        ReadAll(key, child, name, lines);
      } else {
        lines.insert(name);
      }
    }
    RegCloseKey(key);
  }
  return lines;
}

std::set<std::string> Added(const std::set<std::string>& before,
                            const std::set<std::string>& after) {
  std::set<std::string> added;
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                      std::inserter(added, added.end()));
  return added;
}

}  // namespace pricedown::testing
