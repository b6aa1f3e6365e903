// Preview, print and the choice of the display font.
#include "browser/print_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/browser/browser_fixture.h"
#include "tests/browser/recording_output.h"
#include "tests/support/case_name.h"

namespace pricedown::testing {
namespace {

constexpr const char* kSaveKaiTi =
    R"(put dictionary("GridFont") = "FontName=楷体|FontSize=12|FontBold=True|FontItalic=False")";

class PrintCommandsTest : public BrowserFixture {
 protected:
  PrintCommandsTest() {
    factory_.Object(u"ZEPEBCBASE.UserProfile")
        .On(u"Load", Value())
        .On(u"Save", Value())
        .On(u"Dictionary", factory_.Answering(u"dictionary"));
    factory_.Object(u"dictionary").AllowPut(u"");
    AnswerTitleFont(factory_, u"新細明體", 136);
    grid_.Prepare();
    grid_.GetGrid().SetMaxRows(1);
    grid_.GetGrid().SetText(1, 1, u"01.001");
  }

  // What follows a change of the font to size 12, bold, of that name.
  static std::string ApplyingKaiTi() {
    return Lines(R"(
               font tree 楷体 12.0 bold
               font label 楷体 12.0 bold
               create ZEPEBCBASE.UserProfile
               ZEPEBCBASE.UserProfile.Load("Host", "PriceDown")
               ZEPEBCBASE.UserProfile.Dictionary()
               )") +
           kSaveKaiTi + Lines(R"(

               release dictionary
               ZEPEBCBASE.UserProfile.Save("Host", "PriceDown")
               release ZEPEBCBASE.UserProfile
               )");
  }
  static Font KaiTi() { return {u"楷体", 12, true, false}; }
  std::size_t MessageCount() const {
    std::size_t count = 0;
    for (const std::string& line : log_.Lines()) count += line.starts_with("message ");
    return count;
  }

