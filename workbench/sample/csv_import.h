// Imports a user's items and accounts from CSV files into a company. Existing ones never change,
// except that a parent account ceases to be a detail account.
#pragma once

#include <optional>
#include <vector>

#include "workbench/company/connection.h"
#include "workbench/sample/csv_table.h"

namespace workbench {

struct ImportResult {
  int items = 0;     // items added
  int accounts = 0;  // accounts added
  // Files that hold a header and no line.
  std::vector<std::string> emptyFiles;
  // All problems by file and line. Unless empty, nothing was added.
  std::vector<ImportProblem> problems;
};

// Checks every line of both files and adds all of them or none, in one transaction. Refuses codes
// that are in the company or twice in the file. Throws SchemaError for a database that is no
// company, and DatabaseError; then nothing was added.
// Requires: no transaction is open.
ImportResult ImportCsv(Connection& company, const std::optional<CsvFile>& items,
                       const std::optional<CsvFile>& accounts);

// Adds the lines of an items file; returns how many were good.
// Requires: a transaction, to be rolled back when `problems` has grown.
int ImportItems(Connection& company, const CsvFile& file, std::vector<ImportProblem>* problems);

// The same for an accounts file. A parent may come after its sub accounts.
int ImportAccounts(Connection& company, const CsvFile& file, std::vector<ImportProblem>* problems);

}  // namespace workbench
