// Which parts of a text are hidden as passwords.
#include "workbench/recording/passwords.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

struct HiddenCase {
  const char* name;
  const char* text;
  const char* hidden;
};
void PrintTo(const HiddenCase& one, std::ostream* stream) { *stream << one.name; }

class WithoutPasswordsOf : public ::testing::TestWithParam<HiddenCase> {};

TEST_P(WithoutPasswordsOf, HidesTheValueAlone) {
  EXPECT_EQ(GetParam().hidden, WithoutPasswords(GetParam().text));
}

TEST_P(WithoutPasswordsOf, LeavesAHiddenTextAsItIs) {
  EXPECT_EQ(GetParam().hidden, WithoutPasswords(GetParam().hidden));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, WithoutPasswordsOf,
    ::testing::Values(HiddenCase{"Nothing", "", ""},
                      HiddenCase{"OtherText", "select a=1; b={x}", "select a=1; b={x}"},
                      HiddenCase{"Entry", "Server=s;PWD=secret;UID=u", "Server=s;PWD=***;UID=u"},
                      HiddenCase{"AtTheEnd", "uid=u;password=se cret", "uid=u;password=***"},
                      HiddenCase{"WithBlanks", "Password = secret ;UID=u", "Password = ***;UID=u"},
                      HiddenCase{"LongerKey", "DbPassword=x;AccessToken=y",
                                 "DbPassword=***;AccessToken=***"},
                      HiddenCase{"InBraces", "Pwd={a;b}}c};UID=u", "Pwd=***;UID=u"},
                      HiddenCase{"InQuotes", "Pwd=\"a;b\";UID=u", "Pwd=***;UID=u"},
                      HiddenCase{"OpenBrace", "Pwd={a;UID=u", "Pwd=***"},
                      HiddenCase{"EntryAround", "ConnectString={Server=s;Password=a}b};UserName=n",
                                 "ConnectString={Server=s;Password=***};UserName=n"},
                      HiddenCase{"Statement", "where FPassword='a''b' and FName='c'",
                                 "where FPassword=*** and FName='c'"},
                      HiddenCase{"EmptyValue", "PWD=;UID=u", "PWD=;UID=u"},
                      HiddenCase{"WithoutAKey", "=x;PWD=y", "=x;PWD=***"},
                      HiddenCase{"ValueWithSigns", "PWD=a=b=c;x=y", "PWD=***;x=y"}),
    [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace workbench
