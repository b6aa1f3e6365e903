#include <gtest/gtest.h>

#include "tests/windows_ui/picture.h"
#include "tests/windows_ui/ui_world.h"
#include "windows/ui/control_ids.h"

namespace pricedown::testing {
namespace {

TEST(ControlWindow, ShowsTitlePeriodAndClasses) {
  UiWorld world;
  world.Start();
  printf("infobk %lx btnface %lx hl %lx\n", GetSysColor(24), GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_HIGHLIGHT));
  KeepPicture(world.host.Handle(), "control");
  world.Click(world.Tree(), world.NodePoint(7));
  KeepPicture(world.host.Handle(), "clicked");
  world.Click(world.Tree(), world.NodePoint(4));
  KeepPicture(world.host.Handle(), "empty");
}

}  // namespace
}  // namespace pricedown::testing
