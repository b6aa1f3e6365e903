// Classes added, changed and saved through the form: the rows before and after.
#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <vector>

#include "platform/convert.h"
#include "platform/error.h"
#include "store/tables.h"
#include "tests/integration/editor_fixture.h"
#include "workbench/company/connection.h"
#include "workbench/suite/pickers.h"

namespace workbench {
namespace {

using pricedown::FormField;
using pricedown::FormTool;
using pricedown::testing::Lines;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

constexpr const char* kBefore =
    "A1|原材料|1|1051|5711|1023|1281.1|12.5\n"
    "A1|原材料|2|1051|5711|1023|1281.1|12.5\n"
    "A1|原材料|3|1051|5711|1023|1281.1|12.5\n"
    "B1|成品|4|1051|5711|1023|1281.1|12.5\n"
    "B1|成品|5|1051|5711|1023|1281.1|12.5\n";

// Notes the items that a picker would list, and cancels.
class OfferedItems : public Pickers {
 public:
  explicit OfferedItems(std::vector<std::int32_t>& offered) : offered_(offered) {}

  std::optional<std::u16string> PickAccount(Connection&, std::u16string_view) override {
    return std::nullopt;
  }
  std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                     std::u16string_view condition, bool) override {
    const ResultSet rows = company.Execute(
        pricedown::Concatenate({u"SELECT x2.FItemID FROM t_ICItem x2 WHERE ", condition}));
    offered_.clear();
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      offered_.push_back(static_cast<std::int32_t>(rows.At(row, 0).Integer()));
    }
    return std::nullopt;
  }

 private:
  std::vector<std::int32_t>& offered_;
};

TEST_F(EditorOnCompany, ListsTheItemsOfTheClass) {
  OpenForEdit(u"A1");
  EXPECT_EQ(list.RowTexts(),
            "物料代码|物料名称|规格型号|\n01.1|物料1|M1|\n01.2|物料2|M2|\n01.3|物料3|M3|\n");
  EXPECT_EQ(form.State().savedValues.percentage, 12.5);
}

