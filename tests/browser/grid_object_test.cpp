// The item grid as an automation object, and the selection of a block through its members.
#include "browser/grid_object.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/support/call_log.h"
#include "tests/support/recording_factory.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

class GridObjectTest : public ::testing::Test {
 protected:
  GridObjectTest() { grid_.SetMaxRows(3); }

  Grid grid_{4};
  std::shared_ptr<GridObject> object_ = std::make_shared<GridObject>(grid_);
};

TEST_F(GridObjectTest, ReadsAndSetsTheBlockInAnySpelling) {
  object_->Put(u"COL", 2);
  object_->Put(u"col2", 3.0);
  object_->Put(u"Row", u"1");
  object_->Put(u"Row2", std::int16_t{2});
  EXPECT_EQ(grid_.Block(), (CellRange{2, 1, 3, 2}));
  EXPECT_EQ(object_->Get(u"Col"), Value(2));
  EXPECT_EQ(object_->Get(u"Col2"), Value(3));
  EXPECT_EQ(object_->Get(u"Row"), Value(1));
  EXPECT_EQ(object_->Get(u"Row2"), Value(2));
}

TEST_F(GridObjectTest, ReportsItsSizeAndAcceptsARowCount) {
  EXPECT_EQ(object_->Get(u"MaxCols"), Value(4));
  EXPECT_EQ(object_->Get(u"MaxRows"), Value(3));
  object_->Put(u"MaxRows", 7);
  EXPECT_EQ(grid_.MaxRows(), 7);
  EXPECT_THROW(object_->Put(u"MaxCols", 7), AutomationError);
}

TEST_F(GridObjectTest, LocksAndColoursTheBlock) {
  grid_.SetBlock({1, 1, 3, 3});
  EXPECT_EQ(object_->Get(u"Lock"), Value(false));
  EXPECT_EQ(object_->Get(u"BackColor"), Value(static_cast<std::int32_t>(0x80000005)));
  object_->Put(u"BlockMode", true);
  object_->Put(u"Lock", true);
  object_->Put(u"BackColor", static_cast<std::int32_t>(0x80000018));
  object_->Put(u"BlockMode", false);
  EXPECT_TRUE(grid_.IsLocked(3, 3));
  EXPECT_FALSE(grid_.IsLocked(4, 3));
  EXPECT_EQ(grid_.Colour(3, 3), kTooltipBackground);
  EXPECT_EQ(object_->Get(u"Lock"), Value(true));
  EXPECT_EQ(object_->Get(u"BackColor"), Value(static_cast<std::int32_t>(0x80000018)));
  EXPECT_EQ(object_->Get(u"BlockMode"), Value(false));
}

TEST_F(GridObjectTest, AcceptsAColourWithOrWithoutASign) {
  object_->Put(u"BackColor", 2147483672.0);
  EXPECT_EQ(grid_.Colour(1, 1), kTooltipBackground);
  object_->Put(u"BackColor", 255);
  EXPECT_EQ(grid_.Colour(1, 1), 255u);
  for (const double wrong : {4294967296.0, -2147483649.0}) {
    EXPECT_THROW(object_->Put(u"BackColor", wrong), AutomationError) << wrong;
  }
  EXPECT_EQ(grid_.Colour(1, 1), 255u);
}

TEST_F(GridObjectTest, ReadsAndWritesTheTextOfTheCurrentCell) {
  grid_.SetText(2, 3, u"螺栓");
  grid_.SetBlock({2, 3, 2, 3});
  EXPECT_EQ(object_->Get(u"Text"), Value(u"螺栓"));
  object_->Put(u"Text", 12.5);
  EXPECT_EQ(Utf8(grid_.Text(2, 3)), "12.5");
  grid_.SetBlock({2, 99, 2, 99});
  EXPECT_EQ(object_->Get(u"Text"), Value(u""));
}

TEST_F(GridObjectTest, ReadsAndSetsWidthsHeightsAndRedraw) {
  object_->PutIndexed(u"ColWidth", 2, 15.5);
  EXPECT_EQ(object_->Call(u"ColWidth", {2}), Value(15.5));
  object_->PutIndexed(u"RowHeight", -1, 21);
  object_->PutIndexed(u"RowHeight", 0, 30);
  EXPECT_EQ(object_->Call(u"RowHeight", {0}), Value(30.0));
  EXPECT_EQ(object_->Call(u"RowHeight", {3}), Value(21.0));
  EXPECT_THROW(object_->PutIndexed(u"RowHeight", 3, 30), AutomationError);
  object_->Put(u"ReDraw", false);
  EXPECT_FALSE(grid_.Redraw());
  EXPECT_EQ(object_->Get(u"ReDraw"), Value(false));
}

