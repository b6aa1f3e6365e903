// The control with its windows; the right that a command requests identifies the command.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "store/statements.h"
#include "tests/windows/control/ui_world.h"

namespace pricedown::testing {

class CommandWorld : public ::testing::Test {
 protected:
  // All rights refused: the requested right identifies the command, and nothing else happens.
  void Start(const char16_t* mode = u"1") {
    world_.suite.company.mode = mode;
    world_.suite.company.grantedMasks = "none";
    world_.Start();
    world_.suite.log.Clear();
  }

  // The masks requested since the last call, each followed by a blank.
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
