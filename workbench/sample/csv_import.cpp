// The all-or-nothing frame around the two importers. What a good line is they say themselves.
#include "workbench/sample/csv_import.h"

#include <algorithm>

#include "workbench/company/schema.h"
#include "workbench/sample/sqlite_handle.h"

namespace workbench {

namespace {

using Importer = int (*)(sqlite3*, const CsvFile&, std::vector<ImportProblem>*);

int ImportFile(Importer importer, sqlite3* company, const std::optional<CsvFile>& file,
               std::vector<ImportProblem>* problems) {
  if (!file) return 0;
  std::vector<ImportProblem> found;
  const int added = importer(company, *file, &found);
  // Some checks look at a line only when the whole file has been read.
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& left, const auto& right) { return left.line < right.line; });
  problems->insert(problems->end(), found.begin(), found.end());
  return added;
}

}  // namespace

ImportResult ImportCsv(sqlite3* company, const std::optional<CsvFile>& items,
                       const std::optional<CsvFile>& accounts) {
  RequireCompany(company);
  ImportResult result;
  Transaction transaction(company);
  result.items = ImportFile(ImportItems, company, items, &result.problems);
  result.accounts = ImportFile(ImportAccounts, company, accounts, &result.problems);
  if (result.problems.empty()) {
    transaction.Commit();
    return result;
  }
  result.items = 0;
  result.accounts = 0;
  return result;
}

}  // namespace workbench
