// Accounts from CSV: the columns, the rules of a line and their places in the hierarchy. The
// transaction around it is the caller's.
#include <map>

#include "workbench/sample/company_rows.h"
#include "workbench/sample/csv_import.h"
#include "workbench/sample/field_rules.h"

namespace workbench {
namespace {

enum AccountColumn : std::size_t { kAccountNumber, kAccountName, kAccountDirection };

constexpr CsvColumn kAccountColumns[] = {
    {"科目代码|代码|fnumber|number|code", true},
    {"科目名称|名称|fname|name", true},
    {"余额方向|方向|fdc|direction", false},
};

constexpr NamedField kAccountNumberField = {kAccountNumber, "科目代码", kMostCodeLength};
constexpr NamedField kAccountNameField = {kAccountName, "科目名称", kMostNameLength};

struct NewAccount {
  AccountRow row;
  int line = 0;
  bool hasDirection = false;
};

std::string ParentNumber(const std::string& number) {
  const std::size_t dot = number.rfind('.');
  return dot == std::string::npos ? std::string() : number.substr(0, dot);
}

bool HasEmptySegment(const std::string& number) {
  return number.front() == '.' || number.back() == '.' || number.find("..") != std::string::npos;
}

NewAccount ReadAccount(CsvTable& table) {
  NewAccount account;
  account.line = table.line();
  account.row.number = ReadCode(table, kAccountNumberField);
  if (!account.row.number.empty() && HasEmptySegment(account.row.number)) {
    table.Report("科目代码的级次不完整:" + account.row.number);
  }
  account.row.name = ReadText(table, kAccountNameField, true).value_or("");
  const std::string_view direction = table.Field(kAccountDirection);
  account.hasDirection = !direction.empty();
  if (direction == "贷" || direction == "-1") {
    account.row.isDebit = false;
  } else if (account.hasDirection && direction != "借" && direction != "1") {
    table.Report("余额方向必须是\"借\"或\"贷\":" + std::string(direction));
  }
  return account;
}

// Two passes: the first gives every line its id, the second finds parents wherever they stand.
class AccountImport {
 public:
  AccountImport(sqlite3* company, CsvTable& table)
      : table_(table),
        writer_(company),
        find_(company, "SELECT FAccountID,FLevel,FDC FROM t_account WHERE FNumber=?"),
        place_(company, "UPDATE t_account SET FLevel=?,FParentID=?,FDC=? WHERE FAccountID=?"),
        demote_(company, "UPDATE t_account SET FDetail=0 WHERE FAccountID=?"),
        firstNewId_(static_cast<int>(
                        QueryInteger(company, "SELECT ifnull(max(FAccountID),0) FROM t_account")) +
                    1) {}

  void AddLines() {
    while (table_.Next()) {
      NewAccount account = ReadAccount(table_);
      if (account.row.number.empty() || ReportKnown(account.row.number)) continue;
      account.row.id = firstNewId_ + static_cast<int>(added_.size());
      writer_.Add(account.row);
      added_.push_back(std::move(account));
    }
  }

  // Short numbers first: a parent has its level and direction before its sub accounts ask.
  void PlaceLines() {
    std::multimap<std::size_t, const NewAccount*> byLength;
    for (const NewAccount& each : added_) byLength.emplace(each.row.number.size(), &each);
    for (const auto& [length, account] : byLength) Place(*account);
  }

  int added() const { return static_cast<int>(added_.size()); }

 private:
  bool ReportKnown(const std::string& number) {
    find_.Start(number);
    if (!find_.Step()) return false;
    const auto id = static_cast<int>(find_.Integer(0));
    if (id < firstNewId_) {
      table_.Report("科目代码已在公司中存在:" + number);
    } else {
      const int line = added_[static_cast<std::size_t>(id - firstNewId_)].line;
      table_.Report("科目代码与第 " + std::to_string(line) + " 行重复:" + number);
    }
    return true;
  }

  void Place(const NewAccount& account) {
    const std::string parent = ParentNumber(account.row.number);
    if (parent.empty() || HasEmptySegment(account.row.number)) return;
    find_.Start(parent);
    if (!find_.Step()) {
      table_.ReportAt(account.line, "上级科目不存在:" + parent);
      return;
    }
    const auto parentId = static_cast<int>(find_.Integer(0));
    const auto level = static_cast<int>(find_.Integer(1)) + 1;
    const bool isDebit = account.hasDirection ? account.row.isDebit : find_.Integer(2) > 0;
    place_.Run(level, parentId, isDebit ? 1 : -1, account.row.id);
    demote_.Run(parentId);
  }

  CsvTable& table_;
  CompanyWriter writer_;
  Statement find_, place_, demote_;
  int firstNewId_;
  std::vector<NewAccount> added_;
};

}  // namespace

int ImportAccounts(sqlite3* company, const CsvFile& file, std::vector<ImportProblem>* problems) {
  CsvTable table(file, kAccountColumns, problems);
  AccountImport import(company, table);
  import.AddLines();
  import.PlaceLines();
  return import.added();
}

}  // namespace workbench
