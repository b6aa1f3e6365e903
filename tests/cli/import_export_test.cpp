// `import` and `export`: what they read and write, and what they refuse.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/cli/run_commands.h"
#include "workbench/company/connection.h"

namespace workbench::testing {
namespace {

TEST_F(Commands, ImportAddsItemsAndAccounts) {
  CreateCompany();
  folder_.Write("物料.csv", "物料代码,物料名称\r\n90.1,端盖\r\n");
  folder_.Write("科目.csv", "科目代码,科目名称\n7001,甲\n7001.01,乙\n");
  EXPECT_EQ(Run({"import", Company(), "--items", folder_.PathOf("物料.csv"), "--accounts",
                 folder_.PathOf("科目.csv")}),
            kDone);
  EXPECT_EQ(out_.str(), "已导入物料 1 个,科目 2 个\n");
  EXPECT_EQ(Run({"info", Company()}), kDone);
  EXPECT_NE(out_.str().find("物料: 6\n科目: 187\n"), std::string::npos) << out_.str();
}

TEST_F(Commands, ExportedFilesBeginWithTheByteOrderMark) {
  CreateCompany();
  EXPECT_EQ(Run({"export", Company(), "--items", folder_.PathOf("物料.csv"), "--accounts",
                 folder_.PathOf("科目.csv")}),
            kDone);
  EXPECT_EQ(folder_.Read("物料.csv").substr(0, 15), "\xEF\xBB\xBF物料代码");
  EXPECT_EQ(folder_.Read("科目.csv").substr(0, 15), "\xEF\xBB\xBF科目代码");
}

TEST_F(Commands, ImportReportsEveryBadLineAndAddsNothing) {
  CreateCompany();
  const std::string before = folder_.Read("公司.db");
  const std::string csv = folder_.PathOf("物料.csv");
  folder_.Write("物料.csv", "物料代码,物料名称\n90.1,端盖\n,箱体\n90.1,轴\n");
  EXPECT_EQ(Run({"import", Company(), "--items", csv}), kBadData);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(err_.str(), csv + ":3: 物料代码不能为空\n" + csv +
                            ":4: 物料代码与第 2 行重复:90.1\n共 2 处不合格,没有导入任何数据\n");
  EXPECT_TRUE(folder_.Read("公司.db") == before);
}

TEST_F(Commands, FilesThatCannotBeUsedFail) {
  EXPECT_EQ(Run({"info", Company()}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 文件不存在: " + Company() + "\n");
  EXPECT_EQ(folder_.Names(), std::set<std::string>()) << "asking makes no file";

  folder_.Write("公司.db", std::string(5000, 'x'));
  EXPECT_EQ(Run({"info", Company()}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 不是公司文件\n");

  ASSERT_EQ(Run({"create", Company(), "--force"}), kDone);
  EXPECT_EQ(Run({"import", Company(), "--items", folder_.PathOf("无.csv")}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 无法打开文件: " + folder_.PathOf("无.csv") + "\n");
  EXPECT_EQ(Run({"import", Company(), "--items", folder_.PathOf("")}), kFailed);
  EXPECT_NE(err_.str().find("是文件夹而不是文件"), std::string::npos) << err_.str();
}

TEST_F(Commands, ImportSaysThatAFileHoldsAHeaderOnly) {
  CreateCompany();
  const std::string csv = folder_.PathOf("物料.csv");
  folder_.Write("物料.csv", "物料代码,物料名称\n\n,\n");
  EXPECT_EQ(Run({"import", Company(), "--items", csv}), kDone);
  EXPECT_EQ(out_.str(), csv + ": 只有标题行,没有数据\n已导入物料 0 个,科目 0 个\n");
}

TEST_F(Commands, ImportNamesANulByte) {
  CreateCompany();
  const std::string csv = folder_.PathOf("物料.csv");
  for (const std::string& text :
       {std::string(1, '\0'), std::string("物料代码,物料名称\n90.1,a\0b\n", 35)}) {
    folder_.Write("物料.csv", text);
    EXPECT_EQ(Run({"import", Company(), "--items", csv}), kBadData);
    EXPECT_NE(err_.str().find("文件含有空字符,不是文本文件"), std::string::npos) << err_.str();
  }
}

TEST_F(Commands, ExportWritesWhatImportReads) {
  ASSERT_EQ(Run({"create", Company()}), kDone);
  const std::string items = folder_.PathOf("物料.csv");
  const std::string accounts = folder_.PathOf("科目.csv");
  ASSERT_EQ(Run({"export", Company(), "--items", items, "--accounts", accounts}), kDone)
      << err_.str();
  EXPECT_EQ(out_.str(), "已写入 " + items + "\n已写入 " + accounts + "\n");
  const std::string itemsBefore = folder_.Read("物料.csv");
  const std::string accountsBefore = folder_.Read("科目.csv");
  EXPECT_EQ(Run({"export", Company(), "--items", items}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 文件已存在: " + items + "\n");

  {
    const auto company = OpenConnection(Company());
    company->Execute(u"DELETE FROM t_ICItem DELETE FROM t_account");
  }
  ASSERT_EQ(Run({"import", Company(), "--items", items, "--accounts", accounts}), kDone)
      << err_.str();
  EXPECT_EQ(out_.str(), "已导入物料 3200 个,科目 185 个\n");
  ASSERT_EQ(Run({"export", Company(), "--items", items + "2", "--accounts", accounts + "2"}),
            kDone);
  EXPECT_TRUE(folder_.Read("物料.csv2") == itemsBefore);
  EXPECT_TRUE(folder_.Read("科目.csv2") == accountsBefore);
}

TEST_F(Commands, ExportKeepsTheColumnsOfAnItemWithoutACode) {
  ASSERT_EQ(Run({"create", Company(), "--items", "1", "--classes", "1"}), kDone);
  OpenConnection(Company())->Execute(
      u"UPDATE t_ICItem SET FNumber=NULL,FName='端,盖',FModel=NULL,FShortNumber='s',"
      u"FErpClsID=1,FUnitName=NULL,FPlanPrice=2.5,FSalePrice=NULL");
  const std::string csv = folder_.PathOf("物料.csv");
  EXPECT_EQ(Run({"export", Company(), "--items", csv}), kBadData);
  EXPECT_EQ(out_.str(), "已写入 " + csv + "\n");
  EXPECT_EQ(err_.str(), csv + ":2: 物料代码不能为空\n共 1 处不能原样导入\n");
  EXPECT_NE(folder_.Read("物料.csv").find("\r\n,\"端,盖\",,s,1,,2.5,\r\n"), std::string::npos)
      << folder_.Read("物料.csv");
}

TEST_F(Commands, AnExportThatFailsLeavesNoFile) {
  CreateCompany();
  EXPECT_EQ(Run({"export", Company(), "--items", folder_.PathOf("无/物料.csv")}), kFailed);
  EXPECT_EQ(err_.str(), "workbench: 无法写入文件 " + folder_.PathOf("无/物料.csv") + "\n");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"公司.db"});
}

TEST_F(Commands, AnExportWhoseSecondFileFailsLeavesNeither) {
  CreateCompany();
  const std::string items = folder_.PathOf("物料.csv");
  // One name for both: the second file fails when the first has its name.
  for (const std::string& accounts : {folder_.PathOf("无/科目.csv"), items}) {
    EXPECT_EQ(Run({"export", Company(), "--items", items, "--accounts", accounts}), kFailed);
    EXPECT_NE(err_.str().find(accounts), std::string::npos) << err_.str();
    EXPECT_EQ(out_.str(), "");
    EXPECT_EQ(folder_.Names(), std::set<std::string>{"公司.db"});
  }
}

}  // namespace
}  // namespace workbench::testing
