// Files for the import: all rows are imported or none.
#include "workbench/sample/csv_import.h"
#include "tests/fuzz/company.h"

using namespace pricedown::fuzz;

namespace {

std::int64_t RowsOf(const char* table) {
  return workbench::QueryInteger(Company().get(), std::string("select count(*) from ") + table);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const workbench::CsvFile items{"items.csv", input.ConsumeRandomLengthString(4096)};
  const workbench::CsvFile accounts{"accounts.csv", input.ConsumeRemainingBytesAsString()};
  workbench::SqliteConnection connection(Company().get());
  const std::int64_t itemsBefore = RowsOf("t_ICItem");
  const std::int64_t accountsBefore = RowsOf("t_account");

  const workbench::ImportResult result = workbench::ImportCsv(connection, items, accounts);

  const std::int64_t newItems = RowsOf("t_ICItem") - itemsBefore;
  const std::int64_t newAccounts = RowsOf("t_account") - accountsBefore;
  if (!result.problems.empty()) {
    Require(newItems == 0 && newAccounts == 0, "a file with a problem adds nothing");
  } else {
    Require(newItems == result.items && newAccounts == result.accounts,
            "what is reported was added");
  }
  return 0;
}
