// The keys under which connection strings hold a password.
#pragma once

#include <string_view>

namespace workbench {

// In lower case.
inline constexpr std::string_view kPasswordKeys[] = {"pwd", "password", "passwd", "pass",
                                                     "accesstoken"};

}  // namespace workbench
