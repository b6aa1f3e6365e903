// Hosts that end the control inside the WM_CLOSE that an "Exit" command sends: site, window and
// every reference are gone before the command returns.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/com/variant_value.h"
#include "windows/ui/control_ids.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

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
    host_.frame.onClose = [this] {
      host_.Close();
      host_.LeaveSite();
      host_.frame.Destroy();
      host_.Release();
      bar_.reset();
    };
  }

  HWND Strip() const { return GetDlgItem(host_.Window(), ids::kToolStrip); }

  void ExpectTheEnd() {
    EXPECT_EQ(host_.world.log.Count("host WM_CLOSE 0 0"), 1U);
    EXPECT_EQ(host_.control.get(), nullptr);
    EXPECT_FALSE(IsWindow(host_.frame.Handle()));
    EXPECT_TRUE(host_.library.CanUnload());
  }

  static void RunPostedMessages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  }

  ControlHost host_;
  ObjectPtr bar_;
};

TEST_F(ClosingHost, MayEndAllOnAClickOfTheStrip) {
  const HWND strip = Strip();
  RECT area{};
  SendMessageW(strip, TB_GETITEMRECT, kExitButton - 1, reinterpret_cast<LPARAM>(&area));
  const LPARAM place = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
  PostMessageW(strip, WM_LBUTTONDOWN, MK_LBUTTON, place);
  PostMessageW(strip, WM_LBUTTONUP, 0, place);
  RunPostedMessages();
  ExpectTheEnd();
}

TEST_F(ClosingHost, MayEndAllOnAKeyInTheStrip) {
  const HWND strip = Strip();
  SetFocus(strip);
  PostMessageW(strip, WM_KEYDOWN, VK_END, 1);
  PostMessageW(strip, WM_KEYDOWN, VK_RETURN, 1);
  RunPostedMessages();
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
  // The bar's own call keeps nothing but the bar.
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

}  // namespace
}  // namespace pricedown::testing
