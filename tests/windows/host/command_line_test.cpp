#include "workbench/host/command_line.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include "platform/convert.h"
#include "windows/com/com_object_factory.h"

namespace workbench {
namespace {

TEST(CommandLine, HoldsCompanyTourRecordingAndTimeLimits) {
  const auto read = ParseCommandLine({L"--login-timeout", L"3", L"--company", L"Server=s;PWD=p",
                                      L"--statement-timeout", L"0", L"--keys", L"folder"});
  ASSERT_TRUE(read);
  EXPECT_EQ(read->company, L"Server=s;PWD=p");
  EXPECT_EQ(read->tour, L"");
  EXPECT_EQ(read->keys, L"folder");
  EXPECT_EQ(read->loginTimeout, 3);
  EXPECT_EQ(read->statementTimeout, 0);
  EXPECT_EQ(ParseCommandLine({L"--replay", L"file"})->replay, L"file");
  EXPECT_FALSE(ParseCommandLine({})->loginTimeout);
  EXPECT_FALSE(ParseCommandLine({})->statementTimeout);
}

TEST(CommandLine, RefusesUnknownOptionsAndTimeLimitsThatAreNoSeconds) {
  for (const std::vector<std::wstring>& words :
       std::vector<std::vector<std::wstring>>{{L"--company"},
                                              {L"company.db"},
                                              {L"--Company", L"a"},
                                              {L"--login-timeout"},
                                              {L"--login-timeout", L""},
                                              {L"--login-timeout", L"-1"},
                                              {L"--login-timeout", L"1.5"},
                                              {L"--statement-timeout", L"86401"},
                                              {L"--statement-timeout", L"99999999999999999999"}}) {
    EXPECT_FALSE(ParseCommandLine(words)) << words.size();
  }
}

TEST(CommandLine, SetsTheTimeLimitsOfTheSuite) {
  OleInitialize(nullptr);
  {
    pricedown::windows::ComObjectFactory factory;
    const auto settings = factory.Create(u"ZEPWorkbench.Settings");
    const auto before = settings->Get(u"StatementTimeout");
    SetTimeouts(*settings, *ParseCommandLine({L"--login-timeout", L"7"}));
    EXPECT_EQ(pricedown::ToInt32(settings->Get(u"LoginTimeout")), 7);
    EXPECT_EQ(pricedown::ToInt32(settings->Get(u"StatementTimeout")), 60);
    SetTimeouts(*settings, *ParseCommandLine({L"--statement-timeout", L"9"}));
    EXPECT_EQ(pricedown::ToInt32(settings->Get(u"LoginTimeout")), 7);
    EXPECT_EQ(pricedown::ToInt32(settings->Get(u"StatementTimeout")), 9);
    SetTimeouts(*settings,
                *ParseCommandLine({L"--login-timeout", L"15", L"--statement-timeout", L"60"}));
  }
  OleUninitialize();
}

}  // namespace
}  // namespace workbench
