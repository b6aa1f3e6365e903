// The users, rights, settings and system profile of a generated company.
#pragma once

#include <vector>

#include "workbench/sample/company_rows.h"

namespace workbench {

// The users that tests and tours sign in as.
inline constexpr int kAdministrator = 1;
inline constexpr int kUserWithoutAdd = 2;    // lacks 0x20000
inline constexpr int kUserWithoutPrint = 3;  // lacks 0x8000
inline constexpr int kUserOfScopeOne = 4;
inline constexpr int kUserOfScopeZero = 5;
inline constexpr int kUserWithoutRights = 6;

std::vector<UserRow> MakeUsers();
std::vector<RightRow> MakeRights();
std::vector<UserSettingRow> MakeUserSettings();
std::vector<ProfileRow> MakeSystemProfile();

}  // namespace workbench
