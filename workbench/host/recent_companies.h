// The recently opened companies, stored in the user's registry without passwords.
#pragma once

#include <string>
#include <vector>

namespace workbench {

// The newest first; at most eight. Paths and connection strings without passwords: those that an
// earlier version stored are removed from the registry.
std::vector<std::wstring> RecentCompanies();

// Moves a location to the front. Failures to store it are ignored.
void AddRecentCompany(const std::wstring& location);

}  // namespace workbench
