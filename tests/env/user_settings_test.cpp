// Per-user settings of the suite's profile and of the company database, call by call.
#include "env/user_settings.h"

#include "tests/env/env_test.h"
#include "tests/support/scripted_recordset.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

constexpr std::u16string_view kUserProfile = u"ZEPEBCBASE.UserProfile";

void HasProfile(RecordingFactory& factory, Reply value) {
  factory.Object(kUserProfile)
      .On(u"Load", Reply(Value()))
      .On(u"Dictionary", factory.Answering(u"dictionary"))
      .On(u"Save", Reply(Value()));
  factory.Object(u"dictionary").On(u"GetValue", std::move(value)).AllowPut(u"");
}

class UserSettings : public EnvTest {};

TEST_F(UserSettings, AreReadFromANewProfile) {
  HasProfile(factory, Reply(u"gi01"));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"NodeSel1", u"gc0"), Value(u"gi01"));
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCBASE.UserProfile
      ZEPEBCBASE.UserProfile.Load("Host", "PriceDown")
      ZEPEBCBASE.UserProfile.Dictionary()
      dictionary.GetValue("NodeSel1", "gc0")
      release dictionary
      release ZEPEBCBASE.UserProfile
      )"));
}

TEST_F(UserSettings, AreSavedThroughTheDictionarysDefaultMember) {
  HasProfile(factory, Reply(Value()));
  SaveUserSetting(factory, u"Host", u"NodeSel1", u"gi01");
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCBASE.UserProfile
      ZEPEBCBASE.UserProfile.Load("Host", "PriceDown")
      ZEPEBCBASE.UserProfile.Dictionary()
      put dictionary("NodeSel1") = "gi01"
      release dictionary
      ZEPEBCBASE.UserProfile.Save("Host", "PriceDown")
      release ZEPEBCBASE.UserProfile
      )"));
}

TEST_F(UserSettings, AreTextsUnlessTheDefaultIsABoolean) {
  HasProfile(factory, Reply(12));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", u""), Value(u"12"));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", 5), Value(u"12"));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", false), Value(true));
}

TEST_F(UserSettings, AreBooleansWhenTheDefaultIsOne) {
  HasProfile(factory, Reply(u"False"));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", true), Value(false));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", u"True"), Value(u"False"));
}

TEST_F(UserSettings, ReturnAnEmptyTextForAnEmptyValue) {
  HasProfile(factory, Reply(Null{}));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", u"gc0"), Value(u""));
}

TEST_F(UserSettings, ReturnTheDefaultForAValueThatCannotBeConverted) {
  HasProfile(factory, Reply(u"perhaps"));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", true), Value(true));
  RecordingFactory other(log);
  HasProfile(other, other.Answering(u"dictionary"));
  EXPECT_EQ(ReadUserSetting(other, u"Host", u"key", u"gc0"), Value(u"gc0"));
  EXPECT_EQ(factory.LiveObjects() + other.LiveObjects(), 0);
}

TEST_F(UserSettings, ReturnTheDefaultWithoutADictionary) {
  factory.Object(kUserProfile).On(u"Load", Reply(Value())).On(u"Dictionary", Reply(nullptr));
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", u"gc0"), Value(u"gc0"));
}

TEST_F(UserSettings, ReturnTheDefaultWhenTheSuiteHasNoProfile) {
  factory.Refuses(kUserProfile);
  EXPECT_EQ(ReadUserSetting(factory, u"Host", u"key", u"gc0"), Value(u"gc0"));
  EXPECT_EQ(ErrorOf([&] { SaveUserSetting(factory, u"Host", u"key", u"gi01"); }),
            NumberOf(ErrorNumber::CannotCreateObject));
}

TEST(UserSettingsFailures, ReturnTheDefaultWhicheverCallFails) {
  FailEachCallInTurn([](int failingCall) {
    CallLog log;
    RecordingFactory factory(log);
    HasProfile(factory, Reply(u"gi01"));
    factory.FailCall(failingCall);
    EXPECT_EQ(ReadUserSetting(factory, u"Host", u"NodeSel1", u"gc0"),
              Value(failingCall == 0 ? u"gi01" : u"gc0"));
    EXPECT_EQ(factory.LiveObjects(), 0);
    return factory.CallCount();
  });
}

TEST(UserSettingsFailures, ReportAFailureToSave) {
  FailEachCallInTurn([](int failingCall) {
    CallLog log;
    RecordingFactory factory(log);
    HasProfile(factory, Reply(Value()));
    factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { SaveUserSetting(factory, u"Host", u"key", u"gi01"); });
    EXPECT_EQ(error, failingCall == 0 ? std::nullopt : std::optional(kInjectedFailure));
    EXPECT_EQ(factory.LiveObjects(), 0);
    return factory.CallCount();
  });
}

constexpr std::u16string_view kFontSize =
    u"Select FValue From t_UserSetting Where FUserID=16394 And FCategory='ZEP_APFC' And "
    u"FKey ='RptFontSize'";

class UserNumbers : public EnvTest {
 protected:
  double ReadFrom(ScriptedRows rows) {
    AnswerStatement(factory, kFontSize, std::move(rows));
    return ReadUserNumber(factory, 16394, u"RptFontSize");
  }
};

TEST_F(UserNumbers, AreReadFromTheCompany) {
  EXPECT_EQ(ReadFrom(Rows({u"FValue"}, {{u"10.5"}})), 10.5);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("Select FValue From t_UserSetting Where FUserID=16394 And FCategory='ZEP_APFC' And FKey ='RptFontSize'")
      release result
      release ZEPConnection.AppConnection
      )"));
}

TEST_F(UserNumbers, AreZeroWithoutARow) { EXPECT_EQ(ReadFrom(Rows({u"FValue"}, {})), 0); }

TEST_F(UserNumbers, AreZeroForAnEmptyValue) { EXPECT_EQ(ReadFrom(Rows({u"FValue"}, {{u""}})), 0); }

TEST_F(UserNumbers, AreZeroForANull) { EXPECT_EQ(ReadFrom(Rows({u"FValue"}, {{Null{}}})), 0); }

TEST_F(UserNumbers, AreTheLeadingNumberOfTheValue) {
  EXPECT_EQ(ReadFrom(Rows({u"FValue"}, {{u" 12pt"}})), 12);
}

TEST_F(UserNumbers, ComeFromTheFirstOfSeveralRows) {
  EXPECT_EQ(ReadFrom(Rows({u"FValue"}, {{u"9"}, {u"18"}})), 9);
}

TEST_F(UserNumbers, AreQueriedWithDoubledQuotes) {
  AnswerStatement(factory,
                  u"Select FValue From t_UserSetting Where FUserID=-1 And FCategory='ZEP_APFC' "
                  u"And FKey ='it''s'",
                  Rows({u"FValue"}, {{u"1"}}));
  EXPECT_EQ(ReadUserNumber(factory, -1, u"it's"), 1);
}

TEST(UserNumbersFailures, FailWhenTheDatabaseFails) {
  FailEachCallInTurn([](int failingCall) {
    CallLog log;
    RecordingFactory factory(log);
    AnswerStatement(factory, kFontSize, Rows({u"FValue"}, {{u"9"}}));
    factory.FailCall(failingCall);
    const auto error =
        ErrorOf([&] { EXPECT_EQ(ReadUserNumber(factory, 16394, u"RptFontSize"), 9); });
    EXPECT_EQ(error, failingCall == 0 ? std::nullopt : std::optional(kInjectedFailure));
    EXPECT_EQ(factory.LiveObjects(), 0);
    return factory.CallCount();
  });
}

}  // namespace
}  // namespace pricedown