  PrintDocument document_;
  RecordingOutput output_{factory_.GetRecorder()};
  RecordingFontView fontView_{factory_.GetRecorder()};
  RecordingFontDialog dialog_{factory_.GetRecorder()};
  DisplayFont font_{environment_, document_, grid_.GetGrid(), fontView_};
  PrintCommands commands_{environment_, grid_.GetGrid(), document_, output_, font_};
};

TEST_F(PrintCommandsTest, PreviewWhatTheGridShows) {
  commands_.Preview();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output preview\n");
  EXPECT_EQ(output_.printed, PrintedList("新細明體 136", "row \"01.001\" \"\" \"\" \"\"\n"));
}

TEST_F(PrintCommandsTest, PrintWhatTheGridShows) {
  commands_.Print();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output print\n");
  EXPECT_EQ(output_.printed, PrintedList("新細明體 136", "row \"01.001\" \"\" \"\" \"\"\n"));
}

TEST_F(PrintCommandsTest, ApplyAndStoreAFontChangedInThePreview) {
  output_.onPreview = [&](PrintDocument&) { document_.font = KaiTi(); };
  commands_.Preview();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output preview\n" + ApplyingKaiTi());
  EXPECT_EQ(grid_.GetGrid().CellFont(), KaiTi());
  log_.Clear();
  output_.onPreview = nullptr;
  commands_.Preview();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output preview\n");
  EXPECT_EQ(document_.font, KaiTi());
}

struct ChangeCase {
  const char* name;
  Font font;
};
void PrintTo(const ChangeCase& change, std::ostream* stream) { *stream << change.name; }

class PreviewChange : public PrintCommandsTest, public ::testing::WithParamInterface<ChangeCase> {};

TEST_P(PreviewChange, OfAnyPartOfTheFontCounts) {
  output_.onPreview = [&](PrintDocument&) { document_.font = GetParam().font; };
  commands_.Preview();
  EXPECT_EQ(log_.Count("font tree " + FontInLog(GetParam().font)), 1u);
  EXPECT_EQ(log_.Count(R"(ZEPEBCBASE.UserProfile.Save("Host", "PriceDown"))"), 1u);
}

INSTANTIATE_TEST_SUITE_P(PrintCommands, PreviewChange,
                         ::testing::Values(ChangeCase{"Name", {u"楷体", 9, false, false}},
                                           ChangeCase{"Size", {u"宋体", 10.5, false, false}},
                                           ChangeCase{"Bold", {u"宋体", 9, true, false}},
                                           ChangeCase{"Italic", {u"宋体", 9, false, true}}),
                         CaseName<ChangeCase>);

TEST_F(PrintCommandsTest, TrackNoFontWhilePrinting) {
  output_.onPrint = [&] { document_.font = KaiTi(); };
  commands_.Print();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output print\n");
}

// Nothing is called after the call that fails; the user sees one message.
void StopsAtEachFailure(CallLog& log, RecordingFactory& factory,
                        const std::function<void()>& command) {
  FailEachCallInTurn([&](int failingCall) {
    log.Clear();
    const int before = factory.CallCount();
    factory.FailCall(failingCall);
    EXPECT_NO_THROW(command());
    factory.FailCall(0);
    const int calls = factory.CallCount() - before;
    if (failingCall == 0) return calls;
    const auto& lines = log.Lines();
    auto line = std::find_if(lines.begin(), lines.end(),
                             [](const std::string& text) { return text.ends_with(" fails"); });
    // Without an answer the language is the built-in one.
    if (line->find("ZEPPropsMgr.ShareProps") != std::string::npos) return calls;
    EXPECT_EQ(calls, failingCall) << log.Text();
    while (++line < lines.end() - 1) EXPECT_TRUE(line->starts_with("release ")) << log.Text();
    EXPECT_EQ(log.Lines().back(), "message information \"岚禾提示\": \"第 " +
                                      std::to_string(before + failingCall) + " 次调用失败\"");
    return calls;
  });
}

TEST_F(PrintCommandsTest, StopAPreviewAtEachCallThatFails) {
  StopsAtEachFailure(log_, factory_, [&] { commands_.Preview(); });
}

TEST_F(PrintCommandsTest, StopAPrintAtEachCallThatFails) {
  StopsAtEachFailure(log_, factory_, [&] { commands_.Print(); });
}

TEST_F(PrintCommandsTest, ReportNothingWhenAFontCannotBeAppliedOrStored) {
  const Font before = document_.font;
  // The calls of the font follow those of a preview that changes none.
  commands_.Preview();
  const int previewCalls = factory_.CallCount();
  output_.onPreview = [&](PrintDocument&) { document_.font = KaiTi(); };
  FailEachCallInTurn([&](int failingCall) {
    document_.font = before;
    log_.Clear();
    const int calls = factory_.CallCount();
    factory_.FailCall(failingCall == 0 ? 0 : previewCalls + failingCall);
    commands_.Preview();
    factory_.FailCall(0);
    EXPECT_EQ(MessageCount(), 0u) << log_.Text();
    EXPECT_EQ(log_.Count("output preview"), 1u);
    EXPECT_EQ(document_.font, KaiTi());
    EXPECT_EQ(factory_.LiveObjects(), 0);
    return factory_.CallCount() - calls - previewCalls;
  });
}

TEST_F(PrintCommandsTest, ReportAnyException) {
  const std::vector<std::pair<std::function<void()>, const char*>> failures{
      {[] { throw std::bad_alloc(); }, "内存不足"},
      {[] { throw std::runtime_error("out of paper"); }, "意外错误"},
      {[] { throw AutomationError(ErrorNumber::Unspecified, u"卡纸"); }, "卡纸"},
      {[] { throw AutomationError(ErrorNumber::Unspecified, u""); }, "意外错误"},
      {[] { throw 1; }, "意外错误"}};
  for (const auto& [failure, message] : failures) {
    log_.Clear();
    output_.onPrint = failure;
    EXPECT_NO_THROW(commands_.Print());
    EXPECT_EQ(log_.Lines().back(),
              std::string("message information \"岚禾提示\": \"") + message + "\"");
  }
}

// Its message box fails after something else was printed meanwhile.
class PrintingQuestions final : public UserQuestions {
 public:
  void ShowMessage(std::u16string_view, std::u16string_view, MessageIcon) override {
    if (onMessage) onMessage();
    throw AutomationError(ErrorNumber::Unspecified, u"no box");
  }
  bool Confirm(std::u16string_view, std::u16string_view, MessageIcon) override { return false; }
  std::function<void()> onMessage;
};

TEST_F(PrintCommandsTest, RunAgainWhileAndAfterAMessageThatFails) {
  PrintingQuestions questions;
  Environment environment{factory_, threadState_, questions, screen_, u"Host"};
  PrintCommands commands{environment, grid_.GetGrid(), document_, output_, font_};
  output_.onPrint = [] { throw std::bad_alloc(); };
  questions.onMessage = [&] {
    output_.onPrint = nullptr;
    commands.Print();
    EXPECT_EQ(log_.Count("output print"), 2u);
  };
  EXPECT_NO_THROW(commands.Print());
  commands.Print();
  EXPECT_EQ(log_.Count("output print"), 3u);
}

TEST_F(PrintCommandsTest, DoNothingWhenNested) {
  output_.onPreview = [&](PrintDocument&) {
    commands_.Preview();
    commands_.Print();
    commands_.ChooseDisplayFont(dialog_);
  };
  commands_.Preview();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output preview\n");
  output_.onPreview = nullptr;
  log_.Clear();
  commands_.Print();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output print\n");
}

TEST_F(PrintCommandsTest, RunAgainAfterAFailure) {
  factory_.FailCall(5);
  commands_.Print();
  log_.Clear();
  commands_.Print();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output print\n");
}

TEST_F(PrintCommandsTest, TakeInThePriceThatIsBeingTyped) {
  AttachGridView();
  gridView_.onAcceptTyping = [this] { grid_.GetGrid().SetText(4, 1, u"12.50"); };
  commands_.Print();
  EXPECT_NE(output_.printed.find("12.50"), std::string::npos) << output_.printed;
  gridView_.onAcceptTyping = [this] { grid_.GetGrid().SetText(4, 1, u"13.50"); };
  commands_.Preview();
  EXPECT_NE(output_.printed.find("13.50"), std::string::npos) << output_.printed;
}

TEST_F(PrintCommandsTest, ShowNothingWhenTheEndOfTypingEndsTheControl) {
  AttachGridView();
  gridView_.onAcceptTyping = [this] { environment_.lifetime.End(); };
  commands_.Print();
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(PrintCommandsTest, ShowNothingWhenTheControlEndsWhileTheTitleFontIsRead) {
  factory_.Object(u"q7font").On(u"", R"("Font.Name")", Reply::From([this](auto) -> Value {
                                  environment_.lifetime.End();
                                  return u"宋体";
                                }));
  commands_.Print();
  ASSERT_EQ(log_.Count("output print"), 1u);
  commands_.Preview();
  EXPECT_TRUE(environment_.lifetime.HasEnded());
  EXPECT_EQ(log_.Count("output preview"), 0u) << log_.Text();
}

TEST_F(PrintCommandsTest, TouchNothingOnceTheControlHasEnded) {
  output_.onPreview = [&](PrintDocument&) {
    document_.font = KaiTi();
    environment_.lifetime.End();
  };
  commands_.Preview();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output preview\n");
  log_.Clear();
  commands_.Preview();
  commands_.Print();
  commands_.ChooseDisplayFont(dialog_);
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(PrintCommandsTest, ShowNoFailureOnceTheControlHasEnded) {
  output_.onPreview = [&](PrintDocument&) {
    environment_.lifetime.End();
    throw AutomationError(ErrorNumber::Unspecified, u"late");
  };
  commands_.Preview();
  EXPECT_EQ(log_.Text(), ReadingTitleFont() + "output preview\n");
}

TEST_F(PrintCommandsTest, ApplyAndStoreAChosenFont) {
  dialog_.chosen = KaiTi();
  commands_.ChooseDisplayFont(dialog_);
  EXPECT_EQ(log_.Text(), "dialog 宋体 9.0 flags 515\n" + ApplyingKaiTi());
  EXPECT_EQ(document_.font, KaiTi());
}

TEST_F(PrintCommandsTest, ChangeNothingWhenTheChoiceIsCancelled) {
  dialog_.chosen = KaiTi();
  dialog_.error = kDialogCancelled;
  const Font before = document_.font;
  commands_.ChooseDisplayFont(dialog_);
  EXPECT_EQ(log_.Text(), "dialog 宋体 9.0 flags 515\n");
  EXPECT_EQ(document_.font, before);
}

TEST_F(PrintCommandsTest, ChangeNothingForAFontWithoutName) {
  dialog_.chosen = {u"", 20, true, true};
  const Font before = document_.font;
  commands_.ChooseDisplayFont(dialog_);
  EXPECT_EQ(log_.Text(), "dialog 宋体 9.0 flags 515\n");
  EXPECT_EQ(document_.font, before);
}

TEST_F(PrintCommandsTest, ReportADialogThatFails) {
  dialog_.error = kInjectedFailure;
  commands_.ChooseDisplayFont(dialog_);
  EXPECT_EQ(log_.Text(), Lines(R"(
      dialog 宋体 9.0 flags 515
      message information "岚禾提示": "对话框出错"
      )"));
}

TEST_F(PrintCommandsTest, ChooseNothingOnceTheControlHasEnded) {
  dialog_.chosen = KaiTi();
  dialog_.onShow = [&] { environment_.lifetime.End(); };
  const Font before = document_.font;
  commands_.ChooseDisplayFont(dialog_);
  EXPECT_EQ(log_.Text(), "dialog 宋体 9.0 flags 515\n");
  EXPECT_EQ(document_.font, before);
}

}  // namespace
}  // namespace pricedown::testing
