// Reads the number in hundredths, so that nothing is rounded.
// Both answers come from one reading of the text.
#include "windows/grid/cell_number.h"

#include <cstdint>

namespace pricedown::windows {
namespace {

constexpr std::size_t kDecimals = 2;
constexpr std::size_t kMostDigits = 17;  // of hundredths, well inside 64 bits

struct Reading {
  bool wellFormed = true;
  bool negative = false;
  std::size_t digits = 0;
  std::size_t decimals = 0;
  std::int64_t hundredths = 0;
};

Reading Read(std::u16string_view text) {
  Reading reading;
  if (!text.empty() && text.front() == u'-') {
    reading.negative = true;
    text.remove_prefix(1);
  }
  bool behindPoint = false;
  for (const char16_t unit : text) {
    if (unit == u'.' && !behindPoint) {
      behindPoint = true;
      continue;
    }
    if (unit < u'0' || unit > u'9' || reading.digits == kMostDigits ||
        reading.decimals == kDecimals) {
      reading.wellFormed = false;
      return reading;
    }
    ++reading.digits;
    if (behindPoint) ++reading.decimals;
    reading.hundredths = reading.hundredths * 10 + (unit - u'0');
  }
  for (std::size_t i = reading.decimals; i < kDecimals; ++i) reading.hundredths *= 10;
  return reading;
}

bool IsAllowed(const Reading& reading, double upperBound) {
  if (!reading.wellFormed) return false;
  const double number = static_cast<double>(reading.hundredths) / 100;
  return (reading.negative ? -number : number) <= upperBound;
}

std::u16string Format(const Reading& reading) {
  std::u16string text;
  std::int64_t rest = reading.hundredths;
  for (std::size_t place = 0; place <= kDecimals || rest > 0; ++place) {
    if (place == kDecimals) text.insert(text.begin(), u'.');
    text.insert(text.begin(), static_cast<char16_t>(u'0' + rest % 10));
    rest /= 10;
  }
  if (reading.negative && reading.hundredths > 0) text.insert(text.begin(), u'-');
  return text;
}

}  // namespace

bool MayBecomeCellNumber(std::u16string_view text, double upperBound) {
  return IsAllowed(Read(text), upperBound);
}

std::optional<std::u16string> CellNumber(std::u16string_view text, double upperBound) {
  if (text.empty()) return std::u16string();
  const Reading reading = Read(text);
  if (!IsAllowed(reading, upperBound) || reading.digits == 0) return std::nullopt;
  return Format(reading);
}

}  // namespace pricedown::windows
