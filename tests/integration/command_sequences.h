// A random user of the control on a small company, and the model that predicts the result. The user
// types valid and invalid input and picks what is offered.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "tests/integration/class_model.h"
#include "tests/integration/control_fixture.h"

namespace workbench {

inline constexpr std::int32_t kItems = 12;

// Offers what the database finds under the condition, and picks some of it.
class OfferingPickers : public Pickers {
 public:
  explicit OfferingPickers(std::mt19937& random) : random_(random) {}

  std::optional<std::u16string> PickAccount(Connection&, std::u16string_view) override {
    return std::nullopt;
  }
  std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                     std::u16string_view condition, bool) override {
    std::u16string statement = u"select x2.FItemID from t_ICItem x2";
    if (!condition.empty()) statement += pricedown::Concatenate({u" where ", condition});
    const auto rows = company.Execute(statement);
    offered.clear();
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      offered.insert(static_cast<std::int32_t>(rows.At(row, 0).Integer()));
    }
    chosen.clear();
    for (const std::int32_t id : offered) {
      if (random_() % 3 == 0) chosen.push_back(id);
    }
    if (chosen.empty()) return std::nullopt;
    return chosen;
  }

  std::set<std::int32_t> offered;
  std::vector<std::int32_t> chosen;

 private:
  std::mt19937& random_;
};

struct PercentageCase {
  const char* text;
  const char* stored;   // as the table has it
  const char* refusal;  // empty when it may be saved
};
inline constexpr std::array<PercentageCase, 11> kPercentages{{
    {"12.5", "12.5", ""},
    {"0", "0", ""},
    {"100", "100", ""},
    {"3.1415", "3.1415", ""},
    {"12.3456", "12.3456", ""},
    {"1e1", "10", ""},
    {" 7 ", "7", ""},
    {"9.12345", "", "跌价比例小数位过长，请保留四位小数"},
    {"100.001", "", "跌价比例有误,数值应位于0-100之间"},
    {"-1", "", "跌价比例有误,数值应位于0-100之间"},
    {"abc", "", "请输入数字，跌价比例不能为字符或为空值"},
}};

// Account numbers as they are typed, and the ids that a save finds for them; a save by way of the
// number finds 1281.1 for the second and nothing for the last of the chart.
inline const std::map<std::string, std::string> kAccountIds{
    {"5711", "1051"}, {"1281.1", "1023"}, {"1281.10", "1023"}, {"1001", "7"}};
inline constexpr std::array<const char*, 4> kGoodAccounts{"5711", "1281.1", "1281.10", "1001"};
inline constexpr const char* kUnfoundAccount = "1281.20";
inline constexpr const char* kNoAccount = "9999";
inline constexpr std::array<const char*, 3> kBadAccounts{kUnfoundAccount, kNoAccount, ""};

inline constexpr std::array<const char*, 3> kGoodNames{"原材料", "成品", "包装物"};
inline constexpr std::array<const char*, 3> kBadNames{"it's", "包'装", ""};
inline constexpr std::size_t kGoodPercentages = 7;

// The contents of the form.
struct Fields {
  std::string number;
  std::string name;
  std::string lossAccount;
  std::string reserveAccount;
  std::string percentage;
};

class CommandSequences : public ControlOnCompany {
 protected:
  CommandSequences() {
    auto offering = std::make_unique<OfferingPickers>(random_);
    offering_ = offering.get();
    suite_->pickers = std::move(offering);
    AddAccount(u"7", u"1001");
    AddAccount(u"1098", u"1281.10");
    AddAccount(u"1099", u"1281.20");
    const ModelHeader header{"原材料", "5711", "1281.1", "12.5"};
    model_.classes["A1"] = {header, {1, 2, 3}};
    model_.classes["B1"] = {{"成品", "5711", "1281.1", "12.5"}, {4, 5}};
    Open();
  }
  void AddAccount(std::u16string_view id, std::u16string_view number) {
    Run(pricedown::Concatenate(
        {u"INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)VALUES(", id,
         u",'", number, u"','x',1,0,1,1)"}));
  }

  int Roll(int sides) { return static_cast<int>(random_() % static_cast<unsigned>(sides)); }
  template <typename Choices>
  auto& OneOf(Choices& choices) {
    return *std::next(std::begin(choices), Roll(static_cast<int>(std::size(choices))));
  }

  void ExpectAgreement(const char* after) {
    ASSERT_EQ(Classes(), model_.ClassRows(kAccountIds)) << "after " << after << trail_;
    ASSERT_EQ(Provisions(), model_.ProvisionRows()) << "after " << after << trail_;
  }
  // The messages since the last call.
  std::string NewMessages() {
    std::string messages = Messages();
    log.Clear();
    return messages;
  }

  // Other modules of the suite at work.
  void ChangeTheWorld();
  // The commands.
  void AddClass();
  void EditClass();
  void DeleteClass();
  // Steps in the form.
  void TypeIn(pricedown::FormField field);
  void PickItems();
  void RemoveItems();
  void SaveForm();
  void StartNewClass();
  void WorkInForm();
  // Checks that fields and list match the model.
  void ExpectForm();
  std::string ListedCodes();
  // By the tool strip, by the command bar, or by the host's own call.
  void Invoke(std::u16string_view button, std::u16string_view tool,
              pricedown::Value (pricedown::PriceDown::*member)());

  std::string ExpectedRefusal() const;
  bool Throws() const;

  std::mt19937 random_{20080331};
  ClassModel model_;
  OfferingPickers* offering_ = nullptr;
  // The form as the model sees it.
  bool adding_ = false;
  std::string opening_;
  Fields fields_;
  std::vector<std::int32_t> listed_;
  bool saved_ = false;
  bool renamed_ = false;
  std::string trail_;
  int saves_ = 0;
  int refusals_ = 0;
  int failures_ = 0;
  int deletions_ = 0;
  int removals_ = 0;
};

}  // namespace workbench
