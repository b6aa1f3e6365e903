// `AddItem`: parameters, condition, choices, the header of new rows, the list afterwards.
#include "editor/item_lookup.h"

#include <gmock/gmock.h>

#include <limits>

#include "platform/convert.h"
#include "tests/editor/editor_test.h"
#include "tests/editor/item_picker_script.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ItemLookup : public EditorTest {
 protected:
  ItemLookup() { ScriptPicker(factory, {}); }
  // The condition that the picker received.
  std::string Condition() const {
    for (const std::string& line : log.Lines()) {
      const std::size_t at = line.find("ItemLookUp(4, Missing, ");
      if (at != std::string::npos) return line.substr(at + 23, line.rfind(", ref") - at - 23);
    }
    return "no lookup";
  }
};

TEST_F(ItemLookup, AppendsOneItemToAnEmptyListWithTheHeaderOfTheFields) {
  ChooseOne(factory, u"washer");
  OpenForAdd();
  Type(RawMaterials(), u"12.5%");
  form.ToolClicked(FormTool::AddItem);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCBASE.Dictionary
      ZEPEBCBASE.Dictionary.Add("BeShortNumber", False)
      ZEPEBCBASE.Dictionary.Add("GetDataType", int16 1)
      ZEPEBCBASE.Dictionary.Add("Search", "")
      ZEPEBCBASE.Dictionary.Add("Multislt", int16 1)
      ZEPEBCBASE.Dictionary.Add("Refresh", True)
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>''")
      release ZEPConnection.AppConnection
      create ZEPEBCGLView.GLView
      ZEPEBCGLView.GLView.ItemLookUp(4, Missing, "", ref [ZEPEBCBASE.Dictionary])
      release ZEPEBCBASE.Dictionary
      result.ReturnOK()
      result.ReturnValue()
      result.ReturnObject()
      washer.Properties("FItemID")
      washer.Properties("FNumber")
      washer.Properties("FName")
      washer.Properties("FModel")
      release washer
      release result
      enable Save
      rows 2
      )"));
  EXPECT_THAT(Column(u"FItemID"), ElementsAre("201"));
  EXPECT_THAT(Column(u"FNumber"), ElementsAre("\"02.001\""));
  EXPECT_THAT(Column(u"FName"), ElementsAre("\"垫圈\""));
  EXPECT_THAT(Column(u"FModel"), ElementsAre("\"φ4\""));
  EXPECT_THAT(Column(u"FItemClassNumber"), ElementsAre("\"01\""));
  EXPECT_THAT(Column(u"FItemClassName"), ElementsAre("\"原材料\""));
  EXPECT_THAT(Column(u"FAPNumber"), ElementsAre("\"5711\""));
  EXPECT_THAT(Column(u"FARNumber"), ElementsAre("\"1281.1\""));
  EXPECT_THAT(Column(u"FPencentPrepare"), ElementsAre("12.5"));
  for (const char16_t* column :
       {u"FShortNumber", u"FItemClassID", u"FAPAccID", u"FARAccID", u"FYear", u"FPeriod"}) {
    EXPECT_THAT(Column(column), ElementsAre("Null"));
  }
}

