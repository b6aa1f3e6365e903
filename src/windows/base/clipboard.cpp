// Puts text on the clipboard and reads it.
// The clipboard is shared: another program may have it open for a moment.
#include "windows/base/clipboard.h"

#include "platform/text.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr int kAttempts = 5;
constexpr DWORD kPause = 10;  // milliseconds

class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      if (attempt > 0) Sleep(kPause);
      open_ = OpenClipboard(owner) != FALSE;
      if (open_) break;
    }
  }
  ~OpenedClipboard() {
    if (open_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  explicit operator bool() const { return open_; }

 private:
  bool open_ = false;
};

}  // namespace

bool CopyToClipboard(HWND owner, std::u16string_view text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (memory == nullptr) return false;
  auto* target = static_cast<wchar_t*>(GlobalLock(memory));
  if (target != nullptr) {
    CopyWide(text, target);
    target[text.size()] = L'\0';
    GlobalUnlock(memory);
    const OpenedClipboard clipboard(owner);
    // The clipboard now owns the memory.
    if (clipboard && EmptyClipboard() != FALSE &&
        SetClipboardData(CF_UNICODETEXT, memory) != nullptr) {
      return true;
    }
  }
  // cppcheck-suppress doubleFree ; a failed SetClipboardData leaves it ours
  GlobalFree(memory);
  return false;
}

std::u16string ClipboardText(HWND owner) {
  const OpenedClipboard clipboard(owner);
  if (!clipboard) return {};
  const HANDLE data = GetClipboardData(CF_UNICODETEXT);
  if (data == nullptr) return {};
  const auto* text = static_cast<const wchar_t*>(GlobalLock(data));
  if (text == nullptr) return {};
  std::wstring_view all(text, GlobalSize(data) / sizeof(wchar_t));
  std::u16string result = FromWide(all.substr(0, all.find(L'\0')));
  GlobalUnlock(data);
  return result;
}

}  // namespace pricedown::windows
