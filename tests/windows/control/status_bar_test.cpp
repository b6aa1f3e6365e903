// The status bar, the hourglass and the progress bar: row counts and long operations.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "store/statements.h"
#include "tests/control/button.h"
#include "tests/support/utf8.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

std::string Panel(const UiWorld& world, int panel) {
  std::array<wchar_t, 200> text{};
  SendMessageW(world.Child(ids::kStatusBar), SB_GETTEXTW, static_cast<WPARAM>(panel),
               reinterpret_cast<LPARAM>(text.data()));
  return Utf8(windows::FromWide(text.data()));
}

bool ShowsProgress(const UiWorld& world) {
  return IsWindowVisible(world.Child(ids::kProgressBar)) != FALSE;
}

constexpr DWORD kLong = 350;  // milliseconds

// A wait that has been short so far. On a busy machine it may be long by now, and then there is
// nothing to check.
class ShortWait {
 public:
  void ExpectNoProgress(const UiWorld& world) const {
    const bool shows = ShowsProgress(world);
    if (GetTickCount64() - began_ >= kShort) return;
    EXPECT_FALSE(shows);
  }

 private:
  static constexpr ULONGLONG kShort = 200;  // below the limit by more than the clock's step
  ULONGLONG began_ = GetTickCount64();
};

// Those of the start were long on a busy machine; a wait that follows is expected to be so.
void ForgetTheLastWait(UiWorld& world) {
  world.window->SetWaiting(true);
  world.window->SetWaiting(false);
}

TEST(ControlWindow, ShowsTheNumberOfItemsAndTheClass) {
  UiWorld world;
  world.Start();
  world.Click(world.Tree(), world.NodePoint(6));
  EXPECT_EQ(Panel(world, 0), "05(外购半成品)    共 50 项物料");
  EXPECT_TRUE(Panel(world, 1).starts_with("用时 ")) << Panel(world, 1);
  world.Click(world.Tree(), world.NodePoint(4));
  EXPECT_EQ(Panel(world, 0), "03(包装物)    共 0 项物料");
  KeepPicture(world.host.Handle(), "empty class");
}

TEST(StatusBar, IsSpokenOnceForEachClassAtTheEndOfItsLoad) {
  UiWorld world;
  world.Start();
  const auto provider = world.automation.ProviderOf(world.Grid());
  SetFocus(world.Tree());
  for (const NodeIndex node : {6, 5}) {
    world.automation.log.clear();
    world.Click(world.Tree(), world.NodePoint(node));
    EXPECT_EQ(world.automation.Spoken(), std::vector<std::string>{Panel(world, 0)});
  }
}

WNDPROC g_statusProcedure = nullptr;

LRESULT CALLBACK RefuseTexts(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == SB_SETTEXTW) return FALSE;
  return CallWindowProcW(g_statusProcedure, window, message, wParam, lParam);
}

TEST(StatusBar, HoldsTheControlThatAClientEndsWhenItIsSpokenOnFocus) {
  UiWorld world;
  world.Start();
  SetFocus(CreateWindowW(L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, world.host.Handle(),
                         nullptr, nullptr, nullptr));
  EXPECT_TRUE(IsHeldWhenAClientEndsIt(world, [&] { SetFocus(world.Tree()); }));
}

TEST(StatusBar, SetsATextAgainThatTheSystemRefused) {
  UiWorld world;
  world.Start();
  const HWND bar = world.Child(ids::kStatusBar);
  g_statusProcedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(bar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&RefuseTexts)));
  world.Click(world.Tree(), world.NodePoint(6));
  const std::string refused = Panel(world, 0);
  SetWindowLongPtrW(bar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_statusProcedure));
  ASSERT_NE(refused, "05(外购半成品)    共 50 项物料");
  SetFocus(world.Grid());
  EXPECT_EQ(Panel(world, 0), "05(外购半成品)    共 50 项物料");
}

TEST(ControlWindow, NamesNoClassOnceTheFormHoldsTheRows) {
  UiWorld world;
  world.Start();
  // From the second load on, with all columns that the form needs.
  AnswerStatement(world.suite.factory, statements::ItemsOfClass(u"05"),
                  ItemRows(kTwoItems, u"05", u"外购半成品"));
  world.Click(world.Tree(), world.NodePoint(6));
  world.Click(world.Tree(), world.NodePoint(6));
  EXPECT_EQ(Panel(world, 0), "05(外购半成品)    共 2 项物料");
  // The tool strip's command repaints the grid afterwards.
  world.control->CommandChosen(Button(u"Edit"));
  EXPECT_EQ(Panel(world, 0), "请重新选择物料类别    共 2 项物料");
  KeepPicture(world.host.Handle(), "class to select again");
  world.Click(world.Tree(), world.NodePoint(6));
  EXPECT_EQ(Panel(world, 0), "05(外购半成品)    共 2 项物料");
  // A call from the host is not reported; the focus returns when the form has closed.
  world.control->editRecord();
  SetFocus(nullptr);
  SetFocus(world.Tree());
  EXPECT_EQ(Panel(world, 0), "请重新选择物料类别    共 2 项物料");
}

