// Settings kept per user by the suite, and numbers kept per user in the company database.
// The section is always the same; the application is the host program's name.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/automation.h"

namespace pricedown {

inline constexpr std::u16string_view kSettingsSection = u"PriceDown";

// A setting: a boolean when `fallback` is one, else text. Any error gives `fallback`.
Value ReadUserSetting(ObjectFactory& factory, std::u16string_view application,
                      std::u16string_view key, const Value& fallback);

// Throws AutomationError.
void SaveUserSetting(ObjectFactory& factory, std::u16string_view application,
                     std::u16string_view key, const Value& value);

// The number kept in the company database under the key; 0 when there is none.
// Throws AutomationError when the database fails.
double ReadUserNumber(ObjectFactory& factory, std::int32_t userNumber, std::u16string_view key);

}  // namespace pricedown
