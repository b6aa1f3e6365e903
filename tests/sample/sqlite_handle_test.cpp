// The owners of connection and statement.
#include "workbench/sample/sqlite_handle.h"

#include <gtest/gtest.h>

#include "tests/sample/test_company.h"

namespace workbench::testing {
namespace {

using Texts = std::vector<std::string>;

class SqliteHandle : public ::testing::Test {
 protected:
  void SetUp() override { database_.Execute("CREATE TABLE t(a,b)"); }

  Database database_{":memory:", Database::Mode::Create};
};

TEST_F(SqliteHandle, BindsEveryKindOfValueUnconverted) {
  Statement insert(database_.get(), "INSERT INTO t(a,b) VALUES(?,typeof(?1))");
  insert.Run(7);
  insert.Run(std::int64_t{1} << 40);
  insert.Run(0.5);
  insert.Run("文");
  insert.Run(std::string());
  insert.Run(std::string_view());
  insert.Run(std::optional<std::string>());
  insert.Run(std::optional<int>(3));
  EXPECT_EQ(Rows(database_, "SELECT a,b FROM t ORDER BY rowid"),
            (Texts{"7|integer", "1099511627776|integer", "0.5|real", "文|text", "|text", "|text",
                   "NULL|null", "3|integer"}));
}

TEST_F(SqliteHandle, AStatementCanBeStartedAgainHalfway) {
  database_.Execute("INSERT INTO t(a) VALUES(1),(2),(3)");
  Statement query(database_.get(), "SELECT a FROM t WHERE a>=? ORDER BY a");
  query.Start(1);
  ASSERT_TRUE(query.Step());
  query.Start(3);
  ASSERT_TRUE(query.Step());
  EXPECT_EQ(query.Integer(0), 3);
  EXPECT_FALSE(query.Step());
}

TEST_F(SqliteHandle, AFailedStatementCanBeRunAgain) {
  database_.Execute("CREATE UNIQUE INDEX once ON t(a)");
  Statement insert(database_.get(), "INSERT INTO t(a) VALUES(?)");
  insert.Run(1);
  EXPECT_THROW(insert.Run(1), SqliteError);
  insert.Run(2);
  EXPECT_EQ(Count(database_, "SELECT count(*) FROM t"), 2);
}

TEST_F(SqliteHandle, ErrorsCarrySqlitesMessage) {
  try {
    database_.Execute("SELECT * FROM missing");
    FAIL() << "no error";
  } catch (const SqliteError& error) {
    EXPECT_STREQ(error.what(), "no such table: missing");
    EXPECT_FALSE(error.IsBusy());
  }
  EXPECT_THROW(Statement(database_.get(), "SELECT * FROM missing"), SqliteError);
  EXPECT_THROW(Database("no such folder/a.db", Database::Mode::ReadOnly), SqliteError);
}

}  // namespace
}  // namespace workbench::testing
