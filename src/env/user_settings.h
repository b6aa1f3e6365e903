// Settings that the suite keeps per user; the application is the host program's name.
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

}  // namespace pricedown
