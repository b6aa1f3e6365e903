// The control with its windows, where a command is told by the right that it asks for.
// How the user gives it, by key or by menu, is in the tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "store/statements.h"
#include "tests/windows/control/ui_world.h"

namespace pricedown::testing {

class CommandWorld : public ::testing::Test {
 protected:
  // All rights refused: the check that is asked for tells the command, and nothing else happens.
  void Start(const char16_t* mode = u"1") {
    world_.suite.company.mode = mode;
    world_.suite.company.grantedMasks = "none";
    world_.Start();
    world_.suite.log.Clear();
  }

  // The masks that were asked for since the last time, a blank behind each.
  std::string Asked() {
    std::string masks;
    const std::string start = "ZEPEBCGLView.GLData.AccessCheck(1002, 35, ";
    for (const std::string& line : world_.suite.log.Lines()) {
      if (line.starts_with(start))
        masks += line.substr(start.size(), line.size() - start.size() - 1) + " ";
    }
    world_.suite.log.Clear();
    return masks;
  }
  std::size_t Loads(std::u16string_view classNumber) const {
    return world_.suite.log.Count(ExecuteLine(statements::ItemsOfClass(classNumber)));
  }
  std::size_t TreeLoads() const {
    return world_.suite.log.Count(ExecuteLine(statements::ClassTree()));
  }

  UiWorld world_;
};

}  // namespace pricedown::testing
