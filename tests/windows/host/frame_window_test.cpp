// The frame with real child windows: when a command bar is merged, its changing states, and the
// business menu.
#include "workbench/host/frame_window.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "platform/convert.h"
#include "platform/text.h"
#include "tests/sample/temporary_folder.h"
#include "tests/support/utf8.h"
#include "windows/base/dpi.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/wide_text.h"
#include "workbench/host/resource_ids.h"
#include "workbench/sample/company_file.h"

namespace workbench {
namespace {

using pricedown::ObjectPtr;
using pricedown::testing::Utf8;
using pricedown::windows::FromWide;

void RunMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

// On the toolbar: the user closes the child as soon as its tools are merged.
LRESULT CALLBACK CloseChildAtMerge(HWND toolbar, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT_PTR id, DWORD_PTR client) {
  if (message == TB_ADDBUTTONSW) {
    RemoveWindowSubclass(toolbar, CloseChildAtMerge, id);
    PostMessageW(GetWindow(reinterpret_cast<HWND>(client), GW_CHILD), WM_CLOSE, 0, 0);
  }
  return DefSubclassProc(toolbar, message, wParam, lParam);
}

class FrameWindowTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    OleInitialize(nullptr);
    folder_ = std::make_unique<testing::TemporaryFolder>();
    CreateCompanyFile(folder_->PathOf("company.db"), {});
  }
  static void TearDownTestSuite() {
    folder_.reset();
    OleUninitialize();
  }

  FrameWindowTest() {
    frame_.OpenCompany(
        pricedown::windows::ToWide(pricedown::FromUtf8(folder_->PathOf("company.db"))));
    frame_.Show(SW_SHOW);
  }
  ~FrameWindowTest() override {
    frame_.CloseChildren();
    frame_.Settings()->Call(u"Close");
  }

  HWND Toolbar() const {
    return FindWindowExW(frame_.Handle(), nullptr, TOOLBARCLASSNAMEW, nullptr);
  }
  int Buttons() const { return static_cast<int>(SendMessageW(Toolbar(), TB_BUTTONCOUNT, 0, 0)); }
  // With the mouse, index from 0.
  void Press(int index) const {
    RECT area{};
    SendMessageW(Toolbar(), TB_GETITEMRECT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&area));
    const LPARAM place = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    SendMessageW(Toolbar(), WM_LBUTTONDOWN, MK_LBUTTON, place);
    SendMessageW(Toolbar(), WM_LBUTTONUP, 0, place);
  }
  bool Has(int index, int state) const {
    return (SendMessageW(Toolbar(), TB_GETSTATE, static_cast<WPARAM>(IDM_FIRST_TOOL + index), 0) &
            state) != 0;
  }
  static ObjectPtr ToolOf(const ChildWindow& child, std::u16string_view name) {
    return child.Bar()->Call(u"Tools", {name}).Object();
  }
  // What the user would see when the business menu opens.
  std::vector<std::string> BusinessMenu() const {
    // A maximized child puts its own menu in front of the frame's.
    const HMENU bar = GetMenu(frame_.Handle());
    for (int i = 0; i < GetMenuItemCount(bar); ++i) {
      std::array<wchar_t, 64> text{};
      GetMenuStringW(bar, static_cast<UINT>(i), text.data(), 64, MF_BYPOSITION);
      if (std::wstring(text.data()) != L"业务(&B)") continue;
      const HMENU menu = GetSubMenu(bar, i);
      SendMessageW(frame_.Handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), i);
      return LinesOf(menu);
    }
    return {};
  }
  static std::vector<std::string> LinesOf(HMENU menu) {
    std::vector<std::string> lines;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      std::array<wchar_t, 64> text{};
      GetMenuStringW(menu, static_cast<UINT>(i), text.data(), 64, MF_BYPOSITION);
      lines.push_back(Utf8(FromWide(text.data())));
    }
    return lines;
  }

  static constexpr int kInsert = 0;
  static constexpr int kStrip = 6;
  static constexpr int kStatus = 7;
  static constexpr int kExit = 8;
  static constexpr int kAll = 9;

  static inline std::unique_ptr<testing::TemporaryFolder> folder_;

  pricedown::windows::ComObjectFactory factory_;
  FrameWindow frame_{GetModuleHandleW(nullptr), factory_.Create(u"ZEPWorkbench.Settings")};
};

const std::vector<std::string> kOwnLines{"物料类别维护(&M)\tCtrl+1", "存货跌价准备(&P)\tCtrl+2"};

// Or it fills a screen that is not so high.
TEST_F(FrameWindowTest, HasTheSameHeightInInchesAtEveryResolution) {
  RECT frame{};
  GetWindowRect(frame_.Handle(), &frame);
  const double inches = static_cast<double>(frame.bottom - frame.top) /
                        pricedown::windows::Dpi::Of(frame_.Handle()).Value();
  const int most = GetSystemMetrics(SM_CYMAXTRACK);
  if (frame.bottom - frame.top < most) {
    EXPECT_NEAR(inches, 7.5, 0.05);
  } else {
    EXPECT_LT(most, 7.5 * pricedown::windows::Dpi::Of(frame_.Handle()).Value());
  }
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
