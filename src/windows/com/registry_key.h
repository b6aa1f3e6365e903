// Writing and removing single registry keys.
#pragma once

#include <windows.h>

#include <string>

namespace pricedown::windows {

// Creates the key when it is missing. An empty name is the key's own value. Throws
// AutomationError.
void WriteText(HKEY root, const std::wstring& key, const std::wstring& name,
               const std::wstring& text);

// The key's own value; empty when there is none.
std::wstring ReadText(HKEY root, const std::wstring& key);

// Removes a key with everything below it; a missing key is no error.
LSTATUS RemoveTree(HKEY root, const std::wstring& key);

// Removes a key that has neither subkeys nor values; a no-op for any other.
void RemoveIfEmpty(HKEY root, const std::wstring& key);

bool HasSubkeys(HKEY root, const std::wstring& key);

// Whether the other view of the registry, 32-bit for a 64-bit program and the other way round,
// has that key as one of its own. False where there is only one view.
bool ExistsForOtherWordSize(HKEY root, const std::wstring& key);

// Runs several removals and keeps the first failure.
class FirstRemovalFailure {
 public:
  void Note(LSTATUS status) {
    if (status_ == ERROR_SUCCESS) status_ = status;
  }
  // Throws AutomationError for the first failure, if any.
  void Rethrow() const;

 private:
  LSTATUS status_ = ERROR_SUCCESS;
};

}  // namespace pricedown::windows
