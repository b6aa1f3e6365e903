// Which parts of a text are hidden as passwords.
#include "workbench/recording/passwords.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

struct Case {
  const char* name;
  const char* text;
  const char* hidden;
};
void PrintTo(const Case& one, std::ostream* stream) { *stream << one.name; }

class WithoutPasswordsOf : public ::testing::TestWithParam<Case> {};

TEST_P(WithoutPasswordsOf, HidesTheValueAlone) {
  EXPECT_EQ(GetParam().hidden, WithoutPasswords(GetParam().text));
}

TEST_P(WithoutPasswordsOf, LeavesAHiddenTextAsItIs) {
  EXPECT_EQ(GetParam().hidden, WithoutPasswords(GetParam().hidden));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, WithoutPasswordsOf,
    ::testing::Values(Case{"Nothing", "", ""},
                      Case{"OtherText", "select a=1; b={x}", "select a=1; b={x}"},
                      Case{"Entry", "Server=s;PWD=secret;UID=u", "Server=s;PWD=***;UID=u"},
                      Case{"AtTheEnd", "uid=u;password=se cret", "uid=u;password=***"},
                      Case{"WithBlanks", "Password = secret ;UID=u", "Password = ***;UID=u"},
                      Case{"LongerKey", "DbPassword=x;AccessToken=y",
                           "DbPassword=***;AccessToken=***"},
                      Case{"InBraces", "Pwd={a;b}}c};UID=u", "Pwd=***;UID=u"},
                      Case{"InQuotes", "Pwd=\"a;b\";UID=u", "Pwd=***;UID=u"},
                      Case{"OpenBrace", "Pwd={a;UID=u", "Pwd=***"},
                      Case{"EntryAround", "ConnectString={Server=s;Password=a}b};UserName=n",
                           "ConnectString={Server=s;Password=***};UserName=n"},
                      Case{"Statement", "where FPassword='a''b' and FName='c'",
                           "where FPassword=*** and FName='c'"},
                      Case{"EmptyValue", "PWD=;UID=u", "PWD=;UID=u"},
                      Case{"WithoutAKey", "=x;PWD=y", "=x;PWD=***"},
                      Case{"ValueWithSigns", "PWD=a=b=c;x=y", "PWD=***;x=y"}),
    [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace workbench
