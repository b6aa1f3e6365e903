// Measures texts by rule, so that expected positions can be worked out by hand; and the commands
// of a page as lines of text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "print/page.h"
#include "print/text_measurer.h"
#include "tests/support/recorder.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

// Of a font of size S a character of ASCII is 2 S wide, any other 4 S, and a line 4 S high:
// 18, 36 and 36 tenths for size 9.
class FakeMeasurer : public TextMeasurer {
 public:
  Tenths Width(const Font& font, std::u16string_view text) override {
    Count();
    longest = std::max(longest, text.size());
    double width = 0;
    for (const char16_t unit : text) width += (unit < 0x80 ? 2 : 4) * font.size;
    return static_cast<Tenths>(width);
  }
  std::size_t FittingLength(const Font& font, std::u16string_view text, Tenths available) override {
    std::size_t length = 0;
    for (double width = 0; length < text.size(); ++length) {
      width += (text[length] < 0x80 ? 2 : 4) * font.size;
      if (width > available) break;
    }
    Count();
    longest = std::max(longest, text.size());
    return length;
  }
  Tenths LineHeight(const Font& font) override {
    Count();
    return static_cast<Tenths>(4 * font.size);
  }

  int calls = 0;
  int failingCall = 0;  // from 1; 0 for none
  std::size_t longest = 0;

 private:
  void Count() {
    if (++calls == failingCall) throw AutomationError(kInjectedFailure, u"measuring failed");
  }
};

// Left, top, right and bottom edge.
inline std::string Readable(const Rectangle& box) {
  return std::to_string(box.left) + "," + std::to_string(box.top) + "-" +
         std::to_string(box.Right()) + "," + std::to_string(box.Bottom());
}

// rule 200,372-1900,372
inline std::string Readable(const PageRule& rule) {
  return "rule " +
         Readable(Rectangle{rule.left, rule.top, rule.right - rule.left, rule.bottom - rule.top});
}

// text 0 left 210,379 in 210,372-507,422 "01.001"
inline std::string Readable(const PageText& text) {
  constexpr const char* kAlignments[] = {"left", "centre", "right"};
  return "text " + std::to_string(text.font) + " " +
         kAlignments[static_cast<std::size_t>(text.alignment)] + " " + std::to_string(text.anchor) +
         "," + std::to_string(text.top) + " in " + Readable(text.clip) + " " + Quoted(text.text);
}

template <typename Command>
std::string ReadableLines(const std::vector<Command>& commands) {
  std::string lines;
  for (const Command& command : commands) lines += Readable(command) + "\n";
  return lines;
}

}  // namespace pricedown::testing
