// Replaying recordings that are written here as text: the same calls, differences, bad files.
#include "workbench/recording/replay.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "platform/error.h"
#include "platform/text.h"
#include "tests/support/utf8.h"

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::ObjectPtr;
using pricedown::Value;
using pricedown::testing::Readable;
using pricedown::testing::Utf8;

constexpr const char* kHeader = R"({"recording":1,"values":true})";
constexpr const char* kCreation =
    R"({"kind":"create","member":"Suite.Thing","result":{"type":"VT_UNKNOWN","value":{"object":1}}})";

std::shared_ptr<Replay> Recording(std::initializer_list<const char*> lines) {
  std::stringstream text;
  text << kHeader << "\r\n" << kCreation << "\r\n";
  for (const char* line : lines) text << line << "\r\n";
  return Replay::Read(text);
}

// The failure of `body` as "number source: description"; empty when it does not fail.
template <typename Body>
std::string FailureOf(Body&& body) {
  try {
    body();
  } catch (const AutomationError& error) {
    return std::to_string(error.Number()) + " " + Utf8(error.Source()) + ": " +
           Utf8(error.Description());
  }
  return {};
}

// An object of the caller's own.
struct ForeignObject final : pricedown::AutomationObject {
  pricedown::MemberId Find(std::u16string_view) override { return 1; }
  Value Invoke(pricedown::MemberId, pricedown::Access, std::span<Value>) override { return {}; }
};

TEST(Replay, AnswersACallWithItsResult) {
  const auto replay = Recording({R"({"kind":"call","object":1,"member":"Sum","arguments":[)"
                                 R"({"type":"VT_I4","value":2},{"type":"VT_BSTR","value":"x"}],)"
                                 R"("result":{"type":"VT_R8","value":2.5}})"});
  const ObjectPtr thing = replay->Create(u"suite.thing");
  EXPECT_EQ("2.5", Readable(thing->Call(u"SUM", {2, u"x"})));
  EXPECT_EQ(0U, replay->CallsLeft());
  EXPECT_EQ(u"", replay->Difference());
}

TEST(Replay, AnswersPutsAndCallsWithoutAResult) {
  const auto replay = Recording(
      {R"({"kind":"put","object":1,"member":"Name","arguments":[{"value":"n"}]})",
       R"({"kind":"putref","object":1,"member":"Owner","arguments":[{"value":{"object":1}}]})",
       R"({"kind":"call","object":1,"member":"Run"})"});
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  thing->Put(u"Name", u"n");
  thing->PutReference(u"Owner", thing);
  EXPECT_EQ("Empty", Readable(thing->Call(u"Run")));
  EXPECT_EQ(0U, replay->CallsLeft());
}

TEST(Replay, WritesWhatTheCallLeftInVariables) {
  const auto replay = Recording(
      {R"({"kind":"call","object":1,"member":"Get","arguments":[)"
       R"({"value":"key"},{"value":{"empty":true},"after":"answer"}],"result":{"value":true}})"});
  Value variable;
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  thing->Call(u"Get", {u"key", Value::ByReference(variable)});
  EXPECT_EQ("\"answer\"", Readable(variable));
}

TEST(Replay, ResultsAreObjectsOfTheRecording) {
  const auto replay = Recording(
      {R"({"kind":"call","object":1,"member":"Open","result":{"value":{"object":2}}})",
       R"({"kind":"call","object":2,"member":"Name","result":{"value":"two"}})",
       R"({"kind":"call","object":1,"member":"Current","result":{"value":{"object":2}}})"});
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  const ObjectPtr opened = thing->Call(u"Open").Object();
  EXPECT_EQ("\"two\"", Readable(opened->Get(u"Name")));
  EXPECT_EQ(opened, thing->Get(u"Current").Object());
}

TEST(Replay, DefaultMembersAreFoundByTheirId) {
  const auto replay =
      Recording({R"({"kind":"call","object":1,"member":"","dispid":0,"result":{"value":1}})",
                 R"({"kind":"call","object":1,"member":"Value","dispid":0,"result":{"value":2}})",
                 R"({"kind":"call","object":1,"member":"Value","dispid":0,"result":{"value":3}})"});
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  EXPECT_EQ("1", Readable(thing->Call(u"")));
  EXPECT_EQ("2", Readable(thing->Call(u"")));
  EXPECT_EQ("3", Readable(thing->Get(u"Value")));
}

