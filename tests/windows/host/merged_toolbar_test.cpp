// The host's toolbar on a command bar: order, texts, pictures, states, the menu, the tips.
#include "workbench/host/merged_toolbar.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "control/command_bar.h"
#include "platform/convert.h"
#include "tests/support/utf8.h"
#include "windows/com/wide_text.h"
#include "workbench/host/resource_ids.h"

namespace workbench {
namespace {

using pricedown::CommandBar;
using pricedown::ObjectPtr;
using pricedown::testing::Utf8;
using pricedown::windows::FromWide;

class MergedToolbarTest : public ::testing::Test {
 protected:
  MergedToolbarTest() {
    AddStandardTools(bar_);
    toolbar_.Merge(bar_);
  }
  ~MergedToolbarTest() override { DestroyWindow(frame_); }

  std::string TextOf(int index) const {
    std::array<wchar_t, 64> text{};
    SendMessageW(toolbar_.Handle(), TB_GETBUTTONTEXTW, static_cast<WPARAM>(IDM_FIRST_TOOL + index),
                 reinterpret_cast<LPARAM>(text.data()));
    return Utf8(FromWide(text.data()));
  }
  int Count() const {
    return static_cast<int>(SendMessageW(toolbar_.Handle(), TB_BUTTONCOUNT, 0, 0));
  }
  // One letter for each state: Enabled, Checked, Hidden.
  std::string StateOf(int index) const {
    const LRESULT state = SendMessageW(toolbar_.Handle(), TB_GETSTATE,
                                       static_cast<WPARAM>(IDM_FIRST_TOOL + index), 0);
    return std::string((state & TBSTATE_ENABLED) != 0 ? "E" : "") +
           ((state & TBSTATE_CHECKED) != 0 ? "C" : "") + ((state & TBSTATE_HIDDEN) != 0 ? "H" : "");
  }
  int PictureOf(int index) const {
    TBBUTTON button{};
    SendMessageW(toolbar_.Handle(), TB_GETBUTTON, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&button));
    return button.iBitmap;
  }
  std::vector<std::string> MenuLines() const {
    const HMENU menu = CreatePopupMenu();
    toolbar_.AppendTo(menu);
    std::vector<std::string> lines;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      std::array<wchar_t, 64> text{};
      GetMenuStringW(menu, static_cast<UINT>(i), text.data(), 64, MF_BYPOSITION);
      const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
      std::string line = Utf8(FromWide(text.data()));
      if ((state & MF_CHECKED) != 0) line = "*" + line;
      if ((state & MF_GRAYED) != 0) line = "[" + line + "]";
      lines.push_back(line);
    }
    DestroyMenu(menu);
    return lines;
  }

  int HeightAt(int width) {
    SetWindowPos(frame_, nullptr, 0, 0, width, 200, SWP_NOMOVE | SWP_NOZORDER);
    toolbar_.FitInto(width);
    RECT area{};
    GetWindowRect(toolbar_.Handle(), &area);
    return area.bottom - area.top;
  }
  int Rows() const { return static_cast<int>(SendMessageW(toolbar_.Handle(), TB_GETROWS, 0, 0)); }

  static constexpr int kCut = 2;
  static constexpr int kStrip = 6;

  HWND frame_ = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 900, 200, nullptr,
                                nullptr, GetModuleHandleW(nullptr), nullptr);
  std::shared_ptr<CommandBar> bar_ = std::make_shared<CommandBar>();
  MergedToolbar toolbar_{GetModuleHandleW(nullptr), frame_};
};

const std::vector<std::string> kCaptions{"新增", "修改",   "删除",   "打印", "预览",
                                         "刷新", "工具条", "状态栏", "退出"};

TEST_F(MergedToolbarTest, ShowsTheBarsToolsBeforeTheHostsAndLeavesTheMenuOut) {
  std::vector<std::string> captions;
  for (int i = 0; i < Count(); ++i) captions.push_back(TextOf(i));
  EXPECT_EQ(captions, kCaptions);
}

TEST_F(MergedToolbarTest, ShowsADifferentPictureForEveryKnownTool) {
  for (int i = 0; i < Count(); ++i) EXPECT_EQ(PictureOf(i), i);
  for (const UINT list : {UINT{TB_GETIMAGELIST}, UINT{TB_GETDISABLEDIMAGELIST}}) {
    const auto images = reinterpret_cast<HIMAGELIST>(SendMessageW(toolbar_.Handle(), list, 0, 0));
    EXPECT_EQ(ImageList_GetImageCount(images), Count()) << list;
  }
}

