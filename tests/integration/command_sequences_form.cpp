// The random user's steps in the form, each with the result that the model expects.
#include "platform/error.h"
#include "tests/integration/command_sequences.h"

namespace workbench {

using pricedown::AutomationError;
using pricedown::FormField;
using pricedown::FormTool;
using pricedown::FromUtf8;
using pricedown::ToUtf8;

void CommandSequences::TypeIn(FormField field) {
  const auto type = [&](std::string& kept, std::string text) {
    kept = std::move(text);
    Type(field, FromUtf8(kept));
  };
  const bool bad = Roll(9) == 0;
  switch (field) {
    case FormField::ClassNumber: {
      // By design a second rename in one showing keeps the first one's rows.
      if (renamed_) break;
      const std::string letter = Roll(2) == 0 ? "K" : "k";
      const std::string number = letter + std::to_string(Roll(6));
      type(fields_.number, bad ? "" : number);
      break;
    }
    case FormField::ClassName:
      type(fields_.name, bad ? OneOf(kBadNames) : OneOf(kGoodNames));
      break;
    case FormField::LossAccount:
      type(fields_.lossAccount, bad ? OneOf(kBadAccounts) : OneOf(kGoodAccounts));
      break;
    case FormField::ReserveAccount:
      type(fields_.reserveAccount, bad ? OneOf(kBadAccounts) : OneOf(kGoodAccounts));
      break;
    case FormField::Percentage: {
      const int count = static_cast<int>(bad ? kPercentages.size() : kGoodPercentages);
      type(fields_.percentage, kPercentages[static_cast<std::size_t>(Roll(count))].text);
      break;
    }
  }
}

void CommandSequences::PickItems() {
  editor.Click(FormTool::AddItem);
  std::set<std::int32_t> free;
  const std::set<std::int32_t> others = model_.ItemsOfOthers(opening_);
  for (std::int32_t id = 1; id <= kItems; ++id) {
    const bool listed = std::find(listed_.begin(), listed_.end(), id) != listed_.end();
    if (!listed && others.count(id) == 0) free.insert(id);
  }
  EXPECT_EQ(offering_->offered, free) << trail_;
  listed_.insert(listed_.end(), offering_->chosen.begin(), offering_->chosen.end());
  saved_ = false;
}

void CommandSequences::RemoveItems() {
  std::vector<std::int32_t> rows;
  std::vector<std::int32_t> left;
  std::string expected;
  for (std::size_t index = 0; index < listed_.size(); ++index) {
    const std::int32_t item = listed_[index];
    const bool selected = Roll(3) == 0;
    if (selected) rows.push_back(static_cast<std::int32_t>(index) + 2);
    const std::string code = "01." + std::to_string(item);
    if (!selected) {
      left.push_back(item);
    } else if (model_.HasHistory(item)) {
      left.push_back(item);
      expected += "\"该物料(" + code + ")在以前期间已有业务发生，不得删除！\"\n";
    } else if (!model_.voucher) {
      model_.DropCurrentProvision(item);
      ++removals_;
    } else if (model_.HasCurrentAmount(item)) {
      left.push_back(item);
      expected += "\"该物料(" + code + ")本期跌价准备数据已经生成凭证，不得删除！\"\n";
    }
  }
  // An empty list ends the command before the grid is shown again.
  if (!listed_.empty()) saved_ = false;
  listed_ = left;
  NewMessages();
  Remove(rows);
  EXPECT_EQ(NewMessages(), expected) << trail_;
}

std::string CommandSequences::ExpectedRefusal() const {
  if (fields_.number.empty()) return "请输入数字,物料类别代码不能为空！";
  if (fields_.name.empty()) return "请输入物料类别名称，物料类别名称不能为为空值";
  if (fields_.percentage.empty()) return "请输入数字，跌价比例不能为字符或为空值";
  const auto percentage =
      std::find_if(kPercentages.begin(), kPercentages.end(),
                   [this](const PercentageCase& one) { return fields_.percentage == one.text; });
  if (percentage != kPercentages.end() && *percentage->refusal != 0) return percentage->refusal;
  if (listed_.empty()) return "无物料的物料类别没有意义,请添加物料";
  const auto wrong = [](const std::string& account) {
    return account.empty() || account == kNoAccount;
  };
  if (wrong(fields_.lossAccount)) return "请输入正确的存货跌价损失科目代码！";
  if (wrong(fields_.reserveAccount)) return "请输入正确的存货跌价准备科目代码！";
  if (const std::string* used = model_.NumberInUse(fields_.number, opening_)) {
    return "已经存在代码为:" + *used + "的物料类别,请重新输入物料类别代码！";
  }
  return {};
}

bool CommandSequences::Throws() const {
  return fields_.lossAccount == kUnfoundAccount || fields_.reserveAccount == kUnfoundAccount ||
         fields_.name.find('\'') != std::string::npos;
}

void CommandSequences::SaveForm() {
  const std::string refusal = ExpectedRefusal();
  if (!refusal.empty()) {
    ++refusals_;
    if (!fields_.number.empty()) saved_ = false;
    return;
  }
  saved_ = true;
  if (Throws()) {
    ++failures_;
    return;
  }
  ++saves_;
  const auto percentage =
      std::find_if(kPercentages.begin(), kPercentages.end(),
                   [this](const PercentageCase& one) { return fields_.percentage == one.text; });
  const std::string stored =
      percentage == kPercentages.end() ? fields_.percentage : percentage->stored;
  model_.classes.erase(opening_);
  model_.classes[fields_.number] = {
      {fields_.name, fields_.lossAccount, fields_.reserveAccount, stored},
      {listed_.begin(), listed_.end()}};
  renamed_ = !adding_ && UpperLatin(fields_.number) != UpperLatin(opening_);
  if (adding_) {
    listed_.clear();
    fields_ = {};
    saved_ = false;  // because the grid requests its rows
  } else if (!renamed_) {
    opening_ = fields_.number;
  }
}
void CommandSequences::StartNewClass() {
  if (!adding_) return;  // the tool is disabled
  std::string expected;
  bool throws = false;
  bool refused = false;
  const bool yes = Roll(2) == 0;
  questions.WillAnswer({yes});
  if (!saved_) {
    expected = std::string("\"是否保存当前数据？\" -> ") + (yes ? "yes\n" : "no\n");
    if (yes) {
      const std::string refusal = ExpectedRefusal();
      refused = !refusal.empty();
      if (refused) expected += "\"" + refusal + "\"\n";
      throws = !refused && Throws();
      SaveForm();
    }
  }
  // If the list is already empty, the fields stay; after a refused save everything does.
  if (!throws && !refused && !listed_.empty()) {
    listed_.clear();
    fields_ = {};
    saved_ = false;
  }
  NewMessages();
  bool thrown = false;
  try {
    editor.Click(FormTool::Add);
  } catch (const AutomationError&) {
    thrown = true;
  }
  questions.ForgetAnswers();
  EXPECT_EQ(thrown, throws) << trail_;
  EXPECT_EQ(NewMessages(), expected) << trail_;
}

void CommandSequences::WorkInForm() {
  for (int step = Roll(12); step > 0 && editor.Shown().IsLoaded(); --step) {
    switch (Roll(8)) {
      case 0:
      case 1:
      case 2:
        trail_ += " type";
        TypeIn(OneOf(pricedown::kFormFields));
        break;
      case 3:
        trail_ += " pick";
        PickItems();
        break;
      case 4:
        trail_ += " remove";
        RemoveItems();
        break;
      case 5:
        trail_ += " new";
        StartNewClass();
        break;
      default: {
        trail_ += " save";
        const std::string refusal = ExpectedRefusal();
        const bool throws = refusal.empty() && Throws();
        SaveForm();
        NewMessages();
        bool thrown = false;
        try {
          editor.Click(FormTool::Save);
        } catch (const AutomationError&) {
          thrown = true;
        }
        EXPECT_EQ(thrown, throws) << trail_;
        EXPECT_EQ(NewMessages(), refusal.empty() ? "" : "\"" + refusal + "\"\n") << trail_;
        break;
      }
    }
    EXPECT_EQ(editor.Shown().State().saved, saved_) << trail_;
    ExpectForm();
    ASSERT_NO_FATAL_FAILURE(ExpectAgreement("a step"));
  }
  if (Roll(2) == 0) return;  // closed by its frame
  trail_ += " close";
  questions.WillAnswer({false});
  editor.Click(FormTool::Exit);
  questions.ForgetAnswers();
  EXPECT_FALSE(editor.Shown().IsLoaded());
}

void CommandSequences::ExpectForm() {
  const auto text = [this](FormField field) { return ToUtf8(editor.view.Text(field)); };
  EXPECT_EQ(text(FormField::ClassNumber), fields_.number) << trail_;
  EXPECT_EQ(text(FormField::ClassName), fields_.name) << trail_;
  EXPECT_EQ(text(FormField::LossAccount), fields_.lossAccount) << trail_;
  EXPECT_EQ(text(FormField::ReserveAccount), fields_.reserveAccount) << trail_;
  EXPECT_EQ(text(FormField::Percentage), fields_.percentage) << trail_;
  std::string expected;
  for (const std::int32_t item : listed_) expected += "01." + std::to_string(item) + " ";
  EXPECT_EQ(ListedCodes(), expected) << trail_;
}

std::string CommandSequences::ListedCodes() {
  std::string codes;
  for (const std::string& code : editor.list.Codes()) codes += code + " ";
  return codes;
}

}  // namespace workbench
