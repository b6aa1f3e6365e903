// The suite's shared properties: how they are read, the properties string, the language.
#include "env/suite_properties.h"

#include "tests/env/env_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

class SuiteProperties : public EnvTest {};

TEST_F(SuiteProperties, AreReadFromANewObjectThatIsReleasedAtOnce) {
  factory.Object(kShareProps).On(u"GetProperty", Reply(Value()).Writing(1, 16394));
  EXPECT_EQ(SharedProperty(factory, u"UserID"), Value(16394));
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("UserID", ref Empty)
      release ZEPPropsMgr.ShareProps
      )"));
}

TEST_F(SuiteProperties, AreReadFromTheResultWhenTheArgumentStaysEmpty) {
  factory.Object(kShareProps).On(u"GetProperty", Reply(u"answered"));
  EXPECT_EQ(SharedProperty(factory, u"PropsString"), Value(u"answered"));
}

TEST_F(SuiteProperties, PreferTheArgumentToTheResult) {
  factory.Object(kShareProps).On(u"GetProperty", Reply(u"result").Writing(1, u"argument"));
  EXPECT_EQ(SharedProperty(factory, u"PropsString"), Value(u"argument"));
}

TEST_F(SuiteProperties, KeepAnObjectAnObject) {
  const ObjectPtr connection = factory.NewObject(u"connection");
  factory.Object(kShareProps).On(u"GetProperty", Reply(Value()).Writing(1, connection));
  EXPECT_EQ(SharedProperty(factory, u"Connection"), Value(connection));
}

TEST_F(SuiteProperties, StringIsTextForAnyKindOfResult) {
  factory.Object(kShareProps)
      .On(u"GetProperty", Reply(Value()).Writing(1, u"LANGUAGE=chs"))
      .On(u"GetProperty", Reply(Value()).Writing(1, 12))
      .On(u"GetProperty", Reply(Value()).Writing(1, Null{}))
      .On(u"GetProperty", Reply(Value()));
  EXPECT_EQ(Utf8(PropertiesString(factory)), "LANGUAGE=chs");
  EXPECT_EQ(Utf8(PropertiesString(factory)), "12");
  EXPECT_EQ(Utf8(PropertiesString(factory)), "");
  EXPECT_EQ(Utf8(PropertiesString(factory)), "");
}

TEST_F(SuiteProperties, StringOfAnObjectIsItsDefaultMember) {
  factory.Object(u"properties").On(u"", Reply(u"LANGUAGE=cht"));
  factory.Object(kShareProps)
      .On(u"GetProperty", Reply(Value()).Writing(1, factory.NewObject(u"properties")));
  EXPECT_EQ(Utf8(PropertiesString(factory)), "LANGUAGE=cht");
}

TEST_F(SuiteProperties, StringOfTheObjectNothingFails) {
  factory.Object(kShareProps).On(u"GetProperty", Reply(Value()).Writing(1, nullptr));
  EXPECT_EQ(ErrorOf([&] { PropertiesString(factory); }), NumberOf(ErrorNumber::ObjectNotSet));
}

TEST_F(SuiteProperties, ReturnTheUserAsANumber) {
  factory.Object(kShareProps)
      .On(u"GetProperty", Reply(Value()).Writing(1, u" 16394 "))
      .On(u"GetProperty", Reply(Value()).Writing(1, u"morningstar"));
  EXPECT_EQ(UserNumber(factory), 16394);
  EXPECT_EQ(ErrorOf([&] { UserNumber(factory); }), NumberOf(ErrorNumber::TypeMismatch));
}

struct EntryCase {
  const char* name;
  std::u16string_view properties;
  std::u16string_view entry;
  const char* expected;
};
void PrintTo(const EntryCase& given, std::ostream* out) { *out << given.name; }

class PropertyEntries : public ::testing::TestWithParam<EntryCase> {};

