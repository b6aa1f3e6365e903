// Puts text on the clipboard and reads it.
// The clipboard is shared: another program may have it open for a moment.
#include "windows/base/clipboard.h"

#include <cstring>

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

// Memory filled for the clipboard; freed unless that took it over.
class ClipboardMemory {
 public:
  template <typename Fill>
  ClipboardMemory(std::size_t bytes, Fill fill) : memory_(GlobalAlloc(GMEM_MOVEABLE, bytes)) {
    void* const target = memory_ == nullptr ? nullptr : GlobalLock(memory_);
    if (target == nullptr) return;
    fill(target);
    GlobalUnlock(memory_);
    filled_ = true;
  }
  ~ClipboardMemory() {
    if (memory_ != nullptr) GlobalFree(memory_);
  }
  ClipboardMemory(const ClipboardMemory&) = delete;
  ClipboardMemory& operator=(const ClipboardMemory&) = delete;
  explicit operator bool() const { return filled_; }

  // Requires: filled, and the clipboard is open.
  bool SetAs(UINT format) {
    if (SetClipboardData(format, memory_) == nullptr) return false;
    memory_ = nullptr;
    return true;
  }

 private:
  HGLOBAL memory_;
  bool filled_ = false;
};

}  // namespace

bool CopyToClipboard(HWND owner, std::u16string_view text) {
  return CopyToClipboard(owner, CopiedCells{std::u16string(text), {}});
}

bool CopyToClipboard(HWND owner, const CopiedCells& cells) {
  ClipboardMemory text((cells.text.size() + 1) * sizeof(wchar_t), [&](void* target) {
    auto* characters = static_cast<wchar_t*>(target);
    CopyWide(cells.text, characters);
    characters[cells.text.size()] = L'\0';
  });
  if (!text) return false;
  ClipboardMemory html(cells.html.size() + 1, [&](void* target) {
    std::memcpy(target, cells.html.c_str(), cells.html.size() + 1);
  });
  const OpenedClipboard clipboard(owner);
  if (!clipboard || EmptyClipboard() == FALSE || !text.SetAs(CF_UNICODETEXT)) return false;
  // Without it the text is still there.
  if (html && !cells.html.empty()) html.SetAs(RegisterClipboardFormatW(L"HTML Format"));
  return true;
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
