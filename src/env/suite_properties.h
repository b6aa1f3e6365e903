// The suite's shared properties: the properties string, its entries, the language, the user.
// Nothing is cached.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation.h"

namespace pricedown {

// The language of all built-in texts.
inline constexpr std::u16string_view kBuiltInLanguage = u"chs";

// A shared property by name, from a new `ZEPPropsMgr.ShareProps`. Throws AutomationError.
Value SharedProperty(ObjectFactory& factory, std::u16string_view name);

// The suite's properties string, as text. Throws AutomationError.
std::u16string PropertiesString(ObjectFactory& factory);

// The value of an entry name=value of a list separated by ";", names without regard to case;
// empty when absent.
std::u16string PropertyEntry(std::u16string_view properties, std::u16string_view name);

// The suite's language; "chs" when no properties string is available or it names none.
std::u16string SuiteLanguage(ObjectFactory& factory);

// The number of the current user. Throws AutomationError.
std::int32_t UserNumber(ObjectFactory& factory);

}  // namespace pricedown
