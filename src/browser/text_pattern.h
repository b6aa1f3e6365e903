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
  std::array<char16_t, 4> first_{};  // all forms of its first character
};

}  // namespace pricedown
