// Classes and calls at the edges of what the control supports: numbers that the database treats as
// equal, items that are never listed, a second rename, short codes, the host's own calls.
#include <gmock/gmock.h>

#include "platform/error.h"
#include "tests/integration/control_fixture.h"

namespace workbench {
namespace {

using pricedown::FormField;
using pricedown::FormTool;
using ::testing::HasSubstr;
using ::testing::Not;

class AwkwardClasses : public ControlOnCompany {};

TEST_F(AwkwardClasses, AreEqualForTheDatabaseWhenTheirNumbersDifferInCaseOnly) {
  InsertClass(u"a1", u"小写", {6});
  Open();
  Select(u"a1");
  EXPECT_EQ(GridCodes(), "01.1 01.2 01.3 01.6 ");
  questions.WillAnswer({true});
  Command(u"Del");
  EXPECT_THAT(Messages(), HasSubstr("当前的物料类别代码为:A1  物料类别名称为:原材料"))
      << "of the first row";
  EXPECT_EQ(Classes(), kB1);
}

TEST_F(AwkwardClasses, LoseTheItemsThatAreNeverListedWhenTheyAreSaved) {
  Run(u"update t_ICItem set FErpClsID=8 where FItemID=2");
  Open();
  Select(u"A1");
  EXPECT_EQ(GridCodes(), "01.1 01.3 ");
  Command(u"Edit", [&] { editor.Click(FormTool::Save); });
  EXPECT_EQ(Classes(), std::string("A1|原材料|1|1051|5711|1023|1281.1|12.5\n"
                                   "A1|原材料|3|1051|5711|1023|1281.1|12.5\n") +
                           kB1);
}

TEST_F(AwkwardClasses, WithoutAListedItemCanNeitherBeChangedNorDeleted) {
  Run(u"update t_ICItem set FErpClsID=6 where FItemID=4");
  Run(u"update t_ICItem set FErpClsID=6 where FItemID=5");
  Open();
  Select(u"B1");
  EXPECT_EQ(GridCodes(), "");
  Command(u"Edit");
  Command(u"Del");
  EXPECT_EQ(Messages(), "\"请选择要修改的物料类别\"\n\"请选择要删除的物料类别\"\n");
  EXPECT_EQ(Classes(), std::string(kA1) + kB1);
}

TEST_F(AwkwardClasses, KeepTheRowsOfTheirFirstNewNumberAtASecondRename) {
  Open();
  Select(u"A1");
  Command(u"Edit", [&] {
    Type(FormField::ClassNumber, u"D1");
    editor.Click(FormTool::Save);
    Type(FormField::ClassNumber, u"E1");
    editor.Click(FormTool::Save);
  });
  EXPECT_EQ(Classes(), std::string(kB1) +
                           "D1|原材料|1|1051|5711|1023|1281.1|12.5\n"
                           "D1|原材料|2|1051|5711|1023|1281.1|12.5\n"
                           "D1|原材料|3|1051|5711|1023|1281.1|12.5\n"
                           "E1|原材料|1|1051|5711|1023|1281.1|12.5\n"
                           "E1|原材料|2|1051|5711|1023|1281.1|12.5\n"
                           "E1|原材料|3|1051|5711|1023|1281.1|12.5\n");
}

TEST_F(AwkwardClasses, ShowFullCodesInTheFormWhereTheGridShowsShortOnes) {
  suite_->SetProfile(u"IC", u"UseShortNumber", u"1");
  Open();
  Select(u"A1");
  EXPECT_EQ(GridCodes(), "1 2 3 ");
  std::string rows;
  Command(u"Edit", [&] { rows = editor.list.RowTexts(); });
  EXPECT_EQ(rows, "物料代码|物料名称|规格型号|\n01.1|物料1|M1|\n01.2|物料2|M2|\n01.3|物料3|M3|\n");
}

class HostsOwnCalls : public ControlOnCompany {};

TEST_F(HostsOwnCalls, AskForNoRight) {
  suite_->SetRightsMask(1002, 35, 0);
  Open();
  Select(u"B1");
  questions.WillAnswer({true});
  control->delRecord();
  EXPECT_EQ(Classes(), kA1);
  EXPECT_THAT(Messages(), Not(HasSubstr("没有权限")));
}

TEST_F(HostsOwnCalls, AddAClassEvenWhereProvisionsAreKeptByItem) {
  suite_->SetProfile(u"IC", u"PriceDownPrepare", u"2");
  Open();
  editor.whileShown = [&] {
    Type(u"C1", u"包装物", u"0");
    Pick({7});
    editor.Click(FormTool::Save);
  };
  control->addRecord();
  EXPECT_THAT(Classes(), HasSubstr("C1|包装物|7|1051|5711|1023|1281.1|0\n"));
}

// The rows of all items name no class.
TEST_F(HostsOwnCalls, ChangeAndDeleteNothingWhereProvisionsAreKeptByItem) {
  suite_->SetProfile(u"IC", u"PriceDownPrepare", u"2");
  Open();
  control->NodeClicked(1);
  ASSERT_THAT(GridCodes(), HasSubstr("01.1 "));
  EXPECT_THROW(control->editRecord(), pricedown::AutomationError);
  EXPECT_THROW(control->delRecord(), pricedown::AutomationError);
  EXPECT_EQ(Classes(), std::string(kA1) + kB1);
  EXPECT_EQ(Messages(), "");
}

}  // namespace
}  // namespace workbench
