// The hook through which every built-in text passes before it is shown.
#pragma once

#include <string>
#include <string_view>

namespace pricedown {

// The text itself: all built-in texts are Simplified Chinese.
std::u16string Translate(std::u16string_view text);

}  // namespace pricedown
