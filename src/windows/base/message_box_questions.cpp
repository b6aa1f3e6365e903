// Message boxes, and the report of a failure in one.
#include "windows/base/message_box_questions.h"

#include <string>

#include "env/messages.h"
#include "env/translation.h"
#include "windows/base/focus_return.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

UINT IconType(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return MB_ICONINFORMATION;
    case MessageIcon::Question:
      return MB_ICONQUESTION;
    case MessageIcon::None:
      break;
  }
  return 0;
}

}  // namespace

int MessageBoxQuestions::Show(std::u16string_view text, std::u16string_view title,
                              UINT type) const {
  const HWND owner = window_.DialogOwner();
  if (owner == nullptr) type |= MB_TASKMODAL;
  const FocusReturn focus;
  return MessageBoxW(owner, ToWide(text).c_str(), ToWide(title).c_str(), type);
}

void MessageBoxQuestions::ShowMessage(std::u16string_view text, std::u16string_view title,
                                      MessageIcon icon) {
  Show(text, title, MB_OK | IconType(icon));
}

bool MessageBoxQuestions::Confirm(std::u16string_view text, std::u16string_view title,
                                  MessageIcon icon) {
  return Show(text, title, MB_YESNO | IconType(icon)) == IDYES;
}

void ReportFailure(HWND owner, const Failure& failure) noexcept {
  try {
    const FocusReturn focus;
    MessageBoxW(owner, ToWide(FailureText(failure)).c_str(),
                ToWide(Translate(kMessageTitle)).c_str(),
                MB_OK | MB_ICONINFORMATION | (owner == nullptr ? MB_TASKMODAL : 0));
  } catch (...) {
    // No memory for the message.
    MessageBeep(MB_ICONERROR);
  }
}

}  // namespace pricedown::windows
