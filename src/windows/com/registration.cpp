// Which keys a server has, written and removed.
#include "windows/com/registration.h"

#include <objbase.h>

#include "windows/com/registry_key.h"

namespace pricedown::windows {
namespace {

constexpr const wchar_t* kAutomationProxy = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kDispatchProxy = L"{00020420-0000-0000-C000-000000000046}";
constexpr const wchar_t* kControlCategory = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";

std::wstring GuidText(const GUID& guid) {
  wchar_t text[40];
  const int length = StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
  return std::wstring(text, static_cast<std::size_t>(length > 0 ? length - 1 : 0));
}

// std::to_wstring would link the runtime's whole formatted output of wide characters.
template <typename Integer>
std::wstring DecimalText(Integer number) {
  const std::string digits = std::to_string(number);
  return std::wstring(digits.begin(), digits.end());
}

std::wstring UnderClasses(const std::wstring& key) { return L"Software\\Classes\\" + key; }

HKEY RootOf(RegistrationScope scope) {
  return scope == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::wstring ClassKey(const ClassEntry& entry) {
  return UnderClasses(L"CLSID\\" + GuidText(entry.id));
}
std::wstring ProgIdKey(const ClassEntry& entry) { return UnderClasses(entry.progId); }
std::wstring VersionedProgId(const ClassEntry& entry) { return entry.progId + L".1"; }
std::wstring InterfaceKey(const InterfaceEntry& entry) {
  return UnderClasses(L"Interface\\" + GuidText(entry.id));
}
std::wstring LibraryKey(const TypeLibraryEntry& entry) {
  return UnderClasses(L"TypeLib\\" + GuidText(entry.id));
}

void WriteProgIds(HKEY root, const ClassEntry& entry) {
  const std::wstring id = GuidText(entry.id);
  const std::wstring general = ProgIdKey(entry);
  const std::wstring versioned = UnderClasses(VersionedProgId(entry));
  WriteText(root, general, L"", entry.name);
  WriteText(root, general + L"\\CLSID", L"", id);
  WriteText(root, general + L"\\CurVer", L"", VersionedProgId(entry));
  WriteText(root, versioned, L"", entry.name);
  WriteText(root, versioned + L"\\CLSID", L"", id);
}

void WriteControl(HKEY root, const std::wstring& key, const ClassEntry& entry,
                  const std::wstring& module) {
  WriteText(root, key + L"\\Control", L"", L"");
  WriteText(root, key + L"\\Implemented Categories\\" + kControlCategory, L"", L"");
  WriteText(root, key + L"\\MiscStatus", L"", L"0");
  // 1 is the content, the one aspect that a control draws.
  WriteText(root, key + L"\\MiscStatus\\1", L"", DecimalText(entry.miscStatus));
  if (entry.toolboxBitmap != 0) {
    WriteText(root, key + L"\\ToolboxBitmap32", L"",
              module + L", " + DecimalText(entry.toolboxBitmap));
  }
}

void WriteClass(HKEY root, const ClassEntry& entry, const ServerEntries& entries,
                const std::wstring& module) {
  const std::wstring key = ClassKey(entry);
  WriteText(root, key, L"", entry.name);
  WriteText(root, key + L"\\InprocServer32", L"", module);
  WriteText(root, key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  WriteText(root, key + L"\\ProgID", L"", VersionedProgId(entry));
  WriteText(root, key + L"\\VersionIndependentProgID", L"", entry.progId);
  WriteText(root, key + L"\\Programmable", L"", L"");
  if (entries.library) {
    WriteText(root, key + L"\\TypeLib", L"", GuidText(entries.library->id));
    WriteText(root, key + L"\\Version", L"", entries.library->version);
  }
  if (entry.control) WriteControl(root, key, entry, module);
  WriteProgIds(root, entry);
}

void WriteLibrary(HKEY root, const TypeLibraryEntry& library, const std::wstring& module) {
  const std::wstring key = LibraryKey(library) + L"\\" + library.version;
  WriteText(root, key, L"", library.name);
  WriteText(root, key + L"\\0\\" + kPlatform, L"", module);
  WriteText(root, key + L"\\FLAGS", L"", L"0");
  WriteText(root, key + L"\\HELPDIR", L"", module.substr(0, module.find_last_of(L'\\')));
  for (const InterfaceEntry& one : library.interfaces) {
    const std::wstring interfaceKey = InterfaceKey(one);
    WriteText(root, interfaceKey, L"", one.name);
    WriteText(root, interfaceKey + L"\\ProxyStubClsid32", L"",
              one.dispatchOnly ? kDispatchProxy : kAutomationProxy);
    WriteText(root, interfaceKey + L"\\TypeLib", L"", GuidText(library.id));
    WriteText(root, interfaceKey + L"\\TypeLib", L"Version", library.version);
  }
}

void RemoveLibrary(HKEY root, const TypeLibraryEntry& library, FirstRemovalFailure& failure) {
  const std::wstring key = LibraryKey(library);
  const std::wstring platforms = key + L"\\" + library.version + L"\\0";
  failure.Note(RemoveTree(root, platforms + L"\\" + kPlatform));
  // Both word sizes share the rest.
  if (!HasSubkeys(root, platforms)) failure.Note(RemoveTree(root, key));
  for (const InterfaceEntry& one : library.interfaces) {
    failure.Note(RemoveTree(root, InterfaceKey(one)));
  }
}

void RemoveClass(HKEY root, const ClassEntry& entry, FirstRemovalFailure& failure) {
  failure.Note(RemoveTree(root, ClassKey(entry)));
  if (ExistsForOtherWordSize(root, ClassKey(entry))) return;
  for (const std::wstring& progId : {ProgIdKey(entry), UnderClasses(VersionedProgId(entry))}) {
    // Another program may have registered its class under that name since.
    const std::wstring id = ReadText(root, progId + L"\\CLSID");
    if (id.empty() || lstrcmpiW(id.c_str(), GuidText(entry.id).c_str()) == 0) {
      failure.Note(RemoveTree(root, progId));
    }
  }
}

FirstRemovalFailure RemoveAll(const ServerEntries& entries, RegistrationScope scope) {
  const HKEY root = RootOf(scope);
  FirstRemovalFailure failure;
  for (const ClassEntry& entry : entries.classes) RemoveClass(root, entry, failure);
  if (entries.library) RemoveLibrary(root, *entries.library, failure);
  // A user without entries has none of these keys.
  for (const wchar_t* shared : {L"CLSID", L"Interface", L"TypeLib"}) {
    RemoveIfEmpty(root, UnderClasses(shared));
  }
  RemoveIfEmpty(root, L"Software\\Classes");
  return failure;
}

}  // namespace

void Register(const ServerEntries& entries, RegistrationScope scope, const std::wstring& module) {
  const HKEY root = RootOf(scope);
  try {
    for (const ClassEntry& entry : entries.classes) WriteClass(root, entry, entries, module);
    if (entries.library) WriteLibrary(root, *entries.library, module);
  } catch (...) {
    RemoveAll(entries, scope);
    throw;
  }
}

void Unregister(const ServerEntries& entries, RegistrationScope scope) {
  RemoveAll(entries, scope).Rethrow();
}

}  // namespace pricedown::windows