TEST(Replay, FailsAsTheCallDid) {
  const auto replay =
      Recording({R"({"kind":"call","object":1,"member":"Run","failure":{"code":"0x80020009",)"
                 R"("number":"0x80040E14","source":"the suite","description":"语法错误"}})"});
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  EXPECT_EQ("-2147217900 the suite: 语法错误", FailureOf([&] { thing->Call(u"Run"); }));
  EXPECT_EQ(u"", replay->Difference());
}

TEST(Replay, CreationFailsAsItDid) {
  const auto replay =
      Recording({R"({"kind":"create","member":"Suite.Other","failure":{"number":"0x800401F3"}})"});
  replay->Create(u"Suite.Thing");
  EXPECT_EQ("-2147221005 : ", FailureOf([&] { replay->Create(u"Suite.Other"); }));
}

TEST(Replay, NamesThatWereNotFoundAreNotFoundAgain) {
  const auto replay = Recording(
      {R"({"kind":"name","object":1,"member":"Absent","failure":{"number":"0x80020006"}})",
       R"({"kind":"call","object":1,"member":"Run"})"});
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  EXPECT_EQ("-2147352570 : ", FailureOf([&] { thing->Call(u"absent"); }));
  thing->Call(u"Run");
  EXPECT_EQ(0U, replay->CallsLeft());
}

TEST(Replay, ReleasesAndInnerCallsAreLeftOut) {
  const auto replay = Recording({R"({"kind":"call","depth":1,"object":4,"member":"Inner"})",
                                 R"({"kind":"release","object":4,"name":"x"})",
                                 R"({"kind":"call","object":1,"member":"Run"})"});
  replay->Create(u"Suite.Thing")->Call(u"Run");
  EXPECT_EQ(0U, replay->CallsLeft());
}

TEST(Replay, KnowsWhatTheRecordingCreates) {
  const auto replay = Recording({});
  EXPECT_TRUE(replay->Creates(u"SUITE.THING"));
  EXPECT_FALSE(replay->Creates(u"ADODB.Recordset"));
}

struct Difference {
  const char* name;
  void (*call)(Replay& replay, const ObjectPtr& thing);
  const char* called;
};
void PrintTo(const Difference& one, std::ostream* stream) { *stream << one.name; }

class ReplayDifference : public ::testing::TestWithParam<Difference> {};

TEST_P(ReplayDifference, NamesTheLineWhatItSaysAndWhatWasCalled) {
  const auto replay = Recording(
      {R"({"kind":"call","object":1,"member":"Run","dispid":3,"arguments":[{"value":"a"}]})"});
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  const std::string failure = FailureOf([&] { GetParam().call(*replay, thing); });
  EXPECT_EQ(std::string("-2147024809 Replay: 与记录第 3 行不同。记录: "
                        R"({"kind":"call","object":1,"member":"Run","arguments":["a"]} 实际: )") +
                GetParam().called,
            failure);
  EXPECT_EQ("-2147024809 Replay: " + Utf8(replay->Difference()), failure);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, ReplayDifference,
    ::testing::Values(
        Difference{"Member", [](Replay&, const ObjectPtr& thing) { thing->Call(u"Go", {u"a"}); },
                   R"({"kind":"call","object":1,"member":"Go","arguments":["a"]})"},
        Difference{"Argument", [](Replay&, const ObjectPtr& thing) { thing->Call(u"Run", {u"b"}); },
                   R"({"kind":"call","object":1,"member":"Run","arguments":["b"]})"},
        Difference{"ArgumentCount", [](Replay&, const ObjectPtr& thing) { thing->Call(u"Run"); },
                   R"({"kind":"call","object":1,"member":"Run","arguments":[]})"},
        Difference{"Kind", [](Replay&, const ObjectPtr& thing) { thing->Put(u"Run", u"a"); },
                   R"({"kind":"put","object":1,"member":"Run","arguments":["a"]})"},
        Difference{"Default", [](Replay&, const ObjectPtr& thing) { thing->Call(u"", {u"a"}); },
                   R"({"kind":"call","object":1,"member":"","arguments":["a"]})"},
        Difference{
            "Creation",
            [](Replay& replay, const ObjectPtr&) { replay.Create(u"Suite.B")->Call(u"Run"); },
            R"({"kind":"create","member":"Suite.B","arguments":[]})"}),
    [](const auto& one) { return std::string(one.param.name); });

