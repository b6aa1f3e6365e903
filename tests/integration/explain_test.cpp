// `explain` compared with the library's own guards, on generated companies.
#include <gtest/gtest.h>

#include <random>

#include "platform/error.h"
#include "tests/integration/control_fixture.h"
#include "tests/integration/forwarding_connection.h"
#include "tests/support/number_from_environment.h"
#include "workbench/sample/company_explain.h"

namespace workbench {
namespace {

using pricedown::Concatenate;
using pricedown::FormTool;
using pricedown::NumberText;

class ExplainOnCompany : public ControlOnCompany {
 protected:
  static int Companies() {
    return pricedown::testing::NumberFromEnvironment("PRICEDOWN_COMPANIES", 1000);
  }

  std::int32_t Draw(std::int32_t below) {
    return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(below));
  }
  template <std::size_t count>
  std::u16string_view OneOf(const std::u16string_view (&texts)[count]) {
    return texts[Draw(count)];
  }
  std::u16string Literal(std::u16string_view text) {
    return text == u"NULL" ? std::u16string(text) : SuiteState::Literal(text);
  }

  // Few rows of each kind, so that both answers come often. Numbers, codes and vouchers are often
  // nearly those that count: a prefix, another case, a trailing blank.
  void MakeUpACompany() {
    Run(u"DELETE FROM icPriceDownClass DELETE FROM ICPriceDownPrepare DELETE FROM t_voucher");
    constexpr std::u16string_view kCodes[] = {u"X", u"X1", u"x1", u"X1 ", u"X11", u"X'1", u"'"};
    for (std::int32_t id = 1; id <= 12; ++id) {
      const std::u16string own = Concatenate({u"01.", NumberText(id)});
      Run(Concatenate({u"UPDATE t_ICItem SET FErpClsID=", Draw(4) == 0 ? u"6" : u"1", u",FNumber=",
                       Literal(Draw(4) == 0 ? OneOf(kCodes) : own), u" WHERE FItemID=",
                       NumberText(id)}));
    }
    constexpr std::u16string_view kNumbers[] = {u"A1", u"a1", u"A1 ", u"A", u"A11", u"B1", u"A1'"};
    number_ = Draw(8) == 0 ? u"A'1" : u"A1";
    for (const std::u16string_view number : {number_, OneOf(kNumbers)}) {
      std::vector<std::int32_t> members;
      for (std::int32_t i = 1 + Draw(3); i > 0; --i) members.push_back(1 + Draw(13));
      InsertClass(u"new", u"类", members);
      Run(Concatenate({u"UPDATE icPriceDownClass SET FItemClassNumber=", Literal(number),
                       u" WHERE FItemClassNumber='new'"}));
    }
    constexpr std::u16string_view kAmounts[] = {u"0", u"0", u"NULL", u"NULL", u"0.01", u"-2"};
    for (std::int32_t i = Draw(5); i > 0; --i) {
      Run(Concatenate(
          {u"INSERT INTO ICPriceDownPrepare(FItemID,FYear,FPeriod,FHaveAdd,FCurrentAdd)VALUES(",
           NumberText(1 + Draw(13)), u",", NumberText(2007 + Draw(3)), u",",
           NumberText(1 + Draw(5)), u",", OneOf(kAmounts), u",", OneOf(kAmounts), u")"}));
    }
    constexpr std::u16string_view kKinds[] = {u"820", u"820", u"820", u"82", u"8200", u"NULL"};
    constexpr std::u16string_view kIndicators[] = {u"Industry",  u"Industry", u"industry ",
                                                   u"Industry2", u"Industr",  u"NULL"};
    for (std::int32_t i = Draw(3); i > 0; --i) {
      Run(Concatenate({u"INSERT INTO t_voucher(FYear,FPeriod,FTranType,FInternalInd)VALUES(",
                       NumberText(2007 + Draw(3)), u",", NumberText(2 + Draw(3)), u",",
                       OneOf(kKinds), u",", Literal(OneOf(kIndicators)), u")"}));
    }
    SetPeriod(u"2008", u"3");
  }

  // Once in a while the company's period is missing or written strangely.
  void MayBreakThePeriod() {
    if (Draw(5) != 0) return;
    constexpr std::u16string_view kYears[] = {u"2008", u"2008", u" 2008 ", u"NULL", u"", u"今年"};
    constexpr std::u16string_view kPeriods[] = {u"3",   u"3",  u"03",  u"3 ",   u"3.0",
                                                u"2.5", u"三", u"1e0", u"NULL", u"99999999999"};
    SetPeriod(OneOf(kYears), OneOf(kPeriods));
    if (Draw(4) == 0) Run(u"DELETE FROM t_systemprofile WHERE FKey='CurrentPeriod'");
  }
  void SetPeriod(std::u16string_view year, std::u16string_view period) {
    Run(u"DELETE FROM t_systemprofile WHERE FKey='CurrentYear' OR FKey='CurrentPeriod'");
    Run(Concatenate(
        {u"INSERT INTO t_systemprofile(FCategory,FKey,FValue)VALUES('IC','CurrentYear',",
         Literal(year), u")"}));
    Run(Concatenate(
        {u"INSERT INTO t_systemprofile(FCategory,FKey,FValue)VALUES('IC','CurrentPeriod',",
         Literal(period), u")"}));
  }

