// The suite's objects while a recording is replayed.
#include "workbench/recording/replay.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/error.h"
#include "tests/suite/suite_fixture.h"
#include "tests/support/utf8.h"

namespace workbench {
namespace {

using pricedown::ObjectPtr;
using pricedown::testing::Readable;
using pricedown::testing::Utf8;

constexpr const char* kHeader = "{\"recording\":1,\"values\":true}\n";

class ReplayedSuite : public SuiteFixture {
 protected:
  void Replayed(const std::string& lines) {
    std::stringstream text(kHeader + lines);
    suite_->replay = Replay::Read(text);
  }
};

TEST_F(ReplayedSuite, AnswersFromTheRecordingWithoutACompany) {
  suite_->company.reset();
  Replayed(
      R"({"kind":"create","member":"ZEPConnection.AppConnection","result":{"value":{"object":1}}})"
      "\n"
      R"({"kind":"call","object":1,"member":"Execute","arguments":[{"value":"select 1"}],)"
      R"("result":{"value":7}})"
      "\n");
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  EXPECT_EQ("2", Readable(settings->Get(u"ReplayCallsLeft")));
  const ObjectPtr connection = Create(u"ZEPConnection.AppConnection");
  EXPECT_EQ("7", Readable(connection->Call(u"Execute", {u"select 1"})));
  EXPECT_EQ("0", Readable(settings->Get(u"ReplayCallsLeft")));
  EXPECT_EQ("\"\"", Readable(settings->Get(u"ReplayDifference")));
}

TEST_F(ReplayedSuite, RecordsetsThatWereNotRecordedAreTheWorkbenchsOwn) {
  Replayed("");
  EXPECT_EQ("0", Readable(Create(u"ADODB.Recordset")->Get(u"State")));
  Replayed(R"({"kind":"create","member":"ADODB.Recordset","result":{"value":{"object":1}}})"
           "\n"
           R"({"kind":"call","object":1,"member":"State","result":{"value":5}})"
           "\n");
  EXPECT_EQ("5", Readable(Create(u"ADODB.Recordset")->Get(u"State")));
}

TEST_F(ReplayedSuite, EndsWithAnEmptyFileName) {
  Replayed("");
  EXPECT_THROW(Create(u"ZEPPropsMgr.ShareProps")->Call(u"Run"), pricedown::AutomationError);
  Create(u"ZEPWorkbench.Settings")->Call(u"Replay", {u""});
  EXPECT_NE(nullptr, Create(u"ZEPPropsMgr.ShareProps"));
}

TEST_F(ReplayedSuite, NothingIsAskedOfAReplayThatIsNotThere) {
  try {
    Create(u"ZEPWorkbench.Settings")->Get(u"ReplayDifference");
    FAIL() << "nothing is replayed";
  } catch (const pricedown::AutomationError& error) {
    EXPECT_EQ("没有回放记录。", Utf8(error.Description()));
  }
}

}  // namespace
}  // namespace workbench
