#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "platform/error.h"
#include "store/statements.h"
#include "tests/support/utf8.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

std::string TextOfChild(const UiWorld& world, int id) {
  return Utf8(windows::TextOf(world.Child(id)));
}

RECT PlaceOf(const UiWorld& world, HWND child) {
  RECT area{};
  GetWindowRect(child, &area);
  MapWindowPoints(nullptr, world.window->Handle(), reinterpret_cast<POINT*>(&area), 2);
  return area;
}

// The control's parts take their sizes again from the resolution and the fonts.
TEST(ControlWindow, PlacesItsPartsAgainWhenTheResolutionHasChanged) {
  UiWorld world;
  world.Start();
  const auto heights = [&] {
    std::vector<LONG> all;
    for (const HWND child :
         {world.Child(ids::kTitle), world.Strip(), world.Child(ids::kClassHeading), world.Tree(),
          world.Child(ids::kGridPane), world.Child(ids::kStatusBar)}) {
      const RECT place = PlaceOf(world, child);
      all.push_back(place.top);
      all.push_back(place.bottom);
    }
    all.push_back(static_cast<LONG>(SendMessageW(world.Tree(), TVM_GETITEMHEIGHT, 0, 0)));
    all.push_back(std::lround(world.control->GetGrid().RowHeight() * 15));
    all.push_back(std::lround(world.control->GetGrid().TitleHeight() * 15));
    all.push_back(static_cast<LONG>(SendMessageW(world.Strip(), TB_GETBUTTONSIZE, 0, 0)));
    return all;
  };
  const auto before = heights();
  SendMessageW(world.Tree(), TVM_SETITEMHEIGHT, 40, 0);
  // As left by another resolution.
  world.control->GetGrid().SetRowHeight(50);
  world.control->GetGrid().SetTitleHeight(70);
  SendMessageW(world.Strip(), TB_SETBUTTONSIZE, 0, MAKELPARAM(50, 50));
  for (const HWND child : {world.Strip(), world.Child(ids::kClassHeading), world.Tree()}) {
    SetWindowPos(child, nullptr, 0, 0, 30, 7, SWP_NOMOVE | SWP_NOZORDER);
  }
  EXPECT_NE(heights(), before);
  SendMessageW(world.window->Handle(), windows::kDpiChangedAfterParent, 0, 0);
  EXPECT_EQ(heights(), before);
}

TEST(ControlWindow, ShowsTheCaptionThePeriodAndTheHeadings) {
  UiWorld world;
  world.Start();
  EXPECT_EQ(TextOfChild(world, ids::kTitle), "物料类别维护");
  EXPECT_EQ(TextOfChild(world, ids::kPeriod), "2008年第3期");
  EXPECT_EQ(TextOfChild(world, ids::kClassHeading), "物料类别");
  EXPECT_EQ(TextOfChild(world, ids::kItemHeading), "物料明细");
  KeepPicture(world.host.Handle(), "control");
}

TEST(ControlWindow, NamesEveryPaneByItsVisibleCaptionAndId) {
  UiWorld world;
  world.Start();
  EXPECT_EQ(Utf8(windows::TextOf(world.Tree())), "物料类别");
  EXPECT_EQ(Utf8(windows::TextOf(world.Grid())), "物料明细");
  for (int id = ids::kTitle; id <= ids::kFontLabel; ++id) {
    const HWND child = id == ids::kGrid ? world.Grid() : world.Child(id);
    EXPECT_NE(child, nullptr) << id;
  }
}

TEST(ControlWindow, PlacesNeighboursWithoutGapOrOverlap) {
  UiWorld world(813, 477);
  world.Start();
  const RECT tree = PlaceOf(world, world.Tree());
  const RECT splitter = PlaceOf(world, world.Child(ids::kSplitter));
  const RECT pane = PlaceOf(world, world.Child(ids::kGridPane));
  const RECT heading = PlaceOf(world, world.Child(ids::kClassHeading));
  const RECT status = PlaceOf(world, world.Child(ids::kStatusBar));
  EXPECT_EQ(tree.left, 0);
  EXPECT_EQ(tree.right, splitter.left);
  EXPECT_EQ(splitter.right, pane.left);
  EXPECT_EQ(heading.bottom, tree.top);
  EXPECT_EQ(tree.bottom, status.top);
  EXPECT_LE(813 - pane.right, 1);
  EXPECT_LE(477 - status.bottom, 1);
}

TEST(ControlWindow, FollowsItsContainerThroughManySizes) {
  UiWorld world;
  world.Start();
  for (const SIZE size : {SIZE{1200, 700}, {300, 200}, {40, 20}, {0, 0}, {900, 560}}) {
    world.window->MoveTo({0, 0, size.cx, size.cy});
    RunMessages();
    const int dpi = windows::Dpi::Of(world.window->Handle()).Value();
    EXPECT_TRUE(world.window->HasWindow());
    EXPECT_EQ(world.window->ControlSize().width, size.cx * 1440 / dpi);
    EXPECT_EQ(world.window->ControlSize().height, size.cy * 1440 / dpi);
    EXPECT_LE(PlaceOf(world, world.Child(ids::kStatusBar)).bottom, size.cy);
  }
  EXPECT_EQ(PlaceOf(world, world.Tree()).top, PlaceOf(world, world.Child(ids::kGridPane)).top);
}

