// A stand-in suite on its own small company, for tests that call its objects by name.
// The schema creates the company; the test's statements fill it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/text.h"
#include "workbench/company/collation.h"
#include "workbench/company/schema.h"
#include "workbench/suite/suite_factory.h"

namespace workbench {

class SuiteFixture : public ::testing::Test {
 protected:
  SuiteFixture() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("suite-") + test->test_suite_name() + "-" + test->name() + ".db";
    std::replace(name.begin(), name.end(), '/', '-');  // of parameterized tests
    path_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove(path_);
    sqlite3* database = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_open(path_.string().c_str(), &database));
    RegisterServerText(database);
    sqlite3_exec(database, "PRAGMA synchronous=OFF; BEGIN", nullptr, nullptr, nullptr);
    CreateCompanyTables(database);
    CreateCompanyIndexes(database);
    sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(database);
    suite_->OpenCompany(pricedown::FromUtf8(path_.string()));
  }

  ~SuiteFixture() override {
    suite_->company.reset();
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm"}) {
      std::filesystem::remove(path_.string() + suffix, ignored);
    }
  }

  pricedown::ObjectPtr Create(std::u16string_view progId) { return factory_.Create(progId); }

  // The first cell of a statement's result.
  pricedown::Value Query(std::u16string_view statement) {
    return Create(u"ZEPWorkbench.Settings")->Call(u"Query", {statement});
  }

  std::filesystem::path path_;
  SuiteStatePtr suite_ = std::make_shared<SuiteState>();
  SuiteFactory factory_{suite_};
};

}  // namespace workbench
