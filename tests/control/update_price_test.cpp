// Reading the provision mode.
#include "control/update_price.h"

#include <gtest/gtest.h>

#include "tests/support/call_log.h"
#include "tests/support/recording_factory.h"
#include "tests/support/scripted_recordset.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

constexpr std::u16string_view kStatement =
    u"Select FValue From t_systemprofile where Fkey like 'PriceDownPrepare'";

class UpdatePriceTest : public ::testing::Test {
 protected:
  CallLog log_;
  RecordingFactory factory_{log_};
  UpdatePrice price_{factory_};
};

TEST_F(UpdatePriceTest, ReadsTheFirstRowThroughItsOwnConnection) {
  AnswerStatement(factory_, kStatement, Rows({u"FValue"}, {{u"1"}, {u"2"}}));
  price_.ReadItemClassType();
  EXPECT_EQ(log_.Text(), Lines(R"log(
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("Select FValue From t_systemprofile where Fkey like 'PriceDownPrepare'")
      release ZEPConnection.AppConnection
      release result
      )log"));
  EXPECT_EQ(price_.ItemClassType(), 1);
}

struct ModeCase {
  const char* name;
  Value given;
  std::int16_t expected;
};
void PrintTo(const ModeCase& mode, std::ostream* stream) { *stream << mode.name; }

class ItemClassType : public UpdatePriceTest, public ::testing::WithParamInterface<ModeCase> {};

TEST_P(ItemClassType, IsTheLeadingNumberOfTheValue) {
  AnswerStatement(factory_, kStatement, Rows({u"FValue"}, {{u"7"}}));
  AnswerStatement(factory_, kStatement, Rows({u"FValue"}, {{GetParam().given}}));
  price_.ReadItemClassType();
  price_.ReadItemClassType();
  EXPECT_EQ(price_.ItemClassType(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    UpdatePrice, ItemClassType,
    ::testing::Values(ModeCase{"Text", u"2", 2}, ModeCase{"Number", 2, 2},
                      ModeCase{"Blanks", u" 1 ", 1}, ModeCase{"NumberThenText", u"1类", 1},
                      ModeCase{"Text0", u"类1", 0}, ModeCase{"Empty", u"", 0},
                      ModeCase{"Null", Null{}, 0}, ModeCase{"HalfToEven", u"2.5", 2},
                      ModeCase{"Greatest", u"32767", 32767}, ModeCase{"TooGreat", u"32768", 0},
                      ModeCase{"FarTooGreat", u"1E300", 0}, ModeCase{"Least", u"-32768", -32768}),
    [](const auto& test) { return test.param.name; });

TEST_F(UpdatePriceTest, StaysAtZeroWithoutARow) {
  AnswerStatement(factory_, kStatement, Rows({u"FValue"}, {}));
  price_.ReadItemClassType();
  EXPECT_EQ(price_.ItemClassType(), 0);
}

TEST_F(UpdatePriceTest, IsZeroAfterASecondReadingWithoutARow) {
  AnswerStatement(factory_, kStatement, Rows({u"FValue"}, {{u"1"}}));
  AnswerStatement(factory_, kStatement, Rows({u"FValue"}, {}));
  price_.ReadItemClassType();
  price_.ReadItemClassType();
  EXPECT_EQ(price_.ItemClassType(), 0);
}

TEST_F(UpdatePriceTest, StaysAtZeroWithoutAnAnswerColumnOrConnection) {
  AnswerNothing(factory_, kStatement);
  AnswerStatement(factory_, kStatement, Rows({u"FOther"}, {{u"1"}}));
  price_.ReadItemClassType();
  price_.ReadItemClassType();
  factory_.Refuses(u"ZEPConnection.AppConnection");
  price_.ReadItemClassType();
  EXPECT_EQ(price_.ItemClassType(), 0);
}

TEST_F(UpdatePriceTest, IsZeroWhicheverCallFails) {
  AnswerStatement(factory_, kStatement, Rows({u"FValue"}, {{u"1"}}));
  FailEachCallInTurn([&](int failingCall) {
    UpdatePrice price(factory_);
    price.ReadItemClassType();
    const int before = factory_.CallCount();
    factory_.FailCall(failingCall);
    price.ReadItemClassType();
    factory_.FailCall(0);
    EXPECT_EQ(price.ItemClassType(), failingCall == 0 ? 1 : 0);
    EXPECT_EQ(factory_.LiveObjects(), 0);
    return factory_.CallCount() - before;
  });
}

}  // namespace
}  // namespace pricedown::testing
