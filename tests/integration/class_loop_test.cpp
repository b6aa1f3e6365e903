// A class's whole life cycle through the control: added, edited, renamed, items removed, deleted.
// Rows and messages are compared before and after each command.
#include <gmock/gmock.h>

#include "platform/error.h"
#include "tests/integration/control_fixture.h"

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::FormField;
using pricedown::FormTool;
using ::testing::HasSubstr;

TEST_F(ControlOnCompany, AddsEditsRenamesAndDeletesAClass) {
  Open();
  Command(u"Add", [&] {
    Type(u"C1", u"包装物", u"3.25");
    Pick({7, 8});
    Pick({9});
    editor.Click(FormTool::Save);
    // The form is empty again, for the next class.
    EXPECT_EQ(editor.list.Rows().Count(), 4) << "the list keeps its count, its rows are empty";
    EXPECT_EQ(pricedown::ToUtf8(editor.view.Text(FormField::ClassNumber)), "");
    // The emptied list differs from the one that was saved.
    questions.WillAnswer({false});
    editor.Click(FormTool::Exit);
  });
  EXPECT_EQ(Classes(), std::string(kA1) + kB1 +
                           "C1|包装物|7|1051|5711|1023|1281.1|3.25\n"
                           "C1|包装物|8|1051|5711|1023|1281.1|3.25\n"
                           "C1|包装物|9|1051|5711|1023|1281.1|3.25\n");
  EXPECT_EQ(Tree(), "物料 A1(原材料) B1(成品) C1(包装物) ");

  Select(u"C1");
  EXPECT_EQ(GridCodes(), "01.7 01.8 01.9 ");
  Command(u"Edit", [&] {
    EXPECT_EQ(editor.list.RowTexts(),
              "物料代码|物料名称|规格型号|\n01.7|物料7|M7|\n01.8|物料8|M8|\n01.9|物料9|M9|\n");
    Type(FormField::ClassNumber, u"D1");
    Type(FormField::ClassName, u"包装材料");
    Pick({10});
    Remove({2});
    editor.Click(FormTool::Save);
    editor.Click(FormTool::Exit);
  });
  EXPECT_EQ(Classes(), std::string(kA1) + kB1 +
                           "D1|包装材料|10|1051|5711|1023|1281.1|3.25\n"
                           "D1|包装材料|8|1051|5711|1023|1281.1|3.25\n"
                           "D1|包装材料|9|1051|5711|1023|1281.1|3.25\n");
  EXPECT_EQ(Tree(), "物料 A1(原材料) B1(成品) D1(包装材料) ");
  EXPECT_EQ(GridCodes(), "01.7 01.8 01.9 ") << "painted again, not queried";

  Command(u"Del");
  Select(u"D1");
  questions.WillAnswer({false});
  Command(u"Del");
  EXPECT_THAT(Classes(), HasSubstr("D1|"));
  questions.WillAnswer({true});
  Command(u"Del");
  EXPECT_EQ(Classes(), std::string(kA1) + kB1);
  EXPECT_EQ(GridCodes(), "");
  const char* question =
      "\"确定要删除当前记录? 当前的物料类别代码为:D1  物料类别名称为:包装材料\" -> ";
  EXPECT_EQ(Messages(), std::string("\"当前记录已经改变，是否保存?\" -> no\n"
                                    "\"请选择要删除的物料类别\"\n") +
                            question + "no\n" + question + "yes\n");
}

TEST_F(ControlOnCompany, ReachesTheSameCommandsFromTheHostsTools) {
  Open();
  Select(u"A1");
  const auto click = [&](std::u16string_view tool) { control->BarList()->Click(tool); };
  editor.whileShown = [&] {
    Type(FormField::ClassName, u"材料");
    editor.Click(FormTool::Save);
  };
  click(u"iEdit");
  EXPECT_THAT(Classes(), HasSubstr("A1|材料|3|"));
  editor.whileShown = [&] {
    Type(u"C1", u"包装物", u"0");
    Pick({7});
    editor.Click(FormTool::Save);
  };
  click(u"iInsert");
  EXPECT_THAT(Classes(), HasSubstr("C1|包装物|7|1051|5711|1023|1281.1|0\n"));
  Select(u"C1");
  questions.WillAnswer({true});
  click(u"iCut");
  EXPECT_EQ(Classes().find("C1|"), std::string::npos);
}

