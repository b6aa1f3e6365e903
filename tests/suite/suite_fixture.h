// A stand-in suite on its own small company, for tests that call its objects by name.
// The schema creates the company; the test's statements fill it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/text.h"
#include "tests/company/empty_company.h"
#include "tests/sample/temporary_folder.h"
#include "workbench/suite/suite_factory.h"

namespace workbench {

class SuiteFixture : public ::testing::Test {
 protected:
  SuiteFixture() {
    testing::CreateEmptyCompany(path_);
    suite_->OpenCompany(pricedown::FromUtf8(path_));
  }

  pricedown::ObjectPtr Create(std::u16string_view progId) { return factory_.Create(progId); }

  // The first cell of a statement's result.
  pricedown::Value Query(std::u16string_view statement) {
    return Create(u"ZEPWorkbench.Settings")->Call(u"Query", {statement});
  }

  const testing::TemporaryFolder folder_;
  const std::string path_ = folder_.PathOf("company.db");
  SuiteStatePtr suite_ = std::make_shared<SuiteState>();
  SuiteFactory factory_{suite_};
};

}  // namespace workbench
