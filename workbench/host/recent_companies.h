// The companies that were opened last, kept for the user in the registry without passwords.
#pragma once

#include <string>
#include <vector>

namespace workbench {

// The newest first; at most eight. Paths and connection strings without passwords.
std::vector<std::wstring> RecentCompanies();

// Puts a location in front, once; what cannot be stored is not remembered.
void AddRecentCompany(const std::wstring& location);

}  // namespace workbench
