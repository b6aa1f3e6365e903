// Fonts to LOGFONTs and back, in pixels of the screen, and the dialog's button for applying.
#include "windows/print/common_font_dialog.h"

#include <cderr.h>
#include <commdlg.h>
#include <dlgs.h>
#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "env/translation.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "windows/base/dpi.h"
#include "windows/base/focus_return.h"
#include "windows/base/fonts.h"
#include "windows/base/gdi.h"
#include "windows/base/message_box_questions.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr const wchar_t* kDialogProperty = L"PriceDown.FontDialog";
constexpr double kPointParts = 10;  // the dialog counts tenths of a point

// The default printer's information context, for its fonts; null without a printer.
CreatedContext PrinterInformation() {
  DWORD length = 0;
  GetDefaultPrinterW(nullptr, &length);
  if (length == 0) return nullptr;
  std::wstring name(length, L'\0');
  if (GetDefaultPrinterW(name.data(), &length) == FALSE) return nullptr;
  return CreatedContext(CreateICW(L"WINSPOOL", name.c_str(), nullptr, nullptr));
}

// Replaces the name by that of the installed font which the system uses for it: the dialog lists no
// substituted names and would begin with some other font.
void UseInstalledName(LOGFONTW& description) {
  const FontHandle font(CreateFontIndirectW(&description));
  const CreatedContext context(CreateCompatibleDC(nullptr));
  if (!font || context == nullptr) return;
  const Selected selected(context.get(), font.Get());
  GetTextFaceW(context.get(), LF_FACESIZE, description.lfFaceName);
}

LOGFONTW Describe(const Font& font) {
  // The dialog uses the screen's resolution, even if the window's differs.
  LOGFONTW description = DescribeFont(font, Dpi::Of(nullptr).Value());
  UseInstalledName(description);
  return description;
}

// What the dialog's procedure needs for one showing.
struct Showing {
  const Font& before;
  LOGFONTW first;  // what the dialog began with
  const std::function<void(const Font&)>& apply;
};

bool IsBold(const LOGFONTW& font) { return font.lfWeight > FW_MEDIUM; }

// The previous font with the user's changes; the rest stays exactly as it was, fractional size
// included. `points` is 0 where only the height is known.
Font FontOf(const LOGFONTW& chosen, double points, const Showing& showing) {
  Font font = showing.before;
  const LOGFONTW& first = showing.first;
  if (chosen.lfFaceName[0] != L'\0' && lstrcmpiW(chosen.lfFaceName, first.lfFaceName) != 0) {
    font.name = FromWide(chosen.lfFaceName);
  }
  if (chosen.lfHeight != first.lfHeight) {
    font.size = points > 0 ? points
                           : static_cast<double>(-chosen.lfHeight) * kPointsPerInch /
                                 Dpi::Of(nullptr).Value();
  }
  if (IsBold(chosen) != IsBold(first)) font.bold = IsBold(chosen);
  if ((chosen.lfItalic != FALSE) != (first.lfItalic != FALSE)) font.italic = !font.italic;
  return font;
}

void Apply(HWND dialog, const Showing& showing) {
  LOGFONTW chosen{};
  SendMessageW(dialog, WM_CHOOSEFONT_GETLOGFONT, 0, reinterpret_cast<LPARAM>(&chosen));
  try {
    const double points = LeadingNumber(TextOf(GetDlgItem(dialog, cmb3)));
    const Font font = FontOf(chosen, points, showing);
    if (font.size != showing.before.size &&
        (font.size < kSmallestFontSize || font.size > kLargestFontSize)) {
      throw AutomationError(
          ErrorNumber::InvalidArgument,
          Concatenate({Translate(u"字号应在 "), NumberText(kSmallestFontSize), Translate(u" 到 "),
                       NumberText(kLargestFontSize), Translate(u" 之间")}));
    }
    showing.apply(font);
  } catch (...) {
    ReportFailure(dialog, CurrentFailure());
  }
}

UINT_PTR CALLBACK Hook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) {
    const auto* description = reinterpret_cast<const CHOOSEFONTW*>(lParam);
    auto& showing = *reinterpret_cast<Showing*>(description->lCustData);
    SendMessageW(dialog, WM_CHOOSEFONT_GETLOGFONT, 0, reinterpret_cast<LPARAM>(&showing.first));
    SetPropW(dialog, kDialogProperty, reinterpret_cast<HANDLE>(description->lCustData));
    if (!showing.apply) {
      ShowWindow(GetDlgItem(dialog, psh3), SW_HIDE);
      EnableWindow(GetDlgItem(dialog, psh3), FALSE);
    }
    return FALSE;
  }
  if (message == WM_DESTROY) RemovePropW(dialog, kDialogProperty);
  if (message == WM_COMMAND && LOWORD(wParam) == psh3 && HIWORD(wParam) == BN_CLICKED) {
    const auto* showing = reinterpret_cast<const Showing*>(GetPropW(dialog, kDialogProperty));
    if (showing != nullptr && showing->apply) Apply(dialog, *showing);
    return TRUE;
  }
  return FALSE;
}

[[noreturn]] void ThrowFailure(DWORD error) {
  if (error == 0) throw AutomationError(kDialogCancelled, Translate(u"已取消选择字体"));
  if (error == CDERR_MEMALLOCFAILURE || error == CDERR_MEMLOCKFAILURE) {
    throw AutomationError(ErrorNumber::OutOfMemory, Translate(u"内存不足"));
  }
  if (error == CFERR_NOFONTS) {
    throw AutomationError(ErrorNumber::Unspecified, Translate(u"系统中没有可选的字体"));
  }
  throw AutomationError(ErrorNumber::Unspecified, Translate(u"无法打开字体对话框"));
}

}  // namespace

Font CommonFontDialog::Show(const Font& font, std::uint32_t flags) {
  const Font before = font;
  Showing showing{before, Describe(before), apply_};
  LOGFONTW chosen = showing.first;
  CreatedContext printer;
  if ((flags & CF_PRINTERFONTS) != 0) printer = PrinterInformation();
  CHOOSEFONTW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = window_.DialogOwner();
  dialog.lpLogFont = &chosen;
  dialog.Flags = flags | CF_INITTOLOGFONTSTRUCT | CF_ENABLEHOOK | CF_LIMITSIZE;
  dialog.nSizeMin = std::min(kSmallestFontSize, static_cast<int>(before.size));
  dialog.nSizeMax = std::max(kLargestFontSize, static_cast<int>(std::ceil(before.size)));
  // Without a printer there are none, and no context to look for them on.
  if (printer == nullptr) dialog.Flags &= ~static_cast<DWORD>(CF_PRINTERFONTS);
  dialog.hDC = printer.get();
  dialog.lCustData = reinterpret_cast<LPARAM>(&showing);
  dialog.lpfnHook = &Hook;
  const FocusReturn focus;
  if (ChooseFontW(&dialog) == FALSE) ThrowFailure(CommDlgExtendedError());
  return FontOf(chosen, dialog.iPointSize / kPointParts, showing);
}

}  // namespace pricedown::windows
