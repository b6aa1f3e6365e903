// Tests of the control in the system's own container, AtlAxWin of atl.dll.
#include <gtest/gtest.h>

#include "tests/windows/base/message_boxes.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "tests/windows/support/modal_steps.h"
#include "tests/windows/system_call.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

// A frame with the container as its only child; the control is made by ProgID.
class AtlHost {
 public:
  explicit AtlHost(const char16_t* missing = nullptr) {
    if (missing != nullptr) world.factory.Refuses(missing);
    FunctionOf<BOOL(WINAPI*)()>(L"atl.dll", "AtlAxWinInit")();
    container = CreateWindowExW(0, L"AtlAxWin", L"ZEPPriceDownPrepare.PriceDown",
                                WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 700, 500,
                                frame.Handle(), nullptr, nullptr, nullptr);
    ComPtr<IUnknown> object;
    FunctionOf<HRESULT(WINAPI*)(HWND, IUnknown**)>(L"atl.dll", "AtlAxGetControl")(container,
                                                                                  object.put());
    control = object.As<IDispatch>();
  }
  ~AtlHost() {
    control.attach(nullptr);
    frame.Destroy();
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    EXPECT_TRUE(library.CanUnload());
  }
  AtlHost(const AtlHost&) = delete;
  AtlHost& operator=(const AtlHost&) = delete;

  std::string Show() { return Expression(control.get(), L"Show", {ObjectOf(nullptr)}); }
  HWND Window() const { return FindWindowExW(container, nullptr, L"PriceDown.Control", nullptr); }

  ControlWorld world;
  SuiteScope suite{world.factory};
  Library library;
  HostFrame frame{world.log, u"物料类别维护"};
  HWND container = nullptr;
  ComPtr<IDispatch> control;
};

SIZE SizeOf(HWND window) {
  RECT rectangle{};
  GetClientRect(window, &rectangle);
  return {rectangle.right, rectangle.bottom};
}

TEST(InAtlAxWin, TheControlIsMadeAndShown) {
  AtlHost host;
  ASSERT_TRUE(host.control);
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
  EXPECT_EQ(host.Show(), "S_OK True");
  ASSERT_NE(host.Window(), nullptr);
  EXPECT_NE(IsWindowVisible(host.Window()), FALSE);
  EXPECT_EQ(host.world.log.Count("ZEPEBCGLView.GLData.AccessCheck(10, 151, 4194304)"), 1U);
}

TEST(InAtlAxWin, TheControlFollowsTheContainersSize) {
  AtlHost host;
  host.Show();
  EXPECT_EQ(SizeOf(host.Window()).cx, 700);
  MoveWindow(host.container, 0, 0, 500, 300, TRUE);
  EXPECT_EQ(SizeOf(host.Window()).cx, 500);
  EXPECT_EQ(SizeOf(host.Window()).cy, 300);
}

TEST(InAtlAxWin, TheHostsWindowMayEndFirst) {
  AtlHost host;
  host.Show();
  host.frame.Destroy();
  EXPECT_EQ(host.world.log.Count(R"(put dictionary("NodeSel1") = "gi01")"), 1U);
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
}

TEST(InAtlAxWin, TheHostsReferenceMayEndFirst) {
  AtlHost host;
  host.Show();
  host.control.attach(nullptr);
  EXPECT_NE(host.Window(), nullptr);
  host.frame.Destroy();
  EXPECT_EQ(host.world.log.Count(R"(put dictionary("NodeSel1") = "gi01")"), 1U);
}

TEST(InAtlAxWin, TheControlIsThereEvenIfItsCreationFailed) {
  AtlHost host(u"ZEPEBSBase.SystemProfile");
  ASSERT_TRUE(host.control);
  EXPECT_EQ(host.Show(), "S_OK True");
  EXPECT_NE(host.Window(), nullptr);
}

// AtlAxWin keeps a focus that it gets to itself, and so does this frame: only the control can give
// the focus back to its tree.
class FocusInAtlAxWin : public ::testing::Test {
 protected:
  FocusInAtlAxWin() {
    EXPECT_EQ(host_.Show(), "S_OK True");
    ShowWindow(host_.frame.Handle(), SW_SHOW);
    SetForegroundWindow(host_.frame.Handle());
    SetFocus(host_.Window());
    tree_ = GetFocus();
    EXPECT_TRUE(IsChild(host_.Window(), tree_));
  }
  // Closes the modal window of that class, which has the focus while it is open.
  void RunAndClose(const wchar_t* command, const wchar_t* windowClass) {
    ModalSteps user({[&] {
                       const HWND window = FindWindowW(windowClass, nullptr);
                       EXPECT_TRUE(GetFocus() == window || IsChild(window, GetFocus()));
                     },
                     [&] { PostMessageW(FindWindowW(windowClass, nullptr), WM_CLOSE, 0, 0); }});
    EXPECT_EQ(Statement(host_.control.get(), command), "S_OK");
    EXPECT_TRUE(user.Ended());
  }

  AtlHost host_;
  HWND tree_ = nullptr;
};

TEST_F(FocusInAtlAxWin, IsBackInTheControlAfterAMessage) {
  MessageBoxes boxes;
  boxes.WillPress({IDNO});
  Statement(host_.control.get(), L"delRecord");
  ASSERT_EQ(boxes.All().size(), 1U);
  EXPECT_EQ(GetFocus(), tree_);
}

TEST_F(FocusInAtlAxWin, IsBackInTheControlAfterTheForm) {
  RunAndClose(L"addRecord", L"PriceDown.ItemClass");
  EXPECT_EQ(GetFocus(), tree_);
}

TEST_F(FocusInAtlAxWin, IsBackInTheControlAfterThePreview) {
  RunAndClose(L"PreviewPara", L"PriceDown.Preview");
  EXPECT_EQ(GetFocus(), tree_);
}

TEST(InAtlAxWin, TheControlIsMadeAgainAndAgain) {
  for (int round = 0; round < 5; ++round) {
    AtlHost host;
    EXPECT_EQ(host.Show(), "S_OK True");
  }
}

}  // namespace
}  // namespace pricedown::testing
