// The whole control on the sample company: the suite's stand-ins, SQLite and the in-memory
// recordset. Only windows and user are fakes.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "control/price_down.h"
#include "platform/text.h"
#include "tests/browser/page_keeper.h"
#include "tests/browser/recording_editor.h"
#include "tests/browser/recording_views.h"
#include "tests/control/recording_control_views.h"
#include "tests/sample/temporary_folder.h"
#include "tests/support/recording_questions.h"
#include "tests/support/utf8.h"
#include "workbench/sample/company_file.h"
#include "workbench/suite/suite_factory.h"

namespace pricedown {
namespace {

using testing::Utf8;

class BrowserOnSample : public ::testing::Test {
 protected:
  BrowserOnSample() {
    const std::string path = folder_.PathOf("sample.db");
    workbench::CreateCompanyFile(path, {});
    suite_->OpenCompany(FromUtf8(path));
  }

  // A new control, as the host makes it.
  PriceDown& Open(std::u16string_view caption = u"物料类别维护") {
    control_.reset();
    container_.caption = caption;
    control_ = std::make_unique<PriceDown>(PriceDownPorts{factory_, state_, questions_, screen_,
                                                          container_, view_, treeView_, fontView_,
                                                          u"Host", nullptr, editor_, output_});
    control_->Initialize();
    EXPECT_TRUE(control_->Show(nullptr));
    return *control_;
  }

  NodeIndex Node(std::u16string_view key) { return control_->Nodes().FindKey(key); }
  void Click(std::u16string_view key) {
    treeView_.selected = Node(key);
    control_->NodeClicked(Node(key));
  }
  std::int32_t Rows() { return control_->GetGrid().MaxRows(); }
  std::string Cell(std::int32_t column, std::int32_t row) {
    return Utf8(control_->GetGrid().Text(column, row));
  }
  std::int32_t Count(std::u16string_view statement) {
    return static_cast<std::int32_t>(suite_->Execute(statement).RowCount());
  }

