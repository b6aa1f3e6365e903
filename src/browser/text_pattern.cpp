// The comparison of a text with others: small and capital letters, full-width or not, are the same.
#include "browser/text_pattern.h"

#include <algorithm>

namespace pricedown {
namespace {

constexpr char16_t kFullWidth = 0xFEE0;  // from a plain character to its full-width form
constexpr char16_t kCase = u'a' - u'A';

constexpr bool IsLetter(char16_t folded) { return folded >= u'A' && folded <= u'Z'; }
constexpr bool IsPlain(char16_t folded) { return folded > u' ' && folded < 0x7F; }

constexpr char16_t Fold(char16_t character) {
  if (character >= u'！' && character <= u'～') {
    character = static_cast<char16_t>(character - kFullWidth);
  }
  const bool isSmall = character >= u'a' && character <= u'z';
  return isSmall ? static_cast<char16_t>(character - kCase) : character;
}

}  // namespace

TextPattern::TextPattern(std::u16string_view text) : folded_(text) {
  std::transform(folded_.begin(), folded_.end(), folded_.begin(), Fold);
  if (folded_.empty()) return;
  const char16_t first = folded_.front();
  const auto small = static_cast<char16_t>(IsLetter(first) ? first + kCase : first);
  const auto wide = [](char16_t character) {
    return static_cast<char16_t>(IsPlain(character) ? character + kFullWidth : character);
  };
  for (const char16_t form : {first, small, wide(first), wide(small)}) begins_[form & 0xFF] = true;
}

bool TextPattern::MatchesAt(const char16_t* text) const {
  for (std::size_t i = 0; i < folded_.size(); ++i) {
    if (Fold(text[i]) != folded_[i]) return false;
  }
  return true;
}

bool TextPattern::IsIn(std::u16string_view text) const {
  if (IsEmpty() || text.size() < folded_.size()) return false;
  const char16_t* const end = text.data() + (text.size() - folded_.size()) + 1;
  for (const char16_t* place = text.data(); place != end; ++place) {
    if (begins_[*place & 0xFF] && MatchesAt(place)) return true;
  }
  return false;
}

bool TextPattern::Begins(std::u16string_view text) const {
  return !IsEmpty() && text.size() >= folded_.size() && MatchesAt(text.data());
}

}  // namespace pricedown
