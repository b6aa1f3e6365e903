// The company's tables: typing, comparison, versions, and the indexes behind the library's
// statements.
#include "workbench/company/schema.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "workbench/company/collation.h"

namespace workbench {
namespace {

class Schema : public ::testing::Test {
 protected:
  void SetUp() override {
    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &opened), SQLITE_OK);
    database_.reset(opened);
    RegisterServerText(opened);
  }

  int Run(const std::string& sql) {
    return sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  }

  // The first column of all rows, one per line.
  std::string Ask(const std::string& sql, int column = 0) {
    std::string answer;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
      return sqlite3_errmsg(database_.get());
    }
    while (sqlite3_step(statement) == SQLITE_ROW) {
      const auto* text = sqlite3_column_text(statement, column);
      answer += text == nullptr ? "NULL" : reinterpret_cast<const char*>(text);
      answer += '\n';
    }
    sqlite3_finalize(statement);
    return answer;
  }

  std::string Plan(const std::string& sql) { return Ask("EXPLAIN QUERY PLAN " + sql, 3); }

  void Create() {
    CreateCompanyTables(database_.get());
    CreateCompanyIndexes(database_.get());
  }

  std::string RefusalOfCompany() {
    try {
      RequireCompany(database_.get());
    } catch (const SchemaError& error) {
      return error.what();
    }
    return "";
  }

  struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  std::unique_ptr<sqlite3, Closer> database_;
};

TEST_F(Schema, AnEmptyDatabaseIsNotACompany) {
  EXPECT_EQ(CompanySchemaVersion(database_.get()), 0);
  EXPECT_EQ(RefusalOfCompany(), "不是公司文件");
}

TEST_F(Schema, ACreatedCompanyIsRecognised) {
  Create();
  EXPECT_EQ(CompanySchemaVersion(database_.get()), kCompanySchemaVersion);
  EXPECT_EQ(RefusalOfCompany(), "");
}

TEST_F(Schema, AnotherProgramsDatabaseIsNotACompany) {
  Run("CREATE TABLE t_ICItem(FItemID); PRAGMA user_version=1");
  EXPECT_EQ(RefusalOfCompany(), "不是公司文件");
}

TEST_F(Schema, ANewerCompanyIsRefusedByName) {
  Create();
  Run("PRAGMA user_version=" + std::to_string(kCompanySchemaVersion + 1));
  EXPECT_NE(RefusalOfCompany().find("公司文件由更新版本的程序建立"), std::string::npos);
}

TEST_F(Schema, CreatingTwiceFails) {
  Create();
  EXPECT_THROW(CreateCompanyTables(database_.get()), SchemaError);
}

TEST_F(Schema, QuotedYearsCompareAsNumbers) {
  Create();
  Run("INSERT INTO t_voucher(FVoucherID,FYear,FPeriod,FTranType,FInternalInd) "
      "VALUES(1,2008,10,820,'Industry')");
  EXPECT_EQ(Ask("SELECT FVoucherID FROM t_voucher WHERE FYear='2008'and FPeriod>'9'"), "1\n");
}

TEST_F(Schema, TextComparesWithoutCaseAndTrailingBlanks) {
  Create();
  Run("INSERT INTO icPriceDownClass(FItemID,FItemClassNumber) VALUES(1,'AB01')");
  EXPECT_EQ(Ask("SELECT FItemID FROM icPriceDownClass WHERE FItemClassNumber='ab01 '"), "1\n");
}

TEST_F(Schema, ClassRulesAreNotTheDatabases) {
  Create();
  const std::string insert =
      "INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FPencentPrepare)";
  EXPECT_EQ(Run(insert + "VALUES(1,'A','甲',5)"), SQLITE_OK);
  EXPECT_EQ(Run(insert + "VALUES(1,'A','甲',5)"), SQLITE_OK) << "the same row again";
  EXPECT_EQ(Run(insert + "VALUES(1,'a','乙',101)"), SQLITE_OK) << "two classes, any percentage";
}

