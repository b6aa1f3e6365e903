// Tests that a failing suite never harms the control: each call to it fails once in turn.
#include <gtest/gtest.h>

#include "tests/windows/dialog_closer.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

// The whole life of a control in its container; checks for leaks as it ends.
int LiveWith(int failingCall, bool useSite) {
  const DialogCloser closer;
  ControlHost host;
  host.world.factory.FailCall(failingCall);
  if (useSite) {
    host.SetSite();
    EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_NE(host.Window(), nullptr);
  } else {
    Statement(host.control.get(), L"RefreshToolbar");
  }
  const auto parent = windows::ToDispatch(host.world.NewParent());
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(parent.get())}), "S_OK True");
  Statement(host.control.get(), L"ModelCurrent");
  EXPECT_EQ(host.Close(), S_OK);
  return host.world.factory.CallCount();
}

TEST(FailingSuite, NeverHarmsAControlInItsContainer) {
  FailEachCallInTurn([](int failingCall) { return LiveWith(failingCall, true); });
}

TEST(FailingSuite, NeverHarmsAControlWithoutAContainer) {
  FailEachCallInTurn([](int failingCall) { return LiveWith(failingCall, false); });
}

TEST(FailingSuite, IsReportedToTheUserByTheGridOnly) {
  const DialogCloser closer;
  ControlHost host;
  host.world.company.nodeSetting = u"gi02";
  std::u16string statement(kItemsOf01);
  statement.replace(statement.find(u"01"), 2, u"02");
  FailStatement(host.world.factory, statement, static_cast<std::int32_t>(0x80040E14), u"坏了");
  host.Open();
  EXPECT_EQ(closer.Closed(), 1);
}

TEST(FailingCreation, IsReturnedBySettingTheSite) {
  ControlHost host;
  host.world.factory.Refuses(u"ZEPEBSBase.SystemProfile");
  EXPECT_EQ(Hexadecimal(host.SetSite()), "800A01AD");
  EXPECT_NE(ConsumeErrorInfo().find("ZEPEBSBase.SystemProfile"), std::string::npos);
  windows::ComPtr<IOleClientSite> site;
  EXPECT_EQ(host.As<IOleObject>()->GetClientSite(site.put()), S_OK);
  EXPECT_EQ(site.get(), static_cast<IOleClientSite*>(host.site.get()));
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
}

TEST(FailingCreation, KeepsNoMemberFromRunning) {
  ControlHost host;
  host.world.factory.Refuses(u"ZEPEBSBase.SystemProfile");
  EXPECT_EQ(Statement(host.control.get(), L"ModelCurrent").substr(0, 18), "exception 800A01AD");
  // Once for the creation, once for the member.
  EXPECT_EQ(host.world.log.Count(ExecuteLine(kModeStatement)), 2U);
}

TEST(FailingCreation, IsReturnedByTheActivationThatRetriedIt) {
  ControlHost host;
  host.Open();
  host.Close();
  host.world.factory.Refuses(u"ZEPEBSBase.SystemProfile");
  EXPECT_EQ(Hexadecimal(host.DoVerb(OLEIVERB_SHOW)), "800A01AD");
  EXPECT_NE(host.Window(), nullptr);
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  host.Close();
}

TEST(FailingCreation, IsReturnedByTheFirstMember) {
  ControlHost host;
  host.world.factory.Refuses(u"ZEPEBSBase.SystemProfile");
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar").substr(0, 18), "exception 800A01AD");
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
}

TEST(FailingCreation, IsNeverReturnedByShow) {
  ControlHost host;
  host.world.factory.Refuses(u"ZEPEBSBase.SystemProfile");
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
}

}  // namespace
}  // namespace pricedown::testing
