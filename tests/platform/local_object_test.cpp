// Tests of the member tables of our own late-bound objects.
#include "platform/local_object.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/convert.h"
#include "tests/support/failure.h"

namespace pricedown::testing {
namespace {

// A counter with a step: Count (get/put, default), Step (put only), Add (method, 0 or 1
// arguments), Name (get only).
class Counter : public LocalObject<Counter> {
 public:
  static std::span<const Member<Counter>> Members() {
    static const std::array kMembers{
        Member<Counter>{u"Name", MemberKind::Get,
                        [](Counter&, Access, std::span<Value>) { return Value(u"计数"); }},
        Member<Counter>{u"Count", MemberKind::GetPut,
                        [](Counter& counter, Access access, std::span<Value> arguments) {
                          if (access == Access::Call) return Value(counter.count);
                          counter.count = ToInt32(arguments[0]);
                          return Value();
                        },
                        0, 0, true},
        Member<Counter>{u"Step", MemberKind::Put,
                        [](Counter& counter, Access access, std::span<Value> arguments) {
                          counter.step = ToInt32(arguments.back());
                          counter.stepSetByReference = access == Access::PutReference;
                          return Value();
                        },
                        0, 1},
        Member<Counter>{u"Add", MemberKind::Method,
                        [](Counter& counter, Access, std::span<Value> arguments) {
                          const std::int32_t times = arguments.empty() ? 1 : ToInt32(arguments[0]);
                          counter.count += counter.step * times;
                          return Value(counter.count);
                        },
                        0, 1}};
    return kMembers;
  }

  std::int32_t count = 0;
  std::int32_t step = 1;
  bool stepSetByReference = false;
};

TEST(LocalObject, FindsMembersWithoutRegardToCase) {
  Counter counter;
  EXPECT_EQ(counter.Find(u"COUNT"), counter.Find(u"Count"));
  EXPECT_NE(counter.Find(u"Count"), counter.Find(u"Add"));
}

TEST(LocalObject, NumbersMembersByTheirPlaceInTheTable) {
  Counter counter;
  EXPECT_EQ(counter.Find(u"Name"), 1);
  EXPECT_EQ(counter.Find(u"Add"), 4);
}

TEST(LocalObject, TreatsTheEmptyNameAsTheDefaultMember) {
  Counter counter;
  counter.count = 5;
  EXPECT_EQ(counter.Find(u""), counter.Find(u"Count"));
  EXPECT_EQ(counter.Get(u""), Value(5));
  EXPECT_EQ(counter.Invoke(kDefaultMember, Access::Call, {}), Value(5));
}

TEST(LocalObject, CallsGetsAndPuts) {
  Counter counter;
  counter.Put(u"Count", u"10");
  counter.Put(u"Step", 2);
  EXPECT_EQ(counter.Call(u"Add", {3}), Value(16));
  EXPECT_EQ(counter.Call(u"Add"), Value(18));
  EXPECT_EQ(Utf8(counter.Get(u"Name").Text()), "计数");
}

TEST(LocalObject, DistinguishesAPutByReference) {
  Counter counter;
  std::array<Value, 1> arguments{Value(4)};
  counter.Invoke(counter.Find(u"Step"), Access::PutReference, arguments);
  EXPECT_TRUE(counter.stepSetByReference);
}

TEST(LocalObject, ReportsAnUnknownName) {
  Counter counter;
  EXPECT_EQ(FailureOf([&] { counter.Find(u"Reset"); }), "80020006 对象不支持此属性或方法: Reset");
  EXPECT_EQ(FailureOf([&] { counter.Find(u"Coun"); }), "80020006 对象不支持此属性或方法: Coun");
}

TEST(LocalObject, RefusesAMemberUsedInAWayItDoesNotAllow) {
  Counter counter;
  EXPECT_EQ(FailureOf([&] { counter.Put(u"Name", u"x"); }), "80020003 成员不能这样使用: Name");
  EXPECT_EQ(FailureOf([&] { counter.Put(u"Add", 1); }), "80020003 成员不能这样使用: Add");
  EXPECT_EQ(FailureOf([&] { counter.Get(u"Step"); }), "80020003 成员不能这样使用: Step");
}

TEST(LocalObject, RefusesUnknownIds) {
  Counter counter;
  EXPECT_EQ(FailureOf([&] { counter.Invoke(5, Access::Call, {}); }),
            "80020003 对象没有此编号的成员");
  EXPECT_EQ(FailureOf([&] { counter.Invoke(-1, Access::Call, {}); }),
            "80020003 对象没有此编号的成员");
}

TEST(LocalObject, RefusesTooFewAndTooManyArguments) {
  Counter counter;
  EXPECT_EQ(FailureOf([&] { counter.Call(u"Add", {1, 2}); }), "8002000E 参数个数错误: Add (2)");
  EXPECT_EQ(FailureOf([&] { counter.PutIndexed(u"Count", 1, 2); }),
            "8002000E 参数个数错误: Count (2)");
  EXPECT_EQ(FailureOf([&] { counter.Invoke(counter.Find(u"Count"), Access::Put, {}); }),
            "8002000E 参数个数错误: Count (0)");
  EXPECT_EQ(counter.count, 0);
}

TEST(LocalObject, DoesNotCountAPutsValueAsAnArgument) {
  Counter counter;
  counter.PutIndexed(u"Step", 1, 7);
  EXPECT_EQ(counter.step, 7);
  std::array<Value, 3> three;
  EXPECT_EQ(FailureOf([&] { counter.Invoke(counter.Find(u"Step"), Access::Put, three); }),
            "8002000E 参数个数错误: Step (3)");
}

class Plain : public LocalObject<Plain> {
 public:
  static std::span<const Member<Plain>> Members() { return {}; }
};

TEST(LocalObject, MayHaveNoDefaultMember) {
  Plain plain;
  EXPECT_EQ(FailureOf([&] { plain.Get(u""); }), "80020006 对象没有默认成员");
  EXPECT_EQ(FailureOf([&] { plain.Invoke(kDefaultMember, Access::Call, {}); }),
            "80020006 对象没有默认成员");
}

}  // namespace
}  // namespace pricedown::testing
