// The selection of a block in a grid of the host.
#include "browser/select_block.h"

#include <gtest/gtest.h>

#include "tests/support/call_log.h"
#include "tests/support/recording_factory.h"

namespace pricedown::testing {
namespace {

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

TEST_F(SelectBlockTest, SelectsTheWholeGridForMissingEnds) {
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

TEST_F(SelectBlockTest, PassesNullOn) {
  SelectBlock(grid_, 2, Null{}, 4, Null{});
  EXPECT_EQ(log_.Text(), Lines(R"(
      put grid.Col = 2
      put grid.Col2 = Null
      put grid.Row = 4
      put grid.Row2 = Null
      )"));
}

TEST_F(SelectBlockTest, IgnoresAFailingStep) {
  FailEachCallInTurn([&](int failingCall) {
    const int before = factory_.CallCount();
    log_.Clear();
    factory_.FailCall(failingCall);
    SelectBlock(grid_, Missing{}, Missing{}, Missing{}, Missing{});
    factory_.FailCall(0);
    // A failing maximum leaves out the put that needs it.
    const bool maximumFailed =
        log_.Count("grid.MaxCols() fails") > 0 || log_.Count("grid.MaxRows() fails") > 0;
    EXPECT_EQ(log_.Size(), maximumFailed ? 5u : 6u);
    return factory_.CallCount() - before;
  });
}

TEST_F(SelectBlockTest, IgnoresAMissingGridOrMember) {
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
