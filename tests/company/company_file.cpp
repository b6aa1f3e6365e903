#include "tests/company/company_file.h"

#include <sstream>

#include "workbench/company/utf.h"

namespace workbench::testing {
namespace {

std::string CellText(const Cell& cell) {
  switch (cell.Kind()) {
    case CellKind::Null:
      return "NULL";
    case CellKind::Integer:
      return std::to_string(cell.Integer());
    case CellKind::Number: {
      std::ostringstream text;
      text << cell.Number();
      return text.str();
    }
    case CellKind::Text:
      return "'" + Utf8FromUtf16(cell.Text()) + "'";
  }
  return "?";
}

}  // namespace

ResultSet OpenCompany::Execute(std::string_view text) {
  return connection_.Execute(Utf16FromUtf8(text));
}

std::string OpenCompany::Rows(std::string_view text) { return RowsOf(Execute(text)); }

std::string OpenCompany::Refusal(std::string_view text) {
  try {
    Execute(text);
  } catch (const DatabaseError& error) {
    return error.what();
  }
  return {};
}

int OpenCompany::RefusalNumber(std::string_view text) {
  try {
    Execute(text);
  } catch (const DatabaseError& error) {
    return error.NativeNumber();
  }
  return 0;
}

std::string RowsOf(const ResultSet& result) {
  std::string text;
  for (std::size_t row = 0; row < result.RowCount(); ++row) {
    for (std::size_t column = 0; column < result.ColumnCount(); ++column) {
      if (column > 0) text += "|";
      text += CellText(result.At(row, column));
    }
    text += "\n";
  }
  return text;
}

std::string ColumnsOf(const ResultSet& result) {
  std::string text;
  for (std::size_t i = 0; i < result.ColumnCount(); ++i) {
    const ResultColumn& column = result.Column(i);
    if (i > 0) text += " ";
    text += Utf8FromUtf16(column.name) + ":" + std::to_string(static_cast<int>(column.type)) + "(" +
            std::to_string(column.definedSize) + ")";
  }
  return text;
}

}  // namespace workbench::testing