TEST_F(ItemLookup, AppendsSeveralItemsInTheOrderChosen) {
  ChooseBoth(factory);
  OpenForEdit();
  form.ToolClicked(FormTool::AddItem);
  const std::string text = log.Text();
  EXPECT_EQ(text.substr(text.find("release ZEPEBCBASE.Dictionary")), Lines(R"(
      release ZEPEBCBASE.Dictionary
      result.ReturnOK()
      result.ReturnValue()
      result.ReturnObject()
      chosen.Size()
      chosen(1)
      washer.Properties("FItemID")
      washer.Properties("FNumber")
      washer.Properties("FName")
      washer.Properties("FModel")
      release washer
      chosen(2)
      rivet.Properties("FItemID")
      rivet.Properties("FNumber")
      rivet.Properties("FName")
      rivet.Properties("FModel")
      release rivet
      screen messages
      release chosen
      release result
      enable Save
      rows 5
      )"));
  EXPECT_THAT(MemberIds(), ElementsAre(101, 102, 201, 202));
  EXPECT_THAT(Column(u"FModel"), ElementsAre("\"M4\"", "Null", "\"φ4\"", "\"\""));
}

TEST_F(ItemLookup, ShowsTheNewRowsAndEnablesSaving) {
  ChooseBoth(factory);
  OpenForEdit();
  view.tools[FormTool::Save] = false;
  form.ToolClicked(FormTool::AddItem);
  EXPECT_EQ(list.RowTexts(),
            "物料代码|物料名称|规格型号|\n01.001|螺钉|M4|\n01.002|螺母||\n"
            "02.001|垫圈|φ4|\n02.002|铆钉||\n");
  EXPECT_TRUE(view.tools[FormTool::Save]);
}

TEST_F(ItemLookup, CopiesTheFirstRowsHeaderIntoNewRowsAndNotTheFields) {
  ChooseOne(factory, u"washer");
  OpenForEdit();
  Type({u"99", u"改名", u"5711.02", u"1281.10", 0}, u"99");
  form.ToolClicked(FormTool::AddItem);
  EXPECT_THAT(Column(u"FItemClassNumber"), ElementsAre("\"01\"", "\"01\"", "\"01\""));
  EXPECT_THAT(Column(u"FItemClassName"), ElementsAre("\"原材料\"", "\"原材料\"", "\"原材料\""));
  EXPECT_THAT(Column(u"FAPNumber"), ElementsAre("\"5711\"", "\"5711\"", "\"5711\""));
  EXPECT_THAT(Column(u"FARNumber"), ElementsAre("\"1281.1\"", "\"1281.1\"", "\"1281.1\""));
  EXPECT_THAT(Column(u"FPencentPrepare"), ElementsAre("12.5", "12.5", "12.5"));
}

TEST_F(ItemLookup, CopiesTheHeaderOfTheFirstRowAndNotOfTheCurrentOne) {
  ChooseOne(factory, u"washer");
  OpenForEdit();
  form.MemberList().MoveFirst();
  form.MemberList().MoveNext();
  form.MemberList().SetField(u"FItemClassName", u"other");
  form.ToolClicked(FormTool::AddItem);
  EXPECT_EQ(Column(u"FItemClassName").back(), "\"原材料\"");
}

// More than a double holds.
TEST_F(ItemLookup, WritesAHugePercentageAsTheLargestNumberIntoTheFirstItemOfANewClass) {
  ChooseOne(factory, u"washer");
  OpenForAdd();
  Type(RawMaterials(), u"1e999");
  form.ToolClicked(FormTool::AddItem);
  form.MemberList().MoveFirst();
  EXPECT_EQ(ToDouble(form.MemberList().Field(u"FPencentPrepare")),
            std::numeric_limits<double>::max());
  EXPECT_EQ(log.Count("rows 2"), 1u);
}

TEST_F(ItemLookup, WritesTheLeadingNumberOfThePercentageIntoTheFirstItemOfANewClass) {
  struct Case {
    std::u16string_view text;
    const char* expected;
  };
  for (const Case& given : {Case{u"", "0.0"}, Case{u"abc", "0.0"}, Case{u" 1 2.5x", "12.5"}}) {
    EditorWorld world;
    ScriptPicker(world.factory, {});
    ChooseOne(world.factory, u"washer");
    world.OpenForAdd();
    world.Type(RawMaterials(), given.text);
    world.form.ToolClicked(FormTool::AddItem);
    EXPECT_THAT(world.Column(u"FPencentPrepare"), ElementsAre(given.expected));
  }
}

TEST_F(ItemLookup, LeavesItemsOfOtherClassesAndOfThisListOut) {
  EditorWorld world;
  ScriptPicker(world.factory, {{12}, {15}, {40}, {12}});
  Cancel(world.factory);
  world.OpenForEdit();
  world.form.ToolClicked(FormTool::AddItem);
  EXPECT_THAT(world.log.Text(),
              HasSubstr("ItemLookUp(4, Missing, \"x2.FItemid not in(12,15,40,12,101,102)\", ref"));
}

TEST_F(ItemLookup, LeavesOutOnlyTheItemsOfOtherClassesForAnEmptyList) {
  EditorWorld world;
  ScriptPicker(world.factory, {{12}, {15}, {40}});
  Cancel(world.factory);
  world.OpenForAdd();
  world.form.ToolClicked(FormTool::AddItem);
  EXPECT_THAT(world.log.Text(), HasSubstr("\"x2.FItemid not in(12,15,40)\""));
}

TEST_F(ItemLookup, LeavesOutOnlyTheItemsOfThisListWithoutOtherClasses) {
  Cancel(factory);
  OpenForEdit();
  form.ToolClicked(FormTool::AddItem);
  EXPECT_EQ(Condition(), "\"x2.FItemid not in(101,102)\"");
}

TEST_F(ItemLookup, OffersEveryItemWhenNoneIsInAClass) {
  Cancel(factory);
  OpenForAdd();
  form.ToolClicked(FormTool::AddItem);
  EXPECT_EQ(Condition(), "\"\"");
}

TEST_F(ItemLookup, OffersItemsThatWereRemovedFromTheList) {
  Cancel(factory);
  OpenForEdit();
  form.MemberList().MoveFirst();
  form.MemberList().Delete();
  form.ToolClicked(FormTool::AddItem);
  EXPECT_EQ(Condition(), "\"x2.FItemid not in(102)\"");
}

TEST_F(ItemLookup, QueriesTheOtherClassesEveryTime) {
  Cancel(factory);
  OpenForEdit();
  form.ToolClicked(FormTool::AddItem);
  form.ToolClicked(FormTool::AddItem);
  EXPECT_EQ(log.Count("ZEPConnection.AppConnection.Execute(\"SELECT  FItemID FROM  "
                      "icPriceDownClass WHERE FItemClassNumber<>'01'\")"),
            2u);
  EXPECT_EQ(log.Count("release result"), 3u) << "two lookups and one replaced list";
}

TEST_F(ItemLookup, ReadsListsWithoutGetRowsToo) {
  EditorWorld world;
  ScriptPicker(world.factory, {});
  AnswerStatement(world.factory, kOthersOf01, Rows({u"FItemID"}, {{12}, {15}}).WithoutGetRows());
  Cancel(world.factory);
  // The first result has no rows; the second one is read.
  world.OpenForEdit();
  world.form.ToolClicked(FormTool::AddItem);
  world.log.Clear();
  world.form.ToolClicked(FormTool::AddItem);
  EXPECT_THAT(world.log.Text(), HasSubstr("not in(12,15,101,102)"));
}

TEST_F(ItemLookup, LeavesTheListButShowsItAgainWhenCancelled) {
  Cancel(factory);
  OpenForEdit();
  form.ToolClicked(FormTool::AddItem);
  const std::string text = log.Text();
  EXPECT_EQ(text.substr(text.find("result.ReturnOK")), Lines(R"(
      result.ReturnOK()
      release result
      enable Save
      rows 3
      )"));
  EXPECT_THAT(MemberIds(), ElementsAre(101, 102));
}

TEST_F(ItemLookup, AppendsNothingWhenThePickerConfirmsNothing) {
  for (const std::u16string_view value : {u"", u"02.001"}) {
    EditorWorld world;
    ScriptPicker(world.factory, {});
    world.factory.Object(u"result")
        .On(u"ReturnOK", Reply(true))
        .On(u"ReturnValue", Reply(value))
        .On(u"ReturnObject", Reply(nullptr));
    world.OpenForEdit();
    world.form.ToolClicked(FormTool::AddItem);
    EXPECT_EQ(world.log.Lines().back(), "rows 3");
  }
}

TEST_F(ItemLookup, TakesAnAnswerThatIsNoBooleanAsCancelled) {
  const Value answers[] = {Null{}, u"", u"也许", Value(), factory.NewObject(u"washer")};
  for (const Value& answer : answers) {
    EditorWorld world;
    ScriptPicker(world.factory, {});
    ChooseOne(world.factory, u"washer");
    world.factory.Object(u"result").On(u"ReturnOK", Reply::From([&](auto) { return answer; }));
    world.OpenForEdit();
    // The first answer is that of ChooseOne.
    world.form.ToolClicked(FormTool::AddItem);
    world.log.Clear();
    EXPECT_EQ(ErrorOf([&] { world.form.ToolClicked(FormTool::AddItem); }), std::nullopt)
        << Readable(answer);
    EXPECT_THAT(world.MemberIds(), ElementsAre(101, 102, 201)) << Readable(answer);
    EXPECT_EQ(world.log.Lines().back(), "rows 4") << Readable(answer);
  }
}

TEST_F(ItemLookup, TakesOnlyAnEmptyTextForSeveralItems) {
  struct Case {
    Value value;
    bool several;
  };
  const Case cases[] = {{u"", true},
                        {Value(), true},
                        {Null{}, false},
                        {u" ", false},
                        {0, false},
                        {factory.NewObject(u"washer"), false},
                        {std::vector<Value>{}, false}};
  for (const Case& given : cases) {
    EditorWorld world;
    ScriptPicker(world.factory, {});
    const std::u16string_view chosen = given.several ? u"chosen" : u"washer";
    ChooseBoth(world.factory);
    world.factory.Object(u"one")
        .On(u"ReturnOK", Reply(true))
        .On(u"ReturnValue", Reply::From([&](auto) { return given.value; }))
        .On(u"ReturnObject", world.factory.Answering(chosen));
    world.factory.Object(kLedgerViewId).On(u"ItemLookUp", world.factory.Answering(u"one"));
    world.OpenForEdit();
    world.form.ToolClicked(FormTool::AddItem);
    world.form.ToolClicked(FormTool::AddItem);
    EXPECT_EQ(world.log.Count("chosen.Size()"), given.several ? 2u : 1u) << Readable(given.value);
  }
}

TEST_F(ItemLookup, SharesTheLedgerViewWithTheAccountLookup) {
  Cancel(factory);
  state.ledgerView = factory.NewObject(kLedgerViewId);
  OpenForAdd();
  form.ToolClicked(FormTool::AddItem);
  EXPECT_THAT(log.Text(), HasSubstr(".ItemLookUp("));
  EXPECT_EQ(log.Count("create ZEPEBCGLView.GLView"), 0u);
}

}  // namespace
}  // namespace pricedown
