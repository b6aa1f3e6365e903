// Finds a beginning that is too long by doubling, then measures how much of it fits.
#include "print/fitted_text.h"

#include <algorithm>
#include <string>

#include "platform/text.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kEllipsis = u"…";
constexpr std::size_t kFirstGuess = 32;  // most cells are shorter: one measurement

// A line break or tab in an item's name would show as a box. A constant object, so that searching
// for it is compiled into one loop.
constexpr auto kIsControl = [](char16_t unit) { return unit < u' ' || unit == 0x7F; };

bool IsPlain(std::u16string_view text) {
  return std::none_of(text.begin(), text.end(), kIsControl);
}

// The beginning of a text as it is shown, copied only where it has control characters.
class Beginning {
 public:
  explicit Beginning(std::u16string_view text) : text_(text) {}

  std::u16string_view Of(std::size_t length) {
    const std::u16string_view beginning = text_.substr(0, length);
    if (IsPlain(beginning)) return beginning;
    shown_ = beginning;
    std::replace_if(shown_.begin(), shown_.end(), kIsControl, u' ');
    return shown_;
  }
  bool IsCopied() const { return !shown_.empty(); }

 private:
  std::u16string_view text_;
  std::u16string shown_;
};

// The text with an ellipsis; its first `tooLong` units are too long. Requires: there is room.
std::u16string_view Cut(TextMeasurer& measurer, const Font& font, Beginning& beginning,
                        std::size_t tooLong, Tenths available, TextArena& made) {
  const Tenths room = available - measurer.Width(font, kEllipsis);
  if (room < 0) return {};
  const std::u16string_view all = beginning.Of(tooLong);
  const std::size_t length = CutLength(all, measurer.FittingLength(font, all, room));
  return made.Keep(std::u16string(all.substr(0, length)).append(kEllipsis));
}

// A long text, or one with control characters. Requires: there is room.
std::u16string_view Shorten(TextMeasurer& measurer, const Font& font, std::u16string_view text,
                            Tenths available, TextArena& made) {
  Beginning beginning(text);
  std::size_t tooLong = std::min(kFirstGuess, text.size());
  while (measurer.Width(font, beginning.Of(tooLong)) <= available) {
    if (tooLong == text.size()) {
      return beginning.IsCopied() ? made.Keep(beginning.Of(tooLong)) : text;
    }
    tooLong = std::min(tooLong * 2, text.size());
  }
  return Cut(measurer, font, beginning, tooLong, available, made);
}

}  // namespace

std::u16string_view FitText(TextMeasurer& measurer, const Font& font, std::u16string_view text,
                            Tenths available, TextArena& made) {
  if (available <= 0) return {};
  if (text.size() > kFirstGuess || !IsPlain(text)) {
    return Shorten(measurer, font, text, available, made);
  }
  // Nearly every cell.
  if (measurer.Width(font, text) <= available) return text;
  Beginning beginning(text);
  return Cut(measurer, font, beginning, text.size(), available, made);
}

}  // namespace pricedown
