// The longest beginning that fits, found by doubling and then by halving.
// A surrogate pair is never cut in two.
#include "print/fitted_text.h"

#include <algorithm>

namespace pricedown {
namespace {

constexpr std::u16string_view kEllipsis = u"…";
constexpr std::size_t kFirstGuess = 32;  // most cells are shorter: one measurement

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }

// A line break or tab in an item's name would show as a box.
std::u16string Printable(std::u16string_view text) {
  std::u16string printable(text);
  for (char16_t& unit : printable) {
    if (unit < u' ' || unit == 0x7F) unit = u' ';
  }
  return printable;
}

}  // namespace

std::u16string FitText(TextMeasurer& measurer, const PageFont& font, std::u16string_view text,
                       Tenths available) {
  if (available <= 0) return {};
  const auto fits = [&](std::size_t length, Tenths room) {
    return measurer.Width(font, Printable(text.substr(0, length))) <= room;
  };
  std::size_t tooLong = std::min(kFirstGuess, text.size());
  while (fits(tooLong, available)) {
    if (tooLong == text.size()) return Printable(text);
    tooLong = std::min(tooLong * 2, text.size());
  }
  const Tenths room = available - measurer.Width(font, kEllipsis);
  if (room < 0) return {};
  std::size_t length = 0;
  while (tooLong - length > 1) {
    const std::size_t middle = length + (tooLong - length) / 2;
    (fits(middle, room) ? length : tooLong) = middle;
  }
  if (length > 0 && IsHighSurrogate(text[length - 1])) --length;
  return Printable(text.substr(0, length)).append(kEllipsis);
}

}  // namespace pricedown