  workbench::testing::TemporaryFolder folder_;
  workbench::SuiteStatePtr suite_ = std::make_shared<workbench::SuiteState>();
  workbench::SuiteFactory factory_{suite_};
  ThreadState state_;
  testing::CallLog log_;
  testing::RecorderPtr recorder_ = std::make_shared<testing::Recorder>(log_);
  testing::RecordingQuestions questions_{log_};
  testing::RecordingScreen screen_{recorder_};
  testing::RecordingContainer container_{recorder_};
  testing::RecordingPriceDownView view_{recorder_};
  testing::RecordingTreeView treeView_{recorder_};
  testing::RecordingFontView fontView_{recorder_};
  Environment formEnvironment_{factory_, state_, questions_, screen_, u"Host"};
  testing::RecordingEditor editor_{formEnvironment_, recorder_, log_};
  testing::PageKeeper output_;
  std::unique_ptr<PriceDown> control_;
};

TEST_F(BrowserOnSample, ListsEveryClassOnceUnderTheRoot) {
  Open();
  EXPECT_EQ(26u, control_->Nodes().Count());
  EXPECT_EQ("物料", treeView_.texts[1]);
  EXPECT_EQ("01(黑色金属材料)", treeView_.texts[Node(u"gi01")]);
}

TEST_F(BrowserOnSample, ShowsATrimmedNameAndTheFirstOfTwoNames) {
  Open();
  EXPECT_EQ("17(呆滞材料)", treeView_.texts[Node(u"gi17")]);
  EXPECT_EQ("16(停产专用料)", treeView_.texts[Node(u"gi16")]);
}

TEST_F(BrowserOnSample, KeepsClassesApartThatDifferInCaseOnly) {
  Open();
  EXPECT_NE(kNoNode, Node(u"giB7"));
  EXPECT_NE(kNoNode, Node(u"gib7"));
  EXPECT_NE(Node(u"giB7"), Node(u"gib7"));
}

TEST_F(BrowserOnSample, ListsTheItemsOfTheClickedClassInCodeOrder) {
  Open();
  Click(u"gi05");
  EXPECT_EQ(Count(u"select a.FItemID from icPriceDownClass a,t_ICItem b where a.FItemID=b.FItemID "
                  u"and b.FErpClsID not in(6,8) and a.FItemClassNumber='05'"),
            Rows());
  ASSERT_GT(Rows(), 2);
  for (std::int32_t row = 2; row <= Rows(); ++row) EXPECT_LE(Cell(1, row - 1), Cell(1, row));
  EXPECT_EQ("03.01", Cell(1, 1).substr(0, 5));
}

TEST_F(BrowserOnSample, HidesMembersOfTheCategoriesThatAreNeverListed) {
  Open();
  Click(u"gi21");
  EXPECT_EQ(0, Rows());
  Click(u"gi20");
  EXPECT_GT(Rows(), 0);
  EXPECT_LT(Rows(), Count(u"select FItemID from icPriceDownClass where FItemClassNumber='20'"));
}

TEST_F(BrowserOnSample, EmptiesTheGridForTheRoot) {
  Open();
  Click(u"gi05");
  Click(u"gc0");
  EXPECT_EQ(0, Rows());
  EXPECT_EQ("物料代码", Cell(1, 0));
}

TEST_F(BrowserOnSample, ShowsShortCodesAndAnEmptyCellForAMissingOne) {
  suite_->SetProfile(u"IC", u"UseShortNumber", u"1");
  Open();
  Click(u"gi19");
  bool missing = false;
  for (std::int32_t row = 1; row <= Rows(); ++row) {
    EXPECT_EQ(std::string::npos, Cell(1, row).find("05.06."));
    missing = missing || Cell(1, row).empty();
  }
  EXPECT_TRUE(missing);
}

TEST_F(BrowserOnSample, ListsAllItemsUnderABareRootWhenKeptByItem) {
  suite_->SetProfile(u"IC", u"PriceDownPrepare", u"2");
  Open();
  EXPECT_EQ(1u, control_->Nodes().Count());
  EXPECT_EQ(Count(u"select FItemID from t_ICItem where FErpClsID not in(6,8)"), Rows());
  EXPECT_NE(std::string::npos, log_.Text().find("view disable button Add"));
}

TEST_F(BrowserOnSample, ReselectsTheLastNodePerMode) {
  Open();
  Click(u"gi03");
  Open(u"其他窗口");
  EXPECT_EQ(Node(u"gc0"), treeView_.selected);
  Open();
  EXPECT_EQ(Node(u"gi03"), treeView_.selected);
  EXPECT_EQ("02.01", Cell(1, 1).substr(0, 5));
}

TEST_F(BrowserOnSample, KeepsItsSelectionUnderItsOwnModeWhileAnotherModeIsOpen) {
  Open();
  Click(u"gi03");
  {
    testing::RecordingContainer container(recorder_);
    container.caption = u"其他窗口";
    testing::RecordingTreeView tree(recorder_);
    testing::RecordingPriceDownView view(recorder_);
    PriceDown other(PriceDownPorts{factory_, state_, questions_, screen_, container, view, tree,
                                   fontView_, u"Host", nullptr, editor_, output_});
    other.Initialize();
    other.Show(nullptr);
    control_.reset();
  }
  Open(u"其他窗口");
  EXPECT_EQ(Node(u"gc0"), treeView_.selected);
  Open();
  EXPECT_EQ(Node(u"gi03"), treeView_.selected);
}

TEST_F(BrowserOnSample, LocksTheWholeGridForTheLowestDataScope) {
  suite_->SetRightsMask(10, 151, 0x100000);
  Open();
  Click(u"gi05");
  EXPECT_TRUE(control_->GetGrid().IsLocked(4, 1));
  suite_->SetRightsMask(10, 151, 0x200000);
  Open();
  Click(u"gi05");
  EXPECT_FALSE(control_->GetGrid().IsLocked(4, 1));
  EXPECT_TRUE(control_->GetGrid().IsLocked(3, 1));
}

TEST_F(BrowserOnSample, DeletesAClassAndItsCurrentProvisionAfterYes) {
  Open();
  Click(u"gi05");
  ASSERT_GT(
      Count(u"select FItemID from ICPriceDownPrepare a where FYear='2008' and FPeriod='3' and "
            u"FItemID in(select FItemID from icPriceDownClass where FItemClassNumber='05')"),
      0);
  const std::int32_t others =
      Count(u"select FItemID from icPriceDownClass where FItemClassNumber<>'05'");
  const std::int32_t provisions = Count(u"select FItemID from ICPriceDownPrepare");
  questions_.WillAnswer({true});
  control_->delRecord();
  EXPECT_EQ(0, Count(u"select FItemID from icPriceDownClass where FItemClassNumber='05'"));
  EXPECT_EQ(others, Count(u"select FItemID from icPriceDownClass"));
  EXPECT_LT(Count(u"select FItemID from ICPriceDownPrepare"), provisions);
  EXPECT_EQ(kNoNode, Node(u"gi05"));
  EXPECT_EQ(Node(u"gc0"), treeView_.selected);
  EXPECT_EQ(0, Rows());
}

TEST_F(BrowserOnSample, DeletesAClassWhoseEarlierAmountsAreAllZero) {
  Open();
  Click(u"gi04");
  ASSERT_GT(Count(u"select a.FItemID from ICPriceDownPrepare a inner join icPriceDownClass b on "
                  u"a.FItemID=b.FItemID where a.FYear<'2008' and b.FItemClassNumber='04'"),
            0);
  questions_.WillAnswer({true});
  control_->delRecord();
  EXPECT_EQ(0, Count(u"select FItemID from icPriceDownClass where FItemClassNumber='04'"));
}

TEST_F(BrowserOnSample, ListsAnItemOfTwoClassesUnderBoth) {
  Open();
  Click(u"gi18");
  std::set<std::string> codes;
  for (std::int32_t row = 1; row <= Rows(); ++row) codes.insert(Cell(1, row));
  Click(u"gi03");
  std::int32_t both = 0;
  for (std::int32_t row = 1; row <= Rows(); ++row) both += codes.contains(Cell(1, row));
  EXPECT_EQ(1, both);
}

TEST_F(BrowserOnSample, ShowsTheDatabasesErrorForAClassNumberWithAnApostrophe) {
  suite_->Execute(
      u"INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName)"
      u"VALUES(1,'it''s','坏')");
  Open();
  Click(u"giit's");
  EXPECT_NE(std::string::npos, log_.Text().find("message ")) << log_.Text();
  EXPECT_EQ(0, Rows());
}

TEST_F(BrowserOnSample, KeepsAClassWithHistoryOrAVoucherOrANo) {
  Open();
  const std::int32_t rows = Count(u"select FItemID from icPriceDownClass");
  const std::int32_t provisions = Count(u"select FItemID from ICPriceDownPrepare");
  Click(u"gi02");
  questions_.WillAnswer({true, false, true});
  control_->delRecord();
  EXPECT_NE(std::string::npos, log_.Text().find("该物料类别在以前期间已有业务发生，不得删除！"));
  Click(u"gi05");
  control_->delRecord();
  factory_.Create(u"ZEPWorkbench.Settings")->Put(u"VoucherPresent", true);
  control_->delRecord();
  EXPECT_NE(std::string::npos,
            log_.Text().find("本期跌价准备数据已经生成凭证，不得删除物料类别！"));
  EXPECT_EQ(rows, Count(u"select FItemID from icPriceDownClass"));
  EXPECT_EQ(provisions, Count(u"select FItemID from ICPriceDownPrepare"));
}

TEST_F(BrowserOnSample, ReportsWhyTheGridCannotBeLoadedAndStaysUsable) {
  Open();
  auto company = std::move(suite_->company);
  control_->NodeClicked(Node(u"gi05"));
  EXPECT_NE(std::string::npos, log_.Text().find("没有打开公司数据库。"));
  suite_->company = std::move(company);
  Click(u"gi05");
  EXPECT_GT(Rows(), 0);
}

}  // namespace
}  // namespace pricedown
