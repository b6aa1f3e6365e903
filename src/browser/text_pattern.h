// A text that is looked for in others.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace pricedown {

// Latin letters match in either case, full-width forms (Ａ１．) the plain ones.
class TextPattern {
 public:
  TextPattern() = default;
  explicit TextPattern(std::u16string_view text);

  bool IsEmpty() const { return folded_.empty(); }
  // Both are false for an empty pattern.
  bool IsIn(std::u16string_view text) const;
  bool Begins(std::u16string_view text) const;

 private:
  bool MatchesAt(const char16_t* text) const;

  std::u16string folded_;
  // By the low byte of a character: whether one of the forms of the first character has it. Quicker
  // to ask for each character of long columns than all forms.
  std::array<bool, 256> begins_{};
};

}  // namespace pricedown
