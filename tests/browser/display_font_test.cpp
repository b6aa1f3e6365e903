// The display font: report size, stored font, applying and storing it.
#include "browser/display_font.h"

#include <gtest/gtest.h>

#include "tests/browser/recording_views.h"
#include "tests/support/call_log.h"
#include "tests/support/recording_factory.h"
#include "tests/support/recording_questions.h"

namespace pricedown::testing {
namespace {

class DisplayFontTest : public ::testing::Test {
 protected:
  void Settings(Value gridFont, Value reportSize) {
    factory_.Object(u"ZEPEBCBASE.UserProfile")
        .On(u"Load", Value())
        .On(u"Save", Value())
        .On(u"Dictionary", factory_.Answering(u"dictionary"));
    factory_.Object(u"dictionary")
        .On(u"GetValue", R"("GridFont", "")", gridFont)
        .On(u"GetValue", R"("RptFontSize", 9)", reportSize)
        .AllowPut(u"");
  }

  CallLog log_;
  RecordingFactory factory_{log_};
  RecordingQuestions questions_{log_};
  RecordingScreen screen_{factory_.GetRecorder()};
  RecordingFontView view_{factory_.GetRecorder()};
  ThreadState threadState_;
  Environment environment_{factory_, threadState_, questions_, screen_, u"Host"};
  PrintDocument document_;
  Grid sheet_{4};
  DisplayFont font_{environment_, document_, sheet_, view_};
};

TEST_F(DisplayFontTest, AppliesTheReportSizeWhenNoFontWasChosen) {
  Settings(u"", u"12");
  view_.labelHeight = 300;
  font_.Refresh();
  EXPECT_EQ(log_.Text(), Lines(R"(
      create ZEPEBCBASE.UserProfile
      ZEPEBCBASE.UserProfile.Load("Host", "PriceDown")
      ZEPEBCBASE.UserProfile.Dictionary()
      dictionary.GetValue("GridFont", "")
      release dictionary
      release ZEPEBCBASE.UserProfile
      create ZEPEBCBASE.UserProfile
      ZEPEBCBASE.UserProfile.Load("Host", "PriceDown")
      ZEPEBCBASE.UserProfile.Dictionary()
      dictionary.GetValue("RptFontSize", 9)
      release dictionary
      release ZEPEBCBASE.UserProfile
      font label 宋体 12.0
      font tree 宋体 12.0
      font label 宋体 12.0
      )"));
  EXPECT_EQ(document_.font, (Font{u"宋体", 12, false, false}));
  EXPECT_EQ(document_.rowHeight, 330);
  EXPECT_EQ(sheet_.CellFont(), document_.font);
  EXPECT_DOUBLE_EQ(sheet_.RowHeight(), 320.0 / 15);
  EXPECT_DOUBLE_EQ(sheet_.TitleHeight(), 480.0 / 15);
}

TEST_F(DisplayFontTest, AnotherResolutionAppliesNoFontThatWasNeverApplied) {
  font_.ResolutionChanged();
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(DisplayFontTest, MeasuresRowsInPixelsOfTheScreen) {
  Settings(u"", u"9");
  screen_.twipsPerPixel = 10;  // 144 dpi
  font_.Refresh();
  EXPECT_DOUBLE_EQ(sheet_.RowHeight(), 26);
  EXPECT_DOUBLE_EQ(sheet_.TitleHeight(), 38.4);
}

struct ReportSizeCase {
  const char* name;
  Value given;
  bool applied;
};
void PrintTo(const ReportSizeCase& size, std::ostream* stream) { *stream << size.name; }

class ReportSize : public DisplayFontTest, public ::testing::WithParamInterface<ReportSizeCase> {};

TEST_P(ReportSize, IsAppliedFromNineToEighteen) {
  Settings(u"", GetParam().given);
  font_.Refresh();
  EXPECT_EQ(log_.Text().find("font tree") != std::string::npos, GetParam().applied) << log_.Text();
}

INSTANTIATE_TEST_SUITE_P(
    DisplayFont, ReportSize,
    ::testing::Values(
        ReportSizeCase{"Least", u"9", true}, ReportSizeCase{"Greatest", u"18", true},
        ReportSizeCase{"Between", u"10.5", true}, ReportSizeCase{"Number", 9, true},
        ReportSizeCase{"TooSmall", u"8", false}, ReportSizeCase{"JustTooSmall", u"8.9", false},
        ReportSizeCase{"TooGreat", u"20", false}, ReportSizeCase{"JustTooGreat", u"18.1", false},
        ReportSizeCase{"Text", u"大", false}, ReportSizeCase{"Empty", u"", false},
        ReportSizeCase{"Null", Null{}, false}, ReportSizeCase{"Huge", u"1E300", false}),
    [](const auto& test) { return test.param.name; });

TEST_F(DisplayFontTest, IgnoresTheReportSizeOnceAFontIsStored) {
  Settings(u"FontName=楷体", u"12");
  font_.Refresh();
  EXPECT_EQ(log_.Count(R"(dictionary.GetValue("RptFontSize", 9))"), 0u);
  EXPECT_EQ(document_.font.size, 9);
}

TEST_F(DisplayFontTest, AppliesASizeOnlyOnce) {
  Settings(u"", u"12");
  font_.Refresh();
  log_.Clear();
  font_.Refresh();
  EXPECT_EQ(log_.Count("font tree 宋体 12.0"), 0u);
  factory_.Object(u"dictionary").On(u"GetValue", R"("RptFontSize", 9)", u"14");
  font_.Refresh();
  EXPECT_EQ(log_.Count("font tree 宋体 14.0"), 1u);
}

TEST_F(DisplayFontTest, DoesNotTryASizeAgainAfterAStepThatFailed) {
  Settings(u"", u"12");
  font_.Refresh();
  factory_.Object(u"dictionary").On(u"GetValue", R"("RptFontSize", 9)", u"14");
  // Four calls for each of the two settings; then the label is measured.
  factory_.FailCall(9);
  font_.Refresh();
  ASSERT_EQ(log_.Count("font label 宋体 14.0 fails"), 1u) << log_.Text();
  log_.Clear();
  font_.Refresh();
  EXPECT_EQ(log_.Text().find("font "), std::string::npos) << log_.Text();
}

TEST_F(DisplayFontTest, DefaultsToNineWhenTheSettingsCannotBeRead) {
  factory_.Refuses(u"ZEPEBCBASE.UserProfile");
  font_.Refresh();
  EXPECT_EQ(log_.Count("font tree 宋体 9.0"), 1u);
}

TEST_F(DisplayFontTest, NeverLowersThePrintedRows) {
  Settings(u"", u"9");
  view_.labelHeight = 200;  // 230 with its margin
  font_.Refresh();
  EXPECT_EQ(document_.rowHeight, 285);
  document_.rowHeight = 500;
  factory_.Object(u"dictionary").On(u"GetValue", R"("RptFontSize", 9)", u"14");
  font_.Refresh();
  EXPECT_EQ(document_.font.size, 14);
  EXPECT_EQ(document_.rowHeight, 500);
}

TEST_F(DisplayFontTest, KeepsNameAndStyleWhenTheReportSizeChanges) {
  Settings(u"", u"12");
  document_.font = {u"楷体", 9, true, true};
  font_.Refresh();
  EXPECT_EQ(document_.font, (Font{u"楷体", 12, true, true}));
  EXPECT_EQ(log_.Count("font label 楷体 12.0 bold italic"), 2u);
}

TEST_F(DisplayFontTest, RestoresAStoredFont) {
  font_.Restore(u"FontName=楷体|FontSize=10.5|FontBold=True|FontItalic=False");
  EXPECT_EQ(log_.Text(), Lines(R"(
      font tree 楷体 10.5 bold
      font label 楷体 10.5 bold
      )"));
  EXPECT_EQ(document_.font, (Font{u"楷体", 10.5, true, false}));
  EXPECT_EQ(sheet_.CellFont(), document_.font);
}

TEST_F(DisplayFontTest, RestoresAnySizeAboveZero) {
  font_.Restore(u"FontSize=0.5");
  EXPECT_EQ(document_.font.size, 0.5);
}

struct KeptFont {
  const char* name;
  std::u16string_view settings;
  Font expected;
};
void PrintTo(const KeptFont& kept, std::ostream* stream) { *stream << kept.name; }

class RestoredFont : public DisplayFontTest, public ::testing::WithParamInterface<KeptFont> {};

TEST_P(RestoredFont, LeavesMissingAndInvalidPartsUnchanged) {
  document_.font = {u"宋体", 9, true, true};
  font_.Restore(GetParam().settings);
  EXPECT_EQ(FontInLog(document_.font), FontInLog(GetParam().expected));
  EXPECT_EQ(log_.Count("font tree " + FontInLog(GetParam().expected)), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    DisplayFont, RestoredFont,
    ::testing::Values(
        KeptFont{"NameOnly", u"FontName=黑体", {u"黑体", 9, true, true}},
        KeptFont{"SizeOnly", u"FontSize=20", {u"宋体", 20, true, true}},
        KeptFont{"StyleAsNumbers", u"FontBold=0|FontItalic=-1", {u"宋体", 9, false, true}},
        KeptFont{"OtherOrder", u"FontItalic=False|FontName=黑体", {u"黑体", 9, true, false}},
        KeptFont{"BadSize", u"FontName=黑体|FontSize=大", {u"黑体", 9, true, true}},
        KeptFont{"NegativeSize", u"FontSize=-9", {u"宋体", 9, true, true}},
        KeptFont{"ZeroSize", u"FontSize=0", {u"宋体", 9, true, true}},
        KeptFont{"HugeSize", u"FontSize=1E9", {u"宋体", 9, true, true}},
        KeptFont{"BadStyle", u"FontBold=yes|FontItalic=", {u"宋体", 9, true, true}},
        KeptFont{"Nonsense", u"|||=|x", {u"宋体", 9, true, true}}),
    [](const auto& test) { return test.param.name; });

TEST_F(DisplayFontTest, SavesTheFontInTheFormatThatItRestores) {
  Settings(u"", u"");
  document_.font = {u"楷体", 10.5, false, true};
  font_.Save();
  EXPECT_EQ(log_.Text(), Lines(R"(
      create ZEPEBCBASE.UserProfile
      ZEPEBCBASE.UserProfile.Load("Host", "PriceDown")
      ZEPEBCBASE.UserProfile.Dictionary()
      put dictionary("GridFont") = "FontName=楷体|FontSize=10.5|FontBold=False|FontItalic=True"
      release dictionary
      ZEPEBCBASE.UserProfile.Save("Host", "PriceDown")
      release ZEPEBCBASE.UserProfile
      )"));
  const Font saved = document_.font;
  document_.font = {};
  font_.Restore(u"FontName=楷体|FontSize=10.5|FontBold=False|FontItalic=True");
  EXPECT_EQ(document_.font, saved);
}

TEST_F(DisplayFontTest, EndsSilentlyAfterAnyFailure) {
  Settings(u"", u"12");
  FailEachCallInTurn([&](int failingCall) {
    DisplayFont font(environment_, document_, sheet_, view_);
    const int before = factory_.CallCount();
    factory_.FailCall(failingCall);
    font.Refresh();
    font.Restore(u"FontSize=10");
    font.Save();
    factory_.FailCall(0);
    EXPECT_EQ(factory_.LiveObjects(), 0);
    return factory_.CallCount() - before;
  });
  EXPECT_EQ(log_.Text().find("message "), std::string::npos) << log_.Text();
}

TEST_F(DisplayFontTest, StopsApplyingAtTheStepThatFails) {
  factory_.FailCall(2);
  font_.Restore(u"FontSize=20");
  EXPECT_EQ(log_.Text(), Lines(R"(
      font tree 宋体 20.0
      font label 宋体 20.0 fails
      )"));
  EXPECT_EQ(sheet_.CellFont().size, 9);
}

}  // namespace
}  // namespace pricedown::testing
