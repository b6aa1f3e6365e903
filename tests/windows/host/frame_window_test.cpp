// The frame with real child windows: when a command bar is merged, its changing states, and the
// business menu.
#include "workbench/host/frame_window.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "tests/windows/base/high_contrast.h"
#include "tests/windows/host/frame_world.h"
#include "tests/windows/support/run_messages.h"
#include "windows/base/dpi.h"
#include "windows/base/fonts.h"
#include "windows/base/gdi.h"
#include "windows/base/image_list.h"
#include "workbench/host/window_icon.h"

namespace workbench {
namespace {

using pricedown::ObjectPtr;
using pricedown::testing::CapturePicture;
using pricedown::testing::Contrast;
using pricedown::testing::HighContrast;
using pricedown::testing::Picture;
using pricedown::testing::RunMessages;
using pricedown::testing::ShareThatStandsOut;

// On the toolbar: the user closes the child as soon as its tools are merged.
LRESULT CALLBACK CloseChildAtMerge(HWND toolbar, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT_PTR id, DWORD_PTR client) {
  if (message == TB_ADDBUTTONSW) {
    RemoveWindowSubclass(toolbar, CloseChildAtMerge, id);
    PostMessageW(GetWindow(reinterpret_cast<HWND>(client), GW_CHILD), WM_CLOSE, 0, 0);
  }
  return DefSubclassProc(toolbar, message, wParam, lParam);
}

class FrameWindowTest : public FrameWorld {};

const std::vector<std::string> kOwnLines{"物料类别维护(&M)\tCtrl+1", "存货跌价准备(&P)\tCtrl+2"};

// `most` is where a screen that is smaller ends the frame.
void ExpectInches(double expected, LONG pixels, int dpi, int most) {
  if (pixels < most) {
    EXPECT_NEAR(static_cast<double>(pixels) / dpi, expected, 0.05);
  } else {
    EXPECT_LT(most, expected * dpi);
  }
}

TEST_F(FrameWindowTest, HasTheSameSizeInInchesAtEveryResolution) {
  RECT frame{};
  GetWindowRect(frame_.Handle(), &frame);
  const int dpi = pricedown::windows::Dpi::Of(frame_.Handle()).Value();
  ExpectInches(1100.0 / 96, frame.right - frame.left, dpi, GetSystemMetrics(SM_CXMAXTRACK));
  ExpectInches(7.5, frame.bottom - frame.top, dpi, GetSystemMetrics(SM_CYMAXTRACK));
}

TEST_F(FrameWindowTest, HasNoToolsWithoutAChild) {
  EXPECT_EQ(Buttons(), 0);
  EXPECT_EQ(BusinessMenu(), kOwnLines);
}

TEST_F(FrameWindowTest, MergesTheToolsOfAChildAndRemovesThemWithIt) {
  ASSERT_NE(frame_.OpenChild(kItemClassesCaption), nullptr);
  EXPECT_EQ(Buttons(), kAll);
  frame_.CloseChildren();
  EXPECT_EQ(Buttons(), 0);
  EXPECT_EQ(BusinessMenu(), kOwnLines);
}

TEST_F(FrameWindowTest, ShowsEachChangeOfAToolAtOnce) {
  const ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(child, nullptr);
  EXPECT_TRUE(Has(kInsert, TBSTATE_ENABLED));
  ToolOf(*child, u"iInsert")->Put(u"Enabled", false);
  EXPECT_FALSE(Has(kInsert, TBSTATE_ENABLED));
  ToolOf(*child, u"iInsert")->Put(u"Enabled", true);
  EXPECT_TRUE(Has(kInsert, TBSTATE_ENABLED));
  ToolOf(*child, u"mnuViewStatusBar")->Put(u"Visible", false);
  EXPECT_TRUE(Has(kStatus, TBSTATE_HIDDEN));
}

TEST_F(FrameWindowTest, ShowsTheCheckToolsFollowTheirClicks) {
  ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(child, nullptr);
  for (const int tool : {kStrip, kStatus}) {
    EXPECT_TRUE(Has(tool, TBSTATE_CHECKED));
    SendMessageW(frame_.Handle(), WM_COMMAND, static_cast<WPARAM>(IDM_FIRST_TOOL + tool), 0);
    EXPECT_FALSE(Has(tool, TBSTATE_CHECKED));
    SendMessageW(frame_.Handle(), WM_COMMAND, static_cast<WPARAM>(IDM_FIRST_TOOL + tool), 0);
    EXPECT_TRUE(Has(tool, TBSTATE_CHECKED));
  }
}

TEST_F(FrameWindowTest, DisablesTheClassToolsWhereProvisionsAreKeptByItem) {
  frame_.Settings()->Put(u"ItemClassType", u"2");
  ASSERT_NE(frame_.OpenChild(kItemClassesCaption), nullptr);
  frame_.Settings()->Put(u"ItemClassType", u"1");
  for (int tool = 0; tool < kAll; ++tool) EXPECT_EQ(Has(tool, TBSTATE_ENABLED), tool > 2) << tool;
}

TEST_F(FrameWindowTest, FindsItsBusinessMenuBehindAMaximizedChild) {
  const ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(child, nullptr);
  ASSERT_TRUE(IsZoomed(child->Handle()));
  std::vector<std::string> lines = kOwnLines;
  lines.insert(lines.end(),
               {"", "新增", "修改", "删除", "打印", "预览", "刷新", "工具条", "状态栏", "退出"});
  EXPECT_EQ(BusinessMenu(), lines);
  // Opened again, it has each tool once.
  ToolOf(*child, u"iPrint")->Put(u"Visible", false);
  std::erase(lines, "打印");
  EXPECT_EQ(BusinessMenu(), lines);
}

TEST_F(FrameWindowTest, MergesTheBarOfTheChildThatIsActive) {
  const ChildWindow* first = frame_.OpenChild(kItemClassesCaption);
  const ChildWindow* second = frame_.OpenChild(kPriceDownCaption);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  ToolOf(*first, u"iInsert")->Put(u"Enabled", false);
  EXPECT_TRUE(Has(kInsert, TBSTATE_ENABLED));
  frame_.OpenChild(kItemClassesCaption);
  EXPECT_FALSE(Has(kInsert, TBSTATE_ENABLED));
  ToolOf(*second, u"iToolBar")->Put(u"Checked", false);
  EXPECT_TRUE(Has(kStrip, TBSTATE_CHECKED));
}

TEST_F(FrameWindowTest, ClosesTheChildOnItsExitTool) {
  ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(child, nullptr);
  const HWND window = child->Handle();
  frame_.ClickTool(*child, u"iExit");
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(Buttons(), 0);
}

TEST_F(FrameWindowTest, RemovesTheButtonsOnlyAfterTheToolbarHasHandledTheClick) {
  const ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(child, nullptr);
  const HWND window = child->Handle();
  RunMessages();
  Press(kExit);
  EXPECT_TRUE(IsWindow(window));
  EXPECT_EQ(Buttons(), kAll);
  RunMessages();
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(Buttons(), 0);
}

TEST_F(FrameWindowTest, RunsAToolOnceForAMouseClick) {
  ASSERT_NE(frame_.OpenChild(kItemClassesCaption), nullptr);
  Press(kStatus);
  RunMessages();
  EXPECT_FALSE(Has(kStatus, TBSTATE_CHECKED));
}

TEST_F(FrameWindowTest, HasNoChildThatIsClosedWhileItIsShown) {
  const HWND client = FindWindowExW(frame_.Handle(), nullptr, L"MDICLIENT", nullptr);
  ASSERT_TRUE(
      SetWindowSubclass(Toolbar(), CloseChildAtMerge, 1, reinterpret_cast<DWORD_PTR>(client)));
  EXPECT_EQ(frame_.OpenChild(kItemClassesCaption), nullptr);
  EXPECT_EQ(frame_.ActiveChild(), nullptr);
  EXPECT_EQ(Buttons(), 0);
  EXPECT_NE(frame_.OpenChild(kItemClassesCaption), nullptr);
  EXPECT_EQ(Buttons(), kAll);
}

TEST_F(FrameWindowTest, MovesTheFocusToTheControlOfTheActiveChild) {
  const ChildWindow* first = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(first, nullptr);
  EXPECT_TRUE(IsChild(first->ControlHandle(), GetFocus())) << "opened";
  const ChildWindow* second = frame_.OpenChild(kPriceDownCaption);
  ASSERT_NE(second, nullptr);
  EXPECT_TRUE(IsChild(second->ControlHandle(), GetFocus())) << "another one opened";
  frame_.OpenChild(kItemClassesCaption);
  EXPECT_TRUE(IsChild(first->ControlHandle(), GetFocus())) << "activated again";
  SetFocus(frame_.Handle());
  EXPECT_TRUE(IsChild(first->ControlHandle(), GetFocus())) << "from the frame";
}

TEST_F(FrameWindowTest, ShowsTheProductsIconInFrameAndChild) {
  const ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(child, nullptr);
  for (const HWND window : {frame_.Handle(), child->Handle()}) {
    EXPECT_EQ(GetClassLongPtrW(window, GCLP_HICON),
              reinterpret_cast<ULONG_PTR>(WindowIcon(SM_CXICON)));
    EXPECT_EQ(GetClassLongPtrW(window, GCLP_HICONSM),
              reinterpret_cast<ULONG_PTR>(WindowIcon(SM_CXSMICON)));
  }
  EXPECT_NE(WindowIcon(SM_CXICON), nullptr);
}

TEST_F(FrameWindowTest, PicturesAndCaptionsOfTheToolbarStandOutInHighContrast) {
  const ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(child, nullptr);
  SendMessageW(Toolbar(), TB_ENABLEBUTTON, IDM_FIRST_TOOL + kInsert, FALSE);
  // The ground of checked buttons is the visual style's, which has no dark scheme here.
  for (const int tool : {kStrip, kStatus}) {
    SendMessageW(Toolbar(), TB_CHECKBUTTON, static_cast<WPARAM>(IDM_FIRST_TOOL + tool), FALSE);
  }
  const int icon = pricedown::windows::Dpi::Of(Toolbar()).Scale(20);
  for (const bool dark : {false, true}) {
    const HighContrast colours(dark);
    HighContrast::Apply(frame_.Handle());
    const Picture picture = CapturePicture(Toolbar());
    KeepPicture(picture, dark ? "host toolbar in dark" : "host toolbar in light");
    for (int tool = 0; tool < kAll; ++tool) {
      RECT area{};
      SendMessageW(Toolbar(), TB_GETITEMRECT, static_cast<WPARAM>(tool),
                   reinterpret_cast<LPARAM>(&area));
      InflateRect(&area, -2, -2);
      const RECT image{area.left, area.top, area.left + icon, area.bottom};
      const RECT caption{image.right, area.top, area.right, area.bottom};
      const bool enabled = tool != kInsert;
      EXPECT_GT(ShareThatStandsOut(picture, image, enabled ? 3 : 1.5), 0.05) << tool << dark;
      EXPECT_GT(ShareThatStandsOut(picture, caption, enabled ? 4.5 : 2), 0.02) << tool << dark;
    }
  }
}

// Without visual styles, which the tests cannot switch off, the system dots checked buttons with
// this colour.
TEST_F(FrameWindowTest, CheckedToolsAreNotDottedInTheColourOfTheirTextsInHighContrast) {
  const auto highlight = [this] {
    NMTBCUSTOMDRAW drawing{};
    drawing.nmcd.hdr = {Toolbar(), 0, static_cast<UINT>(NM_CUSTOMDRAW)};
    drawing.nmcd.dwDrawStage = CDDS_PREPAINT;
    const auto notify = [&] {
      return SendMessageW(frame_.Handle(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&drawing));
    };
    EXPECT_EQ(notify(), CDRF_NOTIFYITEMDRAW);
    drawing.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
    drawing.clrBtnHighlight = GetSysColor(COLOR_BTNHIGHLIGHT);
    EXPECT_EQ(notify(), CDRF_DODEFAULT);
    return drawing.clrBtnHighlight;
  };
  EXPECT_EQ(highlight(), GetSysColor(COLOR_BTNHIGHLIGHT));
  for (const bool dark : {false, true}) {
    const HighContrast colours(dark);
    EXPECT_EQ(highlight(), GetSysColor(COLOR_BTNFACE)) << dark;
  }
}

TEST_F(FrameWindowTest, ScalesTheRoomBetweenItsTools) {
  ASSERT_NE(frame_.OpenChild(kItemClassesCaption), nullptr);
  RECT button{};
  SendMessageW(Toolbar(), TB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&button));
  const pricedown::windows::WindowContext context(Toolbar());
  const auto font = reinterpret_cast<HFONT>(SendMessageW(Toolbar(), WM_GETFONT, 0, 0));
  const int text = pricedown::windows::TextWidth(context.Get(), font, L"新增");
  // Beside picture, text and the room between the two.
  const auto dpi = pricedown::windows::Dpi::Of(Toolbar());
  EXPECT_EQ(button.right - button.left - text,
            pricedown::windows::IconSize(dpi) + 3 * dpi.Scale(6));
}

TEST_F(FrameWindowTest, OpensAChildMaximizedBesideAMaximizedOne) {
  const ChildWindow* first = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(first, nullptr);
  ASSERT_TRUE(IsZoomed(first->Handle()));
  const ChildWindow* second = frame_.OpenChild(kPriceDownCaption);
  ASSERT_NE(second, nullptr);
  EXPECT_TRUE(IsZoomed(second->Handle()));
}

}  // namespace
}  // namespace workbench
