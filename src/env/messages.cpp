// Messages and questions under the suite's title.
#include "env/messages.h"

#include "env/translation.h"

namespace pricedown {

std::u16string FailureText(const Failure& failure) {
  return Translate(failure.description.empty() ? kUnexpectedError : failure.description);
}

void Messages::Inform(std::u16string_view text) {
  questions_.ShowMessage(text, Translate(kMessageTitle), MessageIcon::Information);
}

bool Messages::Ask(std::u16string_view text, MessageIcon icon) {
  return questions_.Confirm(text, Translate(kMessageTitle), icon);
}

void Messages::Report(std::u16string_view text) {
  questions_.ShowMessage(text, Translate(kMessageTitle), MessageIcon::None);
}

}  // namespace pricedown
