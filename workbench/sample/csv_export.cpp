// The lines of both CSV files; a field is quoted where it must be. What the import makes of them is
// found by reading them back.
#include "workbench/sample/csv_export.h"

#include <initializer_list>
#include <optional>
#include <unordered_set>

#include "workbench/sample/company_query.h"
#include "workbench/sample/import_rows.h"

namespace workbench {
namespace {

// The byte order mark in front: without it Excel on Chinese Windows reads the file as GBK.
constexpr std::string_view kItemHeader =
    "\xEF\xBB\xBF"
    "物料代码,物料名称,规格型号,短代码,物料属性,计量单位,计划单价,销售单价\r\n";
constexpr std::string_view kAccountHeader =
    "\xEF\xBB\xBF"
    "科目代码,科目名称,余额方向\r\n";
constexpr const char* kChanged = "导入后会与公司中的不同";

void AppendField(std::string& line, std::string_view field) {
  if (field.find_first_of("\",\r\n") == std::string_view::npos) {
    line += field;
    return;
  }
  line += '"';
  for (const char character : field) {
    line += character;
    if (character == '"') line += character;
  }
  line += '"';
}

std::string Line(std::initializer_list<std::string> fields) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != fields.begin()) line += ',';
    AppendField(line, field);
  }
  return line.append("\r\n");
}

// The first column of a row is its id.
std::string ItemLine(const ResultSet& rows, std::size_t row) {
  const auto text = [&](std::size_t column) { return TextOf(rows.At(row, column)); };
  return Line({text(1), text(2), text(3), text(4), text(5), text(6), text(7), text(8)});
}
std::string ItemLine(const ItemRow& item) {
  const auto price = [](const std::optional<double>& value) {
    return value ? PlainDigits(*value) : std::string();
  };
  return Line({item.number, item.name, item.model.value_or(""), item.shortNumber.value_or(""),
               std::to_string(item.category), item.unit, price(item.planPrice),
               price(item.salePrice)});
}

std::string AccountText(std::string number, std::string name, bool isDebit) {
  return Line({std::move(number), std::move(name), isDebit ? "借" : "贷"});
}
std::string AccountText(const ResultSet& rows, std::size_t row) {
  return AccountText(TextOf(rows.At(row, 1)), TextOf(rows.At(row, 2)),
                     IntegerOf(rows.At(row, 3)) >= 0);
}

// The ids of the rows whose code a row with a lower id has, as the company compares codes.
std::unordered_set<std::int64_t> DoubledCodes(Connection& company, const std::string& table,
                                              const std::string& id) {
  const ResultSet rows =
      Ask(company, "SELECT b." + id + " FROM " + table + " b INNER JOIN " + table +
                       " a ON a.FNumber=b.FNumber WHERE a." + id + "<b." + id);
  std::unordered_set<std::int64_t> ids;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) ids.insert(IntegerOf(rows.At(row, 0)));
  return ids;
}

}  // namespace

CsvExport ExportItems(Connection& company, const std::string& name) {
  const ResultSet rows = Ask(company,
                             "SELECT FItemID,FNumber,FName,FModel,FShortNumber,FErpClsID,FUnitName,"
                             "FPlanPrice,FSalePrice FROM t_ICItem ORDER BY FNumber,FItemID");
  CsvExport result{{name, std::string(kItemHeader)}, {}};
  for (std::size_t row = 0; row < rows.RowCount(); ++row) result.file.bytes += ItemLine(rows, row);

  const auto doubled = DoubledCodes(company, "t_ICItem", "FItemID");
  CsvTable table = OpenItemLines(result.file, &result.problems);
  for (std::size_t row = 0; table.Next(); ++row) {
    const std::size_t known = result.problems.size();
    const ItemRow item = ReadItem(table);
    if (result.problems.size() != known) continue;
    if (doubled.count(IntegerOf(rows.At(row, 0))) != 0) {
      table.Report("物料代码重复:" + item.number);
    } else if (ItemLine(item) != ItemLine(rows, row)) {
      table.Report(kChanged);
    }
  }
  return result;
}

CsvExport ExportAccounts(Connection& company, const std::string& name) {
  const ResultSet rows = Ask(
      company, "SELECT FAccountID,FNumber,FName,FDC FROM t_account ORDER BY FNumber,FAccountID");
  CsvExport result{{name, std::string(kAccountHeader)}, {}};
  std::unordered_set<std::string> numbers;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    result.file.bytes += AccountText(rows, row);
    numbers.insert(TextOf(rows.At(row, 1)));
  }
  const auto isThere = [&](const std::string& number) {
    return numbers.count(number) != 0 ||
           QueryInteger(company,
                        "SELECT count(*) FROM t_account WHERE FNumber=" + Literal(number)) > 0;
  };

  const auto doubled = DoubledCodes(company, "t_account", "FAccountID");
  CsvTable table = OpenAccountLines(result.file, &result.problems);
  for (std::size_t row = 0; table.Next(); ++row) {
    const std::size_t known = result.problems.size();
    const AccountRow account = ReadAccount(table).row;
    if (result.problems.size() != known) continue;
    const std::string parent = ParentNumber(account.number);
    if (doubled.count(IntegerOf(rows.At(row, 0))) != 0) {
      table.Report("科目代码重复:" + account.number);
    } else if (!parent.empty() && !isThere(parent)) {
      table.Report("上级科目不存在:" + parent);
    } else if (AccountText(account.number, account.name, account.isDebit) !=
               AccountText(rows, row)) {
      table.Report(kChanged);
    }
  }
  return result;
}

}  // namespace workbench
