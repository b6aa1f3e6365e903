// A generated company for the tests of a suite, and COM on their thread.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <ole2.h>

#include <memory>
#include <string>

#include "platform/text.h"
#include "tests/sample/temporary_folder.h"
#include "windows/com/wide_text.h"
#include "workbench/sample/company_file.h"

namespace workbench {

class SampleCompanySuite : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    OleInitialize(nullptr);
    folder_ = std::make_unique<testing::TemporaryFolder>();
    CreateCompanyFile(folder_->PathOf("company.db"), {});
  }
  static void TearDownTestSuite() {
    folder_.reset();
    OleUninitialize();
  }
  static std::wstring Company() {
    return pricedown::windows::ToWide(pricedown::FromUtf8(folder_->PathOf("company.db")));
  }

  static inline std::unique_ptr<testing::TemporaryFolder> folder_;
};

}  // namespace workbench
