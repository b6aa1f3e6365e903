// The texts of failures; the system's part may be in another language.
#include "windows/print/print_failure.h"

#include <cderr.h>

#include "env/translation.h"
#include "platform/error.h"
#include "platform/text.h"
#include "windows/com/system_error.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kSource = u"ldgPara";

}  // namespace

void ThrowPrintFailure(std::u16string_view what, DWORD error) {
  if (error == ERROR_SUCCESS) {
    throw AutomationError(ErrorNumber::Unspecified, Concatenate({Translate(what), u"。"}),
                          std::u16string(kSource));
  }
  const HRESULT code = HRESULT_FROM_WIN32(error);
  throw AutomationError(code, Concatenate({Translate(what), u"：", SystemText(code)}),
                        std::u16string(kSource));
}

void ThrowNoPrinter() {
  throw AutomationError(ErrorNumber::Unspecified, Translate(kNoPrinter), std::u16string(kSource));
}

bool IsStale(DWORD error) {
  return error == PDERR_PRINTERNOTFOUND || error == PDERR_DNDMMISMATCH ||
         error == PDERR_DEFAULTDIFFERENT;
}

void ThrowDialogFailure(std::u16string_view what, DWORD error) {
  if (error == PDERR_NODEFAULTPRN || error == PDERR_NODEVICES) ThrowNoPrinter();
  throw AutomationError(ErrorNumber::Unspecified,
                        Concatenate({Translate(what), Translate(u"：对话框错误 "),
                                     FromUtf8(std::to_string(error)), u"。"}),
                        std::u16string(kSource));
}

}  // namespace pricedown::windows