// What each guard refuses and allows, on both sides of its rule.
struct GuardCase {
  const char* name;
  std::int32_t year;
  std::int32_t period;
  double amount;
  bool voucher;
  bool deletes;      // the class
  bool removes;      // the item
  bool keepsAmount;  // after what was deleted or removed
  const char* classRefusal;
  const char* itemRefusal;
};

std::ostream& operator<<(std::ostream& stream, const GuardCase& given) {
  return stream << given.name;
}

constexpr const char* kClassHistory = "\"该物料类别在以前期间已有业务发生，不得删除！\"\n";
constexpr const char* kClassVoucher = "\"本期跌价准备数据已经生成凭证，不得删除物料类别！\"\n";
constexpr const char* kItemHistory = "\"该物料(01.2)在以前期间已有业务发生，不得删除！\"\n";
constexpr const char* kItemVoucher = "\"该物料(01.2)本期跌价准备数据已经生成凭证，不得删除！\"\n";

class Guards : public ControlOnCompany, public ::testing::WithParamInterface<GuardCase> {
 protected:
  Guards() {
    const GuardCase& given = GetParam();
    AddProvision(2, given.year, given.period, given.amount);
    if (given.voucher) AddVoucher();
    Open();
    Select(u"A1");
  }
};

TEST_P(Guards, DecideOnTheDeletionOfTheClass) {
  const GuardCase& given = GetParam();
  questions.WillAnswer({true});
  Command(u"Del");
  EXPECT_EQ(Classes(), given.deletes ? std::string(kB1) : std::string(kA1) + kB1);
  const bool kept = !given.deletes || given.keepsAmount;
  EXPECT_EQ(Provisions().empty(), !kept);
  EXPECT_EQ(Messages(), std::string("\"确定要删除当前记录? 当前的物料类别代码为:A1  "
                                    "物料类别名称为:原材料\" -> yes\n") +
                            given.classRefusal);
}

TEST_P(Guards, DecideOnTheRemovalOfTheItem) {
  const GuardCase& given = GetParam();
  Command(u"Edit", [&] {
    Remove({3});
    EXPECT_EQ(editor.list.RowTexts(), std::string("物料代码|物料名称|规格型号|\n01.1|物料1|M1|\n") +
                                          (given.removes ? "" : "01.2|物料2|M2|\n") +
                                          "01.3|物料3|M3|\n");
    // The provision is deleted at once or not at all; the class is written by the save.
    const bool deleted = given.removes && !given.keepsAmount && !given.voucher;
    EXPECT_EQ(Provisions().empty(), deleted);
    EXPECT_EQ(Classes(), std::string(kA1) + kB1);
    editor.Click(FormTool::Save);
  });
  EXPECT_EQ(Classes().find("A1|原材料|2|") == std::string::npos, given.removes);
  EXPECT_EQ(Messages(), given.itemRefusal);
}