TEST_F(MergedToolbarTest, ShowsAToolWithoutAPictureByItsCaption) {
  bar_->Add({u"iOther", u"其他", u"", u""});
  toolbar_.Merge(bar_);
  EXPECT_EQ(PictureOf(Count() - 1), I_IMAGENONE);
  EXPECT_EQ(TextOf(Count() - 1), "其他");
}

TEST_F(MergedToolbarTest, AddsTheStandardToolsOnceAndLeavesThoseThatAreThere) {
  bar_->Tool(u"iToolBar")->SetChecked(false);
  AddStandardTools(bar_);
  EXPECT_EQ(bar_->Tools().size(), 10u);
  EXPECT_FALSE(bar_->Tool(u"iToolBar")->Checked());
}

TEST_F(MergedToolbarTest, ShowsTheStatesOfItsTools) {
  EXPECT_EQ(StateOf(kCut) + StateOf(kStrip), "EEC");
  bar_->Tool(u"iCut")->SetEnabled(false);
  bar_->Tool(u"iToolBar")->SetChecked(false);
  bar_->Tool(u"iExit")->SetVisible(false);
  EXPECT_EQ(StateOf(kCut) + StateOf(kStrip) + StateOf(8), "EECE");
  toolbar_.RefreshStates();
  EXPECT_EQ(StateOf(kCut) + "," + StateOf(kStrip) + "," + StateOf(8), ",E,EH");
  bar_->Tool(u"iCut")->SetEnabled(true);
  bar_->Tool(u"iToolBar")->SetChecked(true);
  bar_->Tool(u"iExit")->SetVisible(true);
  toolbar_.RefreshStates();
  EXPECT_EQ(StateOf(kCut) + StateOf(kStrip) + StateOf(8), "EECE");
}

// A press of the button changes nothing until the tool has changed.
TEST_F(MergedToolbarTest, NeverChangesBeforeItsCheckTool) {
  RECT area{};
  SendMessageW(toolbar_.Handle(), TB_GETITEMRECT, kStrip, reinterpret_cast<LPARAM>(&area));
  const LPARAM place = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
  SendMessageW(toolbar_.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, place);
  SendMessageW(toolbar_.Handle(), WM_LBUTTONUP, 0, place);
  EXPECT_EQ(StateOf(kStrip), "EC");
}

TEST_F(MergedToolbarTest, AppendsItsToolsAsAMenuWithoutThoseThatAreHidden) {
  bar_->Tool(u"iCut")->SetEnabled(false);
  bar_->Tool(u"mnuViewStatusBar")->SetChecked(false);
  bar_->Tool(u"iPrint")->SetVisible(false);
  EXPECT_EQ(MenuLines(), (std::vector<std::string>{"新增", "修改", "[删除]", "预览", "刷新",
                                                   "*工具条", "状态栏", "退出"}));
}

TEST_F(MergedToolbarTest, FindsToolsByCommandAndName) {
  EXPECT_EQ(toolbar_.ToolOf(IDM_FIRST_TOOL + kCut), ObjectPtr(bar_->Tool(u"iCut")));
  EXPECT_EQ(toolbar_.ToolOf(IDM_FIRST_TOOL + 9), nullptr);
  EXPECT_EQ(toolbar_.ToolOf(IDM_FIRST_TOOL - 1), nullptr);
  EXPECT_EQ(toolbar_.ToolNamed(u"iRefresh"), ObjectPtr(bar_->Tool(u"iRefresh")));
  EXPECT_EQ(toolbar_.ToolNamed(u"mnuEdit"), nullptr);
}

TEST_F(MergedToolbarTest, TipsAreDescriptionsOrCaptions) {
  EXPECT_EQ(Utf8(FromWide(toolbar_.TipOf(IDM_FIRST_TOOL + kCut))), "删除物料类别");
  EXPECT_EQ(Utf8(FromWide(toolbar_.TipOf(IDM_FIRST_TOOL))), "新增");
  EXPECT_EQ(Utf8(FromWide(toolbar_.TipOf(IDM_FIRST_TOOL + 9))), "");
}

TEST_F(MergedToolbarTest, UsesMoreRowsInANarrowFrame) {
  const int one = HeightAt(900);
  EXPECT_EQ(Rows(), 1);
  const int more = HeightAt(300);
  EXPECT_GT(Rows(), 1);
  EXPECT_GE(more,
            one + (Rows() - 1) * HIWORD(SendMessageW(toolbar_.Handle(), TB_GETBUTTONSIZE, 0, 0)));
  EXPECT_EQ(HeightAt(900), one);
}

TEST_F(MergedToolbarTest, ShowsNothingWithoutABar) {
  toolbar_.Merge(nullptr);
  EXPECT_EQ(Count(), 0);
  EXPECT_EQ(toolbar_.ToolOf(IDM_FIRST_TOOL), nullptr);
}

}  // namespace
}  // namespace workbench
