// Reading a declared type: its kind, length, precision.
#include "workbench/company/column_type.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

namespace workbench {
namespace {

constexpr std::int64_t kUnlimitedText = 1073741823;
constexpr int kDefaultPrecision = 18;

std::string UpperCased(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 32) : character;
  });
  return result;
}

bool Has(std::string_view text, std::string_view word) {
  return text.find(word) != std::string_view::npos;
}

ColumnKind KindOfUpperCased(std::string_view type) {
  if (Has(type, "INT")) return ColumnKind::Integer;
  if (Has(type, "CHAR") || Has(type, "CLOB") || Has(type, "TEXT")) return ColumnKind::Text;
  if (type.empty() || Has(type, "BLOB")) return ColumnKind::Other;
  if (Has(type, "REAL") || Has(type, "FLOA") || Has(type, "DOUB")) return ColumnKind::Float;
  return ColumnKind::Decimal;
}

// The number after the first occurrence of `opening`, or `absent`.
int NumberAfter(std::string_view type, char opening, int absent) {
  std::size_t position = type.find(opening);
  if (position == std::string_view::npos) return absent;
  position = type.find_first_not_of(' ', position + 1);
  if (position == std::string_view::npos) return absent;
  int number = absent;
  std::from_chars(type.data() + position, type.data() + type.size(), number);
  return number;
}

}  // namespace

ColumnKind KindOfDeclaredType(std::string_view declaredType) {
  return KindOfUpperCased(UpperCased(declaredType));
}

ResultColumn DescribeDeclaredType(std::string_view declaredType) {
  const std::string type = UpperCased(declaredType);
  ResultColumn column;
  switch (KindOfUpperCased(type)) {
    case ColumnKind::Integer:
      column.type = Has(type, "BIGINT")                             ? AdoType::BigInt
                    : Has(type, "SMALLINT") || Has(type, "TINYINT") ? AdoType::SmallInt
                                                                    : AdoType::Integer;
      column.definedSize = column.type == AdoType::BigInt    ? 8
                           : column.type == AdoType::Integer ? 4
                                                             : 2;
      break;
    case ColumnKind::Float:
      column.type = AdoType::Double;
      column.definedSize = 8;
      break;
    case ColumnKind::Decimal:
      column.type = AdoType::Numeric;
      column.definedSize = 19;
      column.precision = NumberAfter(type, '(', kDefaultPrecision);
      column.scale = NumberAfter(type, ',', 0);
      break;
    case ColumnKind::Text:
    case ColumnKind::Other: {
      const int length = NumberAfter(type, '(', 0);
      column.type = length > 0 ? AdoType::VarWChar : AdoType::LongVarWChar;
      column.definedSize = length > 0 ? length : kUnlimitedText;
      break;
    }
  }
  return column;
}

}  // namespace workbench