INSTANTIATE_TEST_SUITE_P(
    ControlOnCompany, Guards,
    ::testing::Values(
        GuardCase{"SamePeriod", 2008, 3, 5, false, true, true, false, "", ""},
        GuardCase{"SameYearBefore", 2008, 2, 5, false, false, false, true, kClassHistory,
                  kItemHistory},
        GuardCase{"SameYearAfter", 2008, 4, 5, false, true, true, true, "", ""},
        GuardCase{"EarlierYearLaterPeriod", 2007, 12, 5, false, false, false, true, kClassHistory,
                  kItemHistory},
        GuardCase{"LaterYearEarlierPeriod", 2009, 1, 5, false, true, true, true, "", ""},
        GuardCase{"EarlierZeroes", 2007, 12, 0, false, true, true, true, "", ""},
        GuardCase{"NegativeHistory", 2008, 1, -5, false, false, false, true, kClassHistory,
                  kItemHistory},
        GuardCase{"VoucherAndAmount", 2008, 3, 5, true, false, false, true, kClassVoucher,
                  kItemVoucher},
        GuardCase{"VoucherAndZero", 2008, 3, 0, true, false, true, true, kClassVoucher, ""},
        GuardCase{"VoucherAndHistory", 2008, 2, 5, true, false, false, true, kClassVoucher,
                  kItemHistory},
        GuardCase{"VoucherAndLaterAmount", 2008, 4, 5, true, false, true, true, kClassVoucher, ""}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(ControlOnCompany, RemovesTheRemovableItemsAndNamesTheOther) {
  AddProvision(2, 2008, 1, 5);
  AddProvision(1, 2008, 3, 5);
  AddProvision(3, 2008, 3, 6);
  AddProvision(4, 2008, 3, 7);
  Open();
  Select(u"A1");
  Command(u"Edit", [&] {
    Remove({2, 3, 4});
    EXPECT_EQ(editor.list.RowTexts(), "物料代码|物料名称|规格型号|\n01.2|物料2|M2|\n");
    questions.WillAnswer({false});
    editor.Click(FormTool::Exit);
  });
  EXPECT_EQ(Messages(), std::string(kItemHistory) + "\"当前记录已经改变，是否保存?\" -> no\n");
  EXPECT_EQ(Classes(), std::string(kA1) + kB1);
  EXPECT_EQ(Provisions(), "2|2008|1|5\n4|2008|3|7\n") << "of the items removed, and at once";
}

TEST_F(ControlOnCompany, KeepsTheClassThatIsClosedWithoutSaving) {
  Open();
  Select(u"A1");
  Command(u"Edit", [&] {
    Type(u"Z", u"z", u"1");
    Remove({2, 3, 4});
    questions.WillAnswer({false});
    editor.Click(FormTool::Exit);
  });
  EXPECT_EQ(Classes(), std::string(kA1) + kB1);
  EXPECT_EQ(Messages(), "\"当前记录已经改变，是否保存?\" -> no\n");
  Select(u"A1");
  Command(u"Edit", [&] {
    Type(FormField::ClassName, u"z");
    editor.Shown().Unload();
  });
  EXPECT_EQ(Classes(), std::string(kA1) + kB1);
}

TEST_F(ControlOnCompany, LeavesTheClassAsItWasWhenItsTextIsRefused) {
  Open();
  Select(u"A1");
  Command(u"Edit", [&] {
    Type(FormField::ClassName, u"it's");
    EXPECT_THROW(editor.Click(FormTool::Save), AutomationError);
    EXPECT_EQ(Classes(), std::string(kA1) + kB1);
    EXPECT_TRUE(editor.Shown().State().saved);
    Type(FormField::ClassName, u"its");
    editor.Click(FormTool::Save);
  });
  EXPECT_THAT(Classes(), HasSubstr("A1|its|2|"));
}

// A batch runs statement by statement: the delete and the rows before the failing one stay.
TEST_F(ControlOnCompany, LeavesWhatRanBeforeARowThatTheTableRefuses) {
  Open();
  Select(u"A1");
  sqlite3* database = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(path_.c_str(), &database));
  RegisterServerText(database);
  ASSERT_EQ(SQLITE_OK, sqlite3_exec(database,
                                    "CREATE TRIGGER refuse BEFORE INSERT ON icPriceDownClass "
                                    "WHEN NEW.FItemID=3 BEGIN SELECT RAISE(ABORT,'no'); END",
                                    nullptr, nullptr, nullptr));
  Command(u"Edit", [&] {
    Type(FormField::ClassName, u"材料");
    EXPECT_THROW(editor.Click(FormTool::Save), AutomationError);
    EXPECT_EQ(Classes(), std::string("A1|材料|1|1051|5711|1023|1281.1|12.5\n"
                                     "A1|材料|2|1051|5711|1023|1281.1|12.5\n") +
                             kB1);
    ASSERT_EQ(SQLITE_OK, sqlite3_exec(database, "DROP TRIGGER refuse", nullptr, nullptr, nullptr));
    // The form still holds all its rows.
    editor.Click(FormTool::Save);
  });
  sqlite3_close(database);
  EXPECT_EQ(Classes(), std::string("A1|材料|1|1051|5711|1023|1281.1|12.5\n"
                                   "A1|材料|2|1051|5711|1023|1281.1|12.5\n"
                                   "A1|材料|3|1051|5711|1023|1281.1|12.5\n") +
                           kB1);
}

// A host that closes its window while the form is open.
TEST_F(ControlOnCompany, EndsWhileItsFormIsOpen) {
  Open();
  Select(u"A1");
  Command(u"Edit", [&] {
    control->Terminate();
    Type(FormField::ClassName, u"材料");
    editor.Click(FormTool::Save);
    editor.Click(FormTool::Exit);
  });
  EXPECT_THAT(Classes(), HasSubstr("A1|材料|3|"));
  control.reset();
  EXPECT_EQ(recorder->LiveObjects(), 0);
}

}  // namespace
}  // namespace workbench
