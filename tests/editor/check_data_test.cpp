// The nine checks: order, messages, focus, saved flag.
#include "editor/check_data.h"

#include <gmock/gmock.h>

#include "tests/editor/editor_test.h"
#include "tests/support/failed_block.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::HasSubstr;

constexpr std::string_view kDisabled = "disable Save\n";

// A company that accepts every save.
struct CheckWorld : EditorWorld {
  CheckWorld() {
    factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
    AnswerAccountIds();
  }
  // Runs a save; whether its checks passed.
  bool Passes() {
    const auto saves = [this] {
      std::size_t count = 0;
      for (const std::string& line : log.Lines()) {
        if (line.find("Execute(\"delete") != std::string::npos) ++count;
      }
      return count;
    };
    const std::size_t before = saves();
    form.ToolClicked(FormTool::Save);
    return saves() > before;
  }
};

class CheckDataTest : public ::testing::Test, protected CheckWorld {
 protected:
  void OpenValid() {
    AnswerChecks(false, {u"02", u"B1"});
    OpenForEdit();
  }
  // The saved flag as left by an earlier check.
  void MarkSaved() {
    ASSERT_TRUE(Passes());
    log.Clear();
  }
};

TEST_F(CheckDataTest, PassesAndMarksSaved) {
  OpenValid();
  EXPECT_TRUE(Passes());
  EXPECT_TRUE(form.State().saved);
  const std::string text = log.Text();
  EXPECT_EQ(text.substr(0, text.find("create ADODB")), Lines(R"(
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("select FNumber from t_account")
      release result
      ZEPConnection.AppConnection.Execute("select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'01'")
      release result
      release ZEPConnection.AppConnection
      )"));
}

TEST_F(CheckDataTest, RefusesAnEmptyNumberAndLeavesTheSavedFlag) {
  OpenValid();
  MarkSaved();
  view.Type(FormField::ClassNumber, u"");
  log.Clear();
  EXPECT_FALSE(Passes());
  EXPECT_TRUE(form.State().saved);
  EXPECT_EQ(log.Text(), Lines(R"(
      message information "岚禾提示": "请输入数字,物料类别代码不能为空！"
      focus itemClassNumber
      disable Save
      )"));
}

TEST_F(CheckDataTest, AcceptsBlanksAndLettersAsANumber) {
  OpenValid();
  for (const char16_t* number : {u" ", u"abc", u"类别"}) {
    view.Type(FormField::ClassNumber, number);
    EXPECT_TRUE(Passes());
  }
}

TEST_F(CheckDataTest, RefusesAnEmptyName) {
  OpenValid();
  MarkSaved();
  view.Type(FormField::ClassName, u"");
  log.Clear();
  EXPECT_FALSE(Passes());
  EXPECT_FALSE(form.State().saved);
  EXPECT_EQ(log.Text(), Lines(R"(
      message information "岚禾提示": "请输入物料类别名称，物料类别名称不能为为空值"
      focus ItemClassName
      disable Save
      )"));
}

TEST_F(CheckDataTest, AcceptsANameOfBlanksOnly) {
  OpenValid();
  view.Type(FormField::ClassName, u"  ");
  EXPECT_TRUE(Passes());
}

struct PercentageCase {
  const char* name;
  std::u16string_view text;
  const char* message;  // null when it passes
};
void PrintTo(const PercentageCase& given, std::ostream* out) { *out << given.name; }

constexpr const char* kNotNumeric = "请输入数字，跌价比例不能为字符或为空值";
constexpr const char* kOutOfRange = "跌价比例有误,数值应位于0-100之间";
constexpr const char* kTooLong = "跌价比例小数位过长，请保留四位小数";

class Percentages : public ::testing::TestWithParam<PercentageCase> {};

TEST_P(Percentages, AreChecked) {
  CheckWorld world;
  world.AnswerChecks(false);
  world.OpenForEdit();
  ASSERT_TRUE(world.Passes());
  world.view.Type(FormField::Percentage, GetParam().text);
  world.log.Clear();
  const bool passes = world.Passes();
  ASSERT_EQ(passes, GetParam().message == nullptr);
  EXPECT_EQ(world.form.State().saved, passes);
  if (passes) {
    EXPECT_EQ(world.log.Count("focus txtPencent"), 0u);
  } else {
    EXPECT_EQ(world.log.Text(), std::string("message information \"岚禾提示\": \"") +
                                    GetParam().message + "\"\nfocus txtPencent\n" +
                                    std::string(kDisabled));
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, Percentages,
    ::testing::Values(
        PercentageCase{"Zero", u"0", nullptr}, PercentageCase{"Hundred", u"100", nullptr},
        PercentageCase{"HundredInSevenCharacters", u"100.000", nullptr},
        PercentageCase{"Exponent", u"1e2", nullptr},
        PercentageCase{"BetweenBlanks", u" 12 ", nullptr}, PercentageCase{"Signed", u"+5", nullptr},
        PercentageCase{"NoDigitBeforeThePoint", u".5", nullptr},
        PercentageCase{"FourDecimalsBelowTen", u"9.1234", nullptr},
        PercentageCase{"FourDecimalsFromTenUp", u"12.3456", nullptr},
        PercentageCase{"TenInSevenCharacters", u"10.0000", nullptr},
        PercentageCase{"MinusZero", u"-0", nullptr}, PercentageCase{"Empty", u"", kNotNumeric},
        PercentageCase{"Blank", u" ", kNotNumeric}, PercentageCase{"Letters", u"abc", kNotNumeric},
        PercentageCase{"NumberAndLetters", u"12abc", kNotNumeric},
        PercentageCase{"PercentSign", u"12%", kNotNumeric},
        PercentageCase{"TwoPoints", u"1.2.3", kNotNumeric},
        PercentageCase{"CommaForAPoint", u"0,5", kNotNumeric},
        PercentageCase{"FullWidthDigits", u"１２", kNotNumeric},
        PercentageCase{"Thousands", u"1,0", kNotNumeric},
        PercentageCase{"SevenLetters", u"abcdefg", kNotNumeric},
        PercentageCase{"JustBelowZero", u"-0.0001", kOutOfRange},
        PercentageCase{"JustAboveHundred", u"100.001", kOutOfRange},
        PercentageCase{"Large", u"1e9", kOutOfRange},
        PercentageCase{"NegativeInSevenCharacters", u"-1.2345", kOutOfRange},
        PercentageCase{"FiveDecimalsBelowTen", u"9.12345", kTooLong},
        PercentageCase{"TrailingZeros", u"0.10000", kTooLong},
        PercentageCase{"LeadingBlanks", u"  1.234", kTooLong},
        PercentageCase{"ZeroInSevenCharacters", u"0.00000", kTooLong}),
    ::testing::PrintToStringParamName());

TEST_F(CheckDataTest, RefusesAnEmptyListWithoutMovingTheFocusOrAskingTheDatabase) {
  OpenValid();
  MarkSaved();
  form.SetMemberList(Members(RawMaterials(), {}));
  log.Clear();
  EXPECT_FALSE(Passes());
  EXPECT_FALSE(form.State().saved);
  EXPECT_EQ(log.Text(),
            "message information \"岚禾提示\": \"无物料的物料类别没有意义,请添加物料\"\n" +
                std::string(kDisabled));
}

TEST_F(CheckDataTest, RefusesAnUnknownLossAccountFirst) {
  OpenValid();
  MarkSaved();
  view.Type(FormField::LossAccount, u"9999");
  view.Type(FormField::ReserveAccount, u"9998");
  log.Clear();
  EXPECT_FALSE(Passes());
  EXPECT_FALSE(form.State().saved);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("select FNumber from t_account")
      release result
      release ZEPConnection.AppConnection
      message information "岚禾提示": "请输入正确的存货跌价损失科目代码！"
      focus txtitem(0)
      disable Save
      )"));
}

TEST_F(CheckDataTest, RefusesAnUnknownReserveAccount) {
  OpenValid();
  MarkSaved();
  view.Type(FormField::ReserveAccount, u"1281");
  log.Clear();
  EXPECT_FALSE(Passes());
  EXPECT_FALSE(form.State().saved);
  EXPECT_THAT(log.Text(), HasSubstr(Lines(R"(
      message information "岚禾提示": "请输入正确的存货跌价准备科目代码！"
      focus txtitem(1)
      )")));
}

TEST_F(CheckDataTest, ComparesAccountsExactly) {
  OpenValid();
  for (const char16_t* account : {u" 5711", u"5711 ", u"5711.0", u"571", u""}) {
    view.Type(FormField::LossAccount, account);
    log.Clear();
    EXPECT_FALSE(Passes()) << Utf8(account);
    EXPECT_EQ(log.Count("focus txtitem(0)"), 1u);
  }
  // Different spellings of one number are different accounts.
  view.Type(FormField::LossAccount, u"1281.10");
  EXPECT_TRUE(Passes());
}

TEST_F(CheckDataTest, MatchesAnEmptyAccountFieldWithNoAccount) {
  AnswerStatement(factory, u"select FNumber from t_account",
                  Rows({u"FNumber"}, {{Null{}}, {u""}, {u"1281.1"}}));
  OpenForEdit();
  view.Type(FormField::LossAccount, u"");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(log.Count("focus txtitem(0)"), 1u);
}

TEST_F(CheckDataTest, ReadsEveryAccountAlsoAfterBothWereFound) {
  AnswerStatement(factory,
                  u"select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'01'",
                  Rows({u"FItemClassNumber"}, {}));
  const ObjectPtr accounts = NewScriptedRecordset(
      factory.GetRecorder(),
      Rows({u"FNumber"}, {{u"5711"}, {u"1281.1"}, {u"6001"}, {u"6002"}}).WithoutGetRows());
  factory.Object(kConnectionId)
      .On(u"Execute", Arguments({u"select FNumber from t_account"}), Reply(accounts));
  OpenForEdit();
  EXPECT_TRUE(Passes());
  EXPECT_TRUE(Recordset(accounts).AtEnd());
}

TEST_F(CheckDataTest, AcceptsOneAccountForBothFields) {
  OpenValid();
  view.Type(FormField::ReserveAccount, u"5711");
  EXPECT_TRUE(Passes());
}

TEST_F(CheckDataTest, ReadsNumericAccountsAndResultsWithoutGetRows) {
  AnswerStatement(factory, u"select FNumber from t_account",
                  Rows({u"FNumber"}, {{5711.0}, {1281.1}}).WithoutGetRows());
  AnswerStatement(factory,
                  u"select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'01'",
                  Rows({u"FItemClassNumber"}, {}).WithoutGetRows());
  OpenForEdit();
  EXPECT_TRUE(Passes());
}

TEST_F(CheckDataTest, RefusesANumberOfAnotherClassInAnyCaseAndNamesTheStoredOne) {
  AnswerChecks(false, {u"02", u"AB01", u"ab01"});
  OpenForEdit();
  MarkSaved();
  view.Type(FormField::ClassNumber, u"aB01");
  log.Clear();
  EXPECT_FALSE(Passes());
  EXPECT_FALSE(form.State().saved);
  EXPECT_THAT(log.Text(), HasSubstr(Lines(R"(
      message information "岚禾提示": "已经存在代码为:AB01的物料类别,请重新输入物料类别代码！"
      focus itemClassNumber
      )")));
}

TEST_F(CheckDataTest, AsksForAllNumbersWhenAdding) {
  AnswerChecks(true, {u"AB01"});
  OpenForAdd();
  form.SetMemberList(Members(RawMaterials(), BoltAndNut()));
  Type(RawMaterials(), u"12.5");
  EXPECT_TRUE(Passes());
  EXPECT_EQ(log.Count("ZEPConnection.AppConnection.Execute(\"select FItemClassNumber from "
                      "icPriceDownClass\")"),
            1u);
  form.SetMemberList(Members(RawMaterials(), BoltAndNut()));
  Type({u"ab01", u"x", u"5711", u"1281.1", 0}, u"1");
  EXPECT_FALSE(Passes());
  EXPECT_THAT(log.Text(), HasSubstr("已经存在代码为:AB01"));
}

TEST_F(CheckDataTest, ComparesWholeNumbers) {
  AnswerChecks(false, {u"011", u"0", u" 01", u"01 "});
  OpenForEdit();
  EXPECT_TRUE(Passes());
}

TEST_F(CheckDataTest, ReportsOnlyTheFirstOfManyFailures) {
  OpenForAdd();
  Type({}, u"");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(log.Count("focus itemClassNumber"), 1u);
  view.Type(FormField::ClassNumber, u"01");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(log.Count("focus ItemClassName"), 1u);
  view.Type(FormField::ClassName, u"x");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(log.Count("focus txtPencent"), 1u);
  view.Type(FormField::Percentage, u"1");
  log.Clear();
  EXPECT_FALSE(Passes());
  EXPECT_THAT(log.Text(), ::testing::StartsWith("message information")) << "the list is empty";
}

TEST(CheckDataFailures, ReachTheCallerWithoutAMessage) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    world.AnswerChecks(false, {u"02"});
    world.OpenForEdit();
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const auto check = [&] {
      return CheckData(world.form.State(), ReadHeader(world.view), world.factory);
    };
    const auto error = ErrorOf(check);
    const int calls = world.factory.CallCount() - before;
    const bool fails = failingCall != 0 && !HasFailedBlock(world.log);
    EXPECT_EQ(error, fails ? std::optional(kInjectedFailure) : std::nullopt);
    EXPECT_THAT(world.log.Text(), ::testing::Not(HasSubstr("message ")));
    EXPECT_EQ(check(), std::nullopt);
    world.form.Unload();
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
