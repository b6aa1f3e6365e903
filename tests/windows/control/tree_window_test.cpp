#include <gtest/gtest.h>

#include <array>

#include "store/statements.h"
#include "tests/control/button.h"
#include "tests/support/utf8.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

class TreeWindow : public ::testing::Test {
 protected:
  TreeWindow() { world_.Start(); }

  // How often the items of a class were requested since the start of the test.
  std::size_t Loads(std::u16string_view classNumber) const {
    return world_.suite.log.Count(ExecuteLine(statements::ItemsOfClass(classNumber)));
  }

  // Less high than its classes.
  void MakeLow() {
    SetWindowPos(world_.host.Handle(), nullptr, 0, 0, 700, 330, SWP_NOMOVE | SWP_NOZORDER);
    world_.window->MoveTo(world_.host.Inside());
  }

  UiWorld world_;
};

TEST_F(TreeWindow, ReportsAClickOnce) {
  world_.Click(world_.Tree(), world_.NodePoint(3));
  EXPECT_EQ(Loads(u"02"), 1u);
  EXPECT_EQ(world_.window->SelectedNode(), 3);
  EXPECT_EQ(world_.control->GetGrid().MaxRows(), 17);
  KeepPicture(world_.host.Handle(), "clicked");
}

TEST_F(TreeWindow, ReportsAClickOnTheSelectedNodeAgain) {
  world_.Click(world_.Tree(), world_.NodePoint(3));
  world_.Click(world_.Tree(), world_.NodePoint(3));
  EXPECT_EQ(Loads(u"02"), 2u);
}

TEST_F(TreeWindow, ReportsNoSelectionMadeByTheCore) {
  const std::size_t before = world_.suite.log.Size();
  world_.window->SelectNode(5);
  RunMessages();
  EXPECT_EQ(world_.window->SelectedNode(), 5);
  EXPECT_EQ(world_.suite.log.Size(), before);
}

TEST_F(TreeWindow, ReportsNothingForTheExpandButton) {
  world_.window->SelectNode(1);
  RECT client{};
  GetClientRect(world_.Tree(), &client);
  TVHITTESTINFO hit{};
  const POINT root = world_.NodePoint(1);
  for (hit.pt = {0, root.y}; hit.pt.x < root.x; ++hit.pt.x) {
    hit.flags = 0;
    TreeView_HitTest(world_.Tree(), &hit);
    if ((hit.flags & TVHT_ONITEMBUTTON) != 0) break;
  }
  ASSERT_LT(hit.pt.x, root.x);
  const std::size_t before = world_.suite.log.Size();
  world_.Click(world_.Tree(), {hit.pt.x + 2, hit.pt.y});
  EXPECT_EQ(world_.suite.log.Size(), before);
  EXPECT_EQ(TreeView_GetVisibleCount(world_.Tree()) > 0, true);
}

TEST_F(TreeWindow, SelectsByKeyboard) {
  world_.Click(world_.Tree(), world_.NodePoint(2));
  world_.Press(VK_DOWN);
  EXPECT_EQ(world_.window->SelectedNode(), 3);
  EXPECT_EQ(Loads(u"02"), 1u);
  world_.Press(VK_END);
  EXPECT_EQ(world_.window->SelectedNode(), 13);
  EXPECT_EQ(Loads(u"12"), 1u);
  world_.Press(VK_HOME);
  EXPECT_EQ(world_.window->SelectedNode(), 1);
  EXPECT_EQ(Loads(u"0"), 1u);
}

TEST_F(TreeWindow, GettingTheFocusSelectsNothing) {
  SetFocus(world_.Grid());
  world_.control->CommandChosen(Button(u"sp2"));
  ASSERT_EQ(world_.window->SelectedNode(), kNoNode);
  const std::size_t before = world_.suite.log.Size();
  SetFocus(world_.Tree());
  RunMessages();
  EXPECT_EQ(world_.window->SelectedNode(), kNoNode);
  EXPECT_EQ(world_.suite.log.Size(), before);
}

TEST_F(TreeWindow, KeysGoOnFromTheClickedClassAfterAReload) {
  world_.Click(world_.Tree(), world_.NodePoint(5));
  world_.control->CommandChosen(Button(u"sp2"));
  ASSERT_EQ(world_.window->SelectedNode(), kNoNode);
  SetFocus(world_.Tree());
  world_.Press(VK_DOWN);
  EXPECT_EQ(world_.window->SelectedNode(), 6);
  EXPECT_EQ(Loads(u"05"), 1u);
}

