// The helpers on UTF-16 text.
#include "platform/text.h"

#include <cstdint>

#include "platform/upper_case.h"

namespace pricedown {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsBetween(char32_t character, char32_t first, char32_t last) {
  return character >= first && character <= last;
}

bool IsHighSurrogate(char32_t unit) { return IsBetween(unit, 0xD800, 0xDBFF); }
bool IsLowSurrogate(char32_t unit) { return IsBetween(unit, 0xDC00, 0xDFFF); }
bool IsSurrogate(char32_t unit) { return IsBetween(unit, 0xD800, 0xDFFF); }

// Removes the first character from `text`; a lone surrogate stands for itself.
char32_t NextCharacter(std::u16string_view& text) {
  const char32_t unit = text.front();
  text.remove_prefix(1);
  if (!IsHighSurrogate(unit) || text.empty() || !IsLowSurrogate(text.front())) return unit;
  const char32_t low = text.front();
  text.remove_prefix(1);
  return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

void AppendUtf8(char32_t character, std::string& to) {
  const auto append = [&to](char32_t byte) { to.push_back(static_cast<char>(byte)); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0 | (character >> 6));
    append(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    append(0xE0 | (character >> 12));
    append(0x80 | ((character >> 6) & 0x3F));
    append(0x80 | (character & 0x3F));
  } else {
    append(0xF0 | (character >> 18));
    append(0x80 | ((character >> 12) & 0x3F));
    append(0x80 | ((character >> 6) & 0x3F));
    append(0x80 | (character & 0x3F));
  }
}

void AppendUtf16(char32_t character, std::u16string& to) {
  if (character < 0x10000) {
    to.push_back(static_cast<char16_t>(character));
  } else {
    to.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
    to.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
  }
}

struct Decoded {
  char32_t character;
  std::size_t length;  // bytes read
};

// The character at the beginning of `bytes`. A byte that begins no complete, shortest-form
// sequence of a valid character counts alone.
Decoded DecodeUtf8(std::string_view bytes) {
  const auto byte = [bytes](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
  const char32_t first = byte(0);
  if (first < 0x80) return {first, 1};

  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  constexpr Decoded kBad{kReplacement, 1};
  if (!IsBetween(first, 0xC2, 0xF4) || bytes.size() < length) return kBad;
  char32_t character = first & (0x7Fu >> length);
  for (std::size_t index = 1; index < length; ++index) {
    if ((byte(index) & 0xC0) != 0x80) return kBad;
    character = (character << 6) | (byte(index) & 0x3Fu);
  }
  constexpr char32_t kMinimum[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kMinimum[length] || character > 0x10FFFF || IsSurrogate(character)) return kBad;
  return {character, length};
}

}  // namespace

std::u16string Concatenate(std::initializer_list<std::u16string_view> pieces) {
  std::size_t length = 0;
  for (std::u16string_view piece : pieces) length += piece.size();
  std::u16string text;
  text.reserve(length);
  for (std::u16string_view piece : pieces) text += piece;
  return text;
}

std::u16string_view Trim(std::u16string_view text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == std::u16string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::size_t CutLength(std::u16string_view text, std::size_t most) {
  if (text.size() <= most) return text.size();
  const bool cutsPair = most > 0 && IsHighSurrogate(text[most - 1]) && IsLowSurrogate(text[most]);
  return cutsPair ? most - 1 : most;
}

bool EqualsIgnoringCase(std::u16string_view left, std::u16string_view right) {
  if (left.size() != right.size()) return false;
  const auto lower = [](char16_t c) { return IsBetween(c, u'A', u'Z') ? c + 0x20 : c + 0; };
  for (std::size_t index = 0; index < left.size(); ++index) {
    if (lower(left[index]) != lower(right[index])) return false;
  }
  return true;
}

std::u16string UpperCase(std::u16string_view text) {
  std::u16string upper;
  upper.reserve(text.size());
  while (!text.empty()) AppendUtf16(UpperCaseOf(NextCharacter(text)), upper);
  return upper;
}

std::string ToUtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = NextCharacter(text);
    AppendUtf8(IsSurrogate(character) ? kReplacement : character, bytes);
  }
  return bytes;
}

std::u16string FromUtf8(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const Decoded decoded = DecodeUtf8(bytes);
    AppendUtf16(decoded.character, text);
    bytes.remove_prefix(decoded.length);
  }
  return text;
}

}  // namespace pricedown
