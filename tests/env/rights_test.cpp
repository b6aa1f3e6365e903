// The rights check and the data scope, call by call.
#include "env/rights.h"

#include "tests/env/env_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

constexpr std::u16string_view kLedgerData = u"ZEPEBCGLView.GLData";

class RightsTest : public EnvTest {
 protected:
  RecordingQuestions questions{log};
  ThreadState state;
  Messages messages{questions};
  Lifetime lifetime;
  Rights rights{factory, state, messages, lifetime};

  // The last control ends inside a call, as in a container that closes.
  Reply EndingWith(const Value& answer) {
    return Reply::From([this, answer](auto) {
      lifetime.End();
      state.ledgerData.reset();
      return answer;
    });
  }
};

TEST_F(RightsTest, AreGrantedWithoutAMessage) {
  factory.Object(kLedgerData).On(u"AccessCheck", Reply(true));
  EXPECT_TRUE(rights.Check(0x10));
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCGLView.GLData
      ZEPEBCGLView.GLData.AccessCheck(1002, 35, 16)
      )"));
}

TEST_F(RightsTest, AreRefusedWithOneMessage) {
  factory.Object(kLedgerData).On(u"AccessCheck", Reply(false));
  EXPECT_FALSE(rights.Check(0x10));
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCGLView.GLData
      ZEPEBCGLView.GLData.AccessCheck(1002, 35, 16)
      message information "岚禾提示": "没有权限,请与系统管理员联系"
      )"));
}

TEST_F(RightsTest, ConvertNumbersAndTextsToBooleans) {
  factory.Object(kLedgerData)
      .On(u"AccessCheck", Reply(-1))
      .On(u"AccessCheck", Reply(u"False"))
      .On(u"AccessCheck", Reply(Value()))
      .On(u"AccessCheck", Reply(u"maybe"));
  EXPECT_TRUE(rights.Check(1));
  EXPECT_FALSE(rights.Check(1));
  EXPECT_FALSE(rights.Check(1));
  EXPECT_EQ(ErrorOf([&] { rights.Check(1); }), NumberOf(ErrorNumber::TypeMismatch));
}

TEST_F(RightsTest, KeepTheLedgerDataObject) {
  factory.Object(kLedgerData).On(u"AccessCheck", Reply(true));
  rights.Check(1);
  rights.Check(2);
  rights.ReadDataScope();
  EXPECT_EQ(log.Count("create ZEPEBCGLView.GLData"), 1u);
  EXPECT_EQ(factory.LiveObjects(), 1);
  state.ledgerData.reset();
  EXPECT_EQ(factory.LiveObjects(), 0);
}

TEST_F(RightsTest, CreateTheLedgerDataObjectAgainAfterAFailure) {
  factory.Object(kLedgerData).On(u"AccessCheck", Reply(true));
  factory.FailCall(1);
  EXPECT_EQ(ErrorOf([&] { rights.Check(1); }), kInjectedFailure);
  EXPECT_TRUE(rights.Check(1));
}

TEST_F(RightsTest, PassTheSuitesErrorOnWithoutAMessage) {
  factory.Object(kLedgerData).On(u"AccessCheck", Reply::Failing(-2147024891, u"拒绝访问"));
  EXPECT_EQ(ErrorOf([&] { rights.Check(1); }), -2147024891);
  EXPECT_EQ(log.Size(), 2u) << log.Text();
}

TEST_F(RightsTest, CheckTheDataScopeFromTheWidestDown) {
  factory.Object(kLedgerData).On(u"AccessCheck", Reply(false));
  state.objectType = 10;
  state.dataScope = 1;
  rights.ReadDataScope();
  EXPECT_EQ(state.dataScope, 1);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCGLView.GLData
      ZEPEBCGLView.GLData.AccessCheck(10, 151, 4194304)
      ZEPEBCGLView.GLData.AccessCheck(10, 151, 2097152)
      ZEPEBCGLView.GLData.AccessCheck(10, 151, 1048576)
      )"));
}

