// The conversions between values, numbers and text.
#include "platform/convert.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string_view>

#include "platform/error.h"
#include "platform/number_scan.h"
#include "platform/text.h"

namespace pricedown {
namespace {

constexpr int kSignificantDigits = 15;
constexpr double kFirstWithExponent = 1e15;

[[noreturn]] void ThrowTypeMismatch() {
  throw AutomationError(ErrorNumber::TypeMismatch, u"类型不匹配");
}

[[noreturn]] void ThrowOverflow() { throw AutomationError(ErrorNumber::Overflow, u"溢出"); }

std::u16string Widened(const char* first, const char* last) { return std::u16string(first, last); }

std::u16string WholeNumberText(std::int64_t number) {
  std::array<char, 24> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  return Widened(buffer.data(), end);
}

// The text of a number with at most four decimals, which most amounts are; empty for any other.
std::u16string DecimalText(double number) {
  constexpr double kScale = 10000;
  const double scaled = std::round(number * kScale);
  // Rounded to a double, as the registers of 32-bit code are not.
  const volatile double decimal = scaled / kScale;
  // Up to 15 digits no two decimals have the same double.
  if (!(std::fabs(scaled) < kFirstWithExponent) || decimal != number) return {};
  const auto digits = static_cast<std::int64_t>(std::fabs(scaled));
  constexpr auto kDivisor = static_cast<std::int64_t>(kScale);
  std::array<char, 24> buffer{};
  char* at = buffer.data();
  if (number < 0) *at++ = '-';
  at = std::to_chars(at, buffer.data() + buffer.size(), digits / kDivisor).ptr;
  *at++ = '.';
  for (std::int64_t rest = digits % kDivisor; rest != 0; rest = rest * 10 % kDivisor) {
    *at++ = static_cast<char>('0' + rest * 10 / kDivisor);
  }
  return Widened(buffer.data(), at);
}

std::u16string Padded(int number, std::size_t width) {
  std::u16string text = NumberText(static_cast<std::int32_t>(number));
  if (text.size() < width) text.insert(0, width - text.size(), u'0');
  return text;
}

struct CivilDate {
  int year;
  int month;
  int day;
};

// The Gregorian date of a day number counted from 1899-12-30. Years are counted from March, so
// that the leap day is the last of its year.
CivilDate CivilDateOf(int dayNumber) {
  constexpr int kDaysTo1899 = 693899;  // from 0000-03-01
  constexpr int kDaysPer400Years = 146097;
  const int days = dayNumber + kDaysTo1899;
  const int era = days / kDaysPer400Years;
  const int ofEra = days % kDaysPer400Years;
  const int yearOfEra = (ofEra - ofEra / 1460 + ofEra / 36524 - ofEra / 146096) / 365;
  const int ofYear = ofEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const int shiftedMonth = (5 * ofYear + 2) / 153;
  const int day = ofYear - (153 * shiftedMonth + 2) / 5 + 1;
  const int month = shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9;
  return {era * 400 + yearOfEra + (month <= 2 ? 1 : 0), month, day};
}

std::u16string DateText(Date date) {
  constexpr double kFirstDay = -657434;  // 0100-01-01
  constexpr double kLastDay = 2958465;   // 9999-12-31
  constexpr int kSecondsPerDay = 86400;
  double day = std::trunc(date.days);
  // The fraction is the time of day before 1899-12-30 too: -1.25 is 06:00 of the day before.
  double seconds = std::round(std::fabs(date.days - day) * kSecondsPerDay);
  if (seconds >= kSecondsPerDay) {
    seconds = 0;
    day += 1;
  }
  if (!(day >= kFirstDay && day <= kLastDay)) ThrowOverflow();

  const CivilDate civil = CivilDateOf(static_cast<int>(day));
  std::u16string text = Concatenate(
      {Padded(civil.year, 4), u"-", Padded(civil.month, 2), u"-", Padded(civil.day, 2)});
  const int second = static_cast<int>(seconds);
  if (second == 0) return text;
  return Concatenate({text, u" ", Padded(second / 3600, 2), u":", Padded(second / 60 % 60, 2), u":",
                      Padded(second % 60, 2)});
}

double NumberOfText(std::u16string_view text) {
  const ScannedNumber scanned = ScanWholeNumber(text);
  if (scanned.outcome == ScannedNumber::Outcome::Overflow) ThrowOverflow();
  if (scanned.outcome == ScannedNumber::Outcome::None) ThrowTypeMismatch();
  return scanned.number;
}

template <typename Integer>
Integer RoundTo(double number) {
  double rounded = std::floor(number);
  const double rest = number - rounded;
  if (rest > 0.5 || (rest == 0.5 && std::fmod(rounded, 2) != 0)) rounded += 1;
  // Not-a-number fails both comparisons.
  if (!(rounded >= std::numeric_limits<Integer>::min() &&
        rounded <= std::numeric_limits<Integer>::max())) {
    ThrowOverflow();
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

std::u16string NumberText(double number) {
  if (std::isnan(number)) return u"1.#QNAN";
  if (std::isinf(number)) return number < 0 ? u"-1.#INF" : u"1.#INF";
  // Whole numbers, zeroes of both signs included, are written by their digits.
  if (std::fabs(number) < kFirstWithExponent && number == std::trunc(number)) {
    return WholeNumberText(static_cast<std::int64_t>(number));
  }
  if (std::u16string text = DecimalText(number); !text.empty()) return text;
  // Not std::to_chars, whose tables for every number of digits are a sixth of the DLL.
  std::array<char, 32> buffer{};
  const int length =
      std::snprintf(buffer.data(), buffer.size(), "%.*G", kSignificantDigits, number);
  // The host may have chosen another decimal separator for the process.
  constexpr std::string_view kOthers = "+-E0123456789";
  std::replace_if(
      buffer.data(), buffer.data() + length,
      [&](char c) { return kOthers.find(c) == std::string_view::npos; }, '.');
  return Widened(buffer.data(), buffer.data() + length);
}

std::u16string NumberText(std::int32_t number) { return WholeNumberText(number); }

std::u16string ToText(const Value& value) {
  const Value& resolved = value.Resolved();
  switch (resolved.GetKind()) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
    case Value::Kind::Missing:
      return {};
    case Value::Kind::Boolean:
      return resolved.Boolean() ? u"True" : u"False";
    case Value::Kind::Int16:
      return NumberText(static_cast<std::int32_t>(resolved.Int16()));
    case Value::Kind::Int32:
      return NumberText(resolved.Int32());
    case Value::Kind::Double:
      return NumberText(resolved.Double());
    case Value::Kind::Date:
      return DateText(resolved.DateValue());
    case Value::Kind::Text:
      return resolved.Text();
    default:
      ThrowTypeMismatch();
  }
}

double LeadingNumber(std::u16string_view text) {
  const ScannedNumber scanned = ScanLeadingNumber(text);
  if (scanned.outcome == ScannedNumber::Outcome::Overflow) ThrowOverflow();
  return scanned.number;
}

double LeadingNumber(const Value& value) {
  const Value& resolved = value.Resolved();
  switch (resolved.GetKind()) {
    case Value::Kind::Int16:
    case Value::Kind::Int32:
    case Value::Kind::Double:
      return ToDouble(resolved);
    default:
      return LeadingNumber(ToText(resolved));
  }
}

double ToDouble(const Value& value) {
  const Value& resolved = value.Resolved();
  switch (resolved.GetKind()) {
    case Value::Kind::Empty:
      return 0;
    case Value::Kind::Boolean:
      return resolved.Boolean() ? -1 : 0;
    case Value::Kind::Int16:
      return resolved.Int16();
    case Value::Kind::Int32:
      return resolved.Int32();
    case Value::Kind::Double:
      return resolved.Double();
    case Value::Kind::Date:
      return resolved.DateValue().days;
    case Value::Kind::Text:
      return NumberOfText(resolved.Text());
    default:
      ThrowTypeMismatch();
  }
}

std::int16_t ToInt16(const Value& value) { return RoundToInt16(ToDouble(value)); }

std::int32_t ToInt32(const Value& value) {
  const Value& resolved = value.Resolved();
  return resolved.Is(Value::Kind::Int32) ? resolved.Int32() : RoundToInt32(ToDouble(resolved));
}

std::int16_t RoundToInt16(double number) { return RoundTo<std::int16_t>(number); }
std::int32_t RoundToInt32(double number) { return RoundTo<std::int32_t>(number); }

bool ToBoolean(const Value& value) {
  const Value& resolved = value.Resolved();
  if (resolved.Is(Value::Kind::Boolean)) return resolved.Boolean();
  if (resolved.Is(Value::Kind::Text)) {
    if (EqualsIgnoringCase(resolved.Text(), u"True")) return true;
    if (EqualsIgnoringCase(resolved.Text(), u"False")) return false;
  }
  return ToDouble(resolved) != 0;
}

}  // namespace pricedown
