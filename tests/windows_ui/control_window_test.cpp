#include <gtest/gtest.h>

#include "tests/windows_ui/picture.h"
#include "tests/windows_ui/ui_world.h"
#include "windows/ui/control_ids.h"

namespace pricedown::testing {
namespace {

TEST(ControlWindow, ShowsTitlePeriodAndClasses) {
  UiWorld world;
  world.Start();
  KeepPicture(world.host.Handle(), "control");
}

}  // namespace
}  // namespace pricedown::testing
