// Hosts that end the control when it notifies them of the focus: the control's windows are still
// processing the input that gave it the focus.
#include <gtest/gtest.h>

#include <functional>

#include "store/statements.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

struct Press {
  const char* name;
  std::function<void(UiWorld&)> run;
};

void Send(HWND window, UINT message, WPARAM keys, POINT point) {
  SendMessageW(window, message, keys, MAKELPARAM(point.x, point.y));
}

HWND FindBarField(const UiWorld& world) {
  return GetDlgItem(world.Child(ids::kFindBar), ids::kFindField);
}

constexpr POINT kCell{40, 60};

class Activation : public ::testing::TestWithParam<Press> {};

TEST_P(Activation, MayEndAll) {
  auto owned = std::make_shared<UiWorld>();
  const std::weak_ptr<UiWorld> watch = owned;
  owned->Start();
  owned->Click(owned->Tree(), owned->NodePoint(6));
  owned->control->Finding()->Open(FindPane::Grid);
  // From here on the focus comes from outside.
  SetFocus(owned->host.Handle());
  const HWND window = owned->window->Handle();
  owned->window->HoldDuringEvents([watch] { return watch.lock(); });
  int notifications = 0;
  owned->window->OnFocusChange([&](bool gained) {
    if (!gained) return;
    ++notifications;
    // The window keeps the control alive during the call; the host releases its reference.
    const std::shared_ptr<UiWorld> inside = std::move(owned);
    if (inside != nullptr) DestroyWindow(inside->host.Handle());
  });
  UiWorld& world = *owned;
  GetParam().run(world);
  RunMessages();
  EXPECT_EQ(notifications, 1);
  EXPECT_TRUE(watch.expired());
  EXPECT_FALSE(IsWindow(window));
}

const std::vector<Press> kPresses{
    {"RightPressInTheTree",
     [](UiWorld& world) { Send(world.Tree(), WM_RBUTTONDOWN, MK_RBUTTON, world.NodePoint(3)); }},
    {"LeftPressInTheTree",
     [](UiWorld& world) {
       const HWND tree = world.Tree();
       const POINT node = world.NodePoint(3);
       const LPARAM place = MAKELPARAM(node.x, node.y);
       PostMessageW(tree, WM_LBUTTONDOWN, MK_LBUTTON, place);
       PostMessageW(tree, WM_LBUTTONUP, 0, place);
     }},
    {"LeftPressInTheGrid",
     [](UiWorld& world) { Send(world.Grid(), WM_LBUTTONDOWN, MK_LBUTTON, kCell); }},
    {"RightPressInTheGrid",
     [](UiWorld& world) { Send(world.Grid(), WM_RBUTTONDOWN, MK_RBUTTON, kCell); }},
    {"PressOfTheSplitter",
     [](UiWorld& world) {
       Send(world.Child(ids::kSplitter), WM_LBUTTONDOWN, MK_LBUTTON, {2, 40});
     }},
    {"LeftPressInTheFindField",
     [](UiWorld& world) {
       Send(FindBarField(world), WM_LBUTTONDOWN, MK_LBUTTON, {8, 8});
     }},
    {"MenuOfTheFindField",
     [](UiWorld& world) {
       Send(FindBarField(world), WM_CONTEXTMENU, 0, {8, 8});
     }},
    {"FocusForTheStrip", [](UiWorld& world) { SetFocus(world.Strip()); }},
};

INSTANTIATE_TEST_SUITE_P(Of, Activation, ::testing::ValuesIn(kPresses),
                         [](const auto& param) { return param.param.name; });

TEST(EnterInTheFindField, LoadsNothingWhenTheFocusOfTheTreeEndsTheControl) {
  UiWorld world;
  world.Start();
  world.control->Finding()->Open(FindPane::Tree);
  world.Type(u"电子");
  int notifications = 0;
  world.window->OnFocusChange([&](bool gained) {
    if (!gained) return;
    ++notifications;
    world.control->Terminate();
    DestroyWindow(world.host.Handle());
  });
  SendMessageW(FindBarField(world), WM_KEYDOWN, VK_RETURN, 1);
  RunMessages();
  EXPECT_EQ(notifications, 1);
  EXPECT_EQ(world.suite.log.Count(ExecuteLine(statements::ItemsOfClass(u"08"))), 0u);
}

}  // namespace
}  // namespace pricedown::testing