TEST_F(EditorOnCompany, AddsAClassAndASecondOne) {
  OpenForAdd();
  Pick({7, 8});
  Type(u"C1", u"包装物", u"3.25");
  Click(FormTool::Save);
  Pick({9});
  Type(u"C2", u"备件", u"100");
  Click(FormTool::Save);
  EXPECT_EQ(Classes(), std::string(kBefore) + Lines(R"(
      C1|包装物|7|1051|5711|1023|1281.1|3.25
      C1|包装物|8|1051|5711|1023|1281.1|3.25
      C2|备件|9|1051|5711|1023|1281.1|100
      )"));
  EXPECT_THAT(log.Text(), Not(HasSubstr("message ")));
}

TEST_F(EditorOnCompany, WritesNewItemsWithTheHeaderOfTheRows) {
  OpenForEdit(u"B1");
  Pick({6});
  Click(FormTool::Save);
  EXPECT_THAT(Classes(), HasSubstr("B1|成品|6|1051|5711|1023|1281.1|12.5\n"));
}

TEST_F(EditorOnCompany, RenamesAClassOnceAndRefusesTheSecondSave) {
  OpenForEdit(u"A1");
  view.Type(FormField::ClassNumber, u"D1");
  Click(FormTool::Save);
  const std::string renamed =
      "B1|成品|4|1051|5711|1023|1281.1|12.5\nB1|成品|5|1051|5711|1023|1281.1|12.5\n" + Lines(R"(
      D1|原材料|1|1051|5711|1023|1281.1|12.5
      D1|原材料|2|1051|5711|1023|1281.1|12.5
      D1|原材料|3|1051|5711|1023|1281.1|12.5
      )");
  EXPECT_EQ(Classes(), renamed);
  view.Type(FormField::ClassName, u"另名");
  Click(FormTool::Save);
  EXPECT_EQ(log.Count("message information \"岚禾提示\": "
                      "\"已经存在代码为:D1的物料类别,请重新输入物料类别代码！\""),
            1u);
  EXPECT_EQ(Classes(), renamed);
}

TEST_F(EditorOnCompany, RefusesANumberThatDiffersInCaseOnly) {
  OpenForEdit(u"A1");
  view.Type(FormField::ClassNumber, u"b1");
  Click(FormTool::Save);
  EXPECT_EQ(log.Count("message information \"岚禾提示\": "
                      "\"已经存在代码为:B1的物料类别,请重新输入物料类别代码！\""),
            1u);
  EXPECT_EQ(Classes(), kBefore);
}

TEST_F(EditorOnCompany, LeavesTheClassWhenTheTextCannotBeParsed) {
  OpenForEdit(u"A1");
  view.Type(FormField::ClassName, u"it's");
  EXPECT_THROW(Click(FormTool::Save), pricedown::AutomationError);
  EXPECT_EQ(Classes(), kBefore);
  EXPECT_TRUE(form.State().saved);
  view.Type(FormField::ClassName, u"its");
  Click(FormTool::Save);
  EXPECT_THAT(Classes(), HasSubstr("A1|its|3|"));
}

TEST_F(EditorOnCompany, LeavesWhatRanBeforeAStatementThatFails) {
  sqlite3* database = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(path_.c_str(), &database));
  RegisterServerText(database);
  ASSERT_EQ(SQLITE_OK, sqlite3_exec(database,
                                    "CREATE TRIGGER refuse BEFORE INSERT ON icPriceDownClass "
                                    "WHEN NEW.FItemID=2 BEGIN SELECT RAISE(ABORT,'no'); END",
                                    nullptr, nullptr, nullptr));
  sqlite3_close(database);
  OpenForEdit(u"A1");
  EXPECT_THROW(Click(FormTool::Save), pricedown::AutomationError);
  EXPECT_EQ(Classes(),
            "A1|原材料|1|1051|5711|1023|1281.1|12.5\n"
            "B1|成品|4|1051|5711|1023|1281.1|12.5\n"
            "B1|成品|5|1051|5711|1023|1281.1|12.5\n");
}

TEST_F(EditorOnCompany, WritesNothingWhenAnAccountIsFoundByItsTextOnly) {
  Run(u"INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)VALUES"
      u"(1099,'1281.20','x',1,0,1,1)");
  OpenForEdit(u"A1");
  view.Type(FormField::ReserveAccount, u"1281.20");
  try {
    Click(FormTool::Save);
    FAIL() << "no error";
  } catch (const pricedown::AutomationError& error) {
    EXPECT_EQ(error.Number(), static_cast<std::int32_t>(pricedown::ErrorNumber::NoCurrentRecord));
    EXPECT_THAT(pricedown::ToUtf8(error.Description()),
                StartsWith("查找存货跌价准备科目失败，科目代码：1281.2\r\n"
                           "BOF 或 EOF 中有一个为“真”，或者当前的记录已被删除，"));
  }
  EXPECT_EQ(Classes(), kBefore);
}

TEST_F(EditorOnCompany, SavesAnAccountThatHasAccountsBelowIt) {
  Run(u"INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)VALUES"
      u"(1022,'1281','存货跌价准备',1,0,0,1)");
  OpenForEdit(u"B1");
  view.Type(FormField::ReserveAccount, u"1281");
  Click(FormTool::Save);
  EXPECT_THAT(Classes(), HasSubstr("B1|成品|4|1051|5711|1022|1281|12.5\n"));
  EXPECT_THAT(log.Text(), Not(HasSubstr("message ")));
}

