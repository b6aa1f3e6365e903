// `DelItem`: three statements per item, four decisions, the list afterwards.
// The integration tests check which amounts count.
#include "editor/removal_guard.h"

#include <gmock/gmock.h>

#include "platform/text.h"
#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

std::u16string HistoryOf(std::u16string_view code) {
  return Concatenate(
      {u"select top 1 a.FItemID from ICPriceDownPrepare a \r\ninner join t_ICItem b "
       u"on a.FItemID=b.FItemID \r\nwhere ((a.FYear='2008' and a.FPeriod<'3') \r\n"
       u"or (a.FYear<'2008')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and "
       u"b.FNumber='",
       code, u"'\r\n"});
}

constexpr std::u16string_view kVoucher =
    u"select top 1 FVoucherID from t_voucher where FYear='2008'and FPeriod='3'and FTranType=820 "
    u"and FInternalInd='Industry'\r\n";

std::u16string AmountsOf(std::u16string_view code) {
  return Concatenate(
      {u"select top 1 a.FItemID from ICPriceDownPrepare a \r\ninner join t_ICItem b "
       u"on a.FItemID=b.FItemID \r\nwhere a.FYear='2008' and a.FPeriod='3'\r\n and "
       u"(a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FNumber='",
       code, u"'\r\n"});
}

std::u16string DeleteOf(std::u16string_view beginning, std::u16string_view code) {
  return Concatenate({beginning,
                      u" from ICPriceDownPrepare a \r\ninner join t_ICItem b on "
                      u"a.FItemID=b.FItemID \r\nwhere (a.FYear='2008' and "
                      u"a.FPeriod='3') \r\nand b.FNumber='",
                      code, u"'\r\n"});
}

std::string Executed(std::u16string_view statement) {
  return "ZEPConnection.AppConnection.Execute(" + Quoted(statement) + ")";
}

ScriptedRows NoRows() { return Rows({u"FItemID"}, {}); }
ScriptedRows OneRow() { return Rows({u"FItemID"}, {{101}}); }

// The company's answers for one item.
struct ItemAnswers {
  ScriptedRows history = NoRows();
  ScriptedRows amounts = NoRows();
};

void Answer(RecordingFactory& factory, std::u16string_view code, ItemAnswers answers) {
  AnswerStatement(factory, HistoryOf(code), std::move(answers.history));
  AnswerStatement(factory, AmountsOf(code), std::move(answers.amounts));
  AnswerNothing(factory, DeleteOf(u"delete  a", code));
}

class RemovalGuard : public EditorTest {
 protected:
  RemovalGuard() { AnswerPeriod(factory); }
  void Voucher(bool exists) {
    AnswerStatement(factory, kVoucher, exists ? Rows({u"FVoucherID"}, {{1}}) : NoRows());
  }
  void OpenAndSelect(std::vector<std::int32_t> rows) {
    OpenForEdit();
    list.selected = std::move(rows);
  }
  // The lines after year and period are read.
  std::string TextBehindThePeriod() const {
    constexpr std::string_view kLast = "release ZEPEBSBase.SystemProfile\n";
    const std::string text = log.Text();
    return text.substr(text.find(kLast) + kLast.size());
  }
};

