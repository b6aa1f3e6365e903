// The lines of both CSV files; a field is quoted where it must be.
#include "workbench/sample/csv_export.h"

#include "workbench/sample/company_query.h"

namespace workbench {
namespace {

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

}  // namespace

std::string ExportItems(Connection& company) {
  const ResultSet rows = Ask(company,
                             "SELECT FNumber,FName,FModel,FShortNumber,FErpClsID,FUnitName,"
                             "FPlanPrice,FSalePrice FROM t_ICItem ORDER BY FNumber");
  std::string text = "物料代码,物料名称,规格型号,短代码,物料属性,计量单位,计划单价,销售单价\r\n";
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    std::string line;
    for (std::size_t i = 0; i < rows.ColumnCount(); ++i) {
      if (i > 0) line += ',';
      AppendField(line, TextOf(rows.At(row, i)));
    }
    text.append(line).append("\r\n");
  }
  return text;
}

std::string ExportAccounts(Connection& company) {
  const ResultSet rows = Ask(company, "SELECT FNumber,FName,FDC FROM t_account ORDER BY FNumber");
  std::string text = "科目代码,科目名称,余额方向\r\n";
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    std::string line;
    AppendField(line, TextOf(rows.At(row, 0)));
    line += ',';
    AppendField(line, TextOf(rows.At(row, 1)));
    line += ',';
    line += IntegerOf(rows.At(row, 2)) < 0 ? "贷" : "借";
    text.append(line).append("\r\n");
  }
  return text;
}

}  // namespace workbench