TEST(ControlWindow, WorksBeforeAnyContainerShowsIt) {
  UiWorld world;
  world.window->SetTitle(u"标题");
  world.window->InsertNode(1, kNoNode, u"物料");
  world.window->SelectNode(1);
  EXPECT_EQ(world.window->SelectedNode(), 1);
  EXPECT_EQ(TextOfChild(world, ids::kTitle), "标题");
  EXPECT_FALSE(IsWindowVisible(world.window->Handle()));
  EXPECT_GT(world.window->MeasureLabel(Font{}), 100);
}

TEST(ControlWindow, ShowsItsTitleInTheFontOfTheSuite) {
  UiWorld world;
  const auto font = [&] {
    LOGFONTW description{};
    const LRESULT handle = SendMessageW(world.Child(ids::kTitle), WM_GETFONT, 0, 0);
    GetObjectW(reinterpret_cast<HFONT>(handle), sizeof description, &description);
    return description;
  };
  const LONG height = windows::Dpi::Of(world.window->Handle()).FontHeight(18);
  const LOGFONTW own = font();
  EXPECT_EQ(own.lfHeight, height) << "before the suite is asked";
  world.window->SetTitleFont({u"", 20, false, false, false, 136});
  EXPECT_STREQ(font().lfFaceName, own.lfFaceName) << "without a name";
  EXPECT_EQ(font().lfCharSet, CHINESEBIG5_CHARSET);
  EXPECT_EQ(font().lfHeight, windows::Dpi::Of(world.window->Handle()).FontHeight(20));
  world.Start();
  EXPECT_STREQ(font().lfFaceName, L"宋体");
  EXPECT_EQ(font().lfCharSet, 134);
  EXPECT_EQ(font().lfHeight, height);
  world.window->SetTitleFont({u"新細明體", 18, false, false, false, 1});
  EXPECT_STREQ(font().lfFaceName, L"新細明體");
  EXPECT_EQ(font().lfCharSet, DEFAULT_CHARSET);
}

TEST(ControlWindow, KeepsItsContentWhileItIsParked) {
  UiWorld world;
  world.Start();
  world.window->Park();
  EXPECT_FALSE(IsWindowVisible(world.window->Handle()));
  EXPECT_FALSE(IsChild(world.host.Handle(), world.window->Handle()));
  world.window->MoveInto(world.host.Handle(), world.host.Inside());
  EXPECT_TRUE(IsWindowVisible(world.Tree()));
  EXPECT_EQ(TreeView_GetCount(world.Tree()), 13u);
}

TEST(ControlWindow, IsHarmlessAfterItsContainerHasDestroyedIt) {
  UiWorld world;
  world.Start();
  DestroyWindow(world.host.Handle());
  RunMessages();
  EXPECT_EQ(world.window->Handle(), nullptr);
  world.window->SetTitle(u"x");
  world.window->SetTitleFont({u"宋体", 18, false, false, false, 134});
  world.window->DisableButton(*CommandOfTool(u"iInsert"));
  world.window->CopyCells(false);
  world.window->Place(Layout{});
  // The selection is still known, so that the control can store it.
  EXPECT_NE(world.window->SelectedNode(), kNoNode);
  world.window->ClearNodes();
  world.window->InsertNode(1, kNoNode, u"物料");
  world.window->SelectNode(1);
  world.window->SetRedraw(true);
  world.window->SetTreeFont(Font{});
  world.window->SetWaiting(true);
  world.window->SetWaiting(false);
  world.window->SetFocusFirst(false);
  world.window->Park();
  world.window->MoveTo({0, 0, 10, 10});
  EXPECT_EQ(world.window->SelectedNode(), kNoNode);
  EXPECT_EQ(world.window->MeasureLabel(Font{}), 0);
  EXPECT_EQ(world.window->ControlSize().width, 0);
  EXPECT_FALSE(world.window->HasWindow());
  world.control->GetGrid().SetMaxRows(3);
}

TEST(ControlWindow, DestroysItsChildrenWhenItIsDestroyedFirst) {
  UiWorld world;
  world.Start();
  const HWND handle = world.window->Handle();
  const HWND tree = world.Tree();
  world.window->Attach(nullptr);
  world.control.reset();
  world.window.reset();
  EXPECT_FALSE(IsWindow(handle));
  EXPECT_FALSE(IsWindow(tree));
  EXPECT_TRUE(IsWindow(world.host.Handle()));
  // The classes are unregistered with the last window, so that the module can be unloaded.
  WNDCLASSW description{};
  EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"PriceDown.Grid", &description));
}

TEST(ControlWindow, KeepsTwoControlsIndependent) {
  UiWorld first;
  first.Start();
  {
    UiWorld second;
    second.Start();
    EXPECT_EQ(TreeView_GetCount(second.Tree()), 13u);
  }
  first.Click(first.Tree(), first.NodePoint(3));
  EXPECT_EQ(first.control->GetGrid().MaxRows(), 17);
}

