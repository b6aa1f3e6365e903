// Small helpers on UTF-16 text as the suite counts it.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace pricedown {

inline constexpr std::u16string_view kLineBreak = u"\r\n";

// The pieces joined without anything between them.
std::u16string Concatenate(std::initializer_list<std::u16string_view> pieces);

// Without leading and trailing blanks (U+0020 only).
std::u16string_view Trim(std::u16string_view text);

// The length of the beginning of `text` that has at most `most` units and ends in no half of a
// surrogate pair.
std::size_t CutLength(std::u16string_view text, std::size_t most);

// ASCII letters compare equal in either case; for names of members, columns and settings.
bool EqualsIgnoringCase(std::u16string_view left, std::u16string_view right);

// Each character by Unicode's simple upper-case mapping, which keeps the length.
std::u16string UpperCase(std::u16string_view text);

// Lossless for well-formed text; a lone surrogate or bad byte becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view bytes);

}  // namespace pricedown
