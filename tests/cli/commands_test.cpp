// The program's commands, from arguments to exit code.
#include "workbench/cli/commands.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/sample/temporary_folder.h"

namespace workbench::testing {
namespace {

class Commands : public ::testing::Test {
 protected:
  int Run(const std::vector<std::string>& words) {
    out_.str("");
    err_.str("");
    return RunCommand(words, out_, err_);
  }

  std::string Company() { return folder_.PathOf("公司.db"); }

  void CreateCompany() {
    ASSERT_EQ(Run({"create", Company(), "--items", "5", "--classes", "2"}), 0);
  }

  TemporaryFolder folder_;
  std::ostringstream out_;
  std::ostringstream err_;
};

TEST_F(Commands, HelpNamesEveryCommandAndExitCode) {
  for (const char* word : {"--help", "-h", "help"}) {
    EXPECT_EQ(Run({word}), kDone);
    for (const char* part : {"workbench create", "workbench import", "workbench info", "--seed",
                             "--force", "--accounts", "退出码"}) {
      EXPECT_NE(out_.str().find(part), std::string::npos) << part;
    }
    EXPECT_EQ(err_.str(), "");
  }
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
        BadWords{"NoFile", {"create"}, "缺少公司文件名"},
        BadWords{"TwoFiles", {"info", "a", "b"}, "多余的参数: b"},
        BadWords{"UnknownOption", {"create", "a", "--size"}, "create 没有这个选项: --size"},
        BadWords{"OptionOfAnotherCommand", {"info", "a", "--force"}, "没有这个选项: --force"},
        BadWords{"SeedWithoutValue", {"create", "a", "--seed"}, "--seed 缺少参数值"},
        BadWords{"SeedNotANumber",
                 {"create", "a", "--seed", "-1"},
                 "--seed 必须是 0 到 18446744073709551615 的整数: -1"},
        BadWords{"TooManyItems",
                 {"create", "a", "--items", "1000001", "--classes", "1"},
                 "--items 必须是 1 到 1000000 的整数: 1000001"},
        BadWords{"NoClasses",
                 {"create", "a", "--items", "10", "--classes", "0"},
                 "--classes 必须是 1 到 20000 的整数: 0"},
        BadWords{"ItemsWithoutClasses",
                 {"create", "a", "--items", "10"},
                 "--items 和 --classes 必须同时给出"},
        BadWords{"MoreClassesThanItems",
                 {"create", "a", "--items", "10", "--classes", "11"},
                 "--classes 不能大于 --items:每个类别至少有一个物料"},
        BadWords{"ImportOfNothing", {"import", "a"}, "import 需要 --items 或 --accounts"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace workbench::testing
