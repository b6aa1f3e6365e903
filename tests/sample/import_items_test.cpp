// Items from CSV: what a good file adds, and the message for each bad line.
#include <gtest/gtest.h>

#include "tests/sample/test_company.h"
#include "workbench/sample/csv_import.h"

namespace workbench::testing {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kHeader =
    "物料代码,物料名称,规格型号,短代码,物料属性,计量单位,计划单价,销售单价\n";

class ImportingItems : public ::testing::Test {
 protected:
  ImportResult Import(const std::string& text) {
    return testing::Import(company_, CsvFile{"物料.csv", text}, std::nullopt);
  }

  Texts Problems(const std::string& text) {
    Texts problems;
    for (const ImportProblem& problem : Import(text).problems) problems.push_back(ToText(problem));
    return problems;
  }

  Texts Added() {
    return Rows(company_,
                "SELECT FItemID,FNumber,FName,FModel,FShortNumber,FErpClsID,FUnitName,FPlanPrice,"
                "FSalePrice FROM t_ICItem WHERE FItemID>5 ORDER BY FItemID");
  }

  Database company_ = TinyCompany();
};

TEST_F(ImportingItems, AddsEveryLineWithNewIds) {
  const ImportResult result =
      Import(std::string(kHeader) + "90.0001,轴承座,ZC-1,ZC1,2,件,12.5,20\n90.0002,端盖,,,,,,\n");
  EXPECT_TRUE(result.problems.empty());
  EXPECT_EQ(result.items, 2);
  EXPECT_EQ(result.accounts, 0);
  EXPECT_EQ(Added(), (Texts{"6|90.0001|轴承座|ZC-1|ZC1|2|件|12.5|20.0",
                            "7|90.0002|端盖|NULL|NULL|1||NULL|NULL"}));
}

TEST_F(ImportingItems, KnowsColumnsByEnglishNamesInAnyOrderAndCase) {
  EXPECT_EQ(Import("Name,CODE,Short Number\n端盖,90.1,DG\n").items, 1);
  EXPECT_EQ(Import("FName,FNumber,FErpClsID\n箱体,90.2,3\n").items, 1);
  EXPECT_EQ(Added(),
            (Texts{"6|90.1|端盖|NULL|DG|1||NULL|NULL", "7|90.2|箱体|NULL|NULL|3||NULL|NULL"}));
}

TEST_F(ImportingItems, AcceptsByteOrderMarkWindowsLineEndsAndQuotes) {
  EXPECT_EQ(Import("\xEF\xBB\xBF\"物料代码\",物料名称,规格型号\r\n"
                   "90.1,\"端盖,\"\"大\"\"\",\"第一行\r\n第二行\"\r\n")
                .items,
            1);
  EXPECT_EQ(Added(), (Texts{"6|90.1|端盖,\"大\"|第一行\r\n第二行|NULL|1||NULL|NULL"}));
}

TEST_F(ImportingItems, TrimsCodesAndNumbersButNotNames) {
  EXPECT_EQ(Import("代码,名称,属性,计划单价\n 90.1 , 端盖 ,\t3 , 1.50 \n").items, 1);
  EXPECT_EQ(Added(), (Texts{"6|90.1| 端盖 |NULL|NULL|3||1.5|NULL"}));
}

TEST_F(ImportingItems, SkipsBlankLinesAndLinesOfCommas) {
  EXPECT_EQ(Import("代码,名称\n\n90.1,端盖\n,\n \n").items, 1);
}

TEST_F(ImportingItems, AHeaderAloneAddsNothing) {
  const ImportResult result = Import(kHeader);
  EXPECT_TRUE(result.problems.empty());
  EXPECT_EQ(result.items, 0);
}

struct BadItem {
  const char* name;
  std::string line;
  std::string reason;
};

void PrintTo(const BadItem& each, std::ostream* out) { *out << each.name; }

class BadItemLine : public ImportingItems, public ::testing::WithParamInterface<BadItem> {};

TEST_P(BadItemLine, IsReportedWithFileAndLine) {
  EXPECT_EQ(Problems(std::string(kHeader) + "90.1,端盖,,,,,,\n" + GetParam().line + "\n"),
            (Texts{"物料.csv:3: " + GetParam().reason}));
  EXPECT_EQ(Added(), Texts());
}

std::string Repeated(const std::string& text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BadItemLine,
    ::testing::Values(
        BadItem{"MissingCode", ",箱体,,,,,,", "物料代码不能为空"},
        BadItem{"BlankCode", "  ,箱体,,,,,,", "物料代码不能为空"},
        BadItem{"MissingName", "90.2,,,,,,,", "物料名称不能为空"},
        BadItem{"BlankName", "90.2, ,,,,,,", "物料名称不能为空"},
        BadItem{"CodeTwiceInTheFile", "90.1,箱体,,,,,,", "物料代码与第 2 行重复:90.1"},
        BadItem{"CodeOfTheCompany", "01.01.0003,箱体,,,,,,", "物料代码已在公司中存在:01.01.0003"},
        BadItem{"ApostropheInCode", "90'2,箱体,,,,,,", "物料代码不能含有单引号:\"90'2\""},
        BadItem{"ApostropheInShortCode", "90.2,箱体,,X',,,,", "短代码不能含有单引号:\"X'\""},
        BadItem{"LineBreakInCode", "\"90\n2\",箱体,,,,,,", "物料代码含有换行或控制字符"},
        BadItem{"ControlCharacterInName", "90.2,箱\x01体,,,,,,", "物料名称含有控制字符"},
        BadItem{"LongCode", Repeated("9", 81) + ",箱体,,,,,,", "物料代码太长:81 个字符,最多 80 个"},
        BadItem{"LongName", "90.2," + Repeated("箱", 81) + ",,,,,,",
                "物料名称太长:81 个字符,最多 80 个"},
        BadItem{"LongModel", "90.2,箱体," + Repeated("型", 256) + ",,,,,",
                "规格型号太长:256 个字符,最多 255 个"},
        BadItem{"LongShortCode", "90.2,箱体,," + Repeated("s", 81) + ",,,,",
                "短代码太长:81 个字符,最多 80 个"},
        BadItem{"LongUnit", "90.2,箱体,,,," + Repeated("u", 81) + ",,",
                "计量单位太长:81 个字符,最多 80 个"},
        BadItem{"CharactersBeyondTheBasicPlaneCountTwice",
                "90.2," + Repeated("\xF0\xA0\x80\x80", 41) + ",,,,,,",
                "物料名称太长:82 个字符,最多 80 个"},
        BadItem{"CategoryNotANumber", "90.2,箱体,,,外购,,,",
                "物料属性必须是 1 到 9 的整数:\"外购\""},
        BadItem{"CategoryZero", "90.2,箱体,,,0,,,", "物料属性必须是 1 到 9 的整数:\"0\""},
        BadItem{"CategoryTen", "90.2,箱体,,,10,,,", "物料属性必须是 1 到 9 的整数:\"10\""},
        BadItem{"CategoryFraction", "90.2,箱体,,,1.5,,,", "物料属性必须是 1 到 9 的整数:\"1.5\""},
        BadItem{"PriceNotANumber", "90.2,箱体,,,,,abc,", "计划单价不是数字:\"abc\""},
        BadItem{"PriceWithThousands", "90.2,箱体,,,,,,\"1,000\"", "销售单价不是数字:\"1,000\""},
        BadItem{"PriceWithExponent", "90.2,箱体,,,,,,1e3", "销售单价不是数字:\"1e3\""},
        BadItem{"NegativePrice", "90.2,箱体,,,,,-1,", "计划单价不能为负数:\"-1\""},
        BadItem{"PriceTooHigh", "90.2,箱体,,,,,100000000000,",
                "计划单价超过 99999999999.99:\"100000000000\""},
        BadItem{"TooFewFields", "90.2,箱体", "应有 8 个字段,实有 2 个"},
        BadItem{"TooManyFields", "90.2,箱体,,,,,,,", "应有 8 个字段,实有 9 个"},
        BadItem{"StrayQuote", "90.2,箱\"体,,,,,,", "引号只能出现在用引号括起的字段中"},
        BadItem{"UnclosedQuote", "90.2,\"箱体,,,,,,", "引号没有结束"}),
    [](const auto& each) { return each.param.name; });

TEST_F(ImportingItems, DuplicatesAreFoundTheWayTheCompanyCompares) {
  EXPECT_EQ(Problems("代码,名称\nab.1,甲\nAB.1,乙\n"),
            (Texts{"物料.csv:3: 物料代码与第 2 行重复:AB.1"}));
}

TEST_F(ImportingItems, ALineWithAnotherFaultStillClaimsItsCode) {
  EXPECT_EQ(Problems("代码,名称\n90.1,\n90.1,乙\n"),
            (Texts{"物料.csv:2: 物料名称不能为空", "物料.csv:3: 物料代码与第 2 行重复:90.1"}));
}

TEST_F(ImportingItems, ReportsEveryBadLineAndEveryFaultOfALine) {
  EXPECT_EQ(Problems("代码,名称,属性\n,甲,x\n90.1,乙,1\n90.2,,1\n90.1,丙,1\n"),
            (Texts{"物料.csv:2: 物料代码不能为空", "物料.csv:2: 物料属性必须是 1 到 9 的整数:\"x\"",
                   "物料.csv:4: 物料名称不能为空", "物料.csv:5: 物料代码与第 3 行重复:90.1"}));
}

TEST_F(ImportingItems, CountsLinesThroughEmbeddedLineBreaks) {
  EXPECT_EQ(Problems("代码,名称\r\n90.1,\"甲\r\n乙\r\n丙\"\r\n,丁\r\n"),
            (Texts{"物料.csv:5: 物料代码不能为空"}));
}

TEST_F(ImportingItems, LimitsAreInclusive) {
  const std::string line = Repeated("9", 80) + "," + Repeated("名", 80) + "," +
                           Repeated("型", 255) + ",,9,,99999999999.99,0\n";
  EXPECT_EQ(Problems(kHeader + line), Texts());
}

struct BadFile {
  const char* name;
  std::string text;
  Texts reasons;
};

void PrintTo(const BadFile& each, std::ostream* out) { *out << each.name; }

class BadItemFile : public ImportingItems, public ::testing::WithParamInterface<BadFile> {};

TEST_P(BadItemFile, IsRefused) {
  EXPECT_EQ(Problems(GetParam().text), GetParam().reasons);
  EXPECT_EQ(Added(), Texts());
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadItemFile,
    ::testing::Values(
        BadFile{"Empty", "", {"物料.csv:1: 文件为空,缺少标题行"}},
        BadFile{"OnlyAByteOrderMark", "\xEF\xBB\xBF", {"物料.csv:1: 文件为空,缺少标题行"}},
        BadFile{"NoCodeColumn", "物料名称\n端盖\n", {"物料.csv:1: 缺少列:物料代码"}},
        BadFile{"NoNameColumn", "\n物料代码\n90.1\n", {"物料.csv:2: 缺少列:物料名称"}},
        BadFile{"UnknownColumn", "代码,名称,颜色\n", {"物料.csv:1: 无法识别的列名:颜色"}},
        BadFile{"UnnamedColumn", "代码,名称,\n", {"物料.csv:1: 无法识别的列名:(空)"}},
        BadFile{"ColumnTwice", "代码,名称,物料代码\n", {"物料.csv:1: 列重复:物料代码"}},
        BadFile{"BrokenHeader", "代码,\"名称\n", {"物料.csv:1: 引号没有结束"}},
        // "物料代码,名称" and a second line in GB18030.
        BadFile{"Gb18030",
                "code,name\n90.1,\xB6\xCB\xB8\xC7\n",
                {"物料.csv:2: 文件编码不是 UTF-8(可能是 GB18030/GBK),请另存为 UTF-8 后再导入"}},
        BadFile{"Utf16",
                std::string("\xFF\xFEn\0a\0", 6),
                {"物料.csv:1: 文件编码是 UTF-16,请另存为 UTF-8 后再导入"}},
        BadFile{"OverlongForm",
                "code,name\r\n\r\n90.1,\xC0\xAF\r\n",
                {"物料.csv:3: 文件编码不是 UTF-8(可能是 GB18030/GBK),请另存为 UTF-8 后再导入"}},
        BadFile{"LoneSurrogate",
                "code,name\n90.1,\xED\xA0\x80\n",
                {"物料.csv:2: 文件编码不是 UTF-8(可能是 GB18030/GBK),请另存为 UTF-8 后再导入"}},
        BadFile{"NulCharacter",
                std::string("code,name\n9\0,x\n", 14),
                {"物料.csv:2: 文件含有空字符,不是文本文件"}}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace workbench::testing
