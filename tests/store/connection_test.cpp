// Sending a text to the company through the suite's connection object.
#include "store/connection.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/support/recording_factory.h"
#include "tests/support/scripted_recordset.h"
#include "tests/support/utf8.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

class ConnectionTest : public ::testing::Test {
 protected:
  CallLog log;
  RecordingFactory factory{log};
};

TEST_F(ConnectionTest, SendsTheWholeTextAndReleasesTheObject) {
  AnswerStatement(factory, u"select FNumber from t_account\r\n", Rows({u"FNumber"}, {{u"1231"}}));
  {
    Connection connection(factory);
    const Recordset answer = connection.Execute(u"select FNumber from t_account\r\n");
    EXPECT_EQ(answer.Field(u"FNumber"), Value(u"1231"));
  }
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("select FNumber from t_account\r\n")
      release result
      release ZEPConnection.AppConnection
      )"));
}

TEST_F(ConnectionTest, SendsSeveralTextsThroughOneObject) {
  AnswerNothing(factory, u"delete from icPriceDownClass where FItemClassNumber='01'");
  AnswerNothing(factory, u"delete from icPriceDownClass where FItemClassNumber='02'");
  {
    Connection connection(factory);
    connection.Execute(u"delete from icPriceDownClass where FItemClassNumber='01'");
    connection.Execute(u"delete from icPriceDownClass where FItemClassNumber='02'");
  }
  EXPECT_EQ(log.Count("create ZEPConnection.AppConnection"), 1u);
}

TEST_F(ConnectionTest, ReturnsNoRecordsetWhenTheStatementHasNone) {
  factory.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Reply(nullptr))
      .On(u"Execute", Reply(Value()));
  Connection connection(factory);
  EXPECT_FALSE(connection.Execute(u"delete"));
  EXPECT_FALSE(connection.Execute(u"delete"));
}

TEST_F(ConnectionTest, DropsTheAnswerOfAWrite) {
  factory.Object(u"ZEPConnection.AppConnection").On(u"Execute", factory.Answering(u"answer"));
  Connection(factory).Run(u"delete");
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("delete")
      release answer
      release ZEPConnection.AppConnection
      )"));
}

TEST_F(ConnectionTest, PassesTheDatabasesOwnErrorOn) {
  FailStatement(factory, u"delete from nowhere", -2147217865, u"对象名 'nowhere' 无效。");
  Connection connection(factory);
  try {
    connection.Execute(u"delete from nowhere");
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.Number(), -2147217865);
    EXPECT_EQ(Utf8(error.Description()), "对象名 'nowhere' 无效。");
  }
}

TEST_F(ConnectionTest, FailsWhenTheSuiteHasNoConnectionObject) {
  factory.Refuses(u"ZEPConnection.AppConnection");
  try {
    Connection connection(factory);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.Number(), static_cast<std::int32_t>(ErrorNumber::CannotCreateObject));
  }
  EXPECT_EQ(factory.LiveObjects(), 0);
}

}  // namespace
}  // namespace pricedown