TEST_F(RemovalGuard, ReadsThePeriodAgainAndDeletesCurrentRowsAtOnce) {
  Voucher(false);
  Answer(factory, u"01.001", {});
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBSBase.SystemProfile
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPEBSBase.SystemProfile.GetProfile("LANGUAGE=chs", "IC", "CurrentYear")
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPEBSBase.SystemProfile.GetProfile("LANGUAGE=chs", "IC", "CurrentPeriod")
      release ZEPEBSBase.SystemProfile
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("select top 1 a.FItemID from ICPriceDownPrepare a \r\ninner join t_ICItem b on a.FItemID=b.FItemID \r\nwhere ((a.FYear='2008' and a.FPeriod<'3') \r\nor (a.FYear<'2008')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FNumber='01.001'\r\n")
      ZEPConnection.AppConnection.Execute("select top 1 FVoucherID from t_voucher where FYear='2008'and FPeriod='3'and FTranType=820 and FInternalInd='Industry'\r\n")
      ZEPConnection.AppConnection.Execute("select top 1 a.FItemID from ICPriceDownPrepare a \r\ninner join t_ICItem b on a.FItemID=b.FItemID \r\nwhere a.FYear='2008' and a.FPeriod='3'\r\n and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FNumber='01.001'\r\n")
      ZEPConnection.AppConnection.Execute("delete  a from ICPriceDownPrepare a \r\ninner join t_ICItem b on a.FItemID=b.FItemID \r\nwhere (a.FYear='2008' and a.FPeriod='3') \r\nand b.FNumber='01.001'\r\n")
      release result
      release result
      release result
      release ZEPConnection.AppConnection
      enable Save
      rows 2
      )"));
  EXPECT_THAT(MemberIds(), ElementsAre(102));
}

TEST_F(RemovalGuard, ShowsTheRemainingRows) {
  Voucher(false);
  Answer(factory, u"01.001", {});
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n01.002|螺母||\n");
}

