// The `workbench` program on a server's company: made, filled, read, checked, and refused.
#include <gmock/gmock.h>

#include <sstream>

#include "tests/sample/temporary_folder.h"
#include "tests/server_support/server_fixture.h"
#include "workbench/cli/commands.h"
#include "workbench/company/schema.h"

namespace workbench::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class ServerCommands : public ServerTest {
 protected:
  int Run(const std::vector<std::string>& words) {
    out_.str("");
    err_.str("");
    const int code = RunCommand(words, out_, err_);
    EXPECT_THAT(out_.str() + err_.str(), Not(HasSubstr(std::string(PostgresServer::kPassword))));
    return code;
  }
  int Create(const std::vector<std::string>& options = {"--items", "5", "--classes", "2"}) {
    std::vector<std::string> words{"create", database_};
    words.insert(words.end(), options.begin(), options.end());
    return Run(words);
  }

  // Of the company's tables, as the server writes them.
  std::string AllRows() const {
    const auto company = Open();
    std::string rows;
    for (const std::string_view table : kCompanyTables) {
      const std::string name(table);
      const ResultSet result = Execute(
          *company,
          "SELECT coalesce(string_agg(x::text,chr(10) ORDER BY x::text),'') FROM " + name + " x");
      rows += name + "\n" + Utf8FromUtf16(result.At(0, 0).Text()) + "\n";
    }
    return rows;
  }

  TemporaryFolder folder_;
  std::ostringstream out_;
  std::ostringstream err_;
};

TEST_F(ServerCommands, CreateMakesTheSampleCompanyThatInfoShows) {
  ASSERT_EQ(Create({}), kDone) << err_.str();
  EXPECT_THAT(out_.str(), HasSubstr("已建立 Driver={PostgreSQL Unicode};Server=127.0.0.1;Port="));
  ASSERT_EQ(Run({"info", database_}), kDone) << err_.str();
  for (const char* line : {"当前期间: 2008年第3期\n", "物料: 3200\n", "科目: 185\n",
                           "物料类别: 25(", "跌价准备: 按物料类别(1)\n", "  1 系统管理员("}) {
    EXPECT_THAT(out_.str(), HasSubstr(line));
  }
}

TEST_F(ServerCommands, CreateWritesTheSameRowsAsIntoAFile) {
  const std::string file = folder_.PathOf("公司.db");
  ASSERT_EQ(Run({"create", file, "--items", "300", "--classes", "7"}), kDone);
  ASSERT_EQ(Create({"--items", "300", "--classes", "7"}), kDone) << err_.str();
  const auto onServer = Open();
  const auto inFile = OpenConnection(file);
  for (const char* statement :
       {"SELECT FVoucherID,FYear,FPeriod,FDate,FGroup,FNumber,FTranType,FInternalInd,FExplanation "
        "FROM t_voucher ORDER BY FVoucherID",
        "SELECT FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID,FUnitName,FPlanPrice,FSalePrice"
        " FROM t_ICItem ORDER BY FItemID",
        "SELECT FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,FARAccID,FARNumber,"
        "FPencentPrepare FROM icPriceDownClass ORDER BY FItemID",
        "SELECT FUserID,FCategory,FKey,FValue FROM t_UserSetting ORDER BY "
        "FUserID,FCategory,FKey"}) {
    const ResultSet left = Execute(*onServer, statement);
    const ResultSet right = Execute(*inFile, statement);
    ASSERT_EQ(left.RowCount(), right.RowCount()) << statement;
    for (std::size_t row = 0; row < left.RowCount(); ++row) {
      for (std::size_t column = 0; column < left.ColumnCount(); ++column) {
        const Cell& a = left.At(row, column);
        const Cell& b = right.At(row, column);
        ASSERT_EQ(a.Kind(), b.Kind()) << statement << " row " << row << " column " << column;
        if (a.Kind() == CellKind::Integer) {
          ASSERT_EQ(a.Integer(), b.Integer());
        }
        if (a.Kind() == CellKind::Number) {
          ASSERT_EQ(a.Number(), b.Number());
        }
        if (a.Kind() == CellKind::Text) {
          ASSERT_EQ(Utf8FromUtf16(a.Text()), Utf8FromUtf16(b.Text()));
        }
      }
    }
  }
}

TEST_F(ServerCommands, CreateShowsItsProgress) {
  ASSERT_EQ(Create({"--items", "30000", "--classes", "100"}), kDone) << err_.str();
  EXPECT_THAT(out_.str(), HasSubstr("已写入 50000 行\n"));
}