TEST(Replay, AfterADifferenceEveryCallFailsWithItsText) {
  const auto replay = Recording({R"({"kind":"call","object":1,"member":"Run"})"});
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  const std::string first = FailureOf([&] { thing->Call(u"Go"); });
  EXPECT_EQ(first, FailureOf([&] { thing->Call(u"Run"); }));
  EXPECT_EQ(first, FailureOf([&] { replay->Create(u"Suite.Thing")->Call(u"Run"); }));
  EXPECT_EQ(1U, replay->CallsLeft());
}

TEST(Replay, CallsBehindTheEndFail) {
  const auto replay = Recording({});
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  EXPECT_EQ(
      "-2147024809 Replay: 记录已经结束，实际调用: "
      R"({"kind":"call","object":1,"member":"Run","arguments":[]})",
      FailureOf([&] { thing->Call(u"Run"); }));
}

TEST(Replay, ForeignObjectsCanBeArgumentsButNoResults) {
  const auto replay = Recording(
      {R"({"kind":"call","object":1,"member":"Use","arguments":[{"value":{"object":-1}}],)"
       R"("result":{"value":{"object":-1}}})"});
  const ObjectPtr foreign = std::make_shared<ForeignObject>();
  const ObjectPtr thing = replay->Create(u"Suite.Thing");
  EXPECT_EQ("-2147024809 Replay: 记录中的这个对象没有被记录，不能回放。",
            FailureOf([&] { thing->Call(u"Use", {foreign}); }));
}

struct BadFile {
  const char* name;
  const char* text;
  const char* reason;
};
void PrintTo(const BadFile& one, std::ostream* stream) { *stream << one.name; }

class BadRecording : public ::testing::TestWithParam<BadFile> {};

TEST_P(BadRecording, IsRefusedWithTheReason) {
  std::stringstream text(GetParam().text);
  EXPECT_EQ(std::string("-2147024809 Replay: ") + GetParam().reason,
            FailureOf([&] { Replay::Read(text); }));
}

constexpr const char* kNoRecording = "这不是调用记录，或版本不同。";

INSTANTIATE_TEST_SUITE_P(
    Files, BadRecording,
    ::testing::Values(
        BadFile{"Empty", "", "记录文件无法读取，或是空的。"},
        BadFile{"NoJson", "hello\n", kNoRecording}, BadFile{"NoHeader", "{}\n", kNoRecording},
        BadFile{"OtherVersion", "{\"recording\":2,\"values\":true}\n", kNoRecording},
        BadFile{"WithoutValues", "{\"recording\":1,\"values\":false}\n",
                "这份记录不含数据，不能回放；请记录数据后再试。"},
        BadFile{"CutLine", "{\"recording\":1,\"values\":true}\n{\"kind\":\"ca",
                "记录文件第 2 行无法识别。"},
        BadFile{"NoKind", "{\"recording\":1,\"values\":true}\n{\"member\":\"x\"}\n",
                "记录文件第 2 行无法识别。"},
        BadFile{"ArgumentWithoutValue",
                "{\"recording\":1,\"values\":true}\n\n"
                "{\"kind\":\"call\",\"arguments\":[{\"type\":\"VT_I4\"}]}\n",
                "记录文件第 3 行无法识别。"},
        BadFile{"CreationWithoutResult",
                "{\"recording\":1,\"values\":true}\n{\"kind\":\"create\",\"member\":\"x\"}\n",
                "记录文件第 2 行无法识别。"}),
    [](const auto& one) { return std::string(one.param.name); });

TEST(Replay, AFileThatIsNotThereIsNamed) {
  EXPECT_EQ("-2147024809 Replay: 记录文件无法打开: /no/such/file.jsonl",
            FailureOf([] { Replay::Open("/no/such/file.jsonl"); }));
}

}  // namespace
}  // namespace workbench
