// Finds inconsistent rows in a company. Reads only.
#pragma once

#include <string>
#include <vector>

#include "workbench/company/connection.h"

namespace workbench {

// One line, in Chinese, per finding, in this order: items in two classes, classes whose rows
// differ in their header, members without an item, accounts that a save cannot look up, classes
// that cannot be listed, stale settings. Empty when all is well. Reads only. Throws SchemaError,
// DatabaseError.
std::vector<std::string> CheckCompany(Connection& company);

}  // namespace workbench
