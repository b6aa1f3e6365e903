// Icons of buttons by key.
#pragma once

#include <string_view>

namespace pricedown::windows {

// Resource id (platform/icon_ids.h) of the icon of a button of the tool strip, the form or the
// preview; 0 if it has none.
int IconOfButton(std::u16string_view key);

}  // namespace pricedown::windows
