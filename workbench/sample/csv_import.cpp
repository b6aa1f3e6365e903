// The transaction around the two importers.
#include "workbench/sample/csv_import.h"

#include <algorithm>
namespace workbench {

namespace {

using Importer = int (*)(Connection&, const CsvFile&, std::vector<ImportProblem>*);

int ImportFile(Importer importer, Connection& company, const std::optional<CsvFile>& file,
               std::vector<ImportProblem>* problems) {
  if (!file) return 0;
  std::vector<ImportProblem> found;
  const int added = importer(company, *file, &found);
  // Some checks run only after the whole file has been read.
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& left, const auto& right) { return left.line < right.line; });
  problems->insert(problems->end(), found.begin(), found.end());
  return added;
}

}  // namespace

ImportResult ImportCsv(Connection& company, const std::optional<CsvFile>& items,
                       const std::optional<CsvFile>& accounts) {
  company.RequireCompany();
  ImportResult result;
  Transaction transaction(company);
  result.items = ImportFile(ImportItems, company, items, &result.problems);
  result.accounts = ImportFile(ImportAccounts, company, accounts, &result.problems);
  if (result.problems.empty()) {
    if (items && result.items == 0) result.emptyFiles.push_back(items->name);
    if (accounts && result.accounts == 0) result.emptyFiles.push_back(accounts->name);
    transaction.Commit();
    return result;
  }
  result.items = 0;
  result.accounts = 0;
  return result;
}

}  // namespace workbench
