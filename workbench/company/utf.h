// UTF-8 and UTF-16 into each other, quickly and without loss, at the edge of the database.
// No case rules and no comparisons (see case_folding.h, collation.h).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench {

// Lone surrogates are written as three bytes, so that every UTF-16 text survives the round trip.
std::string Utf8FromUtf16(std::u16string_view text);

// Appends to `target`; otherwise as Utf8FromUtf16.
void AppendUtf8(std::string& target, std::u16string_view text);

std::u16string Utf16FromUtf8(std::string_view text);

// Writes the UTF-16 form of `text` to `target` and returns the number of code units written; a
// byte that begins no character becomes U+FFFD. Requires: room for text.size() code units.
std::size_t DecodeUtf8(std::string_view text, char16_t* target) noexcept;

// The code point that begins at text[position], which is moved past it; a byte that begins no
// character counts as U+FFFD. Requires: position < text.size().
char32_t NextCodePoint(std::string_view text, std::size_t& position) noexcept;

}  // namespace workbench
