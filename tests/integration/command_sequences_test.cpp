// Random commands through the control, a thousand or as many as PRICEDOWN_COMMANDS in the
// environment says: after each the company matches the model.
#include "tests/integration/command_sequences.h"
#include "tests/control/button.h"
#include "tests/support/number_from_environment.h"

namespace workbench {

using pricedown::FormField;
using pricedown::FromUtf8;

void CommandSequences::ChangeTheWorld() {
  switch (Roll(6)) {
    case 0:
    case 1: {
      const ModelProvision row{1 + Roll(kItems), 2007 + Roll(3), 1 + Roll(5), 5 * Roll(2)};
      AddProvision(row.item, row.year, row.period, row.amount);
      model_.provisions.push_back(row);
      break;
    }
    case 2:
      Run(u"delete from ICPriceDownPrepare");
      model_.provisions.clear();
      break;
    case 3:
      Run(u"delete from t_voucher");
      model_.voucher = Roll(3) == 0;
      if (model_.voucher && model_.period == 3) {
        AddVoucher();
      } else {
        model_.voucher = false;
      }
      break;
    case 4:
      Run(u"delete from t_voucher");
      model_.voucher = false;
      model_.period = 2 + Roll(3);
      suite_->SetProfile(u"IC", u"CurrentPeriod", pricedown::NumberText(model_.period));
      break;
    default:
      break;
  }
}

void CommandSequences::Invoke(std::u16string_view button, std::u16string_view tool,
                              pricedown::Value (pricedown::PriceDown::*member)()) {
  switch (Roll(3)) {
    case 0:
      control->CommandChosen(pricedown::testing::Button(button));
      break;
    case 1:
      control->BarList()->Click(tool);
      break;
    default:
      (*control.*member)();
      control->CommandChosen(pricedown::testing::Button(u"sp2"));  // which reloads the tree
      break;
  }
}

void CommandSequences::AddClass() {
  trail_ = " add";
  editor.whileShown = [this] {
    adding_ = true;
    opening_.clear();
    fields_ = {};
    listed_.clear();
    saved_ = false;
    renamed_ = false;
    ExpectForm();
    if (Roll(4) != 0) {
      for (const FormField field : pricedown::kFormFields) TypeIn(field);
    }
    WorkInForm();
  };
  Invoke(u"Add", u"iInsert", &pricedown::PriceDown::addRecord);
}

void CommandSequences::EditClass() {
  if (model_.classes.empty()) return;
  const auto chosen = OneOf(model_.classes);
  trail_ = " edit " + chosen.first;
  Select(FromUtf8(chosen.first));
  editor.whileShown = [this, chosen] {
    const ModelHeader& header = chosen.second.header;
    adding_ = false;
    opening_ = chosen.first;
    fields_ = {chosen.first, header.name, header.lossAccount, header.reserveAccount,
               header.percentage};
    // As the company orders them, by code.
    std::map<std::string, std::int32_t> byCode;
    for (const std::int32_t item : chosen.second.items) byCode["01." + std::to_string(item)] = item;
    listed_.clear();
    for (const auto& entry : byCode) listed_.push_back(entry.second);
    saved_ = false;
    renamed_ = false;
    ExpectForm();
    WorkInForm();
  };
  Invoke(u"Edit", u"iEdit", &pricedown::PriceDown::editRecord);
  NewMessages();
  if (Roll(4) != 0) return;
  control->editRecord();
  control->delRecord();
  EXPECT_EQ(NewMessages(), "\"请选择要修改的物料类别\"\n\"请选择要删除的物料类别\"\n");
}

void CommandSequences::DeleteClass() {
  if (model_.classes.empty()) return;
  const auto chosen = OneOf(model_.classes);
  trail_ = " delete " + chosen.first;
  Select(FromUtf8(chosen.first));
  const bool yes = Roll(4) != 0;
  std::string expected = "\"确定要删除当前记录? 当前的物料类别代码为:" + chosen.first +
                         "  物料类别名称为:" + chosen.second.header.name + "\" -> " +
                         (yes ? "yes\n" : "no\n");
  const std::set<std::int32_t>& items = chosen.second.items;
  if (yes && model_.voucher) {
    expected += "\"本期跌价准备数据已经生成凭证，不得删除物料类别！\"\n";
  } else if (yes && std::any_of(items.begin(), items.end(),
                                [this](std::int32_t item) { return model_.HasHistory(item); })) {
    expected += "\"该物料类别在以前期间已有业务发生，不得删除！\"\n";
  } else if (yes) {
    for (const std::int32_t item : items) model_.DropCurrentProvision(item);
    model_.classes.erase(chosen.first);
    ++deletions_;
  }
  questions.WillAnswer({yes});
  NewMessages();
  Invoke(u"Del", u"iCut", &pricedown::PriceDown::delRecord);
  EXPECT_EQ(NewMessages(), expected) << trail_;
}

TEST_F(CommandSequences, LeaveTheCompanyAsTheModelSays) {
  const int commands = pricedown::testing::NumberFromEnvironment("PRICEDOWN_COMMANDS", 1000);
  for (int command = 0; command < commands; ++command) {
    ChangeTheWorld();
    switch (Roll(5)) {
      case 0:
      case 1:
        AddClass();
        break;
      case 2:
        DeleteClass();
        break;
      default:
        EditClass();
        break;
    }
    ASSERT_NO_FATAL_FAILURE(ExpectAgreement("a command"));
    std::set<std::int32_t> seen;
    for (const auto& [number, rows] : model_.classes) {
      EXPECT_FALSE(rows.items.empty()) << number;
      for (const std::int32_t item : rows.items) {
        EXPECT_TRUE(seen.insert(item).second) << "item " << item << " is in two classes" << trail_;
      }
    }
    ASSERT_FALSE(HasFailure()) << "in command " << command << ":" << trail_;
  }
  // Every outcome occurred often.
  const int thousands = commands / 1000;
  EXPECT_GT(saves_, 150 * thousands);
  EXPECT_GT(refusals_, 200 * thousands);
  EXPECT_GT(failures_, 10 * thousands);
  EXPECT_GT(deletions_, 30 * thousands);
  EXPECT_GT(removals_, 50 * thousands);
}

}  // namespace workbench
