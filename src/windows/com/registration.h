// The registry entries of a module's classes and type library, for the machine or for one user.
#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pricedown::windows {

struct InterfaceEntry {
  IID id;
  std::wstring name;
  bool dispatchOnly = false;  // no members beside those of IDispatch
};

struct TypeLibraryEntry {
  GUID id;
  std::wstring name;
  std::wstring version;  // as "1.0"
  std::vector<InterfaceEntry> interfaces;
};

struct ClassEntry {
  CLSID id;
  std::wstring name;
  std::wstring progId;  // without version; version 1 is registered beside it
  bool control = false;
  DWORD miscStatus = 0;   // OLEMISC flags of a control
  int toolboxBitmap = 0;  // resource number, 0 for none
};

struct ServerEntries {
  std::vector<ClassEntry> classes;
  std::optional<TypeLibraryEntry> library;
};

enum class RegistrationScope { Machine, User };

// Writes all entries with `module` as the server's path. Throws AutomationError and then removes
// all of them, those of an earlier registration too.
void Register(const ServerEntries& entries, RegistrationScope scope, const std::wstring& module);

// Removes all entries; missing ones are no failure, and a ProgID that now names another
// class stays. Keys shared with a build of the other word size are left while that one is
// registered. Throws AutomationError when an entry cannot be removed.
void Unregister(const ServerEntries& entries, RegistrationScope scope);

}  // namespace pricedown::windows
