// Runs commands on a company in a folder of its own, and keeps what they write.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/sample/temporary_folder.h"
#include "workbench/cli/commands.h"

namespace workbench::testing {

class Commands : public ::testing::Test {
 protected:
  int Run(const std::vector<std::string>& words) {
    out_.str("");
    err_.str("");
    return RunCommand(words, out_, err_);
  }

  std::string Company() { return folder_.PathOf("公司.db"); }

  void CreateCompany() {
    ASSERT_EQ(Run({"create", Company(), "--items", "5", "--classes", "2"}), 0);
  }

  TemporaryFolder folder_;
  std::ostringstream out_;
  std::ostringstream err_;
};

}  // namespace workbench::testing
