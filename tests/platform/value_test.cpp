// Tests of the value type: kinds, access, references, equality.
#include "platform/value.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "platform/automation.h"
#include "tests/support/failure.h"
#include "tests/support/memory_block.h"
#include "tests/support/recording_factory.h"

namespace pricedown::testing {
namespace {

ObjectPtr SomeObject() {
  RecordingFactory factory{CallLog()};
  return factory.NewObject(u"Some.Object");
}

TEST(Value, IsEmptyByDefault) {
  EXPECT_EQ(Value().GetKind(), Value::Kind::Empty);
  EXPECT_TRUE(Value().IsNothing());
}

TEST(Value, KeepsTheKindItWasMadeFrom) {
  EXPECT_TRUE(Value(Null{}).Is(Value::Kind::Null));
  EXPECT_TRUE(Value(Missing{}).Is(Value::Kind::Missing));
  EXPECT_TRUE(Value(false).Is(Value::Kind::Boolean));
  EXPECT_TRUE(Value(std::int16_t{1}).Is(Value::Kind::Int16));
  EXPECT_TRUE(Value(1).Is(Value::Kind::Int32));
  EXPECT_TRUE(Value(1.0).Is(Value::Kind::Double));
  EXPECT_TRUE(Value(Date{1}).Is(Value::Kind::Date));
  EXPECT_TRUE(Value(u"物料").Is(Value::Kind::Text));
  EXPECT_TRUE(Value(std::u16string_view(u"物料")).Is(Value::Kind::Text));
  EXPECT_TRUE(Value(nullptr).Is(Value::Kind::Object));
  EXPECT_TRUE(Value(CellBlockPtr()).Is(Value::Kind::Block));
  EXPECT_TRUE(Value(std::vector<Value>{1, 2}).Is(Value::Kind::List));
  EXPECT_TRUE(Value(BlockRow{}).Is(Value::Kind::Row));
  Value target;
  EXPECT_TRUE(Value::ByReference(target).Is(Value::Kind::Reference));
}

TEST(Value, CannotBeMadeFromAnUnrelatedPointer) {
  EXPECT_FALSE((std::is_constructible_v<Value, const char*>));
  EXPECT_FALSE((std::is_constructible_v<Value, const wchar_t*>));
  EXPECT_FALSE((std::is_constructible_v<Value, AutomationObject*>));
}

TEST(Value, ReturnsItsContent) {
  EXPECT_TRUE(Value(true).Boolean());
  EXPECT_EQ(Value(std::int16_t{-7}).Int16(), -7);
  EXPECT_EQ(Value(70000).Int32(), 70000);
  EXPECT_EQ(Value(12.5).Double(), 12.5);
  EXPECT_EQ(Value(Date{39448.75}).DateValue().days, 39448.75);
  EXPECT_EQ(Utf8(Value(u"物料").Text()), "物料");
  EXPECT_EQ(Value(nullptr).Object(), nullptr);
  const ObjectPtr object = SomeObject();
  EXPECT_EQ(Value(object).Object(), object);
  const CellBlockPtr block = std::make_shared<MemoryBlock>(1, std::vector<std::vector<Value>>{});
  EXPECT_EQ(Value(block).Block(), block);
  EXPECT_EQ(Value(BlockRow{block, 3}).Row().row, 3u);
  const Value list(std::vector<Value>{1, u"a"});
  ASSERT_EQ(list.List().size(), 2u);
  EXPECT_EQ(list.List()[1], Value(u"a"));
}

TEST(Value, RefusesAccessAsAnotherKind) {
  const std::string mismatch = "80020005 类型不匹配";
  EXPECT_EQ(FailureOf([] { Value(1).Boolean(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value(1).Int16(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value(std::int16_t{1}).Int32(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value(1).Double(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value(1.0).DateValue(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value(Null{}).Text(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value().Object(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value(nullptr).Block(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value().List(); }), mismatch);
  EXPECT_EQ(FailureOf([] { Value().Target(); }), mismatch);
}

TEST(Value, IsNothingOnlyWhenItHoldsNoData) {
  EXPECT_TRUE(Value(Null{}).IsNothing());
  EXPECT_TRUE(Value(Missing{}).IsNothing());
  EXPECT_FALSE(Value(false).IsNothing());
  EXPECT_FALSE(Value(u"").IsNothing());
  EXPECT_FALSE(Value(nullptr).IsNothing());
}

TEST(Value, ResolvesReferences) {
  Value target = 5;
  Value reference = Value::ByReference(target);
  const Value chained = Value::ByReference(reference);
  EXPECT_EQ(&chained.Resolved(), &target);
  EXPECT_EQ(&target.Resolved(), &target);
}

TEST(Value, WritesThroughAReference) {
  Value target;
  const Value reference = Value::ByReference(target);
  const Value copy = reference;
  copy.Target() = u"chs";
  EXPECT_EQ(target, Value(u"chs"));
}

TEST(Value, EqualsByKindAndContent) {
  EXPECT_EQ(Value(1), Value(1));
  EXPECT_NE(Value(1), Value(2));
  EXPECT_NE(Value(1), Value(1.0));
  EXPECT_NE(Value(1), Value(std::int16_t{1}));
  EXPECT_NE(Value(), Value(Null{}));
  EXPECT_NE(Value(Null{}), Value(Missing{}));
  EXPECT_EQ(Value(Missing{}), Value(Missing{}));
  EXPECT_EQ(Value(Date{39448.5}), Value(Date{39448.5}));
  EXPECT_NE(Value(Date{39448.5}), Value(Date{39448}));
  EXPECT_NE(Value(Date{39448.5}), Value(39448.5));
  EXPECT_NE(Value(u"1"), Value(1));
  EXPECT_EQ(Value(u"a"), Value(std::u16string(u"a")));
}

TEST(Value, EqualsObjectsAndListsByIdentity) {
  const Value object(SomeObject());
  const Value copy = object;
  EXPECT_EQ(object, copy);
  EXPECT_NE(object, Value(SomeObject()));
  const Value list(std::vector<Value>{1});
  EXPECT_EQ(list, Value(list));
  EXPECT_NE(list, Value(std::vector<Value>{1}));
}

}  // namespace
}  // namespace pricedown::testing
