// `explain` compared with the library's own guards, on generated companies.
#include <gtest/gtest.h>

#include <random>

#include "tests/integration/control_fixture.h"
#include "workbench/sample/company_explain.h"

namespace workbench {
namespace {

using pricedown::Concatenate;
using pricedown::FormTool;
using pricedown::NumberText;

class ExplainOnCompany : public ControlOnCompany {
 protected:
  static constexpr int kCompanies = 1000;

  std::int32_t Draw(std::int32_t below) {
    return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(below));
  }

  // Few rows of each kind, so that both answers come often.
  void MakeUpACompany() {
    std::u16string hidden = u"0";
    for (std::int32_t id = 1; id <= 12; ++id) {
      if (Draw(4) == 0) hidden += Concatenate({u",", NumberText(id)});
    }
    Run(
        Concatenate({u"DELETE FROM icPriceDownClass DELETE FROM ICPriceDownPrepare "
                     u"DELETE FROM t_voucher UPDATE t_ICItem SET FErpClsID=1 "
                     u"UPDATE t_ICItem SET FErpClsID=6 WHERE FItemID IN(",
                     hidden, u")"}));
    for (const char16_t* number : {u"A1", u"B1"}) {
      std::vector<std::int32_t> members;
      for (std::int32_t i = 1 + Draw(3); i > 0; --i) members.push_back(1 + Draw(13));
      InsertClass(number, u"类", members);
    }
    for (std::int32_t i = Draw(4); i > 0; --i) {
      AddProvision(1 + Draw(13), 2007 + Draw(3), 1 + Draw(5), Draw(2));
    }
    if (Draw(4) == 0) AddVoucher();
  }

  bool IsFree(const std::optional<Explanation>& explanation) {
    return explanation.has_value() && explanation->reasons.empty();
  }

  std::mt19937 random_{20080301};
};

TEST_F(ExplainOnCompany, CallsAClassFreeExactlyWhenItCanBeDeleted) {
  int deleted = 0;
  for (int i = 0; i < kCompanies; ++i) {
    MakeUpACompany();
    const bool isFree = IsFree(ExplainClass(*suite_->company, "A1"));
    Open();
    Select(u"A1");
    questions.WillAnswer({true, true});
    Command(u"Del");
    const bool isGone = !ExplainClass(*suite_->company, "A1").has_value();
    ASSERT_EQ(isFree, isGone) << "company " << i << "\n" << Messages();
    deleted += isGone ? 1 : 0;
  }
  EXPECT_GT(deleted, kCompanies / 10);
  EXPECT_LT(deleted, kCompanies * 9 / 10);
}

TEST_F(ExplainOnCompany, CallsAnItemFreeExactlyWhenItCanBeRemoved) {
  int removed = 0;
  int listed = 0;
  for (int i = 0; i < kCompanies; ++i) {
    MakeUpACompany();
    Open();
    Select(u"A1");
    if (control->ItemCells().MaxRows() < 1) continue;
    const std::string code = pricedown::ToUtf8(control->ItemCells().Text(1, 1));
    if (code.empty()) continue;
    ++listed;
    const bool isFree = IsFree(ExplainItem(*suite_->company, code));
    bool isGone = false;
    Command(u"Edit", [&] {
      const std::int32_t before = editor.list.Rows().Items();
      Remove({2});
      isGone = editor.list.Rows().Items() < before;
      questions.WillAnswer({false});
      editor.Click(FormTool::Exit);
    });
    ASSERT_EQ(isFree, isGone) << "company " << i << " item " << code << "\n" << Messages();
    removed += isGone ? 1 : 0;
  }
  EXPECT_GT(listed, kCompanies / 3);
  EXPECT_GT(removed, listed / 10);
  EXPECT_LT(removed, listed);
}

}  // namespace
}  // namespace workbench
