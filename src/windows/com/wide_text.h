// Text between the core's char16_t and Windows' wchar_t, by copying.
#pragma once

#include <string>
#include <string_view>

namespace pricedown::windows {

// Code unit for code unit, embedded zeros and lone surrogates included.
std::wstring ToWide(std::u16string_view text);
std::u16string FromWide(std::wstring_view text);

// Into memory of the caller that has room for `text`; adds no final zero.
void CopyWide(std::u16string_view text, wchar_t* target);

// The text of a block that the system allocated (a BSTR), in place. The block's owner must
// outlive the view and must not change the text. `text` may be null when `length` is 0.
std::u16string_view BorrowText(const void* text, std::size_t length);

}  // namespace pricedown::windows
