// The stand-in suite's settings on a server's company.
#include <gtest/gtest.h>

#include <sstream>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "tests/server_support/server_fixture.h"
#include "workbench/cli/commands.h"
#include "workbench/suite/suite_factory.h"

namespace workbench::testing {
namespace {

class ServerSettings : public ServerTest {
 protected:
  void SetUp() override {
    ServerTest::SetUp();
    if (IsSkipped()) return;
    std::ostringstream out;
    ASSERT_EQ(RunCommand({"create", database_, "--items", "5", "--classes", "2"}, out, out), kDone)
        << out.str();
    settings_->Call(u"Open", {pricedown::FromUtf8(database_)});
  }

  std::string FailureOf(std::u16string_view method) {
    try {
      settings_->Call(method, {});
    } catch (const pricedown::AutomationError& error) {
      return pricedown::ToUtf8(error.Description());
    }
    return "";
  }

  SuiteFactory factory_{std::make_shared<SuiteState>()};
  pricedown::ObjectPtr settings_ = factory_.Create(u"ZEPWorkbench.Settings");
};

TEST_F(ServerSettings, ReportThatTheServerTakesNoTransaction) {
  server_->Stop();
  EXPECT_EQ(FailureOf(u"Begin").find("与服务器的连接已断开，重新连接失败："), 0U);
  EXPECT_EQ(FailureOf(u"Commit"), "没有要提交的事务。");
  EXPECT_EQ(FailureOf(u"Rollback"), "");
  server_->Start();
  settings_->Call(u"Begin", {});
  settings_->Call(u"Query", {u"UPDATE t_systemprofile SET FValue='2010' WHERE FKey='CurrentYear'"});
  settings_->Call(u"Commit", {});
  EXPECT_EQ(Utf8FromUtf16(pricedown::ToText(settings_->Get(u"CurrentYear"))), "2010");
}

}  // namespace
}  // namespace workbench::testing
