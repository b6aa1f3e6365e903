// The helpers on UTF-16 text.
// No locale and no character tables of the system are consulted.
#include "platform/text.h"

#include <cstddef>
#include <cstdint>

namespace pricedown {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsBetween(char32_t character, char32_t first, char32_t last) {
  return character >= first && character <= last;
}

bool IsHighSurrogate(char32_t unit) { return IsBetween(unit, 0xD800, 0xDBFF); }
bool IsLowSurrogate(char32_t unit) { return IsBetween(unit, 0xDC00, 0xDFFF); }
bool IsSurrogate(char32_t unit) { return IsBetween(unit, 0xD800, 0xDFFF); }

char16_t Shifted(char16_t character, int distance) {
  return static_cast<char16_t>(character + distance);
}

// Of letters that stand in pairs, the capital first.
char16_t UpperOfPair(char16_t c, bool capitalsAreOdd) {
  const bool odd = (c & 1) != 0;
  return odd == capitalsAreOdd ? c : Shifted(c, -1);
}

// The letters with marks behind Latin-1, those of Pinyin among them.
char16_t UpperMarkedLatin(char16_t c) {
  if (IsBetween(c, 0x0139, 0x0148) || IsBetween(c, 0x0179, 0x017E) ||
      IsBetween(c, 0x01CD, 0x01DC)) {
    return UpperOfPair(c, true);
  }
  if (IsBetween(c, 0x0100, 0x012F) || IsBetween(c, 0x0132, 0x0137) ||
      IsBetween(c, 0x014A, 0x0177) || IsBetween(c, 0x01F8, 0x01F9)) {
    return UpperOfPair(c, false);
  }
  return c;
}

char16_t UpperGreek(char16_t c) {
  switch (c) {
    case 0x03AC:
      return 0x0386;
    case 0x03C2:  // final sigma
      return 0x03A3;
    case 0x03CC:
      return 0x038C;
    case 0x03CD:
    case 0x03CE:
      return Shifted(c, -0x3F);
    default:
      if (IsBetween(c, 0x03AD, 0x03AF)) return Shifted(c, -0x25);
      if (IsBetween(c, 0x03B1, 0x03CB)) return Shifted(c, -0x20);
      return c;
  }
}

char16_t UpperCyrillic(char16_t c) {
  if (IsBetween(c, 0x0430, 0x044F)) return Shifted(c, -0x20);
  if (IsBetween(c, 0x0450, 0x045F)) return Shifted(c, -0x50);
  if (c == 0x04CF) return 0x04C0;
  // The rest stands in pairs; one run of them begins at an odd code.
  if (IsBetween(c, 0x04C1, 0x04CE)) return UpperOfPair(c, true);
  if (IsBetween(c, 0x0460, 0x0481) || IsBetween(c, 0x048A, 0x04BF) ||
      IsBetween(c, 0x04D0, 0x052F)) {
    return UpperOfPair(c, false);
  }
  return c;
}

char16_t UpperLetter(char16_t c) {
  if (c < 0x80) return IsBetween(c, u'a', u'z') ? Shifted(c, -0x20) : c;
  if (c == 0x00F7) return c;  // the division sign among the letters
  if (c == 0x00FF) return 0x0178;
  if (IsBetween(c, 0x00E0, 0x00FE)) return Shifted(c, -0x20);
  if (IsBetween(c, 0x0100, 0x01FF)) return UpperMarkedLatin(c);
  if (IsBetween(c, 0x0370, 0x03FF)) return UpperGreek(c);
  if (IsBetween(c, 0x0400, 0x052F)) return UpperCyrillic(c);
  if (IsBetween(c, 0x2170, 0x217F)) return Shifted(c, -0x10);  // Roman numerals
  if (IsBetween(c, 0x24D0, 0x24E9)) return Shifted(c, -0x1A);  // circled letters
  if (IsBetween(c, 0xFF41, 0xFF5A)) return Shifted(c, -0x20);
  return c;
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
// sequence of a valid character is taken alone.
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
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kLeast[length] || character > 0x10FFFF || IsSurrogate(character)) return kBad;
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

bool EqualsIgnoringCase(std::u16string_view left, std::u16string_view right) {
  if (left.size() != right.size()) return false;
  const auto lower = [](char16_t c) { return IsBetween(c, u'A', u'Z') ? Shifted(c, 0x20) : c; };
  for (std::size_t index = 0; index < left.size(); ++index) {
    if (lower(left[index]) != lower(right[index])) return false;
  }
  return true;
}

std::u16string UpperCase(std::u16string_view text) {
  std::u16string upper(text);
  for (char16_t& c : upper) c = UpperLetter(c);
  return upper;
}

std::string ToUtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t index = 0; index < text.size(); ++index) {
    char32_t character = text[index];
    if (IsHighSurrogate(character) && index + 1 < text.size() && IsLowSurrogate(text[index + 1])) {
      ++index;
      character = 0x10000 + ((character - 0xD800) << 10) + (text[index] - 0xDC00u);
    } else if (IsSurrogate(character)) {
      character = kReplacement;
    }
    AppendUtf8(character, bytes);
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