// The class itself, under its new number, counts as another one.
TEST_F(EditorOnCompany, OffersARemovedItemUntilARenameHasBeenSaved) {
  std::vector<std::int32_t> offered;
  suite_->pickers = std::make_unique<OfferedItems>(offered);
  OpenForEdit(u"A1");
  list.selected = {2};
  Click(FormTool::DelItem);
  Click(FormTool::AddItem);
  EXPECT_THAT(offered, UnorderedElementsAre(1, 6, 7, 8, 9, 10, 11, 12));
  view.Type(FormField::ClassNumber, u"D1");
  Click(FormTool::Save);
  list.selected = {2};
  Click(FormTool::DelItem);
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n01.3|物料3|M3|\n");
  Click(FormTool::AddItem);
  EXPECT_THAT(offered, UnorderedElementsAre(1, 6, 7, 8, 9, 10, 11, 12)) << "without item 2";
}

TEST_F(EditorOnCompany, WritesALongNumberAsItsFieldCutItAlthoughNothingWasTyped) {
  InsertClass(std::u16string(41, u'7'), u"长代码", {6});
  OpenForEdit(std::u16string(41, u'7'));
  Click(FormTool::Save);
  EXPECT_EQ(Classes(), std::string(40, '7') + "|长代码|6|1051|5711|1023|1281.1|12.5\n" + kBefore);
}

TEST_F(EditorOnCompany, RemovesAnItemAndItsCurrentProvisionAtOnce) {
  AddProvision(1, 2008, 3, 5);
  AddProvision(1, 2008, 3, 0);
  AddProvision(1, 2008, 4, 7);
  AddProvision(2, 2008, 3, 9);
  OpenForEdit(u"A1");
  list.selected = {2};
  Click(FormTool::DelItem);
  EXPECT_EQ(Provisions(), "1|2008|4|7\n2|2008|3|9\n");
  EXPECT_EQ(Classes(), kBefore) << "rewritten by the next save only";
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n01.2|物料2|M2|\n01.3|物料3|M3|\n");
  Click(FormTool::Save);
  EXPECT_THAT(Classes(), Not(HasSubstr("A1|原材料|1|")));
  EXPECT_THAT(Classes(), HasSubstr("A1|原材料|2|"));
}

TEST_F(EditorOnCompany, RefusesItemsWithHistoryAndRemovesTheOthers) {
  AddProvision(1, 2008, 2, 5);   // the same year, before
  AddProvision(2, 2007, 12, 5);  // an earlier year, a later period
  AddProvision(3, 2007, 12, 0);  // zero does not count
  OpenForEdit(u"A1");
  list.selected = {2, 3, 4};
  Click(FormTool::DelItem);
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n01.1|物料1|M1|\n01.2|物料2|M2|\n");
  EXPECT_EQ(log.Count("message information \"岚禾提示\": "
                      "\"该物料(01.1)在以前期间已有业务发生，不得删除！\""),
            1u);
  EXPECT_EQ(log.Count("message information \"岚禾提示\": "
                      "\"该物料(01.2)在以前期间已有业务发生，不得删除！\""),
            1u);
  EXPECT_EQ(Provisions(), "1|2008|2|5\n2|2007|12|5\n3|2007|12|0\n");
}

TEST_F(EditorOnCompany, GuardsCurrentAmountsOnceTheVoucherExists) {
  AddVoucher();
  AddProvision(1, 2008, 3, 5);
  AddProvision(2, 2008, 3, 0);
  OpenForEdit(u"A1");
  list.selected = {2, 3};
  Click(FormTool::DelItem);
  EXPECT_EQ(log.Count("message information \"岚禾提示\": "
                      "\"该物料(01.1)本期跌价准备数据已经生成凭证，不得删除！\""),
            1u);
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n01.1|物料1|M1|\n01.3|物料3|M3|\n");
  EXPECT_EQ(Provisions(), "1|2008|3|5\n2|2008|3|0\n") << "nothing is deleted under a voucher";
}

TEST_F(EditorOnCompany, ClosesWithoutWritingOnNo) {
  OpenForEdit(u"A1");
  view.Type(FormField::ClassName, u"改名");
  questions.WillAnswer({false});
  Click(FormTool::Exit);
  EXPECT_EQ(Classes(), kBefore);
  EXPECT_EQ(log.Count("unload"), 1u);
}

