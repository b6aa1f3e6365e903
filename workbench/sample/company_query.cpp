// Queries with one answer, and literals.
#include "workbench/sample/company_query.h"

#include <array>
#include <charconv>

#include "workbench/company/utf.h"

namespace workbench {

ResultSet Ask(Connection& company, std::string_view statement) {
  return company.Execute(Utf16FromUtf8(statement));
}

std::int64_t QueryInteger(Connection& company, std::string_view statement) {
  const ResultSet result = Ask(company, statement);
  return result.RowCount() == 0 ? 0 : IntegerOf(result.At(0, 0));
}

std::int64_t IntegerOf(const Cell& cell) {
  if (cell.Kind() == CellKind::Integer) return cell.Integer();
  return cell.Kind() == CellKind::Number ? static_cast<std::int64_t>(cell.Number()) : 0;
}

std::string PlainDigits(double number) {
  std::array<char, 400> digits{};
  const auto written =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
  return {digits.data(), written.ptr};
}

std::string TextOf(const Cell& cell) {
  switch (cell.Kind()) {
    case CellKind::Null:
      break;
    case CellKind::Integer:
      return std::to_string(cell.Integer());
    case CellKind::Number:
      return PlainDigits(cell.Number());
    case CellKind::Text:
      return Utf8FromUtf16(cell.Text());
  }
  return {};
}

std::string Literal(std::string_view text) {
  std::string literal = "'";
  for (const char character : text) {
    literal += character;
    if (character == '\'') literal += character;
  }
  return literal += '\'';
}

std::string ProfileOf(Connection& company, std::string_view category, std::string_view key) {
  const ResultSet result =
      Ask(company, "SELECT FValue FROM t_systemprofile WHERE FCategory=" + Literal(category) +
                       " AND FKey=" + Literal(key));
  return result.RowCount() == 0 ? std::string() : TextOf(result.At(0, 0));
}

}  // namespace workbench
