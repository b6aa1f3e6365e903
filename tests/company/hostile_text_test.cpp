// Malformed and malicious texts: each runs or is refused, and a refused text changes nothing.
#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/company/company_file.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

const char* const kStatements[] = {
    "Select FValue From t_systemprofile where Fkey like 'PriceDownPrepare'",
    "Select FValue From t_UserSetting Where FUserID=1 And FCategory='ZEP_APFC' And FKey ='a''b'",
    "Select t1.FitemClassNumber,t1.FitemClassName \r\n FROM icPriceDownClass t1 order by "
    "t1.FitemClassNumber asc",
    "SELECT isnull(t1.FNumber,'') as FNumber,t1.FName,t2.Fitemid,t2.FPencentPrepare FROM t_ICItem "
    "t1,icPriceDownClass t2 Where t1.Fitemid=t2.Fitemid and t1.FErpClsID not in(6,8)  and "
    "t2.FItemClassNumber='01' Order by t1.FNumber asc",
    "select top 1 FVoucherID from t_voucher where FYear='2008'and FPeriod='3'and FTranType=820 and "
    "FInternalInd='Industry'\r\n",
    "select top 1 a.FItemID from ICPriceDownPrepare a \r\ninner join t_ICItem b on "
    "a.FItemID=b.FItemID \r\nwhere ((a.FYear='2008' and a.FPeriod<'3') \r\nor (a.FYear<'2008')) "
    "and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FNumber='01'\r\n",
    "delete  a from ICPriceDownPrepare a \r\ninner join t_ICItem b on a.FItemID=b.FItemID "
    "\r\nwhere "
    "(a.FYear='2008' and a.FPeriod='3') \r\nand b.FNumber='01'\r\n",
    "delete from icPriceDownClass where  FItemClassNumber='01' INSERT INTO icPriceDownClass("
    "FItemID,FItemClassNumber,FItemClassName,FPencentPrepare)VALUES\r\n( "
    "12,'01','原料',\r\n12.5)\r\n",
    "SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>'01' union all select 1",
    "update t_ICItem set FName=isnull(FName,'x')+'y' where FNumber between '1' and '2'",
    "select count(*) from t_ICItem x2 where not (x2.FName like '%[a-c]_' or exists(select 1 from "
    "t_account where FNumber is not null))",
};

class HostileText : public ::testing::Test {
 protected:
  HostileText() {
    company_.Execute("insert into t_user(FUserID,FName) values(1,'a')");
    for (const char* item : {"11", "12"}) {
      company_.Execute(std::string("insert into icPriceDownClass(FItemID,FItemClassNumber,"
                                   "FItemClassName) values(") +
                       item + ",'01','x')" +
                       "insert into t_ICItem(FItemID,FNumber,FName,FErpClsID) values(" + item +
                       ",'0" + item + "','x',1)");
    }
  }

  std::string Everything() {
    return company_.Rows("select * from icPriceDownClass") +
           company_.Rows("select * from t_ICItem") +
           company_.Rows("select * from ICPriceDownPrepare") +
           company_.Rows("select * from t_user");
  }

  // True if it ran.
  bool Runs(std::u16string_view text) {
    try {
      company_.Connection().Execute(text);
      return true;
    } catch (const DatabaseError&) {
      return false;
    }
  }

  testing::OpenCompany company_;
};

TEST_F(HostileText, StartsFromStatementsThatRun) {
  for (const char* statement : kStatements) {
    EXPECT_EQ(company_.Refusal(statement), "") << statement;
  }
}

TEST_F(HostileText, ChangesNothingMoreWhenTheTextEndsInTheMiddle) {
  // If the text ran before it was read to its end, the leading delete would show.
  const std::string before = Everything();
  int refused = 0;
  for (const char* statement : kStatements) {
    const std::u16string whole = Utf16FromUtf8(statement);
    for (std::size_t length = 0; length < whole.size(); ++length) {
      const std::u16string text =
          u"delete from t_user " + whole.substr(0, length) + u" where where";
      ASSERT_FALSE(Runs(text)) << Utf8FromUtf16(text);
      ++refused;
    }
  }
  EXPECT_GT(refused, 1000);
  EXPECT_EQ(Everything(), before);
}

TEST_F(HostileText, EveryStartOfAStatementRunsOrIsRefused) {
  int refused = 0;
  for (const char* statement : kStatements) {
    const std::u16string whole = Utf16FromUtf8(statement);
    for (std::size_t length = 0; length < whole.size(); ++length) {
      if (!Runs(std::u16string_view(whole).substr(0, length))) ++refused;
    }
  }
  EXPECT_GT(refused, 800);
}