TEST_F(Schema, ValuesThatDoNotFitAreRefusedWhileTheStatementRuns) {
  Create();
  const std::string longText(81, 'x');
  EXPECT_EQ(
      Run("INSERT INTO icPriceDownClass(FItemID,FItemClassNumber) VALUES(1,'" + longText + "')"),
      SQLITE_CONSTRAINT);
  EXPECT_EQ(Run("INSERT INTO icPriceDownClass(FItemID,FItemClassNumber) VALUES('x','1')"),
            SQLITE_CONSTRAINT);
  EXPECT_EQ(Run("INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FPencentPrepare) "
                "VALUES(1,'1','many')"),
            SQLITE_CONSTRAINT);
  EXPECT_EQ(Run("INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FPencentPrepare) "
                "VALUES('1','1','12.5')"),
            SQLITE_OK);
  EXPECT_EQ(Ask("SELECT typeof(FPencentPrepare) FROM icPriceDownClass"), "real\n");
}

TEST_F(Schema, TheTreeIsReadFromTheIndexOnly) {
  Create();
  EXPECT_EQ(Plan("Select t1.FitemClassNumber,t1.FitemClassName FROM icPriceDownClass t1 "
                 "order by t1.FitemClassNumber asc"),
            "SCAN t1 USING COVERING INDEX ixPriceDownClassNumber\n");
}

TEST_F(Schema, TheGridOfAClassReadsOnlyItsMembers) {
  Create();
  EXPECT_EQ(Plan("SELECT t1.FName,t2.FPencentPrepare FROM t_ICItem t1,icPriceDownClass t2 "
                 "Where t1.Fitemid=t2.Fitemid and t1.FErpClsID not in(6,8) "
                 "and t2.FItemClassNumber='01' Order by t1.FNumber asc"),
            "SEARCH t2 USING INDEX ixPriceDownClassNumber (FItemClassNumber=?)\n"
            "SEARCH t1 USING INTEGER PRIMARY KEY (rowid=?)\n"
            "USE TEMP B-TREE FOR ORDER BY\n");
}

TEST_F(Schema, TheGridOfAllItemsIsNotSorted) {
  Create();
  EXPECT_EQ(Plan("SELECT t1.FName FROM t_ICItem t1 Where t1.FErpClsID not in(6,8) "
                 "order by t1.FNumber asc"),
            "SCAN t1 USING INDEX ixICItemNumber\n");
}

TEST_F(Schema, TheGuardsSearchByClassItemAndPeriod) {
  Create();
  EXPECT_EQ(Plan("select FVoucherID from t_voucher where FYear='2008'and FPeriod='3'"
                 "and FTranType=820 and FInternalInd='Industry'"),
            "SEARCH t_voucher USING COVERING INDEX ixVoucherPeriod "
            "(FYear=? AND FPeriod=? AND FTranType=? AND FInternalInd=?)\n");
  EXPECT_EQ(Plan("select a.FItemID from ICPriceDownPrepare a inner join ICPriceDownClass b "
                 "on a.FItemID=b.FItemID where a.FYear<'2008' and b.FItemClassNumber='01'"),
            "SEARCH b USING INDEX ixPriceDownClassNumber (FItemClassNumber=?)\n"
            "SEARCH a USING COVERING INDEX ixPriceDownPrepareItem (FItemID=? AND FYear<?)\n");
  EXPECT_EQ(Plan("select a.FItemID from ICPriceDownPrepare a inner join t_ICItem b "
                 "on a.FItemID=b.FItemID where a.FYear='2008' and a.FPeriod='3' "
                 "and b.FNumber='01.01.0001'"),
            "SEARCH b USING COVERING INDEX ixICItemNumber (FNumber=?)\n"
            "SEARCH a USING COVERING INDEX ixPriceDownPrepareItem "
            "(FItemID=? AND FYear=? AND FPeriod=?)\n");
}

}  // namespace
}  // namespace workbench
