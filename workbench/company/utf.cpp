// The conversions; runs of ASCII are copied eight bytes at a time.
#include "workbench/company/utf.h"

#include <utf8.h>

#include <cstdint>
#include <cstring>
#include <iterator>

namespace workbench {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Copies the ASCII run at the start of `text`, eight bytes at a time, and returns its length.
std::size_t CopyAsciiRun(const unsigned char* text, std::size_t size, char16_t* target) noexcept {
  std::size_t done = 0;
  while (done + 8 <= size) {
    std::uint64_t word = 0;
    std::memcpy(&word, text + done, sizeof word);
    if ((word & 0x8080808080808080U) != 0) break;
    for (std::size_t i = 0; i < 8; ++i) target[done + i] = text[done + i];
    done += 8;
  }
  while (done < size && text[done] < 0x80) {
    target[done] = text[done];
    ++done;
  }
  return done;
}

}  // namespace

void AppendUtf8(std::string& target, std::u16string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    if (IsHighSurrogate(point) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00U);
    }
    // Unlike the checked one it writes lone surrogates.
    utf8::unchecked::append(point, std::back_inserter(target));
  }
}

std::string Utf8FromUtf16(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  AppendUtf8(result, text);
  return result;
}

char32_t NextCodePoint(std::string_view text, std::size_t& position) noexcept {
  const auto byteAt = [text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const unsigned char first = byteAt(position);
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  if (length == 1) {
    ++position;
    return first;
  }
  if (length == 0 || position + length > text.size()) {
    ++position;
    return kReplacement;
  }
  char32_t point = first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned char next = byteAt(position + i);
    if ((next & 0xC0) != 0x80) {
      ++position;
      return kReplacement;
    }
    point = (point << 6) | (next & 0x3FU);
  }
  const char32_t smallest = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
  if (point < smallest || point > 0x10FFFF) {
    ++position;
    return kReplacement;
  }
  position += length;
  return point;
}

std::size_t DecodeUtf8(std::string_view text, char16_t* target) noexcept {
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  std::size_t position = 0;
  std::size_t written = 0;
  while (position < text.size()) {
    const std::size_t ascii =
        CopyAsciiRun(bytes + position, text.size() - position, target + written);
    position += ascii;
    written += ascii;
    while (position < text.size() && bytes[position] >= 0x80) {
      const char32_t point = NextCodePoint(text, position);
      if (point < 0x10000) {
        target[written++] = static_cast<char16_t>(point);
      } else {
        target[written++] = static_cast<char16_t>(0xD7C0 + (point >> 10));
        target[written++] = static_cast<char16_t>(0xDC00 + (point & 0x3FF));
      }
    }
  }
  return written;
}

std::u16string Utf16FromUtf8(std::string_view text) {
  std::u16string result(text.size(), u'\0');
  result.resize(DecodeUtf8(text, result.data()));
  return result;
}

}  // namespace workbench