TEST_P(PropertyEntries, AreFoundByName) {
  EXPECT_EQ(Utf8(PropertyEntry(GetParam().properties, GetParam().entry)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, PropertyEntries,
    ::testing::Values(EntryCase{"Only", u"LANGUAGE=chs", u"LANGUAGE", "chs"},
                      EntryCase{"First", u"LANGUAGE=cht;UserID=1", u"LANGUAGE", "cht"},
                      EntryCase{"Middle", u"UserID=1;LANGUAGE=en;Acct=5", u"LANGUAGE", "en"},
                      EntryCase{"Last", u"UserID=1;LANGUAGE=en", u"LANGUAGE", "en"},
                      EntryCase{"BeforeAClosingSeparator", u"LANGUAGE=en;", u"LANGUAGE", "en"},
                      EntryCase{"LowerCaseName", u"language=en", u"LANGUAGE", "en"},
                      EntryCase{"MixedCaseName", u"LanGuage=en", u"LANGUAGE", "en"},
                      EntryCase{"LowerCaseQuestion", u"LANGUAGE=en", u"language", "en"},
                      EntryCase{"ValueKeepsItsCase", u"LANGUAGE=eN", u"LANGUAGE", "eN"},
                      EntryCase{"ValueKeepsItsBlanks", u"LANGUAGE= en ;x=1", u"LANGUAGE", " en "},
                      EntryCase{"ValueWithAnEqualsSign", u"Conn=a=b;x=1", u"Conn", "a=b"},
                      EntryCase{"FirstOfTwo", u"LANGUAGE=en;LANGUAGE=chs", u"LANGUAGE", "en"},
                      EntryCase{"Empty", u"LANGUAGE=;x=1", u"LANGUAGE", ""},
                      EntryCase{"EmptyAtTheEnd", u"x=1;LANGUAGE=", u"LANGUAGE", ""},
                      EntryCase{"Absent", u"UserID=1", u"LANGUAGE", ""},
                      EntryCase{"NameWithoutValue", u"LANGUAGE", u"LANGUAGE", ""},
                      EntryCase{"LongerName", u"LANGUAGES=en", u"LANGUAGE", ""},
                      EntryCase{"NameInsideAnother", u"MYLANGUAGE=en", u"LANGUAGE", ""},
                      EntryCase{"NameInsideAValue", u"x=LANGUAGE=en", u"LANGUAGE", ""},
                      EntryCase{"NoProperties", u"", u"LANGUAGE", ""},
                      EntryCase{"OnlySeparators", u";;;", u"LANGUAGE", ""},
                      EntryCase{"ChineseValue", u"Acct=岚禾;x=1", u"acct", "岚禾"}),
    ::testing::PrintToStringParamName());

struct LanguageCase {
  const char* name;
  std::u16string_view properties;
  const char* expected;
};
void PrintTo(const LanguageCase& given, std::ostream* out) { *out << given.name; }

class Languages : public ::testing::TestWithParam<LanguageCase> {};

TEST_P(Languages, ComeFromThePropertiesString) {
  CallLog log;
  RecordingFactory factory(log);
  factory.Object(kShareProps).On(u"GetProperty", Reply(Value()).Writing(1, GetParam().properties));
  EXPECT_EQ(Utf8(SuiteLanguage(factory)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Spellings, Languages,
    ::testing::Values(LanguageCase{"Simplified", u"LANGUAGE=chs", "chs"},
                      LanguageCase{"SimplifiedInCapitals", u"LANGUAGE=CHS", "CHS"},
                      LanguageCase{"Traditional", u"LANGUAGE=cht", "cht"},
                      LanguageCase{"English", u"LANGUAGE=en", "en"},
                      LanguageCase{"LowerCaseName", u"language=cht", "cht"},
                      LanguageCase{"Capitalised", u"Language=cht", "cht"},
                      LanguageCase{"BehindOthers", u"UserID=1;Language=cht", "cht"},
                      LanguageCase{"BeforeOthers", u"Language=cht;UserID=1", "cht"},
                      LanguageCase{"EmptyValue", u"LANGUAGE=;UserID=1", "chs"},
                      LanguageCase{"NoEntry", u"UserID=1", "chs"},
                      LanguageCase{"NoText", u"", "chs"},
                      LanguageCase{"NoValue", u"LANGUAGE", "chs"},
                      LanguageCase{"OtherName", u"LANG=cht", "chs"},
                      LanguageCase{"PrefixedName", u"SUBLANGUAGE=cht", "chs"},
                      LanguageCase{"BlankBeforeTheName", u"UserID=1; LANGUAGE=cht", "chs"},
                      LanguageCase{"OtherSeparator", u"UserID=1,LANGUAGE=cht", "chs"}),
    ::testing::PrintToStringParamName());

TEST(SuitePropertiesFailures, LanguageIsTheBuiltInOneWithoutProperties) {
  FailEachCallInTurn([](int failingCall) {
    CallLog log;
    RecordingFactory factory(log);
    SetProperties(factory, u"LANGUAGE=cht");
    factory.FailCall(failingCall);
    EXPECT_EQ(Utf8(SuiteLanguage(factory)), failingCall == 0 ? "cht" : "chs");
    EXPECT_EQ(factory.LiveObjects(), 0);
    return factory.CallCount();
  });
}

TEST(SuitePropertiesFailures, FailWithTheSuitesErrorAndLeakNothing) {
  FailEachCallInTurn([](int failingCall) {
    CallLog log;
    RecordingFactory factory(log);
    factory.Object(kShareProps).On(u"GetProperty", Reply(Value()).Writing(1, 16394));
    factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { EXPECT_EQ(UserNumber(factory), 16394); });
    EXPECT_EQ(error, failingCall == 0 ? std::nullopt : std::optional(kInjectedFailure));
    EXPECT_EQ(factory.LiveObjects(), 0);
    return factory.CallCount();
  });
}

}  // namespace
}  // namespace pricedown
