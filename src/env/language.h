// Texts and fonts of other languages, from the suite's form resources. The built-in language needs
// none.
#pragma once

#include <string_view>

#include "env/font.h"
#include "platform/automation.h"

namespace pricedown {

// Lets the suite replace the captions of the control `form`. A no-op for "chs".
// Throws AutomationError.
void LoadControlTexts(ObjectFactory& factory, const ObjectPtr& form);

// The same for a form whose texts are kept under `key`, multi-language column headers included.
void LoadFormTexts(ObjectFactory& factory, const ObjectPtr& form, std::u16string_view key);

// Sets name, empty when the suite has none, and character set of the suite's font for titles in its
// language. Throws AutomationError; what was read before stays set.
void ReadFontProperties(ObjectFactory& factory, Font& font);

}  // namespace pricedown
