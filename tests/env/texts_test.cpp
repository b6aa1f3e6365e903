// Failure texts, quoting, settings texts, the translation hook and the messages' title.
#include "env/messages.h"
#include "env/quoting.h"
#include "env/settings_text.h"
#include "env/translation.h"
#include "tests/env/env_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

TEST(FailureText, IsTheDescription) {
  EXPECT_EQ(Utf8(FailureText({-1, u"登录超时", u"suite"})), "登录超时");
}

TEST(FailureText, SaysThatSomethingUnexpectedFailedWithoutADescription) {
  EXPECT_EQ(Utf8(FailureText({-1, u"", u"suite"})), "意外错误");
}

TEST(Quoting, DoublesTrimsAndEnclosesAsRequested) {
  EXPECT_EQ(Utf8(QuoteText(u" it's ", false, false)), " it''s ");
  EXPECT_EQ(Utf8(QuoteText(u" it's ", true, false)), "it''s");
  EXPECT_EQ(Utf8(QuoteText(u" it's ", false, true)), "' it''s '");
  EXPECT_EQ(Utf8(QuoteText(u" it's ", true, true)), "'it''s'");
}

TEST(Quoting, DoublesEveryQuote) {
  EXPECT_EQ(Utf8(QuoteText(u"''a'", false, true)), "'''''a'''");
  EXPECT_EQ(Utf8(QuoteText(u"'", false, false)), "''");
}

TEST(Quoting, EnclosesTheEmptyText) {
  EXPECT_EQ(Utf8(QuoteText(u"", true, true)), "''");
  EXPECT_EQ(Utf8(QuoteText(u"  ", true, true)), "''");
  EXPECT_EQ(Utf8(QuoteText(u"", false, false)), "");
}

TEST(Quoting, LeavesOtherCharactersAlone) {
  EXPECT_EQ(Utf8(QuoteText(u"类别\"01\"\\", false, true)), "'类别\"01\"\\'");
  const std::u16string odd{u'a', u'\0', 0xD800};
  EXPECT_EQ(QuoteText(odd, false, false), odd);
}

struct SettingsCase {
  const char* name;
  std::u16string_view text;
  std::u16string_view entry;
  std::u16string_view separator;
  const char* expected;
};
void PrintTo(const SettingsCase& given, std::ostream* out) { *out << given.name; }

class SettingsEntries : public ::testing::TestWithParam<SettingsCase> {};

TEST_P(SettingsEntries, AreFoundByTheirExactName) {
  const SettingsCase& given = GetParam();
  EXPECT_EQ(Utf8(SettingsEntry(given.text, given.entry, given.separator)), given.expected);
}

constexpr std::u16string_view kFont = u"FontName=宋体;FontSize=10.5;FontBold=True;FontItalic=False";

INSTANTIATE_TEST_SUITE_P(
    All, SettingsEntries,
    ::testing::Values(SettingsCase{"First", kFont, u"FontName", u";", "宋体"},
                      SettingsCase{"Middle", kFont, u"FontSize", u";", "10.5"},
                      SettingsCase{"Last", kFont, u"FontItalic", u";", "False"},
                      SettingsCase{"Absent", kFont, u"FontColor", u";", ""},
                      SettingsCase{"OtherCase", kFont, u"fontname", u";", ""},
                      SettingsCase{"PartOfAName", kFont, u"Name", u";", ""},
                      SettingsCase{"BeginningOfAName", kFont, u"Font", u";", ""},
                      SettingsCase{"NoText", u"", u"FontName", u";", ""},
                      SettingsCase{"EmptyValue", u"a=;b=2", u"a", u";", ""},
                      SettingsCase{"EmptyValueAtTheEnd", u"a=1;b=", u"b", u";", ""},
                      SettingsCase{"FirstOfTwo", u"a=1;a=2", u"a", u";", "1"},
                      SettingsCase{"ValueWithAnEqualsSign", u"a=x=y;b=2", u"a", u";", "x=y"},
                      SettingsCase{"LongSeparator", u"a=1;|b=2|3;|c=4", u"b", u";|", "2|3"},
                      SettingsCase{"OtherSeparator", u"a=1;b=2", u"b", u"|", ""},
                      SettingsCase{"SurroundingSeparators", u";a=1;", u"a", u";", "1"},
                      SettingsCase{"NoSeparator", u"a=1", u"a", u"", ""},
                      SettingsCase{"NoName", u"=1;a=2", u"", u";", "1"}),
    ::testing::PrintToStringParamName());

TEST(SettingsText, IsBuiltInOrder) {
  EXPECT_EQ(Utf8(BuildSettings({{u"FontName", u"宋体"},
                                {u"FontSize", u"10.5"},
                                {u"FontBold", u"True"},
                                {u"FontItalic", u"False"}},
                               u";")),
            "FontName=宋体;FontSize=10.5;FontBold=True;FontItalic=False");
}

TEST(SettingsText, OfOneEntryHasNoSeparator) {
  EXPECT_EQ(Utf8(BuildSettings({{u"a", u""}}, u";")), "a=");
}

TEST(SettingsText, OfNoEntriesIsEmpty) { EXPECT_TRUE(BuildSettings({}, u";").empty()); }

TEST(SettingsText, RestoresWhatWasBuilt) {
  const std::u16string text = BuildSettings({{u"a", u"1"}, {u"b", u""}, {u"c", u"3=4"}}, u"; ");
  EXPECT_EQ(Utf8(SettingsEntry(text, u"a", u"; ")), "1");
  EXPECT_EQ(Utf8(SettingsEntry(text, u"b", u"; ")), "");
  EXPECT_EQ(Utf8(SettingsEntry(text, u"c", u"; ")), "3=4");
}

TEST(Translation, LeavesTextsUnchanged) {
  EXPECT_EQ(Utf8(Translate(u"物料类别维护")), "物料类别维护");
  EXPECT_TRUE(Translate(u"").empty());
}

TEST(MessagesTest, CarryTheTitleAndTheirIcons) {
  CallLog log;
  RecordingQuestions questions(log);
  Messages messages(questions);
  messages.Inform(u"请选择要删除的物料类别");
  messages.Report(u"\r\n超时");
  questions.WillAnswer({true, false});
  EXPECT_TRUE(messages.Ask(u"删除?", MessageIcon::Question));
  EXPECT_FALSE(messages.Ask(u"保存?", MessageIcon::None));
  EXPECT_EQ(log.Text(), Lines(R"(
      message information "岚禾提示": "请选择要删除的物料类别"
      message no icon "岚禾提示": "\r\n超时"
      ask question "岚禾提示": "删除?" -> yes
      ask no icon "岚禾提示": "保存?" -> no
      )"));
}

}  // namespace
}  // namespace pricedown
