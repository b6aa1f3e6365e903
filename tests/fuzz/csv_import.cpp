// Files for the import: all rows are imported or none.
#include "workbench/sample/csv_import.h"
#include "tests/fuzz/company.h"

using namespace pricedown::fuzz;

namespace {

std::int64_t Ask(const std::string& query) {
  return workbench::QueryInteger(Company().get(), query);
}

// A table that the import adds to. Each input meets the same rows, so that its result is the same
// when it runs alone.
class Table {
 public:
  Table(const char* name, const char* id)
      : rows_(std::string(" from ") + name),
        id_(id),
        rowsBefore_(Rows()),
        lastId_(Ask("select max(" + id_ + ")" + rows_)) {}

  std::int64_t NewRows() const { return Rows() - rowsBefore_; }

  void RemoveNew() const {
    const std::string sql = "delete" + rows_ + " where " + id_ + ">" + std::to_string(lastId_);
    Require(sqlite3_exec(Company().get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
            "new rows can be removed");
  }

 private:
  std::int64_t Rows() const { return Ask("select count(*)" + rows_); }

  std::string rows_;
  std::string id_;
  std::int64_t rowsBefore_;
  std::int64_t lastId_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const workbench::CsvFile items{"items.csv", input.ConsumeRandomLengthString(4096)};
  const workbench::CsvFile accounts{"accounts.csv", input.ConsumeRemainingBytesAsString()};
  workbench::SqliteConnection connection(Company().get());
  static const Table itemTable("t_ICItem", "FItemID");
  static const Table accountTable("t_account", "FAccountID");

  const workbench::ImportResult result = workbench::ImportCsv(connection, items, accounts);

  const std::int64_t newItems = itemTable.NewRows();
  const std::int64_t newAccounts = accountTable.NewRows();
  if (!result.problems.empty()) {
    Require(newItems == 0 && newAccounts == 0, "a file with a problem adds nothing");
  } else {
    Require(newItems == result.items && newAccounts == result.accounts,
            "what is reported was added");
  }
  itemTable.RemoveNew();
  accountTable.RemoveNew();
  return 0;
}