TEST_F(ServerCommands, CreateRefusesACompanyUnlessForced) {
  ASSERT_EQ(Create(), kDone);
  EXPECT_EQ(Create(), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 数据库中已有公司的表(使用 --force 覆盖)\n");
  EXPECT_EQ(Create({"--items", "7", "--classes", "2", "--force"}), kDone) << err_.str();
  EXPECT_EQ(Number(*Open(), "SELECT count(*) FROM t_ICItem"), 7);
}

TEST_F(ServerCommands, CreateNeverReplacesACompanyOfAnotherProgram) {
  ASSERT_EQ(Create(), kDone);
  Execute(*Open(), "DELETE FROM t_systemprofile WHERE FCategory='Workbench'");
  EXPECT_EQ(Create({"--force"}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 数据库中的公司不是工作台建立的,不能覆盖\n");
  EXPECT_EQ(Number(*Open(), "SELECT count(*) FROM t_ICItem"), 5);
}

TEST_F(ServerCommands, CreateNeverReplacesATableWithOtherColumns) {
  Execute(*Open(), "CREATE TABLE t_systemprofile(a INTEGER)");
  EXPECT_EQ(Create({"--force"}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 数据库中的公司不是工作台建立的,不能覆盖\n");
}

TEST_F(ServerCommands, CreateReportsThatTheMarkCannotBeRead) {
  Execute(*Open(),
          "CREATE VIEW t_systemprofile AS SELECT 'Workbench'::text AS FCategory,"
          "'SchemaVersion'::text AS FKey,(1/(random()*0)::int)::text AS FValue");
  EXPECT_EQ(Create({"--force"}), kFailed);
  EXPECT_THAT(err_.str(), HasSubstr("division by zero"));
}

TEST_F(ServerCommands, ACreateThatFailsLeavesTheDatabaseAsItWas) {
  // The indexes come last.
  Execute(*Open(), "CREATE TABLE other(a INTEGER)");
  Execute(*Open(), "CREATE INDEX ixVoucherPeriod ON other(a)");
  EXPECT_EQ(Create(), kFailed);
  EXPECT_EQ(Number(*Open(),
                   "SELECT count(*) FROM information_schema.tables "
                   "WHERE table_schema='public'"),
            1);
}

TEST_F(ServerCommands, AVoucherNumbersItself) {
  ASSERT_EQ(Create(), kDone);
  const std::int64_t last = Number(*Open(), "SELECT max(FVoucherID) FROM t_voucher");
  Execute(*Open(),
          "INSERT INTO t_voucher(FYear,FPeriod,FTranType,FInternalInd,FExplanation)"
          "VALUES(2008,3,820,'Industry','计提存货跌价准备')");
  EXPECT_EQ(Number(*Open(), "SELECT max(FVoucherID) FROM t_voucher"), last + 1);
}

TEST_F(ServerCommands, ImportAddsAllOrNothing) {
  ASSERT_EQ(Create(), kDone);
  folder_.Write("物料.csv", "物料代码,物料名称\r\n90.1,端盖\r\n90.2,箱体\r\n");
  folder_.Write("科目.csv", "科目代码,科目名称\n7001.01,乙\n7001,甲\n");
  const std::vector<std::string> files{"--items", folder_.PathOf("物料.csv"), "--accounts",
                                       folder_.PathOf("科目.csv")};
  std::vector<std::string> words{"import", database_};
  words.insert(words.end(), files.begin(), files.end());
  EXPECT_EQ(Run(words), kDone) << err_.str();
  EXPECT_EQ(out_.str(), "已导入物料 2 个,科目 2 个\n");
  EXPECT_EQ(Number(*Open(), "SELECT a.FLevel FROM t_account a WHERE a.FNumber='7001.01'"), 2);

  EXPECT_EQ(Run(words), kBadData);
  EXPECT_THAT(err_.str(), HasSubstr("物料.csv:2: 物料代码已在公司中存在:90.1\n"));
  EXPECT_THAT(err_.str(), HasSubstr("科目.csv:3: 科目代码已在公司中存在:7001\n"));
  EXPECT_EQ(Number(*Open(), "SELECT count(*) FROM t_ICItem"), 7);

  folder_.Write("物料.csv", "物料代码,物料名称\n91.1,端盖\n91.2,箱体\n91.1,轴\n");
  EXPECT_EQ(Run({"import", database_, "--items", folder_.PathOf("物料.csv")}), kBadData);
  EXPECT_THAT(err_.str(), HasSubstr("物料.csv:4: 物料代码与第 2 行重复:91.1\n"));
  EXPECT_EQ(Number(*Open(), "SELECT count(*) FROM t_ICItem"), 7);
}

TEST_F(ServerCommands, ExportWritesWhatImportReads) {
  ASSERT_EQ(Create(), kDone);
  ASSERT_EQ(Run({"export", database_, "--items", folder_.PathOf("a.csv")}), kDone) << err_.str();
  Execute(*Open(), "DELETE FROM t_ICItem");
  ASSERT_EQ(Run({"import", database_, "--items", folder_.PathOf("a.csv")}), kDone) << err_.str();
  ASSERT_EQ(Run({"export", database_, "--items", folder_.PathOf("b.csv")}), kDone) << err_.str();
  EXPECT_EQ(folder_.Read("a.csv"), folder_.Read("b.csv"));
}

TEST_F(ServerCommands, CheckAndExplainReadOnly) {
  ASSERT_EQ(Create(), kDone);
  EXPECT_EQ(Run({"check", database_}), kDone) << out_.str() << err_.str();
  Execute(*Open(), "DELETE FROM t_ICItem WHERE FItemID=1");
  const std::string before = AllRows();
  EXPECT_EQ(Run({"check", database_}), kBadData);
  EXPECT_EQ(Run({"explain", database_, "00001"}), kDone) << err_.str();
  EXPECT_EQ(AllRows(), before);
  EXPECT_EQ(Run({"check", database_}), kBadData);
  EXPECT_THAT(out_.str(), HasSubstr("类别的明细没有物料: 00001: 编号 1\n"));
  Execute(*Open(), "DELETE FROM t_voucher");
  Execute(*Open(), "DELETE FROM ICPriceDownPrepare");
  EXPECT_EQ(Run({"explain", database_, "00001"}), kDone) << err_.str();
  EXPECT_THAT(out_.str(), HasSubstr(": 可以删除\n"));
  Execute(*Open(), "INSERT INTO ICPriceDownPrepare VALUES(2,2007,12,3.5,0)");
  EXPECT_EQ(Run({"explain", database_, "00001"}), kDone) << err_.str();
  EXPECT_THAT(out_.str(), HasSubstr("以前期间已有业务, 2007年第12期: 物料 01.01.0002, 累计计提 "
                                    "3.5, 本期计提 0\n"));
}

TEST_F(ServerCommands, ARoleThatOnlyReadsLooksAndChecksButChangesNothing) {
  ASSERT_EQ(Create(), kDone);
  Execute(*Open(), "CREATE ROLE company_reader LOGIN PASSWORD '" +
                       std::string(PostgresServer::kPassword) + "'");
  Execute(*Open(), "GRANT SELECT ON ALL TABLES IN SCHEMA public TO company_reader");
  std::string reader = database_;
  constexpr std::string_view kOwner = "UID=workbench";
  reader.replace(reader.find(kOwner), kOwner.size(), "UID=company_reader");
  EXPECT_EQ(Run({"info", reader}), kDone) << err_.str();
  EXPECT_EQ(Run({"check", reader}), kDone) << err_.str();
  EXPECT_EQ(Run({"explain", reader, "00001"}), kDone) << err_.str();
  EXPECT_EQ(Run({"export", reader, "--items", folder_.PathOf("物料.csv")}), kDone) << err_.str();
  folder_.Write("新.csv", "物料代码,物料名称\n90.1,端盖\n");
  EXPECT_EQ(Run({"import", reader, "--items", folder_.PathOf("新.csv")}), kFailed);
  EXPECT_EQ(Run({"create", reader, "--force"}), kFailed);
  EXPECT_EQ(Number(*Open(), "SELECT count(*) FROM t_ICItem"), 5);
}

TEST_F(ServerCommands, WhatIsNoCompanyIsRefusedByName) {
  EXPECT_EQ(Run({"info", database_}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 不是公司数据库,没有表 icPriceDownClass\n");
}

TEST_F(ServerCommands, NoFileIsMadeOfAConnectionString) {
  const std::string wrong = PostgresServer::WithPassword(database_, "Falsch-0815");
  for (const std::string& location :
       {wrong, "  " + wrong, std::string("PWD=x;UID=y"), std::string("server = nowhere")}) {
    const auto before = std::distance(std::filesystem::directory_iterator("."), {});
    EXPECT_EQ(Run({"create", location}), kFailed) << location;
    EXPECT_THAT(err_.str(), Not(HasSubstr("Falsch-0815")));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator("."), {}), before) << location;
  }
}

TEST_F(ServerCommands, BackupIsForFilesOnly) {
  EXPECT_EQ(Run({"backup", database_, folder_.PathOf("a.db")}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: backup 只用于公司文件;服务器用它自己的备份\n");
}

}  // namespace
}  // namespace workbench::testing
