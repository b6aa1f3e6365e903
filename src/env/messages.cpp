// Messages and questions under the suite's title.
// The title passes the translation hook each time, as every built-in text does.
#include "env/messages.h"

#include "env/translation.h"

namespace pricedown {

void Messages::Inform(std::u16string_view text) {
  questions_.Tell(text, Translate(kMessageTitle), MessageIcon::Information);
}

bool Messages::Ask(std::u16string_view text, MessageIcon icon) {
  return questions_.Confirm(text, Translate(kMessageTitle), icon);
}

void Messages::Report(std::u16string_view text) {
  questions_.Tell(text, Translate(kMessageTitle), MessageIcon::None);
}

}  // namespace pricedown