TEST_F(TreeWindow, EveryKeyThatMovesGoesOnFromTheClickedClassAndNoOtherKeySelects) {
  constexpr std::array<WPARAM, 6> kMoving{VK_UP, VK_DOWN, VK_HOME, VK_END, VK_PRIOR, VK_NEXT};
  for (const WPARAM key : kMoving) {
    world_.Click(world_.Tree(), world_.NodePoint(5));
    world_.control->CommandChosen(Button(u"sp2"));
    ASSERT_EQ(world_.window->SelectedNode(), kNoNode);
    SetFocus(world_.Tree());
    world_.Press(VK_SHIFT);
    EXPECT_EQ(world_.window->SelectedNode(), kNoNode);
    world_.Press(key);
    const NodeIndex selected = world_.window->SelectedNode();
    EXPECT_NE(selected, kNoNode) << key;
    EXPECT_NE(selected, 5) << key;
    EXPECT_EQ(selected < 5, key == VK_UP || key == VK_HOME || key == VK_PRIOR) << key;
  }
}

TEST_F(TreeWindow, AKeyThatLeadsNowhereSelectsTheClickedClassAgain) {
  world_.Click(world_.Tree(), world_.NodePoint(13));
  world_.control->CommandChosen(Button(u"sp2"));
  SetFocus(world_.Tree());
  world_.Press(VK_DOWN);
  EXPECT_EQ(world_.window->SelectedNode(), 13);
  EXPECT_EQ(Loads(u"12"), 2u);
}

TEST_F(TreeWindow, BeginsAtTheFirstNodeWhenNothingWasClicked) {
  world_.window->MarkNode(kNoNode);
  world_.window->SelectNode(1);
  TreeView_SelectItem(world_.Tree(), nullptr);
  SetFocus(world_.Tree());
  world_.Press(VK_DOWN);
  EXPECT_EQ(world_.window->SelectedNode(), 1);
}

TEST_F(TreeWindow, KeepsItsScrollPositionOverAReload) {
  MakeLow();
  world_.Click(world_.Tree(), world_.NodePoint(2));
  SendMessageW(world_.Tree(), WM_VSCROLL, SB_BOTTOM, 0);
  const auto first = [&] {
    std::array<wchar_t, 64> text{};
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.hItem = TreeView_GetFirstVisible(world_.Tree());
    item.pszText = text.data();
    item.cchTextMax = 64;
    TreeView_GetItem(world_.Tree(), &item);
    return Utf8(windows::FromWide(text.data()));
  };
  const std::string before = first();
  ASSERT_NE(before, "物料");
  world_.control->CommandChosen(Button(u"sp2"));
  EXPECT_EQ(first(), before);
  EXPECT_EQ(world_.window->SelectedNode(), kNoNode);
}

// The list would be drawn narrower and wider again at every load.
TEST_F(TreeWindow, KeepsItsScrollBarWhileItsClassesAreReplaced) {
  MakeLow();
  const auto hasBar = [this] {
    return (GetWindowLongPtrW(world_.Tree(), GWL_STYLE) & WS_VSCROLL) != 0;
  };
  ASSERT_TRUE(hasBar());
  world_.window->SetRedraw(false);
  world_.window->ClearNodes();
  EXPECT_TRUE(hasBar());
  world_.window->InsertNode(1, kNoNode, u"物料");
  EXPECT_TRUE(hasBar());
  world_.window->SetRedraw(true);
  EXPECT_FALSE(hasBar()) << "of the root alone";
}

TEST_F(TreeWindow, ShowsTheBeginningOfALongClass) {
  const HWND tree = world_.Tree();
  std::wstring text(200, L'W');
  TVITEMW item{};
  item.mask = TVIF_TEXT;
  item.hItem = TreeView_GetChild(tree, TreeView_GetRoot(tree));
  item.pszText = text.data();
  TreeView_SetItem(tree, &item);
  world_.window->ShowFoundNode(2);
  EXPECT_EQ(GetScrollPos(tree, SB_HORZ), 0);
  world_.window->SelectNode(2);
  EXPECT_EQ(GetScrollPos(tree, SB_HORZ), 0);
}

