// Fields that are looked up once and follow the current row.
#include "platform/bound_fields.h"

#include <gtest/gtest.h>

#include "tests/support/failure.h"
#include "tests/support/scripted_recordset.h"

namespace pricedown::testing {
namespace {

class BoundFieldsTest : public ::testing::Test {
 protected:
  CallLog log;
  RecordingFactory factory{log};
  Recordset rows{NewScriptedRecordset(
      factory.GetRecorder(), Rows({u"FItemID", u"FNumber"}, {{101, u"01.001"}, {102, u"01.002"}}))};
};

TEST_F(BoundFieldsTest, FollowTheCurrentRow) {
  const BoundFields fields(rows, {u"FNumber", u"fitemid"});
  EXPECT_EQ(fields.Get(0), Value(u"01.001"));
  rows.MoveNext();
  EXPECT_EQ(fields.Get(0), Value(u"01.002"));
  EXPECT_EQ(fields.Get(1), Value(102));
  fields.Set(1, 103);
  EXPECT_EQ(rows.Field(u"FItemID"), Value(103));
}

TEST_F(BoundFieldsTest, ExistInTheRecordset) {
  EXPECT_EQ(ErrorOf([&] {
              BoundFields(rows, {u"FNumber", u"FColour"});
            }),
            NumberOf(ErrorNumber::ItemNotFound));
  EXPECT_EQ(ErrorOf([&] { BoundFields(Recordset(), {u"FNumber"}); }),
            NumberOf(ErrorNumber::ObjectNotSet));
}

TEST_F(BoundFieldsTest, AreLookedUpOnFirstUseWhenTheyAreLazy) {
  factory.LogRecordsetCalls();
  LazyField number(rows, u"FNumber");
  LazyField colour(rows, u"FColour");
  EXPECT_EQ(log.Text(), "");
  EXPECT_EQ(number.Get(), Value(u"01.001"));
  EXPECT_EQ(number.Get(), Value(u"01.001"));
  EXPECT_EQ(log.Count("result.Fields()"), 1u) << log.Text();
  EXPECT_EQ(ErrorOf([&] { colour.Get(); }), NumberOf(ErrorNumber::ItemNotFound));
}

}  // namespace
}  // namespace pricedown::testing