TEST(ControlWindow, ShowsTheHourglassOverItselfWhileWaiting) {
  UiWorld world;
  world.Start();
  const auto ask = [&] {
    return SendMessageW(world.window->Handle(), WM_SETCURSOR,
                        reinterpret_cast<WPARAM>(world.Grid()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  };
  world.screen->SetMousePointer(MousePointer::Hourglass);
  EXPECT_EQ(ask(), TRUE);
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
  world.screen->SetMousePointer(MousePointer::Default);
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
  EXPECT_NE(ask(), TRUE);
}

TEST(ControlWindow, ShowsTheProgressBarWhileALongTreeIsFilled) {
  UiWorld world;
  world.Start();
  const ShortWait wait;
  world.window->SetRedraw(false);
  world.window->ClearNodes();
  world.window->InsertNode(1, kNoNode, u"物料");
  wait.ExpectNoProgress(world);
  Sleep(kLong);
  for (NodeIndex index = 2; index <= 1024; ++index) world.window->InsertNode(index, 1, u"类别");
  EXPECT_TRUE(ShowsProgress(world));
  EXPECT_EQ(Panel(world, 2), "请稍候…");
  KeepPicture(world.host.Handle(), "progress");
  world.window->SetRedraw(true);
  EXPECT_FALSE(ShowsProgress(world));
  EXPECT_EQ(Panel(world, 2), "");
}

// The rest of the work runs no messages.
TEST(ControlWindow, HasPaintedTheProgressOnceItIsShown) {
  UiWorld world;
  world.Start();
  world.window->SetRedraw(false);
  world.window->ClearNodes();
  world.window->InsertNode(1, kNoNode, u"物料");
  Sleep(kLong);
  for (NodeIndex index = 2; index <= 1024; ++index) world.window->InsertNode(index, 1, u"类别");
  ASSERT_TRUE(ShowsProgress(world));
  for (const int id : {ids::kProgressBar, ids::kStatusBar}) {
    EXPECT_FALSE(GetUpdateRect(world.Child(id), nullptr, FALSE)) << id;
  }
  world.window->SetRedraw(true);
}

TEST(ControlWindow, ShowsTheProgressBarOnceTheItemsOfALongLoadArrive) {
  UiWorld world;
  world.Start();
  ForgetTheLastWait(world);
  world.control->GetGrid().SetRedraw(true);
  const ShortWait wait;
  world.window->SetWaiting(true);
  world.control->GetGrid().Repaint();
  wait.ExpectNoProgress(world);
  Sleep(kLong);
  EXPECT_FALSE(ShowsProgress(world));
  world.control->GetGrid().NotifyFilling();
  EXPECT_TRUE(ShowsProgress(world));
  world.window->SetWaiting(false);
  EXPECT_FALSE(ShowsProgress(world));
  // Without a load nothing is shown, however long ago the last one started.
  world.control->GetGrid().NotifyFilling();
  EXPECT_FALSE(ShowsProgress(world));
}

TEST(ControlWindow, ShowsTheProgressBarWhileItWaitsForWorkThatTookLongBefore) {
  UiWorld world;
  world.Start();
  ForgetTheLastWait(world);
  world.window->SetWaiting(true);
  EXPECT_FALSE(ShowsProgress(world));
  Sleep(kLong);
  world.window->SetWaiting(false);
  const ShortWait wait;
  world.window->SetWaiting(true);
  EXPECT_TRUE(ShowsProgress(world));
  world.window->SetWaiting(false);
  EXPECT_FALSE(ShowsProgress(world));
  // The last time was short.
  world.window->SetWaiting(true);
  wait.ExpectNoProgress(world);
  world.window->SetWaiting(false);
}

TEST(ControlWindow, DrawsTheNextItemsAfterALoadThatFailed) {
  UiWorld world;
  world.Start();
  world.Click(world.Tree(), world.NodePoint(3));
  world.Click(world.Tree(), world.NodePoint(6));
  const Picture before = CapturePicture(world.Grid());
  // From the second time on: a recordset whose rows cannot be read, so that the load ends while
  // the grid's redrawing is off.
  AnswerStatement(world.suite.factory, statements::ItemsOfClass(u"02"),
                  Rows({u"FNumber"}, {{u"02.01.000"}}));
  world.Click(world.Tree(), world.NodePoint(3));
  ASSERT_EQ(world.suite.Messages(), 1u);
  ASSERT_FALSE(world.control->GetGrid().Redraw());
  KeepPicture(world.host.Handle(), "after a failed load");
  world.Click(world.Tree(), world.NodePoint(6));
  EXPECT_TRUE(world.control->GetGrid().Redraw());
  EXPECT_EQ(Panel(world, 0), "05(外购半成品)    共 50 项物料");
  EXPECT_EQ(CapturePicture(world.Grid()).pixels, before.pixels);
}

TEST(ControlWindow, KeepsRoomForTheStatusInANarrowControl) {
  UiWorld world;
  world.Start();
  const auto edges = [&](int width) {
    world.window->MoveTo({0, 0, width, 500});
    std::array<int, 3> parts{};
    SendMessageW(world.Child(ids::kStatusBar), SB_GETPARTS, parts.size(),
                 reinterpret_cast<LPARAM>(parts.data()));
    return parts;
  };
  const windows::Dpi dpi = windows::Dpi::Of(world.window->Handle());
  const int wide = dpi.Scale(900);
  EXPECT_EQ(edges(wide)[0], wide - dpi.Scale(260)) << "the other panels have their widths";
  const int narrow = dpi.Scale(360);
  EXPECT_EQ(edges(narrow)[0], narrow - dpi.Scale(140)) << "the elapsed time leaves its room";
  EXPECT_EQ(edges(narrow)[1], edges(narrow)[0]);
  EXPECT_GE(edges(dpi.Scale(60))[0], 0);
}

}  // namespace
}  // namespace pricedown::testing
