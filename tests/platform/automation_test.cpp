// Tests of calls by member name.
#include "platform/automation.h"

#include <gtest/gtest.h>

#include "tests/support/failure.h"
#include "tests/support/recording_factory.h"

namespace pricedown::testing {
namespace {

// Notes each use as one line: "call 3 (1, 2)".
class NotingObject : public AutomationObject {
 public:
  MemberId Find(std::u16string_view name) override {
    log.Add("find " + Quoted(name));
    return name.empty() ? kDefaultMember : 3;
  }
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override {
    const char* const kinds[] = {"call ", "put ", "set "};
    log.Add(kinds[static_cast<int>(access)] + std::to_string(member) + " (" +
            Arguments(std::span<const Value>(arguments)) + ")");
    for (Value& argument : arguments) {
      if (argument.Is(Value::Kind::Reference)) argument.Target() = u"written";
    }
    return u"answer";
  }

  CallLog log;
};

TEST(AutomationObject, CallsAMemberAfterFindingItsName) {
  NotingObject object;
  EXPECT_EQ(object.Call(u"GetPeriodDate", {2008, 12}), Value(u"answer"));
  EXPECT_EQ(object.log.Text(), Lines(R"(
      find "GetPeriodDate"
      call 3 (2008, 12)
      )"));
}

TEST(AutomationObject, ReadsAPropertyAsACallWithoutArguments) {
  NotingObject object;
  EXPECT_EQ(object.Get(u"PropsString"), Value(u"answer"));
  EXPECT_EQ(object.log.Text(), Lines(R"(
      find "PropsString"
      call 3 ()
      )"));
}

TEST(AutomationObject, PutsAValueAsTheLastArgument) {
  NotingObject object;
  object.Put(u"PropsString", u"LANGUAGE=chs");
  object.PutIndexed(u"", u"NodeSel1", u"gi01");
  EXPECT_EQ(object.log.Text(), Lines(R"(
      find "PropsString"
      put 3 ("LANGUAGE=chs")
      find ""
      put 0 ("NodeSel1", "gi01")
      )"));
}

TEST(AutomationObject, PutsAnObjectByReference) {
  NotingObject object;
  RecordingFactory factory{CallLog()};
  object.PutReference(u"Recordset", factory.NewObject(u"Rows"));
  object.PutReference(u"Recordset", nullptr);
  EXPECT_EQ(object.log.Text(), Lines(R"(
      find "Recordset"
      set 3 ([Rows])
      find "Recordset"
      set 3 (Nothing)
      )"));
}

TEST(AutomationObject, LetsTheCalleeWriteToArgumentsByReference) {
  NotingObject object;
  Value answer;
  object.Call(u"GetProperty", {u"UserID", Value::ByReference(answer)});
  EXPECT_EQ(answer, Value(u"written"));
}

TEST(RequireObject, ReturnsTheObjectOfAValue) {
  RecordingFactory factory{CallLog()};
  const ObjectPtr object = factory.NewObject(u"Rows");
  EXPECT_EQ(RequireObject(object, u"Rows"), object);
  Value target(object);
  EXPECT_EQ(RequireObject(Value::ByReference(target), u"Rows"), object);
}

TEST(RequireObject, NamesWhatIsMissing) {
  const std::string failure = "800A005B 未设置对象: ReturnObject";
  EXPECT_EQ(FailureOf([] { RequireObject(Value(nullptr), u"ReturnObject"); }), failure);
  EXPECT_EQ(FailureOf([] { RequireObject(Value(), u"ReturnObject"); }), failure);
  EXPECT_EQ(FailureOf([] { RequireObject(Null{}, u"ReturnObject"); }), failure);
  EXPECT_EQ(FailureOf([] { RequireObject(u"x", u"ReturnObject"); }), failure);
}

}  // namespace
}  // namespace pricedown::testing
