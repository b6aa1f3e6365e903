// The clipboard while another program has it open.
#include "windows/base/clipboard.h"

#include <gtest/gtest.h>

#include "tests/windows/control/ui_world.h"

namespace pricedown::testing {
namespace {

// Another window of the thread has the clipboard open, as another program would.
class OpenClipboardOfAnother {
 public:
  OpenClipboardOfAnother() { EXPECT_TRUE(OpenClipboard(window_) != FALSE); }
  ~OpenClipboardOfAnother() {
    CloseClipboard();
    DestroyWindow(window_);
  }
  OpenClipboardOfAnother(const OpenClipboardOfAnother&) = delete;
  OpenClipboardOfAnother& operator=(const OpenClipboardOfAnother&) = delete;

 private:
  HWND window_ =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
};

TEST(Clipboard, IsGivenUpWhileAnotherProgramKeepsItOpen) {
  HostWindow host(200, 200);
  ASSERT_TRUE(windows::CopyToClipboard(host.Handle(), u"物料"));
  {
    const OpenClipboardOfAnother other;
    EXPECT_FALSE(windows::CopyToClipboard(host.Handle(), u"类别"));
    EXPECT_EQ(windows::ClipboardText(host.Handle()), u"");
  }
  EXPECT_EQ(windows::ClipboardText(host.Handle()), u"物料");
}

}  // namespace
}  // namespace pricedown::testing
