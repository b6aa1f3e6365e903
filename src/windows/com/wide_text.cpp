// The copying of text between the core and Windows.
// Where such text comes from and who owns it is its caller's.
#include "windows/com/wide_text.h"

#include <algorithm>

namespace pricedown::windows {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring ToWide(std::u16string_view text) { return std::wstring(text.begin(), text.end()); }

std::u16string FromWide(std::wstring_view text) { return std::u16string(text.begin(), text.end()); }

void CopyWide(std::u16string_view text, wchar_t* target) {
  std::copy(text.begin(), text.end(), target);
}

// Not a cast from wchar_t: the bytes were written elsewhere, and nobody here reads them as
// wchar_t. It spares a copy of every cell of a large query.
std::u16string_view BorrowText(const void* text, std::size_t length) {
  if (length == 0) return {};
  return {static_cast<const char16_t*>(text), length};
}

}  // namespace pricedown::windows
