// The dialog 打开公司: its fields, the choice of a file, the answer.
#include "workbench/host/open_company_dialog.h"

#include <commdlg.h>

#include <vector>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"
#include "workbench/company/location.h"
#include "workbench/host/messages.h"
#include "workbench/host/recent_companies.h"
#include "workbench/host/resource_ids.h"
#include "workbench/host/window_icon.h"

namespace workbench {
namespace {

using pricedown::windows::FromWide;
using pricedown::windows::ToWide;

std::string Utf8(const std::wstring& text) { return pricedown::ToUtf8(FromWide(text)); }
std::wstring Wide(const std::string& text) { return ToWide(pricedown::FromUtf8(text)); }

std::wstring TextOf(HWND dialog, int control) {
  return ToWide(pricedown::windows::TextOf(GetDlgItem(dialog, control)));
}

constexpr std::size_t kLongestPath = 32'768;  // characters, of the system

class Page {
 public:
  explicit Page(std::wstring proposed) : proposed_(std::move(proposed)) {}

  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept {
    try {
      if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        SendMessageW(dialog, WM_SETICON, ICON_SMALL,
                     reinterpret_cast<LPARAM>(WindowIcon(SM_CXSMICON)));
        reinterpret_cast<Page*>(lParam)->Fill(dialog);
        return TRUE;
      }
      auto* page = reinterpret_cast<Page*>(GetWindowLongPtrW(dialog, DWLP_USER));
      if (page != nullptr && message == WM_COMMAND) return page->OnCommand(dialog, LOWORD(wParam));
    } catch (...) {
      ShowFailure(dialog, pricedown::CurrentFailure());
      return TRUE;
    }
    return FALSE;
  }

  std::wstring chosen;

 private:
  void Fill(HWND dialog) const {
    const HWND list = GetDlgItem(dialog, IDC_COMPANY);
    for (const std::wstring& company : RecentCompanies()) {
      SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(company.c_str()));
    }
    const std::wstring shown = Wide(RememberedLocation(Utf8(proposed_)));
    if (shown.empty()) {
      SendMessageW(list, CB_SETCURSEL, 0, 0);
    } else {
      SetWindowTextW(list, shown.c_str());
    }
  }

  INT_PTR OnCommand(HWND dialog, int id) {
    switch (id) {
      case IDOK: {
        const std::string entered = Utf8(TextOf(dialog, IDC_COMPANY));
        const std::string location(EnteredLocation(entered));
        if (location.empty()) return TRUE;
        chosen = Wide(IsConnectionString(location)
                          ? WithPassword(location, Utf8(TextOf(dialog, IDC_PASSWORD)))
                          : location);
        EndDialog(dialog, IDOK);
        return TRUE;
      }
      case IDCANCEL:
        EndDialog(dialog, IDCANCEL);
        return TRUE;
      case IDC_BROWSE:
        Browse(dialog);
        return TRUE;
      default:
        return FALSE;
    }
  }

  static void Browse(HWND dialog) {
    std::vector<wchar_t> path(kLongestPath);
    OPENFILENAMEW files{};
    files.lStructSize = sizeof(files);
    files.hwndOwner = dialog;
    files.lpstrFilter = L"公司数据库 (*.db)\0*.db\0所有文件 (*.*)\0*.*\0";
    files.lpstrFile = path.data();
    files.nMaxFile = static_cast<DWORD>(path.size());
    files.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetOpenFileNameW(&files)) {
      SetDlgItemTextW(dialog, IDC_COMPANY, path.data());
    } else if (const DWORD error = CommDlgExtendedError(); error != 0) {
      throw pricedown::AutomationError(
          pricedown::ErrorNumber::Unspecified,
          pricedown::Concatenate({u"无法选择文件(错误 ",
                                  pricedown::NumberText(static_cast<std::int32_t>(error)), u")。"}),
          u"WorkbenchHost");
    }
  }

  std::wstring proposed_;
};

}  // namespace

std::optional<std::wstring> AskForCompany(HINSTANCE module, HWND owner,
                                          const std::wstring& proposed) {
  Page page(proposed);
  const INT_PTR answer = DialogBoxParamW(module, MAKEINTRESOURCEW(IDD_OPEN_COMPANY), owner,
                                         Page::Procedure, reinterpret_cast<LPARAM>(&page));
  if (answer != IDOK) return std::nullopt;
  return page.chosen;
}

}  // namespace workbench
