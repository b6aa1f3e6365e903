// Hosts that end the control inside one of its commands, in the WM_CLOSE that "Exit" sends or while
// it waits for the user: site, window and every reference are released before the command returns.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <utility>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "tests/windows/support/run_messages.h"
#include "windows/base/control_ids.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

constexpr std::size_t kAddButton = 2;
constexpr std::size_t kDeleteButton = 4;
constexpr std::size_t kExitButton = 8;

class ClosingHost : public ::testing::Test {
 protected:
  ClosingHost() {
    host_.world.factory.Object(u"parent").On(u"MergeToolBar", Reply::From([this](auto arguments) {
                                               bar_ = arguments[0].Resolved().Object();
                                               return Value();
                                             }));
    host_.SetSite();
    host_.DoVerb(OLEIVERB_SHOW);
    const auto parent = windows::ToDispatch(host_.world.factory.NewObject(u"parent"));
    EXPECT_EQ(Expression(host_.control.get(), L"Show", {ObjectOf(parent.get())}), "S_OK True");
    bar_->Get(u"Tools").Object()->Call(u"Add", {u"iExit"});
    host_.frame.onClose = [this] { End(); };
  }
  ~ClosingHost() override {
    if (waiting_ == this) waiting_ = nullptr;
  }

  void End() {
    host_.Close();
    host_.LeaveSite();
    host_.frame.Destroy();
    host_.Release();
    bar_.reset();
  }
  // The host ends everything as soon as a message box or a menu of this thread waits for the user.
  void EndWhenTheUserIsAsked() {
    waiting_ = this;
    timer_ = SetTimer(nullptr, 0, 20, &OnTimer);
  }

  HWND Strip() const { return GetDlgItem(host_.Window(), ids::kToolStrip); }

  void ExpectTheEnd(std::size_t closes = 1) {
    EXPECT_EQ(host_.world.log.Count("host WM_CLOSE 0 0"), closes);
    EXPECT_EQ(host_.control.get(), nullptr);
    EXPECT_FALSE(IsWindow(host_.frame.Handle()));
    EXPECT_TRUE(host_.library.CanUnload());
  }

  // The timer ended the control, and no call to the suite followed.
  void ExpectTheEndBehind(const std::string& lastCall) {
    EXPECT_EQ(waiting_, nullptr);
    ExpectTheEnd(0);
    const std::string log = host_.world.log.Text();
    EXPECT_NE(log.find(lastCall), std::string::npos) << log;
    EXPECT_EQ(log.find("t_voucher"), std::string::npos) << log;
    // Only the first display loads.
    EXPECT_EQ(host_.world.log.Count(ExecuteLine(kTreeStatement)), 1U) << log;
  }

  void Press(std::size_t button) {
    RECT area{};
    SendMessageW(Strip(), TB_GETITEMRECT, button - 1, reinterpret_cast<LPARAM>(&area));
    const LPARAM place = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    const HWND strip = Strip();
    PostMessageW(strip, WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(strip, WM_LBUTTONUP, 0, place);
  }

  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    for (const wchar_t* name : {L"#32770", L"#32768"}) {
      const HWND window = FindWindowW(name, nullptr);
      if (waiting_ == nullptr || window == nullptr || IsWindowVisible(window) == FALSE) continue;
      if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) continue;
      KillTimer(nullptr, waiting_->timer_);
      std::exchange(waiting_, nullptr)->End();
    }
  }

  static inline ClosingHost* waiting_ = nullptr;

  ControlHost host_;
  ObjectPtr bar_;
  UINT_PTR timer_ = 0;
};

TEST_F(ClosingHost, MayEndAllOnAClickOfTheStrip) {
  Press(kExitButton);
  RunMessages();
  ExpectTheEnd();
}

TEST_F(ClosingHost, MayDestroyTheWindowFirstAndTheSelectedClassIsStored) {
  host_.frame.onClose = [this] {
    host_.frame.Destroy();
    host_.Release();
    bar_.reset();
  };
  Press(kExitButton);
  RunMessages();
  ExpectTheEnd();
  EXPECT_EQ(host_.world.log.Count(ExecuteLine(kTreeStatement)), 1U);
  EXPECT_EQ(host_.world.log.Count("put dictionary(\"NodeSel1\") = \"gi01\""), 1U);
}

TEST_F(ClosingHost, MayEndAllOnAKeyInTheStrip) {
  const HWND strip = Strip();
  SetFocus(strip);
  PostMessageW(strip, WM_KEYDOWN, VK_END, 1);
  PostMessageW(strip, WM_KEYDOWN, VK_RETURN, 1);
  RunMessages();
  ExpectTheEnd();
}

TEST_F(ClosingHost, MayEndAllOnAClickThatItForwards) {
  auto tool = windows::ToDispatch(host_.world.NewTool(u"iExit"));
  IDispatch* passed = tool.get();
  VARIANT_BOOL use = VARIANT_FALSE;
  EXPECT_EQ(Statement(host_.control.get(), L"ParentWindow_ToolBarClick",
                      {Reference(VT_DISPATCH, &passed), Reference(VT_BOOL, &use)}),
            "S_OK");
  tool.attach(nullptr);
  ExpectTheEnd();
}

TEST_F(ClosingHost, MayEndAllOnAClickOfTheBar) {
  // The bar's own call keeps only the bar alive.
  ObjectPtr bar = bar_;
  bar->Call(u"Click", {u"iExit"});
  bar.reset();
  ExpectTheEnd();
}

TEST_F(ClosingHost, MayEndAllOnAClickOfTheBarsTool) {
  ObjectPtr tool = bar_->Get(u"Tools").Object()->Call(u"Item", {u"iExit"}).Object();
  tool->Call(u"Click");
  tool.reset();
  ExpectTheEnd();
}

const char* const kDeleteRight = "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 65536)";

TEST_F(ClosingHost, MayEndAllDuringTheQuestionOfADeletion) {
  EndWhenTheUserIsAsked();
  Press(kDeleteButton);
  RunMessages();
  ExpectTheEndBehind(kDeleteRight);
}

TEST_F(ClosingHost, MayEndAllDuringTheQuestionOfAKey) {
  const HWND tree = GetDlgItem(host_.Window(), ids::kTree);
  SetFocus(tree);
  EndWhenTheUserIsAsked();
  PostMessageW(tree, WM_KEYDOWN, VK_DELETE, 1);
  RunMessages();
  ExpectTheEndBehind(kDeleteRight);
}

TEST_F(ClosingHost, MayEndAllDuringTheQuestionOfItsOwnCall) {
  EndWhenTheUserIsAsked();
  EXPECT_EQ(Statement(host_.control.get(), L"delRecord", {}), "S_OK");
  ExpectTheEndBehind("");
}

TEST_F(ClosingHost, MayEndAllDuringARefusal) {
  host_.world.company.grantedMasks = "none";
  EndWhenTheUserIsAsked();
  Press(kAddButton);
  RunMessages();
  ExpectTheEndBehind("ZEPEBCGLView.GLData.AccessCheck(1002, 35, 131072)");
}

TEST_F(ClosingHost, MayEndAllWhileAMenuIsOpen) {
  const HWND tree = GetDlgItem(host_.Window(), ids::kTree);
  SetFocus(tree);
  EndWhenTheUserIsAsked();
  PostMessageW(tree, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(tree), -1);
  RunMessages();
  ExpectTheEndBehind("");
}

}  // namespace
}  // namespace pricedown::testing
