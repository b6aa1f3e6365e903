// Tests of the small helpers of the tests: logs, readable values, scripted questions.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "tests/support/call_log.h"
#include "tests/support/memory_block.h"
#include "tests/support/number_from_environment.h"
#include "tests/support/recording_questions.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

TEST(CallLog, KeepsLinesInTheirOrder) {
  CallLog log;
  log.Add("b");
  log.Add("a");
  log.Add("b");
  EXPECT_EQ(log.Text(), "b\na\nb\n");
  EXPECT_EQ(log.Size(), 3u);
  EXPECT_EQ(log.Count("b"), 2u);
  EXPECT_EQ(log.Count("c"), 0u);
  log.Clear();
  EXPECT_EQ(log.Text(), "");
}

TEST(CallLog, SharesItsLinesWithItsCopies) {
  CallLog log;
  CallLog copy = log;
  copy.Add("a");
  EXPECT_EQ(log.Text(), "a\n");
}

TEST(CallLog, ShowsADifferenceLineByLine) {
  CallLog log;
  log.Add("create A");
  log.Add("release A");
  EXPECT_NONFATAL_FAILURE(EXPECT_EQ(log.Text(), Lines(R"(
      create A
      A.Run()
      release A
      )")),
                          "\n+A.Run()\n");
}

TEST(Lines, RemovesTheSharedIndentationOnly) {
  EXPECT_EQ(Lines(R"(
    a
      b

    c
    )"),
            "a\n  b\n\nc\n");
  EXPECT_EQ(Lines(""), "");
  EXPECT_EQ(Lines("a"), "a\n");
  EXPECT_EQ(Lines("a\nb\n"), "a\nb\n");
}

TEST(NumberFromEnvironment, IsTheUsualOneOnlyWhereNoneIsSet) {
  constexpr const char* kName = "PRICEDOWN_NUMBER_OF_THIS_TEST";
  EXPECT_EQ(NumberFromEnvironment(kName, 1000), 1000);
  for (const char* number : {"1", "7", "1000000"}) {
    setenv(kName, number, 1);
    EXPECT_EQ(NumberFromEnvironment(kName, 1000), std::stoi(number));
  }
  for (const char* text : {"", "10k", " 5", "0", "-3", "1e3", "99999999999"}) {
    setenv(kName, text, 1);
    EXPECT_THROW(NumberFromEnvironment(kName, 1000), std::invalid_argument) << text;
  }
  unsetenv(kName);
}

TEST(Readable, DistinguishesTheKinds) {
  EXPECT_EQ(Readable(Value()), "Empty");
  EXPECT_EQ(Readable(Null{}), "Null");
  EXPECT_EQ(Readable(Missing{}), "Missing");
  EXPECT_EQ(Readable(true), "True");
  EXPECT_EQ(Readable(std::int16_t{12}), "int16 12");
  EXPECT_EQ(Readable(12), "12");
  EXPECT_EQ(Readable(12.0), "12.0");
  EXPECT_EQ(Readable(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(Readable(1e300), "1e+300");
  EXPECT_EQ(Readable(Date{39448.5}), "date 39448.5");
  EXPECT_EQ(Readable(u"12"), "\"12\"");
  EXPECT_EQ(Readable(nullptr), "Nothing");
  EXPECT_EQ(Readable(std::vector<Value>{u"a", 1, {}}), "[\"a\", 1, Empty]");
  const CellBlockPtr block =
      std::make_shared<MemoryBlock>(2, std::vector<std::vector<Value>>{{1, 2}, {3, 4}, {5, 6}});
  EXPECT_EQ(Readable(block), "block 2x3");
  Value target = u"a";
  EXPECT_EQ(Readable(Value::ByReference(target)), "ref \"a\"");
}

TEST(Readable, IsHowGoogleTestPrintsValues) {
  EXPECT_EQ(::testing::PrintToString(Value(u"物料")), "\"物料\"");
}

TEST(Quoted, EscapesWhatWouldBreakALine) {
  EXPECT_EQ(Quoted(u"a\"b\\c\r\n\t"), R"("a\"b\\c\r\n\t")");
  EXPECT_EQ(Quoted(std::u16string_view(u"\0\x1f\x7f", 3)), R"("\u{0}\u{1f}\u{7f}")");
}

TEST(RecordingQuestions, LogsMessagesAndAnswersFromTheScript) {
  CallLog log;
  RecordingQuestions questions(log);
  questions.WillAnswer({true, false});
  questions.ShowMessage(u"没有权限,请与系统管理员联系", u"岚禾提示", MessageIcon::Information);
  EXPECT_TRUE(questions.Confirm(u"是否保存当前数据？", u"岚禾提示", MessageIcon::None));
  EXPECT_FALSE(questions.Confirm(u"确定?", u"岚禾提示", MessageIcon::Question));
  EXPECT_EQ(log.Text(), Lines(R"(
      message information "岚禾提示": "没有权限,请与系统管理员联系"
      ask no icon "岚禾提示": "是否保存当前数据？" -> yes
      ask question "岚禾提示": "确定?" -> no
      )"));
}

TEST(RecordingQuestions, FailsTheTestForAnAnswerWithoutAQuestion) {
  EXPECT_NONFATAL_FAILURE(
      {
        RecordingQuestions questions{CallLog()};
        questions.WillAnswer({true, false});
        questions.Confirm(u"t", u"c", MessageIcon::None);
      },
      "1 answers without a question");
}

TEST(RecordingQuestions, FailsTheTestForAQuestionWithoutAnAnswer) {
  RecordingQuestions questions{CallLog()};
  EXPECT_NONFATAL_FAILURE(
      EXPECT_FALSE(questions.Confirm(u"确定?", u"岚禾提示", MessageIcon::Question)),
      "no answer scripted: ask question \"岚禾提示\": \"确定?\"");
}

}  // namespace
}  // namespace pricedown::testing
