// Case folding of single characters, the same on every platform and in every locale.
#pragma once

namespace workbench {

constexpr char FoldAscii(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

// The character itself where Unicode has no folding for it, or one of several characters.
char32_t FoldCase(char32_t point) noexcept;

}  // namespace workbench
