// The reading of a typed number, the check of each character, and the keys of the field.
#include "browser/number_cell.h"

#include <algorithm>
#include <cstdint>

namespace pricedown {
namespace {

constexpr std::size_t kDecimals = 2;
constexpr std::size_t kMaximumDigits = 16;  // a hundred times as much is inside 64 bits

// In hundredths, so that nothing is rounded.
struct CellReading {
  bool wellFormed = true;
  bool negative = false;
  std::size_t digits = 0;
  std::size_t decimals = 0;
  std::int64_t hundredths = 0;
};

CellReading ReadCell(std::u16string_view typed) {
  const std::u16string characters = CellCharacters(typed);
  std::u16string_view text = characters;
  CellReading reading;
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
    if (unit < u'0' || unit > u'9' || reading.digits == kMaximumDigits ||
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

bool IsAllowed(const CellReading& reading, double upperBound) {
  if (!reading.wellFormed) return false;
  const double number = static_cast<double>(reading.hundredths) / 100;
  return (reading.negative ? -number : number) <= upperBound;
}

std::u16string Format(const CellReading& reading) {
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
  return IsAllowed(ReadCell(text), upperBound);
}

bool MayInsert(std::u16string text, std::size_t from, std::size_t to, std::u16string_view inserted,
               double upperBound) {
  from = std::min(from, text.size());
  to = std::clamp(to, from, text.size());
  text.replace(from, to - from, inserted);
  return MayBecomeCellNumber(text, upperBound);
}

char16_t CellCharacter(char16_t typed) {
  if (typed >= u'０' && typed <= u'９') return static_cast<char16_t>(typed - u'０' + u'0');
  return typed == u'．' || typed == u'。' ? u'.' : typed;
}

std::u16string CellCharacters(std::u16string_view text) {
  std::u16string characters(text);
  std::transform(text.begin(), text.end(), characters.begin(), CellCharacter);
  return characters;
}

bool StartsCellNumber(char16_t character) {
  return (character >= u'0' && character <= u'9') || character == u'.' || character == u'-';
}

std::optional<std::u16string> CellNumber(std::u16string_view text, double upperBound) {
  if (text.empty()) return std::u16string();
  const CellReading reading = ReadCell(text);
  if (!IsAllowed(reading, upperBound) || reading.digits == 0) return std::nullopt;
  return Format(reading);
}

CellStart CellStartOf(const KeyPress& press) {
  if (press == KeyPress{Key::F2} || press == KeyPress{Key::Enter}) return CellStart::Edit;
  return press == KeyPress{Key::Delete} ? CellStart::Clear : CellStart::None;
}

CellKey CellKeyOf(Key key) {
  switch (key) {
    case Key::Escape:
      return CellKey::Cancel;
    case Key::Enter:
      return CellKey::Accept;
    case Key::Tab:
    case Key::Up:
    case Key::Down:
    case Key::PageUp:
    case Key::PageDown:
      return CellKey::AcceptAndMove;
    case Key::F5:
      return CellKey::Command;
    default:
      return CellKey::None;
  }
}

}  // namespace pricedown
