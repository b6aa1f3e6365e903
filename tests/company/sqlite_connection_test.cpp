#include "workbench/company/sqlite_connection.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <memory>
#include <set>
#include <string>
#include <thread>

#include "tests/company/company_file.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

class SqliteCompany : public ::testing::Test {
 protected:
  // A row of the class table; `name` is put into the text unescaped.
  static std::string Insert(const std::string& item, const std::string& name) {
    return " INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,"
           "FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES\r\n( " +
           item + ",'01','" + name + "',\r\n1231,'1231.01',1232,'1232',12.5)\r\n";
  }

  std::string Classes() {
    return company_.Rows("select FItemID,FItemClassName from icPriceDownClass order by FItemID");
  }

  const std::string delete_ = "delete from icPriceDownClass where  FItemClassNumber='01'";
  testing::OpenCompany company_;
};

TEST_F(SqliteCompany, ChangesNothingWhenATextCannotBeRead) {
  company_.Execute(Insert("1", "原料"));
  const std::string unreadable[] = {
      delete_ + Insert("2", "O'Brien"),
      delete_ + Insert("2", "x','y"),
      delete_ + Insert("2", "x') drop table t_ICItem --"),
      delete_ + Insert("2", "原料") + Insert("3", "'"),
      delete_ + " junk",
      delete_ + " INSERT INTO icPriceDownClass(FItemID,FNoSuchColumn)VALUES(1,2)",
      delete_ + " select FNumber from t_NoSuchTable",
      delete_ + " select FNumber from t_account where FNumber='",
  };
  for (const std::string& text : unreadable) {
    EXPECT_NE(company_.Refusal(text), "") << text;
    EXPECT_EQ(Classes(), "1|'原料'\n") << text;
  }
}

TEST_F(SqliteCompany, ReadsAllStatementsBeforeTheFirstRuns) {
  company_.Execute(Insert("1", "原料"));
  // Valid in the dialect but refused by SQLite: the chain of conditions is too deep.
  std::string text = delete_ + " select FNumber from t_account where FNumber='0'";
  for (int i = 0; i < 1500; ++i) text += " or FNumber='1'";
  EXPECT_NE(company_.Refusal(text), "");
  EXPECT_EQ(Classes(), "1|'原料'\n");
}

TEST_F(SqliteCompany, KeepsWhatRanBeforeAStatementThatFails) {
  company_.Execute(Insert("1", "原料"));
  const std::string tooLong(81, 'x');
  EXPECT_EQ(company_.RefusalNumber(delete_ + Insert("2", "新") + Insert("3", tooLong) +
                                   Insert("4", "新")),
            547);
  EXPECT_EQ(Classes(), "2|'新'\n");
}

TEST_F(SqliteCompany, KeepsTheDeleteWhenTheFirstInsertFails) {
  company_.Execute(Insert("1", "原料"));
  EXPECT_EQ(company_.Refusal(delete_ + Insert("'x1'", "新")),
            "在将 varchar 值 'x1' 转换成数据类型 int 时失败。");
  EXPECT_EQ(Classes(), "");
}

TEST_F(SqliteCompany, UndoesOnlyTheStatementThatFails) {
  company_.Execute(
      "insert into t_user(FUserID,FName) values(3,'c')"
      "insert into t_voucher(FVoucherID,FYear,FPeriod) values(2,2008,1)"
      "insert into t_voucher(FVoucherID,FYear,FPeriod) values(3,2008,1)");
  // Row 3 collides; row 2 must be rolled back with it.
  EXPECT_EQ(company_.RefusalNumber(
                "update t_user set FName='z' insert into t_user(FUserID,FName) values(4,'d') "
                "insert into t_user(FUserID,FName) select FVoucherID,'x' from t_voucher "
                "insert into t_user(FUserID,FName) values(5,'e')"),
            2627);
  EXPECT_EQ(company_.Rows("select FUserID,FName from t_user"), "3|'z'\n4|'d'\n");
}

TEST_F(SqliteCompany, StaysUsableAfterAFailure) {
  EXPECT_NE(company_.Refusal(delete_ + Insert("null", "x") + Insert("2", "x")), "");
  company_.Execute(Insert("3", "y") + Insert("4", "z"));
  EXPECT_EQ(Classes(), "3|'y'\n4|'z'\n");
  EXPECT_NE(sqlite3_get_autocommit(company_.Connection().Database()), 0);
}