TEST_F(HostileText, AnApostropheAnywhereRunsOrChangesNothing) {
  for (const char* statement : kStatements) {
    const std::u16string whole = Utf16FromUtf8(statement);
    for (std::size_t place = 0; place <= whole.size(); ++place) {
      std::u16string text = whole;
      text.insert(place, 1, u'\'');
      const std::string before = Everything();
      if (!Runs(u"delete from t_user " + text)) {
        ASSERT_EQ(Everything(), before) << Utf8FromUtf16(text);
      }
    }
  }
  EXPECT_EQ(company_.Rows("select FUserID from t_user"), "1\n");
}

TEST_F(HostileText, ShuffledPiecesRunOrAreRefused) {
  const std::vector<std::u16string> pieces = {u"select ",
                                              u"top 1 ",
                                              u"FNumber",
                                              u" from ",
                                              u"t_ICItem",
                                              u" a ",
                                              u",",
                                              u"(",
                                              u")",
                                              u"'",
                                              u"''",
                                              u"N'x'",
                                              u" and ",
                                              u" or ",
                                              u" not ",
                                              u" in",
                                              u" like ",
                                              u"'%'",
                                              u"=",
                                              u"<>",
                                              u"1",
                                              u"-",
                                              u"+",
                                              u".5",
                                              u"1e9",
                                              u" where ",
                                              u" order by ",
                                              u"isnull(",
                                              u"count(*)",
                                              u"[",
                                              u"]",
                                              u"[a]",
                                              u"a.",
                                              u"*",
                                              u" union ",
                                              u"delete ",
                                              u"insert ",
                                              u" values",
                                              u"update ",
                                              u" set ",
                                              u";",
                                              u"\r\n",
                                              u"\xD800",
                                              u"\xDC00",
                                              u"\xFF07",
                                              u"\x3000",
                                              u"--",
                                              u"/*",
                                              u"\"",
                                              u" is null",
                                              u" between ",
                                              u" exists",
                                              u" inner join ",
                                              u" on ",
                                              u"NULL",
                                              u"\x01",
                                              std::u16string(1, u'\0'),
                                              u"t_account",
                                              u"FItemID",
                                              u"原料",
                                              u" as ",
                                              u" distinct "};
  std::mt19937 random(20080301);
  std::uniform_int_distribution<std::size_t> piece(0, pieces.size() - 1);
  std::uniform_int_distribution<int> count(1, 24);
  int refused = 0;
  for (int i = 0; i < 20000; ++i) {
    std::u16string text;
    for (int left = count(random); left > 0; --left) text += pieces[piece(random)];
    if (!Runs(text)) ++refused;
  }
  EXPECT_GT(refused, 10000);
  EXPECT_EQ(company_.Rows("select 1 as a"), "1\n");
}

TEST_F(HostileText, DamagedStatementsRunOrAreRefused) {
  std::mt19937 random(820);
  int refused = 0;
  for (int i = 0; i < 20000; ++i) {
    std::u16string text =
        Utf16FromUtf8(kStatements[static_cast<std::size_t>(i) % std::size(kStatements)]);
    for (int damage = 0; damage < 2; ++damage) {
      const std::size_t place = random() % text.size();
      switch (random() % 4) {
        case 0:
          text[place] = static_cast<char16_t>(random() % 0x80);
          break;
        case 1:
          text[place] = static_cast<char16_t>(random());
          break;
        case 2:
          text.erase(place, 1);
          break;
        default:
          text.insert(place, text.substr(random() % text.size(), random() % 8));
      }
    }
    if (!Runs(text)) ++refused;
  }
  EXPECT_GT(refused, 10000);
  EXPECT_EQ(company_.Rows("select 1 as a"), "1\n");
}

TEST_F(HostileText, LongTextsAreReadInLinearTime) {
  // All of it takes a second; quadratic reading would take hours.
  const auto started = std::chrono::steady_clock::now();
  const auto repeated = [](std::u16string_view piece, std::size_t count) {
    std::u16string text;
    text.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i) text += piece;
    return text;
  };
  EXPECT_FALSE(Runs(repeated(u"'", 300001)));
  EXPECT_FALSE(Runs(repeated(u"[", 300000)));
  EXPECT_FALSE(Runs(repeated(u"(", 300000)));
  EXPECT_FALSE(Runs(repeated(u"select ", 100000)));
  EXPECT_FALSE(Runs(u"select " + repeated(u"1,", 200000)));
  EXPECT_FALSE(Runs(u"select 1 from t_user where 1=1" + repeated(u" or 1=1", 100000)));
  EXPECT_TRUE(
      Runs(u"select FUserID from t_user where FUserID in(1" + repeated(u",1", 200000) + u")"));
  EXPECT_TRUE(Runs(u"select FUserID from t_user where FName='" + repeated(u"''", 300000) + u"'"));
  EXPECT_TRUE(
      Runs(u"select FUserID from t_user where FName like '" + repeated(u"%a", 20000) + u"'"));
  EXPECT_TRUE(Runs(repeated(u";", 300000)));
  EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::minutes(2));
}

}  // namespace
}  // namespace workbench
