// Writes a company's items and accounts as CSV for the import.
#pragma once

#include <string>
#include <vector>

#include "workbench/company/connection.h"
#include "workbench/sample/csv_table.h"

namespace workbench {

// A whole file, in UTF-8 with CR LF, in code order, and its lines that an import would refuse or
// change. Imported into a company without them, the others restore the same items and accounts. Ids
// are new there.
struct CsvExport {
  CsvFile file;
  std::vector<ImportProblem> problems;
};

// `name` is the file's. Throw DatabaseError.
CsvExport ExportItems(Connection& company, const std::string& name);
CsvExport ExportAccounts(Connection& company, const std::string& name);

}  // namespace workbench
