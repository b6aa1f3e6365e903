// Accounts from CSV: the columns, the rules of a line and their places in the hierarchy.
#include <map>

#include "workbench/sample/added_lines.h"
#include "workbench/sample/company_rows.h"
#include "workbench/sample/csv_import.h"
#include "workbench/sample/field_rules.h"
#include "workbench/sample/import_rows.h"

namespace workbench {
namespace {

enum AccountColumn : std::size_t { kAccountNumber, kAccountName, kAccountDirection };

constexpr CsvColumn kAccountColumns[] = {
    {"科目代码|代码|fnumber|number|code", true},
    {"科目名称|名称|fname|name", true},
    {"余额方向|方向|fdc|direction", false},
};

constexpr NamedField kAccountNumberField = {kAccountNumber, "科目代码", kMaximumCodeLength};
constexpr NamedField kAccountNameField = {kAccountName, "科目名称", kMaximumNameLength};

bool HasEmptySegment(const std::string& number) {
  return number.front() == '.' || number.back() == '.' || number.find("..") != std::string::npos;
}

}  // namespace

std::string ParentNumber(const std::string& number) {
  const std::size_t dot = number.rfind('.');
  if (dot == std::string::npos || HasEmptySegment(number)) return {};
  return number.substr(0, dot);
}

CsvTable OpenAccountLines(const CsvFile& file, std::vector<ImportProblem>* problems) {
  return {file, kAccountColumns, problems};
}

AccountLine ReadAccount(CsvTable& table) {
  AccountLine account;
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

namespace {

// Two passes: the first assigns ids, the second finds parents anywhere in the file.
class AccountImport {
 public:
  AccountImport(Connection& company, CsvTable& table)
      : company_(company),
        table_(table),
        lines_(company, {"t_account", "FAccountID", "科目代码"}) {}

  void AddLines() {
    CompanyWriter writer(company_);
    while (table_.Next()) {
      AccountLine account = ReadAccount(table_);
      if (account.row.number.empty()) continue;
      account.row.id = lines_.NextId();
      writer.Add(account.row);
      lines_.Remember(account.line);
      added_.push_back(std::move(account));
    }
    writer.Finish();
    lines_.ReportKnown(table_);
  }

  // Short numbers first, so that a parent has its level and direction before its sub accounts.
  void PlaceLines() {
    std::multimap<std::size_t, const AccountLine*> byLength;
    for (const AccountLine& each : added_) byLength.emplace(each.row.number.size(), &each);
    for (const auto& [length, account] : byLength) Place(*account);
  }

  int Count() const { return lines_.Count(); }

 private:
  void Place(const AccountLine& account) {
    const std::string parent = ParentNumber(account.row.number);
    if (parent.empty()) return;
    const ResultSet found = Ask(
        company_, "SELECT FAccountID,FLevel,FDC FROM t_account WHERE FNumber=" + Literal(parent));
    if (found.RowCount() == 0) {
      table_.ReportAt(account.line, "上级科目不存在:" + parent);
      return;
    }
    const std::string parentId = std::to_string(IntegerOf(found.At(0, 0)));
    const bool isDebit = account.hasDirection ? account.row.isDebit : IntegerOf(found.At(0, 2)) > 0;
    Ask(company_, "UPDATE t_account SET FLevel=" + std::to_string(IntegerOf(found.At(0, 1)) + 1) +
                      ",FParentID=" + parentId + ",FDC=" + (isDebit ? "1" : "-1") +
                      " WHERE FAccountID=" + std::to_string(account.row.id));
    Ask(company_, "UPDATE t_account SET FDetail=0 WHERE FAccountID=" + parentId);
  }

  Connection& company_;
  CsvTable& table_;
  AddedLines lines_;
  std::vector<AccountLine> added_;
};

}  // namespace

int ImportAccounts(Connection& company, const CsvFile& file, std::vector<ImportProblem>* problems) {
  CsvTable table = OpenAccountLines(file, problems);
  AccountImport import(company, table);
  import.AddLines();
  import.PlaceLines();
  return import.Count();
}

}  // namespace workbench
