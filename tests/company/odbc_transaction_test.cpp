// How the transaction of a text with several changes ends, by the calls that reach the driver.
#ifndef _WIN32
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <memory>
#include <string>

#include "workbench/company/connection.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

class OdbcTransaction : public ::testing::Test {
 protected:
  void SetUp() override {
    connection_ = OpenConnection("Driver=" PRICEDOWN_ODBC_DRIVER);
    library_ = dlopen(PRICEDOWN_ODBC_DRIVER, RTLD_NOLOAD | RTLD_NOW);
    ASSERT_NE(library_, nullptr);
    recordedCalls_ = reinterpret_cast<const char* (*)()>(dlsym(library_, "RecordedCalls"));
    ASSERT_NE(recordedCalls_, nullptr);
    recordedCalls_();
  }
  ~OdbcTransaction() override {
    if (library_ != nullptr) dlclose(library_);
  }

  // The calls that a text makes, and the state that it fails with.
  std::string CallsOf(const std::string& text) {
    std::string state;
    try {
      connection_->Execute(Utf16FromUtf8(text));
    } catch (const DatabaseError& error) {
      state = std::string(error.what()).substr(0, 7);
    }
    return recordedCalls_() + state;
  }

  std::unique_ptr<Connection> connection_;
  const char* (*recordedCalls_)() = nullptr;

 private:
  void* library_ = nullptr;
};

TEST_F(OdbcTransaction, CommitsSeveralChanges) {
  EXPECT_EQ(CallsOf("insert 1 insert 2"), "begin commit end ");
}

TEST_F(OdbcTransaction, IsNotMadeForASingleChange) {
  EXPECT_EQ(CallsOf("insert 1"), "");
  EXPECT_EQ(CallsOf("select 1 select 2 fail 23000"), "[23000]");
}

TEST_F(OdbcTransaction, CommitsWhatRanBeforeAStatementThatFailed) {
  EXPECT_EQ(CallsOf("insert 1 insert 2 fail 23000"), "begin commit end [23000]");
}

TEST_F(OdbcTransaction, IsRolledBackWhenTheTextIsInterrupted) {
  for (const std::string state : {"HY008", "HYT00", "HYT01", "57014"}) {
    EXPECT_EQ(CallsOf("insert 1 insert 2 fail " + state), "begin rollback end [" + state + "]");
  }
}

// The end of a transaction by autocommit would commit it.
TEST_F(OdbcTransaction, IsGivenUpWithTheLoginWhenItsRollbackFails) {
  EXPECT_EQ(CallsOf("insert 1 insert 2 keep fail HY008"), "begin rollback [HY008]");
  EXPECT_EQ(CallsOf("insert 1"), "rollback logout login ");
}

// Driver managers refuse to close a connection that is in one, which leaks it.
TEST_F(OdbcTransaction, IsRolledBackWhenTheConnectionCloses) {
  connection_->Begin();
  CallsOf("insert 1");
  connection_.reset();
  EXPECT_STREQ(recordedCalls_(), "rollback end logout ");
}

}  // namespace
}  // namespace workbench
#endif