TEST_F(RightsTest, AreRefusedWithoutAMessageOnceTheControlHasEnded) {
  factory.Object(kLedgerData)
      .On(u"AccessCheck", EndingWith(false))
      .On(u"AccessCheck", EndingWith(true))
      .On(u"AccessCheck", EndingWith(u"maybe"));
  for (int answer = 0; answer < 3; ++answer) {
    lifetime = Lifetime();
    Rights ending(factory, state, messages, lifetime);
    log.Clear();
    EXPECT_FALSE(ending.Check(0x10));
    EXPECT_EQ(log.Text(), Lines(R"(
        create ZEPEBCGLView.GLData
        ZEPEBCGLView.GLData.AccessCheck(1002, 35, 16)
        release ZEPEBCGLView.GLData
        )"));
  }
}

TEST_F(RightsTest, AskForNoFurtherScopeOnceTheControlHasEnded) {
  state.dataScope = 1;
  factory.Object(kLedgerData).On(u"AccessCheck", EndingWith(true));
  rights.ReadDataScope();
  EXPECT_EQ(state.dataScope, 1);
  EXPECT_EQ(log.Count("create ZEPEBCGLView.GLData"), 1u);
  EXPECT_EQ(log.Size(), 3u) << log.Text();
  EXPECT_EQ(factory.LiveObjects(), 0);
}

TEST_F(RightsTest, KeepNoLedgerDataObjectInWhoseCreationTheControlEnded) {
  const auto script = std::make_shared<RecordingFactory>(log);
  script->Object(kLedgerData);
  factory.Makes(kLedgerData, [&](const RecorderPtr&) {
    lifetime.End();
    return script->NewObject(kLedgerData);
  });
  EXPECT_FALSE(rights.Check(0x10));
  EXPECT_EQ(state.ledgerData, nullptr);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCGLView.GLData
      release ZEPEBCGLView.GLData
      )"));
}

struct ScopeCase {
  const char* name;
  bool widest;
  bool middle;
  bool narrowest;
  std::int32_t before;
  std::int32_t expected;
  std::size_t questions;
};
void PrintTo(const ScopeCase& given, std::ostream* out) { *out << given.name; }

class DataScope : public ::testing::TestWithParam<ScopeCase> {};

TEST_P(DataScope, IsTheFirstThatIsGranted) {
  const ScopeCase& given = GetParam();
  CallLog log;
  RecordingFactory factory(log);
  RecordingQuestions questions(log);
  Messages messages(questions);
  ThreadState state;
  state.objectType = 11;
  state.dataScope = given.before;
  factory.Object(kLedgerData)
      .On(u"AccessCheck", "11, 151, 4194304", Reply(given.widest))
      .On(u"AccessCheck", "11, 151, 2097152", Reply(given.middle))
      .On(u"AccessCheck", "11, 151, 1048576", Reply(given.narrowest));
  Rights(factory, state, messages).ReadDataScope();
  EXPECT_EQ(state.dataScope, given.expected);
  EXPECT_EQ(log.Size(), 1 + given.questions) << log.Text();
}

INSTANTIATE_TEST_SUITE_P(
    All, DataScope,
    ::testing::Values(ScopeCase{"Widest", true, false, false, 0, 2, 1},
                      ScopeCase{"Middle", false, true, false, 0, 1, 2},
                      ScopeCase{"Narrowest", false, false, true, 2, 0, 3},
                      ScopeCase{"WidestAndNarrowest", true, false, true, 0, 2, 1},
                      ScopeCase{"MiddleAndNarrowest", false, true, true, 0, 1, 2},
                      ScopeCase{"AllThree", true, true, true, 0, 2, 1},
                      ScopeCase{"NoneKeepsZero", false, false, false, 0, 0, 3},
                      ScopeCase{"NoneKeepsOne", false, false, false, 1, 1, 3},
                      ScopeCase{"NoneKeepsTwo", false, false, false, 2, 2, 3}),
    ::testing::PrintToStringParamName());

TEST(RightsFailures, KeepTheDataScopeWhenTheSuiteFails) {
  FailEachCallInTurn([](int failingCall) {
    CallLog log;
    RecordingFactory factory(log);
    RecordingQuestions questions(log);
    Messages messages(questions);
    ThreadState state;
    state.dataScope = 2;
    factory.Object(kLedgerData)
        .On(u"AccessCheck", Reply(false))
        .On(u"AccessCheck", Reply(false))
        .On(u"AccessCheck", Reply(true));
    factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { Rights(factory, state, messages).ReadDataScope(); });
    EXPECT_EQ(error, failingCall == 0 ? std::nullopt : std::optional(kInjectedFailure));
    EXPECT_EQ(state.dataScope, failingCall == 0 ? 0 : 2);
    return factory.CallCount();
  });
}

}  // namespace
}  // namespace pricedown
