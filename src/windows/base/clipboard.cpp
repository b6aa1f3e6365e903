// Puts text on the clipboard and reads it.
// The clipboard is shared: another program may have it open for a moment.
#include "windows/base/clipboard.h"

#include <cstddef>
#include <span>

#include "platform/skip.h"
#include "windows/base/global_memory.h"
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

// With the text's final null.
template <typename Text>
std::span<const std::byte> BytesOf(const Text& text) {
  return std::as_bytes(std::span(text.c_str(), text.size() + 1));
}

// Returns whether the clipboard took the memory over. Requires: it is open.
bool SetAs(UINT format, GlobalMemory& memory) {
  if (SetClipboardData(format, memory.Get()) == nullptr) return false;
  memory.Reset(nullptr);
  return true;
}

}  // namespace

bool CopyToClipboard(HWND owner, std::u16string_view text) {
  return CopyToClipboard(owner, CopiedCells{std::u16string(text), {}});
}

bool CopyToClipboard(HWND owner, const CopiedCells& cells) {
  bool copied = false;
  SkipFailing([&] {
    GlobalMemory text(CopyToGlobal(BytesOf(cells.text)));
    const OpenedClipboard clipboard(owner);
    copied = clipboard && EmptyClipboard() != FALSE && SetAs(CF_UNICODETEXT, text);
    if (!copied || cells.html.empty()) return;
    // Without it the text is still there.
    GlobalMemory html(CopyToGlobal(BytesOf(cells.html)));
    SetAs(RegisterClipboardFormatW(L"HTML Format"), html);
  });
  return copied;
}

std::u16string ClipboardText(HWND owner) {
  const OpenedClipboard clipboard(owner);
  if (!clipboard) return {};
  const GlobalBytes bytes(GetClipboardData(CF_UNICODETEXT));
  const std::wstring_view all(reinterpret_cast<const wchar_t*>(bytes.Get().data()),
                              bytes.Get().size() / sizeof(wchar_t));
  return FromWide(all.substr(0, all.find(L'\0')));
}

}  // namespace pricedown::windows
