// The scanner of numbers.
#include "platform/number_scan.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>
#include <system_error>

namespace pricedown {
namespace {

using Outcome = ScannedNumber::Outcome;

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsSign(char16_t c) { return c == u'+' || c == u'-'; }

bool IsOneOf(char16_t c, std::u16string_view set) {
  return set.find(c) != std::u16string_view::npos;
}

std::u16string_view WithoutLeadingBlanks(std::u16string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  return text;
}

std::u16string_view WithoutTrailingBlanks(std::u16string_view text) {
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// A number at the beginning of a text; length 0 when there is none.
struct Prefix {
  std::size_t length = 0;
  double number = 0;
  bool overflow = false;
};

// An unsigned decimal number: [digits][.digits][e[sign]digits] with a digit before any exponent.
Prefix ScanDecimal(std::u16string_view text) {
  std::string plain;
  std::size_t next = 0;
  const auto at = [text](std::size_t index) { return index < text.size() ? text[index] : u'\0'; };
  const auto appendDigits = [&] {
    const std::size_t first = next;
    while (IsDigit(at(next))) plain.push_back(static_cast<char>(at(next++)));
    return next - first;
  };

  appendDigits();
  std::size_t decimals = 0;
  if (at(next) == u'.') {
    ++next;
    decimals = appendDigits();
  }
  if (plain.empty()) return {};

  double exponent = 0;
  if (IsOneOf(at(next), u"eEdD")) {
    const std::size_t digits = next + (IsSign(at(next + 1)) ? 2 : 1);
    if (IsDigit(at(digits))) {
      const bool negative = at(next + 1) == u'-';
      for (next = digits; IsDigit(at(next)); ++next) exponent = exponent * 10 + (at(next) - u'0');
      if (negative) exponent = -exponent;
    }
  }
  // Without a point, which the host may have replaced for the process. Not std::from_chars, whose
  // code is a thirtieth of the DLL.
  constexpr double kFarBeyond = 1e9;
  plain += 'e';
  exponent = std::clamp(exponent - static_cast<double>(decimals), -kFarBeyond, kFarBeyond);
  plain += std::to_string(static_cast<std::int32_t>(exponent));
  const double number = std::strtod(plain.c_str(), nullptr);
  if (std::isinf(number)) return {next, 0, true};
  return {next, number};
}

struct Based {
  std::size_t length = 0;
  std::uint64_t number = 0;
  bool overflow = false;
};

// &H and hexadecimal digits, or &O and octal ones.
Based ScanBased(std::u16string_view text) {
  if (text.size() < 3 || text[0] != u'&' || !IsOneOf(text[1], u"hHoO")) return {};
  const int base = IsOneOf(text[1], u"hH") ? 16 : 8;
  std::string digits;
  for (char16_t c : text.substr(2)) {
    if (!IsOneOf(c, base == 16 ? u"0123456789abcdefABCDEF" : u"01234567")) break;
    digits.push_back(static_cast<char>(c));
  }
  if (digits.empty()) return {};
  Based based{2 + digits.size()};
  const char* const end = digits.data() + digits.size();
  based.overflow = std::from_chars(digits.data(), end, based.number, base).ec != std::errc();
  return based;
}

ScannedNumber Result(bool overflow, double number) {
  if (overflow) return {Outcome::Overflow};
  return {Outcome::Number, number};
}

// 16 and 32 bits wide numbers are signed, as literals of that form are.
double SignedByWidth(std::uint64_t number, bool atLeast32Bits) {
  if (number <= 0xFFFF && !atLeast32Bits) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(number));
  }
  if (number <= 0xFFFFFFFF) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
  }
  return static_cast<double>(number);
}

}  // namespace

ScannedNumber ScanLeadingNumber(std::u16string_view text) {
  std::u16string compact;
  std::remove_copy_if(text.begin(), text.end(), std::back_inserter(compact), IsBlank);
  std::u16string_view rest = compact;

  if (const Based based = ScanBased(rest); based.length > 0) {
    const bool marked = based.length < rest.size() && rest[based.length] == u'&';
    return Result(based.overflow, SignedByWidth(based.number, marked));
  }
  const bool negative = rest.starts_with(u'-');
  if (!rest.empty() && IsSign(rest.front())) rest.remove_prefix(1);
  const Prefix prefix = ScanDecimal(rest);
  if (prefix.length == 0) return {};
  return Result(prefix.overflow, negative ? -prefix.number : prefix.number);
}

ScannedNumber ScanWholeNumber(std::u16string_view text) {
  std::u16string_view rest = WithoutTrailingBlanks(WithoutLeadingBlanks(text));
  if (const Based based = ScanBased(rest); based.length > 0) {
    if (based.length < rest.size()) return {};
    return Result(based.overflow, static_cast<double>(based.number));
  }

  char16_t sign = 0;
  if (!rest.empty() && IsSign(rest.front())) {
    sign = rest.front();
    rest = WithoutLeadingBlanks(rest.substr(1));
  }
  const Prefix prefix = ScanDecimal(rest);
  if (prefix.length == 0) return {};
  rest = WithoutLeadingBlanks(rest.substr(prefix.length));
  if (sign == 0 && rest.size() == 1 && IsSign(rest.front())) {
    sign = rest.front();
    rest = {};
  }
  if (!rest.empty()) return {};
  return Result(prefix.overflow, sign == u'-' ? -prefix.number : prefix.number);
}

}  // namespace pricedown
