// Tests of the recording fakes: the log, scripted replies, the failure switch, live objects.
// They double as examples of how the fakes are used.
#include "tests/support/recording_factory.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "tests/support/failure.h"
#include "tests/support/scripted_recordset.h"

namespace pricedown::testing {
namespace {

class RecordingFactoryTest : public ::testing::Test {
 protected:
  CallLog log;
  RecordingFactory factory{log};
};

TEST_F(RecordingFactoryTest, LogsCreationUseAndRelease) {
  factory.Object(u"ZEPEBSBase.SystemProfile").On(u"GetProfile", u"2008");
  {
    const ObjectPtr profile = factory.Create(u"ZEPEBSBase.SystemProfile");
    EXPECT_EQ(profile->Call(u"GetProfile", {u"LANGUAGE=chs", u"ic", u"CurrentYear"}),
              Value(u"2008"));
  }
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBSBase.SystemProfile
      ZEPEBSBase.SystemProfile.GetProfile("LANGUAGE=chs", "ic", "CurrentYear")
      release ZEPEBSBase.SystemProfile
      )"));
}

TEST_F(RecordingFactoryTest, LogsPutsAndTheDefaultMember) {
  factory.Object(u"D").On(u"", 1).AllowPut(u"").AllowPut(u"Item").AllowPut(u"Owner");
  const ObjectPtr object = factory.NewObject(u"D");
  object->Call(u"", {u"key"});
  object->PutIndexed(u"", u"key", std::int16_t{2});
  object->PutIndexed(u"Item", u"key", 2.0);
  object->PutReference(u"Owner", object);
  object->PutReference(u"Owner", nullptr);
  EXPECT_EQ(log.Text(), Lines(R"(
      D("key")
      put D("key") = int16 2
      put D.Item("key") = 2.0
      set D.Owner = [D]
      set D.Owner = Nothing
      )"));
}

TEST_F(RecordingFactoryTest, RepliesToExactArgumentsBeforeAnyArguments) {
  factory.Object(u"P")
      .On(u"GetProfile", R"("ic", "CurrentYear")", 2008)
      .On(u"GetProfile", Arguments({u"ic", u"CurrentPeriod"}), 12)
      .On(u"GetProfile", u"?");
  const ObjectPtr object = factory.NewObject(u"P");
  EXPECT_EQ(object->Call(u"getprofile", {u"ic", u"CurrentPeriod"}), Value(12));
  EXPECT_EQ(object->Call(u"GetProfile", {u"ic", u"CurrentYear"}), Value(2008));
  EXPECT_EQ(object->Call(u"GETPROFILE", {u"IC", u"CurrentYear"}), Value(u"?"));
}

TEST_F(RecordingFactoryTest, RepliesInTurnAndStaysWithTheLastReply) {
  factory.Object(u"P").On(u"Get", 1).On(u"Get", 2);
  const ObjectPtr object = factory.NewObject(u"P");
  EXPECT_EQ(object->Get(u"Get"), Value(1));
  EXPECT_EQ(object->Get(u"Get"), Value(2));
  EXPECT_EQ(object->Get(u"Get"), Value(2));
}

TEST_F(RecordingFactoryTest, WritesToArgumentsByReference) {
  factory.Object(u"ZEPPropsMgr.ShareProps")
      .On(u"GetProperty", R"("UserID", ref Empty)", Reply(true).Writing(1, 16394));
  Value answer;
  const ObjectPtr props = factory.Create(u"ZEPPropsMgr.ShareProps");
  EXPECT_EQ(props->Call(u"GetProperty", {u"UserID", Value::ByReference(answer)}), Value(true));
  EXPECT_EQ(answer, Value(16394));
}

TEST_F(RecordingFactoryTest, FailsTheTestWhenAWrittenArgumentIsNotByReference) {
  factory.Object(u"P").On(u"Get", Reply(true).Writing(0, 1));
  const ObjectPtr object = factory.NewObject(u"P");
  EXPECT_NONFATAL_FAILURE(object->Call(u"Get", {2}), "argument 0 is not passed by reference");
}

TEST_F(RecordingFactoryTest, RepliesWithFailures) {
  factory.Object(u"P").On(u"Run", Reply::Failing(-2147217900, u"语法错误"));
  const ObjectPtr object = factory.NewObject(u"P");
  EXPECT_EQ(FailureOf([&] { object->Call(u"Run"); }), "80040E14 语法错误");
}

TEST_F(RecordingFactoryTest, RepliesWithANewObjectForEachCall) {
  factory.Object(u"ZEPEBCBASE.UserProfile").On(u"Dictionary", factory.Answering(u"Dictionary"));
  factory.Object(u"Dictionary").On(u"GetValue", u"gi01");
  const ObjectPtr profile = factory.Create(u"ZEPEBCBASE.UserProfile");
  EXPECT_EQ(RequireObject(profile->Get(u"Dictionary"), u"Dictionary")
                ->Call(u"GetValue", {u"NodeSel1", u""}),
            Value(u"gi01"));
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCBASE.UserProfile
      ZEPEBCBASE.UserProfile.Dictionary()
      Dictionary.GetValue("NodeSel1", "")
      release Dictionary
      )"));
}

// Failures of a test, observed by another test.
template <typename Action>
void ExpectUnscripted(Action action, const char* message) {
  EXPECT_NONFATAL_FAILURE(EXPECT_NE(FailureOf(action), ""), message);
}

TEST_F(RecordingFactoryTest, FailsTheTestForAnythingNotScripted) {
  factory.Object(u"P").On(u"Get", "1", 1);
  const ObjectPtr object = factory.NewObject(u"P");
  ExpectUnscripted([&] { factory.Create(u"Some.Other"); }, "not scripted: create Some.Other");
  ExpectUnscripted([&] { object->Get(u"Put"); }, "not scripted: P.Put");
  ExpectUnscripted([&] { object->Call(u"Get", {2}); }, "not scripted: P.Get(2)");
  ExpectUnscripted([&] { object->Put(u"Get", 2); }, "not scripted: put P.Get = 2");
  ExpectUnscripted([&] { object->Get(u""); }, "not scripted: P");
  ExpectUnscripted([&] { object->Invoke(9, Access::Call, {}); }, "not scripted: P.#9");
}

TEST_F(RecordingFactoryTest, MayLackMembersAndRefuseCreation) {
  factory.Object(u"P").Lacks(u"GetRows");
  factory.Refuses(u"ZEPFrmRes.FrmResLoader");
  EXPECT_EQ(FailureOf([&] { factory.NewObject(u"P")->Get(u"GetRows"); }).substr(0, 8), "80020006");
  EXPECT_EQ(FailureOf([&] { factory.Create(u"ZEPFrmRes.FrmResLoader"); }),
            "800A01AD 不能创建对象: ZEPFrmRes.FrmResLoader");
}

TEST_F(RecordingFactoryTest, FailsTheChosenCallOnce) {
  factory.Object(u"P").On(u"Get", 1);
  factory.FailCall(2);
  const ObjectPtr object = factory.Create(u"P");
  EXPECT_EQ(FailureOf([&] { object->Get(u"Get"); }), "8004FA11 第 2 次调用失败");
  EXPECT_EQ(object->Get(u"Get"), Value(1));
  EXPECT_EQ(factory.CallCount(), 3);
  EXPECT_EQ(log.Text(), Lines(R"(
      create P
      P.Get() fails
      P.Get()
      )"));
}

TEST_F(RecordingFactoryTest, FailsCreationsAndCallsOfRecordsetsToo) {
  factory.Object(u"P").On(u"Get", 1);
  factory.FailCall(1);
  EXPECT_EQ(FailureOf([&] { factory.Create(u"P"); }), "8004FA11 第 1 次调用失败");
  const Recordset recordset(
      NewScriptedRecordset(factory.GetRecorder(), Rows({u"FValue"}, {{u"1"}})));
  factory.FailCall(3);
  EXPECT_EQ(FailureOf([&] { recordset.Field(u"FValue"); }), "8004FA11 第 4 次调用失败");
  EXPECT_EQ(log.Text(), Lines(R"(
      create P fails
      result.Fields("FValue").Value() fails
      )"));
}

TEST_F(RecordingFactoryTest, CountsLiveObjects) {
  factory.Object(u"P");
  AllowRecordsets(factory);
  ObjectPtr first = factory.Create(u"P");
  const ObjectPtr second = factory.Create(u"ADODB.Recordset");
  EXPECT_EQ(factory.LiveObjects(), 2);
  first.reset();
  EXPECT_EQ(factory.LiveObjects(), 1);
}

TEST(RecordingObject, OutlivesItsFactoryAndLog) {
  ObjectPtr object;
  {
    CallLog log;
    RecordingFactory factory(log);
    factory.Object(u"P").On(u"Get", 1);
    object = factory.Create(u"P");
  }
  EXPECT_EQ(object->Get(u"Get"), Value(1));
}

TEST(FailEachCallInTurn, RunsWithoutFailuresFirstAndThenOncePerCall) {
  std::vector<int> runs;
  FailEachCallInTurn([&runs](int failingCall) {
    runs.push_back(failingCall);
    return 3;
  });
  EXPECT_EQ(runs, (std::vector<int>{0, 1, 2, 3}));
}

TEST(FailEachCallInTurn, RefusesAScenarioWithoutCalls) {
  EXPECT_NONFATAL_FAILURE(FailEachCallInTurn([](int) { return 0; }), "makes no call");
}

}  // namespace
}  // namespace pricedown::testing