  bool IsFree(const std::optional<Explanation>& explanation) {
    return explanation.has_value() && explanation->reasons.empty();
  }
  // A command that may fail, which changes nothing then.
  void Try(std::u16string_view button, const std::function<void()>& work = {}) {
    try {
      Command(button, work);
    } catch (const pricedown::AutomationError&) {
    }
  }
  std::string CompanyText(int number) {
    std::string reasons;
    for (const auto& explanation : {ExplainClass(*suite_->company, Number())}) {
      if (!explanation) continue;
      for (const std::string& reason : explanation->reasons) reasons += reason + "\n";
    }
    return "company " + std::to_string(number) + "\n" + Messages() + Classes() + Provisions() +
           reasons;
  }

  // Of the class that is selected.
  std::string Number() const { return pricedown::ToUtf8(number_); }

  std::u16string_view number_;
  std::mt19937 random_{20080301};
};

TEST_F(ExplainOnCompany, CallsAClassFreeExactlyWhenItCanBeDeleted) {
  int deleted = 0;
  int quoted = 0;
  for (int i = 0; i < Companies(); ++i) {
    MakeUpACompany();
    Open();
    Select(number_);
    MayBreakThePeriod();
    const std::string otherCase = Number() == "A1" ? "a1 " : "a'1 ";
    const bool isFree = IsFree(ExplainClass(*suite_->company, i % 2 == 0 ? Number() : otherCase));
    questions.WillAnswer({true, true});
    Try(u"Del");
    questions.ForgetAnswers();
    const bool isGone = !ExplainClass(*suite_->company, Number()).has_value();
    quoted += number_ == u"A1" ? 0 : 1;
    ASSERT_EQ(isFree, isGone) << CompanyText(i);
    deleted += isGone ? 1 : 0;
  }
  EXPECT_GT(deleted, Companies() / 10);
  EXPECT_LT(deleted, Companies() * 9 / 10);
  EXPECT_GT(quoted, Companies() / 20);
}

TEST_F(ExplainOnCompany, CallsAnItemFreeExactlyWhenItCanBeRemoved) {
  int removed = 0;
  int listed = 0;
  int quoted = 0;
  for (int i = 0; i < Companies(); ++i) {
    MakeUpACompany();
    Open();
    Select(number_);
    if (control->GetGrid().MaxRows() < 1) continue;
    const std::string code = pricedown::ToUtf8(control->GetGrid().Text(1, 1));
    if (code.empty()) continue;
    ++listed;
    quoted += code.find('\'') == std::string::npos ? 0 : 1;
    bool isFree = false;
    bool isGone = false;
    Try(u"Edit", [&] {
      MayBreakThePeriod();
      isFree = IsFree(ExplainItem(*suite_->company, code));
      const std::int32_t before = editor.list.Rows().Items();
      try {
        Remove({2});
      } catch (const pricedown::AutomationError&) {
      }
      isGone = editor.list.Rows().Items() < before;
      questions.WillAnswer({false});
      editor.Click(FormTool::Exit);
    });
    questions.ForgetAnswers();
    ASSERT_EQ(isFree, isGone) << CompanyText(i) << "item " << code;
    removed += isGone ? 1 : 0;
  }
  EXPECT_GT(listed, Companies() / 3);
  EXPECT_GT(removed, listed / 10);
  EXPECT_LT(removed, listed);
  EXPECT_GT(quoted, listed / 50);
}

// Counts statements.
class CountingConnection : public ForwardingConnection {
 public:
  using ForwardingConnection::ForwardingConnection;
  ResultSet Execute(std::u16string_view text) override {
    ++statements;
    return ForwardingConnection::Execute(text);
  }
  int statements = 0;
};

TEST_F(ExplainOnCompany, NeedsNoMoreStatementsForAClassOfMuchHistory) {
  auto counting = std::make_unique<CountingConnection>(std::move(suite_->company));
  int& statements = counting->statements;
  suite_->company = std::move(counting);
  const auto reasons = [&] {
    statements = 0;
    return ExplainClass(*suite_->company, "A1")->reasons.size();
  };
  AddProvision(1, 2007, 1, 5);
  EXPECT_EQ(reasons(), 1U);
  const int before = statements;
  for (const std::int32_t period : {2, 3, 4, 5}) AddProvision(2, 2007, period, 5);
  EXPECT_EQ(reasons(), 5U);
  EXPECT_EQ(statements, before);
}

}  // namespace
}  // namespace workbench