TEST(SqliteConnection, RollsBackWhatItCannotCommit) {
  testing::CompanyFile file;  // without a write-ahead log: a commit waits for readers
  SqliteConnection reader(file.Path(), OpenMode::ReadWrite);
  SqliteConnection writer(file.Path(), OpenMode::ReadWrite);
  sqlite3_busy_timeout(writer.Database(), 10);
  ASSERT_EQ(
      sqlite3_exec(reader.Database(), "BEGIN; SELECT * FROM t_user", nullptr, nullptr, nullptr),
      SQLITE_OK);
  const auto failureOf = [&writer](std::u16string_view text) {
    try {
      writer.Execute(text);
      return 0;
    } catch (const DatabaseError& error) {
      return error.NativeNumber();
    }
  };
  constexpr std::u16string_view kTwoChanges =
      u"insert into t_user(FUserID,FName) values(1,'a') "
      u"insert into t_user(FUserID,FName) values(2,'b') ";
  EXPECT_EQ(failureOf(kTwoChanges), 1222);
  EXPECT_NE(sqlite3_get_autocommit(writer.Database()), 0);
  EXPECT_EQ(
      failureOf(std::u16string(kTwoChanges) + u"insert into t_user(FUserID,FName) values(2,'c')"),
      1222);
  EXPECT_NE(sqlite3_get_autocommit(writer.Database()), 0);
  ASSERT_EQ(sqlite3_exec(reader.Database(), "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(testing::RowsOf(writer.Execute(u"select count(*) from t_user")), "0\n");
  EXPECT_EQ(failureOf(kTwoChanges), 0);
  EXPECT_EQ(testing::RowsOf(reader.Execute(u"select count(*) from t_user")), "2\n");
}

TEST_F(SqliteCompany, NumbersFailuresAsTheServer) {
  company_.Execute("insert into t_user(FUserID,FName) values(1,'a')");
  EXPECT_EQ(company_.RefusalNumber("insert into t_user(FUserID,FName) values(1,'b')"), 2627);
  EXPECT_EQ(company_.RefusalNumber("insert into t_user(FUserID,FName) values(2,null)"), 515);
  EXPECT_EQ(company_.RefusalNumber("select FUserID from t_user where FName=1"), 245);
  EXPECT_EQ(company_.Refusal("insert into t_user(FUserID,FName) values(1,'b')"),
            "违反了主键约束，不能插入重复的值（UNIQUE constraint failed: t_user.FUserID）。");
}

TEST_F(SqliteCompany, ComparesQuotedNumbersAsNumbers) {
  for (const char* row : {"1,2007,12", "2,2008,3", "3,2008,10"}) {
    company_.Execute("insert into ICPriceDownPrepare(FItemID,FYear,FPeriod) values(" +
                     std::string(row) + ")");
  }
  const auto itemsWhere = [this](const std::string& condition) {
    return company_.Rows("select FItemID from ICPriceDownPrepare where " + condition);
  };
  EXPECT_EQ(itemsWhere("FYear='2008'"), "2\n3\n");
  EXPECT_EQ(itemsWhere("isnull(FYear,0)='2008'"), "2\n3\n");
  EXPECT_EQ(itemsWhere("'2008'=isnull(FYear,'')"), "2\n3\n");
  EXPECT_EQ(itemsWhere("FPeriod<'10'"), "2\n");
  EXPECT_EQ(itemsWhere("isnull(FPeriod,0)<'10'"), "2\n");
  EXPECT_EQ(itemsWhere("(FPeriod)>('9')"), "1\n3\n");
  EXPECT_EQ(itemsWhere("FYear in('2007')"), "1\n");
  EXPECT_EQ(itemsWhere("isnull(FYear,0) in('2007',1)"), "1\n");
  EXPECT_EQ(itemsWhere("isnull(FPeriod,0) between '3' and '10'"), "2\n3\n");
  EXPECT_EQ(itemsWhere("FHaveAdd<>0"), "");
  EXPECT_EQ(company_.RefusalNumber("select FItemID from ICPriceDownPrepare where FYear<'abc'"),
            245);
}

TEST_F(SqliteCompany, ReturnsTheResultOfTheFirstQueryOfAText) {
  EXPECT_EQ(company_.Rows("insert into t_user(FUserID,FName) values(1,'a') select FName from "
                          "t_user insert into t_user(FUserID,FName) values(2,'b') select FUserID "
                          "from t_user"),
            "'a'\n");
  EXPECT_EQ(company_.Rows("select FUserID from t_user"), "1\n2\n");
  EXPECT_EQ(company_.Execute("").ColumnCount(), 0U);
  EXPECT_EQ(company_.Execute("select FName from t_user where 1=0").ColumnCount(), 1U);
}

TEST_F(SqliteCompany, KeepsEveryUtf16Text) {
  const std::u16string lone = u"a\xD83D钢\xD842\xDFB7'b";
  std::u16string quoted = lone;
  quoted.insert(quoted.find(u'\''), 1, u'\'');
  company_.Connection().Execute(u"insert into t_user(FUserID,FName) values(1,'" + quoted + u"')");
  const ResultSet result =
      company_.Connection().Execute(u"select FName from t_user where FName='" + quoted + u"'");
  ASSERT_EQ(result.RowCount(), 1U);
  EXPECT_TRUE(result.At(0, 0).Text() == lone);
}

TEST_F(SqliteCompany, HidesSqlitesOwnTablesAndRowNumbers) {
  EXPECT_EQ(company_.RefusalNumber("select name from sqlite_master"), 208);
  EXPECT_EQ(company_.RefusalNumber("select rowid from t_user"), 207);
  EXPECT_EQ(company_.RefusalNumber("delete from sqlite_sequence"), 208);
}

TEST_F(SqliteCompany, SeesWhatAnotherConnectionWrote) {
  SqliteConnection other(company_.Path());
  EXPECT_EQ(company_.Rows("select FUserID from t_user"), "");
  other.Execute(u"insert into t_user(FUserID,FName) values(7,'b')");
  EXPECT_EQ(company_.Rows("select FUserID from t_user"), "7\n");
}

TEST_F(SqliteCompany, ReadsWhileAnotherConnectionIsWriting) {
  SqliteConnection other(company_.Path());
  ASSERT_EQ(sqlite3_exec(other.Database(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr),
            SQLITE_OK);
  other.Execute(u"insert into t_user(FUserID,FName) values(7,'b')");
  EXPECT_EQ(company_.Rows("select FUserID from t_user"), "");
  sqlite3_busy_timeout(company_.Connection().Database(), 10);
  EXPECT_EQ(company_.RefusalNumber(delete_), 1222);
  EXPECT_EQ(company_.RefusalNumber(delete_ + Insert("1", "x")), 1222);
  ASSERT_EQ(sqlite3_exec(other.Database(), "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(company_.Rows("select FUserID from t_user"), "7\n");
}

TEST_F(SqliteCompany, WaitsForTheLockOfAnotherConnection) {
  SqliteConnection other(company_.Path());
  ASSERT_EQ(sqlite3_exec(other.Database(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr),
            SQLITE_OK);
  std::thread writer([&other] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    sqlite3_exec(other.Database(), "COMMIT", nullptr, nullptr, nullptr);
  });
  EXPECT_EQ(company_.Refusal(delete_ + Insert("1", "x")), "");
  writer.join();
  EXPECT_EQ(Classes(), "1|'x'\n");
}

TEST_F(SqliteCompany, LeavesATransactionOfTheCallerOpen) {
  sqlite3* database = company_.Connection().Database();
  ASSERT_EQ(sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr), SQLITE_OK);
  company_.Execute(Insert("1", "x") + Insert("2", "y"));
  EXPECT_EQ(sqlite3_get_autocommit(database), 0);
  ASSERT_EQ(sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(Classes(), "");
}

TEST_F(SqliteCompany, SavesTensOfThousandsOfRowsInOneText) {
  std::string text = delete_;
  for (int i = 0; i < 20000; ++i) text += Insert(std::to_string(i), "原料");
  company_.Execute(text);
  EXPECT_EQ(company_.Rows("select count(*),max(FItemID) from icPriceDownClass"), "20000|19999\n");
}

TEST_F(SqliteCompany, SavesOfTwoUsersComeOneAfterTheOther) {
  const auto save = [this](Connection& connection, const std::string& name) {
    std::string text = delete_;
    for (int i = 0; i < 300; ++i) text += Insert(std::to_string(i), name);
    for (int round = 0; round < 20; ++round) connection.Execute(Utf16FromUtf8(text));
  };
  const std::unique_ptr<Connection> first = OpenConnection(company_.Path());
  std::thread other([&] { save(*OpenConnection(company_.Path()), "乙"); });
  save(*first, "甲");
  other.join();
  EXPECT_EQ(company_.Rows("select count(*) from icPriceDownClass"), "300\n");
  EXPECT_EQ(company_.Rows("select distinct FItemClassName from icPriceDownClass").size(),
            std::string("'甲'\n").size());
}

TEST_F(SqliteCompany, AcceptsAListOfTensOfThousandsOfItems) {
  company_.Execute(
      "insert into t_ICItem(FItemID,FNumber,FErpClsID) values(20001,'a',1)"
      "insert into t_ICItem(FItemID,FNumber,FErpClsID) values(500,'b',1)");
  std::string list = "0";
  for (int i = 1; i <= 20000; ++i) list += "," + std::to_string(i);
  EXPECT_EQ(company_.Rows("select FItemID from t_ICItem x2 where x2.FItemid not in(" + list + ")"),
            "20001\n");
}

TEST(SqliteCompanyFile, MustExist) {
  const testing::TemporaryFolder folder;
  const std::string path = folder.PathOf("missing.db");
  try {
    SqliteConnection connection(path);
    FAIL() << "opened";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(std::string(error.what()), "无法打开公司数据库 '" + path + "'。");
  }
  EXPECT_EQ(folder.Names(), std::set<std::string>());
}

TEST(SqliteCompanyFile, MustBeADatabase) {
  const testing::TemporaryFolder folder;
  folder.Write("x.db", std::string(4096, 'x'));
  EXPECT_THROW(SqliteConnection(folder.PathOf("x.db")), DatabaseError);
}

TEST(OpenConnection, OpensAPathAsACompanyFile) {
  testing::CompanyFile file;
  const std::unique_ptr<Connection> connection = OpenConnection(file.Path());
  EXPECT_NE(dynamic_cast<SqliteConnection*>(connection.get()), nullptr);
  EXPECT_EQ(connection->Execute(u"select FUserID from t_user").ColumnCount(), 1U);
}

}  // namespace
}  // namespace workbench
