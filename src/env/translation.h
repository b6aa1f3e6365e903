// The one place through which every built-in text passes before a user sees it.
// Texts of other languages for whole forms come from the suite (language.h).
#pragma once

#include <string>
#include <string_view>

namespace pricedown {

// The text itself: all built-in texts are Simplified Chinese.
std::u16string Translate(std::u16string_view text);

}  // namespace pricedown
