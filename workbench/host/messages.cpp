// The host's message boxes.
#include "workbench/host/messages.h"

#include "windows/com/wide_text.h"

namespace workbench {

void ShowFailure(HWND owner, const pricedown::Failure& failure) noexcept {
  try {
    std::wstring text = pricedown::windows::ToWide(failure.description);
    if (text.empty()) text = L"操作没有完成。";
    MessageBoxW(owner, text.c_str(), L"工作台", MB_OK | MB_ICONWARNING);
  } catch (const std::exception&) {
    MessageBoxW(owner, L"内存不足。", L"工作台", MB_OK | MB_ICONWARNING);
  }
}

bool AskAfterFailure(HWND owner, const pricedown::Failure& failure,
                     const wchar_t* question) noexcept {
  try {
    const std::wstring text = pricedown::windows::ToWide(failure.description) + L"\n\n" + question;
    return MessageBoxW(owner, text.c_str(), L"工作台", MB_YESNO | MB_ICONWARNING) == IDYES;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace workbench
