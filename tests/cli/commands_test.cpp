// The program's commands, from arguments to exit code.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <set>
#include <sstream>
#include <thread>

#include "tests/cli/run_commands.h"
#include "workbench/company/connection.h"
#include "workbench/company/utf.h"

namespace workbench::testing {
namespace {

TEST_F(Commands, HelpNamesEveryCommandAndExitCode) {
  for (const char* word : {"--help", "-h", "help"}) {
    EXPECT_EQ(Run({word}), kDone);
    for (const char* part :
         {"create", "import", "export", "info", "check", "explain", "backup", "退出码"}) {
      EXPECT_NE(out_.str().find(part), std::string::npos) << part;
    }
    EXPECT_EQ(err_.str(), "");
  }
}

TEST_F(Commands, HelpOfACommandNamesItsOptions) {
  EXPECT_EQ(Run({"create", "--help"}), kDone);
  for (const char* part :
       {"--seed", "--items", "--classes", "--force", "--login-timeout", "[选项]"}) {
    EXPECT_NE(out_.str().find(part), std::string::npos) << part << out_.str();
  }
  for (const char* other : {"--accounts", "Options", "OPTIONS", "--help-all"}) {
    EXPECT_EQ(out_.str().find(other), std::string::npos) << other << out_.str();
  }
  EXPECT_EQ(Run({"explain", "-h"}), kDone);
  EXPECT_NE(out_.str().find("代码"), std::string::npos) << out_.str();
}

TEST_F(Commands, CreateThenInfoShowsTheSampleCompany) {
  EXPECT_EQ(Run({"create", Company(), "--seed", "3"}), kDone);
  EXPECT_EQ(out_.str().find("已建立 " + Company()), 0U) << out_.str();
  EXPECT_EQ(Run({"info", Company()}), kDone);
  for (const char* line : {"当前期间: 2008年第3期\n", "物料: 3200\n", "科目: 185\n",
                           "物料类别: 25(", "跌价准备: 按物料类别(1)\n", "  1 系统管理员("}) {
    EXPECT_NE(out_.str().find(line), std::string::npos) << line << out_.str();
  }
}

TEST_F(Commands, CreateAcceptsASize) {
  CreateCompany();
  EXPECT_EQ(Run({"info", Company()}), kDone);
  EXPECT_NE(out_.str().find("物料: 5\n"), std::string::npos) << out_.str();
  EXPECT_NE(out_.str().find("物料类别: 2(明细 5 行)\n"), std::string::npos) << out_.str();
}

TEST_F(Commands, CreateRefusesAnExistingFileWithoutForce) {
  CreateCompany();
  const std::string before = folder_.Read("公司.db");
  EXPECT_EQ(Run({"create", Company()}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 文件已存在(使用 --force 覆盖): " + Company() + "\n");
  EXPECT_TRUE(folder_.Read("公司.db") == before);
  EXPECT_EQ(Run({"create", Company(), "--force"}), kDone);
  EXPECT_FALSE(folder_.Read("公司.db") == before);
}

TEST_F(Commands, CheckListsWhatIsWrongAndChangesNothing) {
  ASSERT_EQ(Run({"create", Company(), "--items", "6", "--classes", "2"}), kDone);
  EXPECT_EQ(Run({"check", Company()}), kDone);
  EXPECT_EQ(out_.str(), "没有发现问题\n");
  {
    const auto company = OpenConnection(Company());
    company->Execute(u"UPDATE icPriceDownClass SET FItemClassName='另名' WHERE FItemID=1");
    company->Execute(
        u"INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,"
        u"FAPAccID,FAPNumber,FARAccID,FARNumber,FPencentPrepare)"
        u"VALUES(1,'X','x',1,'没有',2,'1471.01',1.0)");
    company->Execute(
        u"INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FPencentPrepare)"
        u"VALUES(99,'Y',1.0)");
    company->Execute(
        u"INSERT INTO t_UserProfile(FUserID,FApplication,FSection,FKey,FValue)"
        u"VALUES(7,'H','PriceDown','NodeSel1','giZ')");
    company->Execute(u"UPDATE t_systemprofile SET FValue='三' WHERE FKey='CurrentPeriod'");
    // A save looks up 1471.2 and 6701.01, without what follows.
    company->Execute(
        u"INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)VALUES"
        u"(900,'1471.20','a',2,0,1,1) INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,"
        u"FParentID,FDetail,FDC)VALUES(901,'6701.01.07','b',3,0,1,1)");
    company->Execute(
        u"UPDATE icPriceDownClass SET FARNumber='1471.20',FAPNumber='6701.01.07' "
        u"WHERE FItemClassNumber='00002'");
  }
  const std::string before = folder_.Read("公司.db");
  EXPECT_EQ(Run({"check", Company()}), kBadData);
  for (const char* finding :
       {"物料属于多个类别: 01.01.0001 ", ": 00001, X\n",
        "类别各行的名称、科目或百分比不一致: 00001: [另名, ", "类别的明细没有物料: Y: 编号 99\n",
        "保存时查不到科目: X: 没有\n", "保存时查不到科目: 00002: 1471.20\n",
        "保存时查不到科目: Y: (空)\n", "类别没有可列出的物料: Y\n",
        "设置中的类别已不存在: 用户 7, NodeSel1: Z\n", "设置属于不存在的用户: t_UserProfile: 7\n",
        "当前期间不是数字: CurrentPeriod: 三\n"}) {
    EXPECT_NE(out_.str().find(finding), std::string::npos) << finding << "\n" << out_.str();
  }
  EXPECT_EQ(out_.str().find("6701.01.07"), std::string::npos) << out_.str();
  EXPECT_NE(out_.str().find("个问题\n"), std::string::npos);
  EXPECT_TRUE(folder_.Read("公司.db") == before);
}

TEST_F(Commands, CheckLooksAccountsUpAsASaveDoes) {
  ASSERT_EQ(Run({"create", Company(), "--items", "6", "--classes", "2"}), kDone);
  const auto set = [this](const std::u16string& number) {
    OpenConnection(Company())->Execute(
        u"DELETE FROM t_account WHERE FAccountID=900 "
        u"INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)"
        u"VALUES(900,'" +
        number +
        u"','a',1,0,1,1) "
        u"UPDATE icPriceDownClass SET FARNumber='" +
        number + u"' WHERE FItemClassNumber='00001'");
  };
  // Blanks do not end the number.
  set(u"67 01.01 x");
  EXPECT_EQ(Run({"check", Company()}), kDone) << out_.str();
  set(u"1E999");
  EXPECT_EQ(Run({"check", Company()}), kBadData);
  EXPECT_EQ(out_.str(), "保存时查不到科目: 00001: 1E999\n共 1 个问题\n");
}

TEST_F(Commands, ExplainListsEveryReasonWithPeriodsAmountsAndVouchers) {
  ASSERT_EQ(Run({"create", Company()}), kDone);
  EXPECT_EQ(Run({"explain", Company(), "没有"}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 公司中没有这个类别或物料: 没有\n");
  {
    const auto company = OpenConnection(Company());
    company->Execute(u"DELETE FROM ICPriceDownPrepare WHERE FItemID>0");
    for (const char16_t* row : {u"(1,2007,12,3.5,0)", u"(1,2008,2,0,-1)", u"(1,2008,3,7,8)",
                                u"(1,2008,4,9,9)", u"(1,2006,1,0,0)"}) {
      company->Execute(std::u16string(u"INSERT INTO ICPriceDownPrepare(FItemID,FYear,FPeriod,"
                                      u"FHaveAdd,FCurrentAdd)VALUES") +
                       row);
    }
    company->Execute(
        u"INSERT INTO t_voucher(FVoucherID,FYear,FPeriod,FDate,FGroup,FNumber,"
        u"FTranType,FInternalInd,FExplanation)"
        u"VALUES(900,2008,3,'2008-03-28','记',17,820,'Industry','计提')");
  }
  const std::string before = folder_.Read("公司.db");
  EXPECT_EQ(Run({"explain", Company(), "01.01.0001"}), kDone);
  for (const char* reason :
       {"物料 01.01.0001 ", ": 不能删除\n",
        "  以前期间已有业务, 2007年第12期: 物料 01.01.0001, 累计计提 3.5, 本期计提 0\n",
        "  以前期间已有业务, 2008年第2期: 物料 01.01.0001, 累计计提 0, 本期计提 -1\n",
        "  本期已生成跌价准备凭证, 2008年第3期: 凭证 记-17, 内码 900, 2008-03-28, 计提\n",
        "  本期已有跌价准备, 2008年第3期: 物料 01.01.0001, 累计计提 7, 本期计提 8\n"}) {
    EXPECT_NE(out_.str().find(reason), std::string::npos) << reason << "\n" << out_.str();
  }
  for (const char* other : {"2008年第4期", "2006年"}) {
    EXPECT_EQ(out_.str().find(other), std::string::npos) << out_.str();
  }
  EXPECT_TRUE(folder_.Read("公司.db") == before);
}

TEST_F(Commands, ExplainGivesAllReasonsOfACodeWithAnApostrophe) {
  CreateCompany();
  OpenConnection(Company())->Execute(
      u"UPDATE t_ICItem SET FNumber='a''b' WHERE FItemID=1 "
      u"UPDATE icPriceDownClass SET FItemClassNumber='c''d' WHERE FItemClassNumber='00001' "
      u"INSERT INTO ICPriceDownPrepare(FItemID,FYear,FPeriod,FHaveAdd,FCurrentAdd)"
      u"VALUES(1,2007,12,3.5,0)");
  for (const char* code : {"a'b", "c'd"}) {
    EXPECT_EQ(Run({"explain", Company(), code}), kDone) << err_.str();
    for (const char* reason : {"  代码含单引号,命令的语句会出错\n",
                               "  以前期间已有业务, 2007年第12期: 物料 a'b, 累计计提 3.5"}) {
      EXPECT_NE(out_.str().find(reason), std::string::npos) << reason << "\n" << out_.str();
    }
  }
}

TEST_F(Commands, BackupCopiesACompanyThatIsInUse) {
  CreateCompany();
  const std::string copy = folder_.PathOf("副本.db");
  const auto user = OpenConnection(Company());
  user->Execute(u"UPDATE t_ICItem SET FName='已提交' WHERE FItemID=1");
  EXPECT_EQ(Run({"backup", Company(), copy}), kDone) << err_.str();
  EXPECT_EQ(out_.str(), "已备份到 " + copy + ",副本检查无误\n");
  EXPECT_EQ(OpenConnection(copy)
                ->Execute(u"SELECT FItemID FROM t_ICItem WHERE FName='已提交'")
                .RowCount(),
            1U);
  EXPECT_EQ(Run({"backup", Company(), copy}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 文件已存在: " + copy + "\n");
  EXPECT_EQ(Run({"backup", folder_.PathOf("无.db"), copy + "2"}), kFailed);
  folder_.Write("坏.db", std::string(5000, 'x'));
  EXPECT_EQ(Run({"backup", folder_.PathOf("坏.db"), copy + "2"}), kFailed);
  EXPECT_EQ(folder_.Names().count("副本.db2"), 0U);
}

TEST_F(Commands, NewFilesAreRefusedBesideTheLogOfADeletedCompany) {
  CreateCompany();
  const std::string copy = folder_.PathOf("副本.db");
  {
    const auto user = OpenConnection(Company());
    user->Execute(u"UPDATE t_systemprofile SET FValue='旧'");
    std::filesystem::copy(PathFromUtf8(Company() + "-wal"), PathFromUtf8(copy + "-wal"));
  }
  EXPECT_EQ(Run({"backup", Company(), copy}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 旧日志仍在: " + copy + "-wal\n");
  EXPECT_EQ(Run({"create", copy}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 旧日志仍在(使用 --force 覆盖): " + copy + "-wal\n");
  EXPECT_EQ(Run({"create", copy, "--force"}), kDone) << err_.str();
  EXPECT_EQ(Run({"info", copy}), kDone) << err_.str();
  EXPECT_NE(out_.str().find("当前期间: 2008年第3期\n"), std::string::npos) << out_.str();
}

// In both modes of a file: that of programs that share it, and that of a program that loads data.
TEST_F(Commands, BackupCopiesOneStateWhileAnotherConnectionWrites) {
  ASSERT_EQ(Run({"create", Company()}), kDone);
  int copies = 0;
  for (const OpenMode mode : {OpenMode::ReadWrite, OpenMode::Shared}) {
    std::atomic<int> written = 0;
    std::string failure;  // the writer's; read once it has ended
    std::atomic<bool> hasFailed = false;
    std::jthread writer([&](const std::stop_token& stop) {
      try {
        ConnectOptions options;
        options.mode = mode;
        const auto company = OpenConnection(Company(), options);
        while (!stop.stop_requested()) {
          const std::u16string name = u"'" + Utf16FromUtf8(std::to_string(++written)) + u"'";
          company->Execute(u"UPDATE t_ICItem SET FName=" + name + u" WHERE FItemID<=1600 " +
                           u"UPDATE t_ICItem SET FName=" + name + u" WHERE FItemID>1600");
          std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
      } catch (const DatabaseError& error) {
        failure = error.what();
        hasFailed = true;
      }
    });
    for (int i = 0; i < 10; ++i) {
      const int before = written;
      while (written < before + 3 && !hasFailed) std::this_thread::yield();
      const std::string copy = folder_.PathOf("副本" + std::to_string(++copies) + ".db");
      EXPECT_EQ(Run({"backup", Company(), copy}), kDone) << err_.str();
      const ResultSet names = OpenConnection(copy)->Execute(u"SELECT FName FROM t_ICItem");
      std::set<std::u16string_view> different;
      for (std::size_t row = 0; row < names.RowCount(); ++row) {
        different.insert(names.At(row, 0).Text());
      }
      EXPECT_EQ(names.RowCount(), 3200U);
      EXPECT_EQ(different.size(), 1U);
    }
    writer.request_stop();
    writer.join();
    EXPECT_EQ(failure, "");
  }
}

TEST_F(Commands, AConnectionStringNeverBecomesAFile) {
  for (const char* location : {"Driver=NoSuchDriver;PWD=Geheim-1", " pwd = Geheim-1 ; uid = a"}) {
    EXPECT_EQ(Run({"create", location}), kFailed);
    EXPECT_EQ(err_.str().find("Geheim-1"), std::string::npos) << err_.str();
    EXPECT_FALSE(std::filesystem::exists(location));
  }
  CreateCompany();
  const std::string location = "Driver=X;PWD=Geheim-1";
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"backup", Company(), location},
        {"export", Company(), "--items", location},
        {"export", Company(), "--accounts", location}}) {
    EXPECT_EQ(Run(words), kFailed) << words.front();
    EXPECT_EQ(err_.str(), "workbench: 这里需要文件名,不能用连接串\n");
    EXPECT_FALSE(std::filesystem::remove(location)) << words.front();
  }
}

TEST_F(Commands, APlainSqliteReadsACompanyAsTheGuideSays) {
  CreateCompany();
  sqlite3* plain = nullptr;
  ASSERT_EQ(sqlite3_open(Company().c_str(), &plain), SQLITE_OK);
  const auto runs = [plain](const char* sql) {
    return sqlite3_exec(plain, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
  };
  EXPECT_FALSE(runs("SELECT FName FROM t_ICItem WHERE FNumber='01.01.0001'"));
  EXPECT_TRUE(runs("SELECT FName FROM t_ICItem WHERE FNumber='01.01.0001' COLLATE NOCASE"));
  EXPECT_TRUE(runs("SELECT FName FROM t_ICItem ORDER BY FNumber COLLATE NOCASE"));
  EXPECT_TRUE(
      runs("SELECT i.FName,c.FItemClassNumber FROM icPriceDownClass c "
           "JOIN t_ICItem i ON i.FItemID=c.FItemID"));
  sqlite3_close(plain);
}

struct BadWords {
  const char* name;
  std::vector<std::string> words;
  std::string complaint;
};

void PrintTo(const BadWords& each, std::ostream* out) { *out << each.name; }

class BadCommandLine : public Commands, public ::testing::WithParamInterface<BadWords> {};

TEST_P(BadCommandLine, IsRefused) {
  EXPECT_EQ(Run(GetParam().words), kBadUsage);
  EXPECT_EQ(err_.str(), "workbench: " + GetParam().complaint + "\n用 workbench --help 查看用法\n");
  EXPECT_EQ(out_.str(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Words, BadCommandLine,
    ::testing::Values(
        BadWords{"Nothing", {}, "缺少命令"},
        BadWords{"UnknownCommand", {"delete", "a"}, "没有这个命令: delete"},
        BadWords{"NoCompany", {"create"}, "缺少公司文件名或连接串"},
        BadWords{"NoCode", {"explain", "a"}, "缺少类别代码或物料代码"},
        BadWords{"NoCopy", {"backup", "a"}, "缺少副本的文件名"},
        BadWords{"TwoFiles", {"info", "a", "b"}, "无法识别的参数: b"},
        BadWords{"ConnectionStringAsCommand",
                 {"Driver=X;Server=db;PWD=Geheim-1"},
                 "没有这个命令: Driver=X;Server=db"},
        BadWords{"TwoConnectionStrings", {"info", "a", "UID=x;PWD={a: b}"}, "无法识别的参数: …"},
        BadWords{"UnknownOption", {"create", "a", "--size"}, "无法识别的参数: --size"},
        BadWords{"OptionOfAnotherCommand", {"info", "a", "--force"}, "无法识别的参数: --force"},
        BadWords{"SeedWithoutValue", {"create", "a", "--seed"}, "--seed 缺少参数值或给得太多"},
        BadWords{"SeedNotANumber",
                 {"create", "a", "--seed", "-1"},
                 "--seed: 必须是 0 到 18446744073709551615 的整数: -1"},
        BadWords{"TooManyItems",
                 {"create", "a", "--items", "1000001", "--classes", "1"},
                 "--items: 必须是 1 到 1000000 的整数: 1000001"},
        BadWords{"NoClasses",
                 {"create", "a", "--items", "10", "--classes", "0"},
                 "--classes: 必须是 1 到 20000 的整数: 0"},
        BadWords{"ItemsWithoutClasses",
                 {"create", "a", "--items", "10"},
                 "--items 和 --classes 必须同时给出"},
        BadWords{"MoreClassesThanItems",
                 {"create", "a", "--items", "10", "--classes", "11"},
                 "--classes 不能大于 --items:每个类别至少有一个物料"},
        BadWords{"ImportOfNothing", {"import", "a"}, "需要 --items 或 --accounts"},
        BadWords{"ExportOfNothing", {"export", "a"}, "需要 --items 或 --accounts"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace workbench::testing
