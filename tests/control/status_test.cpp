// The status bar's texts and the time after which work counts as long.
#include "control/status.h"

#include <gtest/gtest.h>

#include "control/price_down.h"
#include "tests/control/dispatch_fixture.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

using std::chrono::milliseconds;

TEST_F(Dispatch, StatusNamesTheCurrentClassAndCountsItsItems) {
  Start();
  EXPECT_EQ(Utf8(Control().StatusText()), "01(原料)    共 2 项物料");
  Control().NodeClicked(1);
  EXPECT_EQ(Utf8(Control().StatusText()), "物料    共 0 项物料");
}

TEST_F(Dispatch, StatusAsksForAClassOnceTheFormHoldsTheRows) {
  Start();
  Control().editRecord();
  EXPECT_EQ(Utf8(Control().StatusText()), "请重新选择物料类别    共 2 项物料");
}

TEST_F(Dispatch, StatusCountsItemsBeforeAClassIsSelected) {
  world_.company.nodeSetting = u"";
  Start();
  EXPECT_EQ(Utf8(Control().StatusText()), "共 0 项物料");
}

TEST(ElapsedText, CountsWholeHundredthsAndAtLeastOne) {
  EXPECT_EQ(Utf8(ElapsedText(milliseconds(0))), "用时 0.01 秒");
  EXPECT_EQ(Utf8(ElapsedText(milliseconds(9))), "用时 0.01 秒");
  EXPECT_EQ(Utf8(ElapsedText(milliseconds(359))), "用时 0.35 秒");
  EXPECT_EQ(Utf8(ElapsedText(milliseconds(12000))), "用时 12 秒");
}

class LongWorkTest : public ::testing::Test {
 protected:
  static LongWork::Time At(int time) { return LongWork::Time(milliseconds(time)); }
  LongWork work_;
};

TEST_F(LongWorkTest, AWaitIsLongAfterThreeTenthsOfASecond) {
  EXPECT_FALSE(work_.BeginWait(At(1000)));
  EXPECT_FALSE(work_.WaitIsLong(At(1300)));
  EXPECT_TRUE(work_.WaitIsLong(At(1301)));
  EXPECT_EQ(work_.EndWait(At(1400)), milliseconds(400));
  EXPECT_FALSE(work_.WaitIsLong(At(9000)));
}

TEST_F(LongWorkTest, AWaitIsExpectedToBeAsLongAsTheOneBefore) {
  work_.BeginWait(At(0));
  work_.EndWait(At(400));
  EXPECT_TRUE(work_.BeginWait(At(1000)));
  work_.EndWait(At(1100));
  EXPECT_FALSE(work_.BeginWait(At(2000)));
}

TEST_F(LongWorkTest, AFillIsMeasuredSeparately) {
  work_.BeginFill(At(5000));
  EXPECT_FALSE(work_.FillIsLong(At(5300)));
  EXPECT_TRUE(work_.FillIsLong(At(5301)));
  EXPECT_FALSE(work_.Waiting());
}

}  // namespace
}  // namespace pricedown::testing
