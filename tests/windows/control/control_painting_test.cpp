// What the control paints, on the screen and for a container.
#include <gtest/gtest.h>

#include <cstdint>

#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

TEST(ControlPainting, RepaintsItsLabelsWhenItsWidthChanges) {
  UiWorld world;
  world.Start();
  const ObjectPtr controls = world.window->Form()->Get(u"Controls").Object();
  controls->Call(u"Item", {u"Label1"}).Object()->Put(u"Caption", u"单位：元");
  controls->Call(u"Item", {u"Label2"}).Object()->Put(u"Caption", u"第一册");
  for (const int width : {260, 900, 420, 700, 300, 900}) {
    world.window->MoveTo({0, 0, width, 560});
    RunMessages();
    const Picture resized = CapturePicture(world.window->Handle());
    RedrawWindow(world.window->Handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    RunMessages();
    const Picture repainted = CapturePicture(world.window->Handle());
    EXPECT_EQ(resized.pixels, repainted.pixels) << width;
    if (width == 260) KeepPicture(world.host.Handle(), "narrow title");
  }
  KeepPicture(world.host.Handle(), "labels filled");
}

TEST(ControlPainting, PaintsNothingWhilePaintingIsOffAndEverythingAfterwards) {
  UiWorld world;
  world.Start();
  world.window->SetPainting(false);
  EXPECT_TRUE(world.window->IsShown());
  for (const HWND child : {world.Tree(), world.Grid(), world.Strip()}) {
    EXPECT_FALSE(IsWindowVisible(child));
    ValidateRect(child, nullptr);
  }
  world.window->SetPainting(true);
  for (const HWND child : {world.Tree(), world.Grid(), world.Strip()}) {
    EXPECT_TRUE(IsWindowVisible(child));
    EXPECT_TRUE(GetUpdateRect(child, nullptr, FALSE));
  }
}

TEST(ControlPainting, StaysHiddenWhenPaintingComesBack) {
  UiWorld world;
  world.Start();
  world.window->SetPainting(false);
  world.window->Hide();
  world.window->SetPainting(true);
  EXPECT_FALSE(world.window->IsShown());
  world.window->SetPainting(false);
  world.window->SetPainting(true);
  EXPECT_FALSE(world.window->IsShown());
}

TEST(ControlPainting, PaintsBehindADialogThoughPaintingIsOff) {
  UiWorld world;
  world.Start();
  world.window->SetPainting(false);
  EXPECT_EQ(world.window->DialogOwner(), world.host.Handle());
  EXPECT_TRUE(IsWindowVisible(world.Tree()));
}

// A message may open a window of the host that waits for the user.
TEST(ControlPainting, ComesBackBeforeAMessageThatIsNoPaintRuns) {
  UiWorld world;
  world.Start();
  world.screen->SetPainting(false);
  InvalidateRect(world.host.Handle(), nullptr, TRUE);
  world.screen->RunPendingMessages();
  EXPECT_FALSE(GetUpdateRect(world.host.Handle(), nullptr, FALSE));
  EXPECT_FALSE(IsWindowVisible(world.Tree()));
  PostMessageW(world.host.Handle(), WM_APP, 0, 0);
  world.screen->RunPendingMessages();
  EXPECT_TRUE(IsWindowVisible(world.Tree()));
}

TEST(ControlPainting, LeavesNothingBehindWhereItIsMovedThoughPaintingIsOff) {
  UiWorld world;
  world.Start();
  world.window->SetPainting(false);
  ValidateRect(world.host.Handle(), nullptr);
  world.window->MoveTo({100, 0, 900, 560});
  RECT uncovered{};
  EXPECT_TRUE(GetUpdateRect(world.host.Handle(), &uncovered, FALSE));
  EXPECT_GE(uncovered.right, 100);
}

TEST(ControlPainting, PaintsWhenAFillTakesLongThoughPaintingIsOff) {
  UiWorld world;
  world.Start();
  world.window->SetPainting(false);
  world.window->SetRedraw(false);
  world.window->ClearNodes();
  world.window->InsertNode(1, kNoNode, u"物料");
  Sleep(400);
  for (NodeIndex node = 2; node < 512; ++node) world.window->InsertNode(node, 1, u"01");
  EXPECT_FALSE(IsWindowVisible(world.Tree()));
  world.window->InsertNode(512, 1, u"01");
  EXPECT_TRUE(IsWindowVisible(world.Tree()));
  world.window->SetRedraw(true);
}

Picture DrawnForAContainer(const UiWorld& world) {
  const RECT area = world.host.Inside();
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, area.right, area.bottom);
  const HGDIOBJ previous = SelectObject(memory, bitmap);
  world.window->Draw(memory, area);
  Picture drawn = CapturePicture(memory, area);
  SelectObject(memory, previous);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return drawn;
}

TEST(ControlPainting, DrawsTheFindBarOverItsHeadingForAContainer) {
  UiWorld world;
  world.Start();
  SetFocus(world.Grid());
  world.PressWith(VK_CONTROL, 'F');
  RECT field{};
  GetWindowRect(GetDlgItem(world.Child(ids::kFindBar), ids::kFindField), &field);
  MapWindowPoints(nullptr, world.window->Handle(), reinterpret_cast<POINT*>(&field), 2);
  const POINT middle{(field.left + field.right) / 2, (field.top + field.bottom) / 2};
  const COLORREF ground = GetSysColor(COLOR_WINDOW);
  ASSERT_NE(ground, GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(DrawnForAContainer(world).At(middle.x, middle.y),
            static_cast<std::uint32_t>(GetRValue(ground) << 16 | GetGValue(ground) << 8 |
                                       GetBValue(ground)));
}

TEST(ControlPainting, DrawsItselfForAContainer) {
  UiWorld world;
  world.Start();
  // Small enough at every resolution to need no scroll bars, which are not drawn.
  for (std::int32_t column = 1; column <= 4; ++column) {
    world.control->GetGrid().SetColumnWidth(column, 4);
  }
  TreeView_Expand(world.Tree(), TreeView_GetRoot(world.Tree()), TVE_COLLAPSE);
  RunMessages();
  const Picture drawn = DrawnForAContainer(world);
  KeepPicture(drawn, "drawn for a container");
  const Picture shown = CapturePicture(world.window->Handle());
  int different = 0;
  for (std::size_t i = 0; i < shown.pixels.size(); ++i) {
    different += drawn.pixels[i] != shown.pixels[i];
  }
  EXPECT_EQ(different, 0);
}

TEST(ControlPainting, ShowsTheWholeLayoutInSystemColoursAfterTheyChange) {
  UiWorld world;
  world.Start();
  const Picture before = CapturePicture(world.window->Handle());
  SendMessageW(world.window->Handle(), WM_SYSCOLORCHANGE, 0, 0);
  SendMessageW(world.window->Handle(), WM_THEMECHANGED, 0, 0);
  SendMessageW(world.window->Handle(), WM_SETTINGCHANGE, 0, 0);
  const Picture after = CapturePicture(world.window->Handle());
  EXPECT_EQ(before.pixels, after.pixels);
}

}  // namespace
}  // namespace pricedown::testing
