// The copying of text between the core and Windows.
#include "windows/com/wide_text.h"

#include <cstring>

namespace pricedown::windows {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring ToWide(std::u16string_view text) {
  std::wstring wide(text.size(), L'\0');
  CopyWide(text, wide.data());
  return wide;
}

std::u16string FromWide(std::wstring_view text) {
  std::u16string copy(text.size(), u'\0');
  if (!text.empty()) std::memcpy(copy.data(), text.data(), text.size() * sizeof(wchar_t));
  return copy;
}

void CopyWide(std::u16string_view text, wchar_t* target) {
  if (!text.empty()) std::memcpy(target, text.data(), text.size() * sizeof(char16_t));
}

// No aliasing problem: these bytes are never read as wchar_t here. It saves a copy of every cell of
// a large query.
std::u16string_view BorrowText(const void* text, std::size_t length) {
  if (length == 0) return {};
  return {static_cast<const char16_t*>(text), length};
}

}  // namespace pricedown::windows