// The picture is the node's row: the colours of the text and around it.
TEST_F(TreeWindow, ShowsTheClickedClassWithoutFocusAndWithoutSelection) {
  const POINT node = world_.NodePoint(4);
  const auto background = [&] {
    RedrawWindow(world_.Tree(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const HDC context = GetDC(world_.Tree());
    int coloured = 0;
    for (int x = node.x - 20; x < node.x + 20; ++x) {
      coloured += GetPixel(context, x, node.y) != GetSysColor(COLOR_WINDOW) ? 1 : 0;
    }
    ReleaseDC(world_.Tree(), context);
    return coloured;
  };
  const int plain = background();
  world_.Click(world_.Tree(), node);
  SetFocus(world_.Grid());
  EXPECT_GT(background(), plain + 10) << "selected";
  KeepPicture(world_.host.Handle(), "tree without focus");
  world_.control->CommandChosen(Button(u"sp2"));
  ASSERT_EQ(world_.window->SelectedNode(), kNoNode);
  EXPECT_GT(background(), plain + 10) << "marked";
  KeepPicture(world_.host.Handle(), "tree reloaded");
}

TEST_F(TreeWindow, ShowsTheClassesOfTheRootUnlessTheUserClosedIt) {
  const auto expanded = [&] {
    return (TreeView_GetItemState(world_.Tree(), TreeView_GetRoot(world_.Tree()), TVIS_EXPANDED) &
            TVIS_EXPANDED) != 0;
  };
  EXPECT_TRUE(expanded());
  TreeView_Expand(world_.Tree(), TreeView_GetRoot(world_.Tree()), TVE_COLLAPSE);
  world_.control->CommandChosen(Button(u"sp2"));
  EXPECT_FALSE(expanded());
  TreeView_Expand(world_.Tree(), TreeView_GetRoot(world_.Tree()), TVE_EXPAND);
  world_.control->CommandChosen(Button(u"sp2"));
  EXPECT_TRUE(expanded());
}

WNDPROC treeProcedure = nullptr;

int refusals = 0;

LRESULT CALLBACK RefuseClass04(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == TVM_INSERTITEMW) {
    const auto& insertion = *reinterpret_cast<const TVINSERTSTRUCTW*>(lParam);
    if (windows::FromWide(insertion.item.pszText).substr(0, 2) == u"04") {
      ++refusals;
      return 0;
    }
  }
  return CallWindowProcW(treeProcedure, window, message, wParam, lParam);
}

TEST_F(TreeWindow, LeavesOutAClassThatTheSystemCannotInsert) {
  const HWND tree = world_.Tree();
  treeProcedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(tree, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&RefuseClass04)));
  world_.control->CommandChosen(Button(u"sp2"));
  SetWindowLongPtrW(tree, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(treeProcedure));
  EXPECT_EQ(refusals, 1);
  EXPECT_EQ(TreeView_GetCount(tree), 12u);
  EXPECT_EQ(world_.control->Nodes().Count(), 12u);
  const std::size_t before = Loads(u"05");
  world_.Click(tree, world_.NodePoint(5));
  EXPECT_EQ(Loads(u"05"), before + 1);
}

TEST_F(TreeWindow, ShowsClosedAndOpenFolders) {
  TVITEMW item{};
  item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  item.hItem = TreeView_GetRoot(world_.Tree());
  ASSERT_TRUE(TreeView_GetItem(world_.Tree(), &item));
  EXPECT_EQ(item.iImage, 0);
  EXPECT_EQ(item.iSelectedImage, 1);
  EXPECT_EQ(ImageList_GetImageCount(TreeView_GetImageList(world_.Tree(), TVSIL_NORMAL)), 2);
}

TEST_F(TreeWindow, UsesAnotherFont) {
  const int before = TreeView_GetItemHeight(world_.Tree());
  world_.window->SetTreeFont(Font{u"宋体", 18, false, false});
  EXPECT_GT(TreeView_GetItemHeight(world_.Tree()), before);
}

TEST_F(TreeWindow, HoldsTwentyThousandClasses) {
  world_.window->SetRedraw(false);
  world_.window->ClearNodes();
  world_.window->InsertNode(1, kNoNode, u"物料");
  for (NodeIndex index = 2; index <= 20001; ++index) world_.window->InsertNode(index, 1, u"类别");
  world_.window->SetRedraw(true);
  EXPECT_EQ(TreeView_GetCount(world_.Tree()), 20001u);
  world_.window->SelectNode(20001);
  EXPECT_EQ(world_.window->SelectedNode(), 20001);
  EXPECT_FALSE(IsWindowVisible(world_.Child(ids::kProgressBar)));
}

TEST_F(TreeWindow, HasNoNodeLeftAfterTheyWereCleared) {
  world_.Click(world_.Tree(), world_.NodePoint(5));
  world_.window->ClearNodes();
  world_.window->SelectNode(5);
  EXPECT_EQ(world_.window->SelectedNode(), kNoNode);
  EXPECT_EQ(TreeView_GetCount(world_.Tree()), 0u);
}

}  // namespace
}  // namespace pricedown::testing
