#include "workbench/company/odbc_connection.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <memory>
#include <string>
#include <string_view>

#include "tests/company/company_file.h"
#include "workbench/company/odbc_handle.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

using testing::ColumnsOf;
using testing::RowsOf;

constexpr const char* kDriver = "SQLite3";

bool HasDriver() {
  SQLHANDLE environment = SQL_NULL_HANDLE;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment))) return false;
  SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  bool found = false;
  std::array<SQLWCHAR, 256> name{};
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  while (!found && SQL_SUCCEEDED(SQLDriversW(environment, direction, name.data(),
                                             static_cast<SQLSMALLINT>(name.size()), nullptr,
                                             nullptr, 0, nullptr))) {
    const auto end = std::find(name.begin(), name.end(), SQLWCHAR{0});
    found = Utf8FromUtf16(std::u16string(name.begin(), end)) == kDriver;
    direction = SQL_FETCH_NEXT;
  }
  SQLFreeHandle(SQL_HANDLE_ENV, environment);
  return found;
}

// A plain database of the driver. Texts reach it unchanged, so they are in the driver's own SQL
// here.
class OdbcDatabase : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!HasDriver()) GTEST_SKIP() << "no ODBC driver named " << kDriver << " on this machine";
#ifndef _WIN32
    // The driver converts texts by the locale's character set; under Wine that is the
    // environment's.
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
#endif
    connection_ = OpenConnection(std::string("DRIVER=") + kDriver + ";Database=:memory:");
  }

  void TearDown() override {
    connection_.reset();
    std::setlocale(LC_ALL, "C");
  }

  ResultSet Execute(std::string_view text) { return connection_->Execute(Utf16FromUtf8(text)); }

  std::unique_ptr<Connection> connection_;
};

TEST_F(OdbcDatabase, IsChosenByTheConnectionString) {
  EXPECT_NE(dynamic_cast<OdbcConnection*>(connection_.get()), nullptr);
}

TEST_F(OdbcDatabase, ReturnsChineseTextNumbersAndNulls) {
  EXPECT_EQ(Execute("create table t_ICItem(FItemID integer,FName varchar(80),FPrice double)")
                .ColumnCount(),
            0U);
  Execute("insert into t_ICItem values(1,'钢板',12.5)");
  Execute("insert into t_ICItem values(2,'O''Brien',null)");
  Execute("insert into t_ICItem values(null,null,0)");
  const ResultSet result =
      Execute("select FItemID,FName as 名称,FPrice from t_ICItem order by rowid");
  EXPECT_EQ(RowsOf(result), "1|'钢板'|12.5\n2|'O'Brien'|NULL\nNULL|NULL|0\n");
  EXPECT_EQ(ColumnsOf(result), "FItemID:3(4) 名称:202(80) FPrice:5(8)");
}

TEST_F(OdbcDatabase, FindsRowsByChineseLiterals) {
  Execute("create table t(a varchar(80))");
  Execute("insert into t values('原料')");
  EXPECT_EQ(RowsOf(Execute("select a from t where a='原料'")), "'原料'\n");
  EXPECT_EQ(Execute("select a from t where a='原科'").RowCount(), 0U);
}

TEST_F(OdbcDatabase, CountsRowsExactly) {
  Execute("create table t(a integer)");
  Execute(
      "insert into t with n(x) as (select 1 union all select x+1 from n where x<5000) "
      "select x from n");
  const ResultSet result = Execute("select a from t");
  EXPECT_EQ(result.RowCount(), 5000U);
  EXPECT_EQ(result.At(4999, 0).Integer(), 5000);
  const ResultSet none = Execute("select a from t where a<0");
  EXPECT_EQ(none.RowCount(), 0U);
  EXPECT_EQ(none.ColumnCount(), 1U);
}

TEST_F(OdbcDatabase, ReadsTextsLongerThanItsBuffer) {
  Execute("create table t(a text)");
  for (const int length : {1, 1022, 1023, 1024, 1025, 2046, 2047, 5000}) {
    std::string text;
    for (int i = 0; i < length; ++i) text += i % 3 == 0 ? "板" : "a";
    Execute("insert into t values('" + text + "')");
    EXPECT_EQ(RowsOf(Execute("select a from t")), "'" + text + "'\n") << length;
    Execute("delete from t");
  }
}

TEST_F(OdbcDatabase, AcceptsAChangeWithoutRows) {
  Execute("create table t(a integer)");
  EXPECT_EQ(Execute("delete from t where a=1").ColumnCount(), 0U);
  EXPECT_EQ(Execute("update t set a=2").ColumnCount(), 0U);
}

TEST_F(OdbcDatabase, SendsTextsUntouched) {
  // The embedded company accepts this text; this database has no isnull.
  try {
    Execute("select isnull(1,2)");
    FAIL() << "not refused";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(Utf8FromUtf16(error.Message()).substr(0, 8), "[HY000] ");
    EXPECT_NE(std::string(error.what()).find("syntax error"), std::string::npos) << error.what();
    EXPECT_EQ(error.NativeNumber(), 1);
  }
  EXPECT_EQ(RowsOf(Execute("select 1 as a")), "1\n");
}

TEST(OdbcConnection, IdentifiesConflictsAndInterruptionsByTheirState) {
  struct Case {
    const char16_t* message;
    bool isConflict;
    bool isInterruption;
  };
  constexpr Case kCases[] = {
      {u"[HY008] cancelled", false, true},  {u"[HYT00] timeout", false, true},
      {u"[HYT01] timeout", false, true},    {u"[57014] canceling statement", false, true},
      {u"[40001] deadlock", true, false},   {u"[40P01] deadlock", true, false},
      {u"[23000] duplicate", false, false}, {u"HY008", false, false},
  };
  for (const Case& given : kCases) {
    const DatabaseError error(given.message, 0);
    EXPECT_EQ(odbc::IsConflict(error), given.isConflict) << error.what();
    EXPECT_EQ(odbc::IsInterruption(error), given.isInterruption) << error.what();
  }
}

TEST(OdbcConnection, ReportsAMissingDriverWithItsState) {
  try {
    OpenConnection("Driver=NoSuchDriver;Database=x");
    FAIL() << "opened";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(std::string(error.what()).find("无法连接服务器：[01000]"), 0U) << error.what();
  }
}

TEST(OdbcConnection, ReportsTheFirstRecordThatIsNoWarning) {
  const DatabaseError ended(u"[01000] Unexpected EOF", 20017);
  const DatabaseError refused(u"[28000] Login failed", 18456);
  const DatabaseError failed(u"[08001] connection failed", 20002);
  EXPECT_STREQ(odbc::MostRelevant({ended, refused, failed}).what(), "[28000] Login failed");
  EXPECT_EQ(odbc::MostRelevant({ended, refused, failed}).NativeNumber(), 18456);
  EXPECT_STREQ(odbc::MostRelevant({ended, ended, failed}).what(), "[08001] connection failed");
  EXPECT_STREQ(odbc::MostRelevant({ended}).what(), "[01000] Unexpected EOF");
  EXPECT_STREQ(odbc::MostRelevant({}).what(), "ODBC 调用失败，没有更多信息。");
}

TEST(OdbcConnection, ReportsAMissingDataSourceInAnyCaseOfThePrefix) {
  for (const char* location : {"dsn=NoSuchSource", "DSN=NoSuchSource"}) {
    try {
      OpenConnection(location);
      FAIL() << "opened " << location;
    } catch (const DatabaseError& error) {
      EXPECT_EQ(std::string(error.what()).find("无法连接服务器：[IM002]"), 0U) << error.what();
    }
  }
}

}  // namespace
}  // namespace workbench