TEST_F(GridObjectTest, RefusesUnknownMembersAndBadValues) {
  EXPECT_THROW(object_->Get(u"Cell"), AutomationError);
  EXPECT_THROW(object_->Put(u"Col", u"A"), AutomationError);
  EXPECT_THROW(object_->Call(u"ColWidth"), AutomationError);
  EXPECT_EQ(grid_.Block(), CellRange{});
}

TEST_F(GridObjectTest, FailsOnceItsGridIsGone) {
  object_->Detach();
  for (const std::u16string_view name :
       {u"Col", u"MaxCols", u"MaxRows", u"BlockMode", u"Lock", u"BackColor", u"Text", u"ReDraw"}) {
    try {
      object_->Get(name);
      ADD_FAILURE() << Utf8(name);
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), static_cast<std::int32_t>(ErrorNumber::ObjectNotSet));
    }
  }
}

class SelectBlockTest : public ::testing::Test {
 protected:
  SelectBlockTest() {
    factory_.Object(u"grid")
        .On(u"MaxCols", 4)
        .On(u"MaxRows", 30)
        .AllowPut(u"Col")
        .AllowPut(u"Col2")
        .AllowPut(u"Row")
        .AllowPut(u"Row2");
    grid_ = factory_.NewObject(u"grid");
  }

  CallLog log_;
  RecordingFactory factory_{log_};
  ObjectPtr grid_;
};

TEST_F(SelectBlockTest, SetsTheFourEndsInOrder) {
  SelectBlock(grid_, 2, 3, 4, 5);
  EXPECT_EQ(log_.Text(), Lines(R"(
      put grid.Col = 2
      put grid.Col2 = 3
      put grid.Row = 4
      put grid.Row2 = 5
      )"));
}

TEST_F(SelectBlockTest, SelectsTheWholeGridWithoutEnds) {
  SelectBlock(grid_, Missing{}, Missing{}, Missing{}, Missing{});
  EXPECT_EQ(log_.Text(), Lines(R"(
      put grid.Col = 1
      grid.MaxCols()
      put grid.Col2 = 4
      put grid.Row = 1
      grid.MaxRows()
      put grid.Row2 = 30
      )"));
}

TEST_F(SelectBlockTest, PassesItsArgumentsOnAndFollowsReferences) {
  Value column(2.5);
  Value missing{Missing{}};
  SelectBlock(grid_, Value::ByReference(column), Value::ByReference(missing), u"7", Value());
  EXPECT_EQ(log_.Text(), Lines(R"(
      put grid.Col = 2.5
      grid.MaxCols()
      put grid.Col2 = 4
      put grid.Row = "7"
      put grid.Row2 = Empty
      )"));
}

TEST_F(SelectBlockTest, IgnoresAFailingStep) {
  FailEachCallInTurn([&](int failingCall) {
    const int before = factory_.CallCount();
    log_.Clear();
    factory_.FailCall(failingCall);
    SelectBlock(grid_, Missing{}, Missing{}, Missing{}, Missing{});
    factory_.FailCall(0);
    // If reading a maximum fails, the put that needs it is left out.
    const bool maximumFailed =
        log_.Count("grid.MaxCols() fails") > 0 || log_.Count("grid.MaxRows() fails") > 0;
    EXPECT_EQ(log_.Size(), maximumFailed ? 5u : 6u);
    return factory_.CallCount() - before;
  });
}

TEST_F(SelectBlockTest, IgnoresThatThereIsNoGridOrNoSuchMember) {
  SelectBlock(nullptr, 1, 2, 3, 4);
  factory_.Object(u"other").Lacks(u"Col").Lacks(u"Col2").AllowPut(u"Row").Lacks(u"Row2");
  SelectBlock(factory_.NewObject(u"other"), 1, 2, 3, 4);
  EXPECT_EQ(log_.Text(), Lines(R"(
      put other.Row = 3
      release other
      )"));
}

}  // namespace
}  // namespace pricedown::testing
