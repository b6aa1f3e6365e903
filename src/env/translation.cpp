// The translation hook, which has nothing to translate.
// It is the place to change when built-in texts are to appear in another language.
#include "env/translation.h"

namespace pricedown {

std::u16string Translate(std::u16string_view text) { return std::u16string(text); }

}  // namespace pricedown