// What the class table must hold, by class number.
struct ModelClass {
  std::string name;
  std::set<std::int32_t> items;
};
using Model = std::map<std::string, ModelClass>;

std::string TextOf(const Model& model) {
  std::vector<std::string> lines;
  for (const auto& [number, modelClass] : model) {
    for (const std::int32_t item : modelClass.items) {
      lines.push_back(number + "|" + modelClass.name + "|" + std::to_string(item) +
                      "|1051|5711|1023|1281.1|12.5");
    }
  }
  std::sort(lines.begin(), lines.end());
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

// The user's choice of one item that the picker would offer, or nothing when there is none.
std::vector<std::int32_t> FreeItem(const Model& model, const std::set<std::int32_t>& listed,
                                   std::mt19937& random) {
  std::vector<std::int32_t> free;
  for (std::int32_t id = 1; id <= 12; ++id) {
    const bool taken = std::any_of(model.begin(), model.end(), [id](const auto& entry) {
      return entry.second.items.count(id) > 0;
    });
    if (!taken && listed.count(id) == 0) free.push_back(id);
  }
  if (free.empty()) return {};
  return {free[random() % free.size()]};
}

TEST_F(EditorOnCompany, KeepsTheTablesRulesThroughAnySequenceOfCommands) {
  Model model{{"A1", {"原材料", {1, 2, 3}}}, {"B1", {"成品", {4, 5}}}};
  std::mt19937 random(20080301);
  int saves = 0;
  int refusals = 0;
  for (int showing = 0; showing < 200; ++showing) {
    // A class of the model, or a new one.
    const bool adding = random() % 3 == 0;
    auto opened = std::next(model.begin(), static_cast<std::ptrdiff_t>(random() % model.size()));
    const std::string opening = adding ? "" : opened->first;
    std::set<std::int32_t> listed;
    if (adding) {
      OpenForAdd();
      Type(u"N", u"新类", u"12.5");
    } else {
      OpenForEdit(pricedown::FromUtf8(opening));
      listed = opened->second.items;
    }
    for (int step = 0; step < 6; ++step) {
      switch (random() % 4) {
        case 0: {
          const std::vector<std::int32_t> choice = FreeItem(model, listed, random);
          if (choice.empty()) break;
          Pick(choice);
          listed.insert(choice.front());
          break;
        }
        case 1:
          if (listed.empty()) break;
          list.selected = {2};
          listed.erase(pricedown::ToInt32([this] {
            form.MemberList().MoveFirst();
            return form.MemberList().Field(pricedown::columns::kItemId);
          }()));
          form.MemberList().MoveFirst();
          Click(FormTool::DelItem);
          break;
        case 2:
          view.Type(FormField::ClassNumber,
                    pricedown::FromUtf8("K" + std::to_string(random() % 40)));
          break;
        default:
          view.Type(FormField::ClassName, pricedown::FromUtf8("名" + std::to_string(random() % 9)));
          break;
      }
    }
    const std::string number = pricedown::ToUtf8(view.Text(FormField::ClassNumber));
    const std::string name = pricedown::ToUtf8(view.Text(FormField::ClassName));
    const bool taken = number != opening && model.count(number) > 0;
    Click(FormTool::Save);
    if (listed.empty() || taken) {
      ++refusals;
      EXPECT_THAT(log.Text(), HasSubstr("message information"));
    } else {
      ++saves;
      model.erase(opening);
      model[number] = {name, listed};
    }
    form.Unload();
    ASSERT_EQ(Classes(), TextOf(model)) << "after showing " << showing;
  }
  // Both outcomes were reached often.
  EXPECT_GT(saves, 60);
  EXPECT_GT(refusals, 20);
}

}  // namespace
}  // namespace workbench
