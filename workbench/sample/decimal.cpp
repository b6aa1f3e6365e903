// Decimal text to double by std::from_chars, without sign, exponent or "inf".
#include "workbench/sample/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace workbench {
namespace {

bool IsDigits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::optional<double> ParsePlainDecimal(std::string_view text) {
  const std::size_t point = text.find('.');
  if (!IsDigits(text.substr(0, point))) return std::nullopt;
  if (point != std::string_view::npos && !IsDigits(text.substr(point + 1))) return std::nullopt;
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

double FromHundredths(std::int64_t hundredths) {
  std::array<char, 32> text{};
  auto end = std::to_chars(text.data(), text.data() + text.size(), hundredths / 100).ptr;
  *end++ = '.';
  *end++ = static_cast<char>('0' + hundredths / 10 % 10);
  *end++ = static_cast<char>('0' + hundredths % 10);
  double value = 0;
  std::from_chars(text.data(), end, value);
  return value;
}

}  // namespace workbench
