// Writes a company's items and accounts as CSV for the import.
#pragma once

#include <string>

#include "workbench/company/connection.h"

namespace workbench {

// The whole files, in UTF-8 with CR LF, in code order. Imported into a company without them, they
// restore the same items and accounts. Ids are new there. Throw DatabaseError.
std::string ExportItems(Connection& company);
std::string ExportAccounts(Connection& company);

}  // namespace workbench