TEST(ControlWindow, LetsTheSuiteReplaceCaptions) {
  UiWorld world;
  const ObjectPtr form = world.window->Form();
  EXPECT_EQ(Utf8(form->Get(u"Name").Text()), "PriceDown");
  const ObjectPtr controls = form->Get(u"Controls").Object();
  std::string names;
  for (std::int32_t i = 0; i < controls->Get(u"Count").Int32(); ++i) {
    names += Utf8(controls->Call(u"Item", {i}).Object()->Get(u"Name").Text()) + " ";
  }
  std::string walked;
  const std::vector<Value> elements = controls->Elements().value();
  for (const Value& control : elements) {
    walked += Utf8(control.Object()->Get(u"Name").Text()) + " ";
  }
  EXPECT_EQ(walked, names);
  EXPECT_EQ(names,
            "lbl_Title lblPeriod SSPTitleClass SSPTitleItem Label1 Label2 tbToolBar.Add "
            "tbToolBar.Edit tbToolBar.Del tbToolBar.Print tbToolBar.PrintView tbToolBar.Exit ");
  controls->Call(u"Item", {u"ssptitleclass"}).Object()->Put(u"Caption", u"Classes");
  EXPECT_EQ(TextOfChild(world, ids::kClassHeading), "Classes");
  for (const auto& [name, id] :
       {std::pair{u"Label1", ids::kFirstLabel}, std::pair{u"Label2", ids::kSecondLabel}}) {
    EXPECT_EQ(TextOfChild(world, id), "");
    controls->Call(u"Item", {name}).Object()->Put(u"Caption", name);
    EXPECT_EQ(TextOfChild(world, id), Utf8(name));
  }
  const ObjectPtr add = controls->Call(u"Item", {u"tbToolBar.Add"}).Object();
  EXPECT_EQ(Utf8(add->Get(u"Caption").Text()), "新增");
  add->Put(u"Caption", u"Add");
  EXPECT_EQ(Utf8(add->Get(u"Caption").Text()), "Add");
  EXPECT_THROW(controls->Call(u"Item", {99}), AutomationError);
  EXPECT_THROW(controls->Call(u"Item", {u"nothing"}), AutomationError);
}

TEST(ControlWindow, ItsFormOutlivesIt) {
  ObjectPtr label;
  {
    UiWorld world;
    label = world.window->Form()->Get(u"Controls").Object()->Call(u"Item", {0}).Object();
  }
  label->Put(u"Caption", u"x");
  EXPECT_EQ(Utf8(label->Get(u"Caption").Text()), "");
}

TEST(ControlWindow, MovesTheFocusOfAHiddenStripToTheTree) {
  UiWorld world;
  world.Start();
  const auto tool = world.control->BarList()->Add({u"iToolBar", u"", u"", u""});
  SetFocus(world.Strip());
  ASSERT_EQ(GetFocus(), world.Strip());
  tool->Click();
  EXPECT_FALSE(IsWindowVisible(world.Strip()));
  EXPECT_EQ(GetFocus(), world.Tree());
}

TEST(ControlWindow, LeavesTheHostsFocusAloneWhenTheStripIsHidden) {
  UiWorld world;
  world.Start();
  const auto tool = world.control->BarList()->Add({u"iToolBar", u"", u"", u""});
  SetFocus(world.Strip());
  SetFocus(world.host.Handle());
  tool->Click();
  EXPECT_EQ(GetFocus(), world.host.Handle());
  // The child that had it last no longer exists.
  SetFocus(world.window->Handle());
  EXPECT_EQ(GetFocus(), world.Tree());
}

// Scripts find them by these classes.
TEST(ControlWindow, ItsPartsHaveTheClassesOfTheTestersGuide) {
  UiWorld world;
  world.Start();
  for (const auto& [id, name] :
       {std::pair{ids::kUpperLine, L"PriceDown.Line"},
        std::pair{ids::kLowerLine, L"PriceDown.Line"},
        std::pair{ids::kToolStrip, L"ToolbarWindow32"},
        std::pair{ids::kClassHeading, L"PriceDown.Heading"},
        std::pair{ids::kItemHeading, L"PriceDown.Heading"}, std::pair{ids::kTree, L"SysTreeView32"},
        std::pair{ids::kSplitter, L"PriceDown.Splitter"},
        std::pair{ids::kGridPane, L"PriceDown.Pane"},
        std::pair{ids::kStatusBar, L"msctls_statusbar32"},
        std::pair{ids::kFindBar, L"PriceDown.FindBar"}}) {
    std::array<wchar_t, 40> found{};
    GetClassNameW(world.Child(id), found.data(), static_cast<int>(found.size()));
    EXPECT_STREQ(found.data(), name) << id;
  }
}

TEST(ControlWindow, ItsDialogsBelongToItsOwnFrame) {
  UiWorld world;
  world.Start();
  const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr,
                                     nullptr, nullptr, nullptr);
  SetActiveWindow(other);
  EXPECT_EQ(world.window->DialogOwner(), world.host.Handle());
  DestroyWindow(other);
}

}  // namespace
}  // namespace pricedown::testing
