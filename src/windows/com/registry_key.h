// Writing and removing single registry keys.
// Which keys a server has is registration.h.
#pragma once

#include <windows.h>

#include <string>

namespace pricedown::windows {

// Makes the key when it is not there. An empty name is the key's own value. Throws
// AutomationError.
void WriteText(HKEY root, const std::wstring& key, const std::wstring& name,
               const std::wstring& text);

// Removes a key with everything below it; a key that is not there is no error.
LSTATUS RemoveTree(HKEY root, const std::wstring& key);

// Removes a key without subkeys and values, and only such a one.
void RemoveIfEmpty(HKEY root, const std::wstring& key);

bool HasSubkeys(HKEY root, const std::wstring& key);

// Whether the other view of the registry, 32-bit for a 64-bit program and the other way round,
// has that key as one of its own. False where there is only one view.
bool ExistsForOtherWordSize(HKEY root, const std::wstring& key);

// Keeps the first failure of several removals, so that one that fails does not end the others.
class FirstRemovalFailure {
 public:
  void Note(LSTATUS status) {
    if (status_ == ERROR_SUCCESS) status_ = status;
  }
  // Throws AutomationError when there was one.
  void Rethrow() const;

 private:
  LSTATUS status_ = ERROR_SUCCESS;
};

}  // namespace pricedown::windows