TEST_F(RemovalGuard, UsesTheUpdatedFilterAndRemovesOnlyTheFilteredRow) {
  Voucher(false);
  Answer(factory, u"01.002", {});
  OpenAndSelect({3});
  factory.LogRecordsetCalls();
  form.ToolClicked(FormTool::DelItem);
  const std::string text = log.Text();
  EXPECT_THAT(text, HasSubstr("put ADODB.Recordset.Filter = \"fNumber='01.002'\"\n"
                              "create ZEPConnection.AppConnection\n"));
  EXPECT_THAT(text, HasSubstr("ADODB.Recordset.Delete()\nADODB.Recordset.Update()\n"));
  EXPECT_EQ(text.substr(text.find("put ADODB.Recordset.Filter = \"\"")), Lines(R"(
      put ADODB.Recordset.Filter = ""
      ADODB.Recordset.RecordCount()
      ADODB.Recordset.MoveFirst()
      enable Save
      rows 2
      )"));
  EXPECT_THAT(MemberIds(), ElementsAre(101));
}

TEST_F(RemovalGuard, RefusesAnItemWithHistoryWithOrWithoutAVoucher) {
  Voucher(false);
  Answer(factory, u"01.001", {.history = OneRow()});
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(TextBehindThePeriod(), "create ZEPConnection.AppConnection\n" +
                                       Executed(HistoryOf(u"01.001")) + "\n" + Lines(R"(
      message information "岚禾提示": "该物料(01.001)在以前期间已有业务发生，不得删除！"
      release result
      release ZEPConnection.AppConnection
      enable Save
      rows 3
      )"));
  EXPECT_THAT(MemberIds(), ElementsAre(101, 102));
}

TEST_F(RemovalGuard, RefusesAnItemWithAmountsOnceTheVoucherExists) {
  Voucher(true);
  Answer(factory, u"01.001", {.amounts = OneRow()});
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(log.Count("message information \"岚禾提示\": "
                      "\"该物料(01.001)本期跌价准备数据已经生成凭证，不得删除！\""),
            1u);
  EXPECT_THAT(log.Text(), Not(HasSubstr("delete")));
  EXPECT_THAT(MemberIds(), ElementsAre(101, 102));
}

TEST_F(RemovalGuard, RemovesAnItemWithoutAmountsUnderAVoucherAndDeletesNothing) {
  Voucher(true);
  Answer(factory, u"01.001", {});
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_THAT(log.Text(), Not(HasSubstr("delete")));
  EXPECT_THAT(log.Text(), Not(HasSubstr("message ")));
  EXPECT_THAT(MemberIds(), ElementsAre(102));
}

TEST_F(RemovalGuard, RemovesAnItemUnderAVoucherWhenTheAmountsHaveNoResult) {
  Voucher(true);
  AnswerStatement(factory, HistoryOf(u"01.001"), NoRows());
  AnswerNothing(factory, AmountsOf(u"01.001"));
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_THAT(MemberIds(), ElementsAre(102));
}

TEST_F(RemovalGuard, DeletesAmountsOfTheCurrentPeriodWithoutAVoucher) {
  Voucher(false);
  Answer(factory, u"01.001", {.amounts = OneRow()});
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(log.Count(Executed(DeleteOf(u"delete  a", u"01.001"))), 1u);
  EXPECT_THAT(MemberIds(), ElementsAre(102));
}

TEST_F(RemovalGuard, DeletesWithoutAnAliasWhenTheVoucherHasNoResult) {
  AnswerNothing(factory, kVoucher);
  AnswerStatement(factory, HistoryOf(u"01.001"), NoRows());
  AnswerStatement(factory, AmountsOf(u"01.001"), OneRow());
  AnswerNothing(factory, DeleteOf(u"delete", u"01.001"));
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(log.Count(Executed(DeleteOf(u"delete", u"01.001"))), 1u);
  EXPECT_THAT(MemberIds(), ElementsAre(102));
}

TEST_F(RemovalGuard, TreatsAHistoryWithoutAResultAsNone) {
  Voucher(false);
  AnswerNothing(factory, HistoryOf(u"01.001"));
  AnswerStatement(factory, AmountsOf(u"01.001"), NoRows());
  AnswerNothing(factory, DeleteOf(u"delete  a", u"01.001"));
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_THAT(MemberIds(), ElementsAre(102));
}

TEST_F(RemovalGuard, TreatsAnUnknownCountAsZero) {
  factory.Object(u"uncounted").On(u"RecordCount", Reply(-1));
  for (const std::u16string& statement :
       {HistoryOf(u"01.001"), std::u16string(kVoucher), AmountsOf(u"01.001")}) {
    factory.Object(kConnectionId)
        .On(u"Execute", Arguments({statement}), factory.Answering(u"uncounted"));
  }
  AnswerNothing(factory, DeleteOf(u"delete  a", u"01.001"));
  OpenAndSelect({2});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(log.Count(Executed(DeleteOf(u"delete  a", u"01.001"))), 1u);
  EXPECT_THAT(MemberIds(), ElementsAre(102));
}

TEST_F(RemovalGuard, RefusesOneOfThreeAndRemovesTheOthers) {
  Voucher(false);
  Answer(factory, u"01.001", {});
  Answer(factory, u"01.002", {.history = OneRow()});
  Answer(factory, u"01.003", {});
  std::vector<MemberItem> items = BoltAndNut();
  items.push_back({103, u"01.003", u"垫圈", u""});
  OpenForEdit(RawMaterials(), items);
  list.selected = {2, 3, 4};
  form.ToolClicked(FormTool::DelItem);
  EXPECT_THAT(MemberIds(), ElementsAre(102));
  EXPECT_EQ(log.Count("message information \"岚禾提示\": "
                      "\"该物料(01.002)在以前期间已有业务发生，不得删除！\""),
            1u);
  EXPECT_EQ(log.Count("create ZEPConnection.AppConnection"), 3u) << "one for each row";
  EXPECT_EQ(log.Count("rows 2"), 1u);
}

TEST_F(RemovalGuard, RemovesRowsInTheOrderOfTheSelection) {
  Voucher(false);
  Answer(factory, u"01.001", {});
  Answer(factory, u"01.002", {});
  OpenAndSelect({3, 2});
  form.ToolClicked(FormTool::DelItem);
  const std::string text = log.Text();
  EXPECT_LT(text.find(Executed(HistoryOf(u"01.002"))), text.find(Executed(HistoryOf(u"01.001"))));
  EXPECT_THAT(MemberIds(), IsEmpty());
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n");
}

TEST_F(RemovalGuard, StopsWhenTheFormIsClosedDuringARefusal) {
  Voucher(false);
  Answer(factory, u"01.001", {.history = OneRow()});
  OpenAndSelect({2, 3});
  questions.whileShown = [this] { form.Unload(); };
  form.ToolClicked(FormTool::DelItem);
  const std::string text = log.Text();
  EXPECT_EQ(text.substr(text.find("unload")), Lines(R"(
      unload
      release result
      release ZEPConnection.AppConnection
      )"));
  EXPECT_EQ(log.Count("create ZEPConnection.AppConnection"), 1u);
}

TEST_F(RemovalGuard, DeletesNothingOnceTheFormHasEndedInOneOfItsCalls) {
  for (const bool refuses : {false, true}) {
    const std::u16string statements[] = {HistoryOf(u"01.001"), std::u16string(kVoucher),
                                         AmountsOf(u"01.001")};
    for (const std::u16string& ending : statements) {
      EditorWorld world;
      AnswerPeriod(world.factory);
      AnswerNothing(world.factory, DeleteOf(u"delete  a", u"01.001"));
      for (const std::u16string& statement : statements) {
        world.factory.Object(kConnectionId)
            .On(u"Execute", Arguments({statement}), Reply::From([&](auto) -> Value {
                  if (statement == ending) world.form.Unload();
                  // The last two refuse together.
                  const bool refusesNow =
                      refuses &&
                      (statement == ending || (ending == statements[2] && statement == kVoucher));
                  return NewScriptedRecordset(world.factory.GetRecorder(),
                                              refusesNow ? OneRow() : NoRows());
                }));
      }
      world.OpenForEdit();
      world.list.selected = {2};
      EXPECT_EQ(ErrorOf([&] { world.form.ToolClicked(FormTool::DelItem); }), std::nullopt);
      SCOPED_TRACE(Utf8(ending) + "\n" + world.log.Text());
      EXPECT_EQ(world.log.Count("unload"), 1u);
      EXPECT_THAT(world.log.Text(), Not(HasSubstr("message ")));
      EXPECT_THAT(world.log.Text(), Not(HasSubstr("delete  a")));
      EXPECT_EQ(world.factory.LiveObjects(), 0);
    }
  }
}

TEST_F(RemovalGuard, OnlyRedrawsWithoutASelection) {
  OpenAndSelect({});
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(TextBehindThePeriod(), Lines(R"(
      enable Save
      rows 3
      )"));
}

TEST_F(RemovalGuard, DoesNothingForAnEmptyList) {
  OpenForAdd();
  list.selected = {2};
  form.ToolClicked(FormTool::DelItem);
  EXPECT_EQ(TextBehindThePeriod(), "");
}

TEST_F(RemovalGuard, IdentifiesItemsByCodeAndNotById) {
  Voucher(false);
  Answer(factory, u"01.002", {});
  // Two items with the same code: the first one is removed.
  OpenForEdit(
      RawMaterials(),
      {{101, u"01.001", u"a", u""}, {102, u"01.002", u"b", u""}, {103, u"01.002", u"c", u""}});
  list.selected = {4};
  form.ToolClicked(FormTool::DelItem);
  EXPECT_THAT(MemberIds(), ElementsAre(101, 103));
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n01.001|a||\n01.002|c||\n");
}

TEST_F(RemovalGuard, ShowsTheItemsThatAreLeftOfCodesThatDifferByCase) {
  Voucher(false);
  Answer(factory, u"A1", {});
  Answer(factory, u"02", {});
  // The suite's recordset compares without regard to case: the first one is removed.
  OpenForEdit(RawMaterials(),
              {{101, u"a1", u"a", u""}, {102, u"A1", u"b", u""}, {103, u"02", u"c", u""}});
  list.selected = {3, 4};
  form.ToolClicked(FormTool::DelItem);
  EXPECT_THAT(MemberIds(), ElementsAre(102));
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\nA1|b||\n");
}

TEST_F(RemovalGuard, FailsOnACodeWithAQuoteAndKeepsTheList) {
  Voucher(false);
  OpenForEdit(RawMaterials(), {{101, u"o'1", u"a", u""}, {102, u"01.002", u"b", u""}});
  list.selected = {2};
  EXPECT_NE(ErrorOf([this] { form.ToolClicked(FormTool::DelItem); }), std::nullopt);
  EXPECT_THAT(MemberIds(), ElementsAre(101, 102));
  EXPECT_EQ(log.Count("create ZEPConnection.AppConnection"), 0u);
}

TEST_F(RemovalGuard, KeepsEarlierRowsRemovedWhenALaterOneFailsAndShowsTheRest) {
  Voucher(false);
  Answer(factory, u"01.001", {});
  FailStatement(factory, HistoryOf(u"01.002"), -2147217871, u"超时已过期");
  OpenAndSelect({2, 3});
  EXPECT_EQ(ErrorOf([this] { form.ToolClicked(FormTool::DelItem); }), -2147217871);
  EXPECT_EQ(form.MemberList().RecordCount(), 1) << "no filter is left";
  EXPECT_THAT(MemberIds(), ElementsAre(102));
  form.MemberList().MoveFirst();
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n01.002|螺母||\n");
}

TEST_F(RemovalGuard, ForgetsTheSaveWhenTheListIsShownAgain) {
  Voucher(false);
  Answer(factory, u"01.001", {});
  factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
  AnswerChecks(false);
  AnswerAccountIds();
  OpenAndSelect({2});
  form.ToolClicked(FormTool::Save);
  EXPECT_TRUE(form.State().saved);
  form.ToolClicked(FormTool::DelItem);
  EXPECT_FALSE(form.State().saved);
}

TEST_F(RemovalGuard, ShowsNothingAndKeepsTheSaveWhenThePeriodCannotBeRead) {
  factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
  AnswerChecks(false);
  AnswerAccountIds();
  OpenAndSelect({});
  form.ToolClicked(FormTool::DelItem);
  list.selected = {2};
  form.ToolClicked(FormTool::Save);
  ASSERT_TRUE(form.State().saved);
  factory.Object(u"ZEPEBSBase.SystemProfile")
      .On(u"GetProfile", R"("LANGUAGE=chs", "IC", "CurrentPeriod")",
          Reply::Failing(-2147217871, u"超时已过期"));
  log.Clear();
  EXPECT_EQ(ErrorOf([this] { form.ToolClicked(FormTool::DelItem); }), -2147217871);
  EXPECT_TRUE(form.State().saved);
  EXPECT_EQ(log.Count("rows 3"), 0u);
}

TEST(RemovalGuardFailures, ReachTheCallerAndLeaveNoFilter) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    AnswerPeriod(world.factory);
    AnswerStatement(world.factory, kVoucher, NoRows());
    Answer(world.factory, u"01.001", {});
    Answer(world.factory, u"01.002", {.history = OneRow()});
    std::vector<MemberItem> items = BoltAndNut();
    items.push_back({103, u"01.003", u"垫圈", Null{}});
    world.OpenForEdit(RawMaterials(), items);
    world.list.selected = {2, 3};
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { world.form.ToolClicked(FormTool::DelItem); });
    const int calls = world.factory.CallCount() - before;
    EXPECT_EQ(error, failingCall == 0 ? std::nullopt : std::optional(kInjectedFailure));
    // The item with history and the unselected one always remain.
    std::vector<std::int32_t> ids = world.MemberIds();
    std::erase(ids, 101);
    EXPECT_EQ(ids, (std::vector<std::int32_t>{102, 103}));
    world.form.Unload();
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
