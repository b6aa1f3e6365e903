// Settings that the suite keeps per user, and numbers that the company database keeps per user. The
// application is the host program's name.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/automation.h"

namespace pricedown {

inline constexpr std::u16string_view kSettingsSection = u"PriceDown";

// A setting: a boolean when `fallback` is one, else text. `fallback` after any error.
Value ReadUserSetting(ObjectFactory& factory, std::u16string_view application,
                      std::u16string_view key, const Value& fallback);

// Throws AutomationError.
void SaveUserSetting(ObjectFactory& factory, std::u16string_view application,
                     std::u16string_view key, const Value& value);

// The number under the key in the company database: the leading number of its text, 0 without a
// row. Throws AutomationError.
double ReadUserNumber(ObjectFactory& factory, std::int32_t userNumber, std::u16string_view key);

}  // namespace pricedown
