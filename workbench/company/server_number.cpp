// The shapes of numbers in text, their limits, and the server's messages.
#include "workbench/company/server_number.h"

#include <charconv>

namespace workbench {
namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

std::size_t SkipDigits(std::string_view text, std::size_t position) {
  while (position < text.size() && IsDigit(text[position])) ++position;
  return position;
}

enum class Shape { None, Whole, Fraction, Exponent };

// `text` is without a sign.
Shape ShapeOf(std::string_view text) {
  std::size_t position = SkipDigits(text, 0);
  std::size_t digits = position;
  Shape shape = Shape::Whole;
  if (position < text.size() && text[position] == '.') {
    const std::size_t end = SkipDigits(text, position + 1);
    digits += end - position - 1;
    position = end;
    shape = Shape::Fraction;
  }
  if (digits == 0) return Shape::None;
  if (position < text.size() && (text[position] == 'e' || text[position] == 'E')) {
    std::size_t exponent = position + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    position = SkipDigits(text, exponent);
    if (position == exponent) return Shape::None;
    shape = Shape::Exponent;
  }
  return position == text.size() ? shape : Shape::None;
}

std::string_view WithoutOuterBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::optional<ServerNumber> NumberFromText(std::string_view text, NumberType type) {
  std::string_view digits = WithoutOuterBlanks(text);
  if (digits.empty()) {
    if (type == NumberType::Decimal) return std::nullopt;
    return ServerNumber{true, 0, 0};
  }
  const bool negative = digits.front() == '-';
  if (negative || digits.front() == '+') digits.remove_prefix(1);

  const Shape shape = ShapeOf(digits);
  if (shape == Shape::None) return std::nullopt;
  if (type == NumberType::Integer && shape != Shape::Whole) return std::nullopt;
  if (type == NumberType::Decimal && shape == Shape::Exponent) return std::nullopt;

  const char* end = digits.data() + digits.size();
  if (shape == Shape::Whole) {
    std::int64_t integer = 0;
    if (std::from_chars(digits.data(), end, integer).ec == std::errc()) {
      return ServerNumber{true, negative ? -integer : integer, 0};
    }
    if (type == NumberType::Integer) return std::nullopt;
  }
  double real = 0;
  if (std::from_chars(digits.data(), end, real).ec != std::errc()) return std::nullopt;
  return ServerNumber{false, 0, negative ? -real : real};
}

const char* ServerTypeName(NumberType type) {
  switch (type) {
    case NumberType::Integer:
      return "int";
    case NumberType::Decimal:
      return "numeric";
    case NumberType::Float:
      break;
  }
  return "float";
}

std::string ConversionFailure(std::string_view text, NumberType type) {
  if (type == NumberType::Integer) {
    return "在将 varchar 值 '" + std::string(text) + "' 转换成数据类型 int 时失败。";
  }
  return std::string("从数据类型 varchar 转换为 ") + ServerTypeName(type) + " 时出错。";
}

int ConversionFailureNumber(NumberType type) { return type == NumberType::Integer ? 245 : 8114; }

}  // namespace workbench
