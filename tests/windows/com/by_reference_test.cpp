// Tests of writing a callee's result through a by-reference variant.
#include "windows/com/by_reference.h"

#include <gtest/gtest.h>

#include "tests/support/failure.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/simple_object.h"
#include "windows/com/bstr.h"
#include "windows/com/dispatch_object.h"
#include "windows/com/safe_array.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::ComPtr;
void StoreByReference(const VARIANT& reference, const Value& value) {
  windows::StoreByReference(reference, windows::ToVariant(value));
}
using windows::Variant;

TEST(StoringByReference, ConvertsToTheCallersType) {
  LONG number = 1;
  short small = 1;
  double real = 1;
  VARIANT_BOOL truth = VARIANT_FALSE;
  DATE date = 0;
  BYTE byte = 0;
  LONGLONG large = 0;
  StoreByReference(Reference(VT_I4, &number), Value(u"12"));
  StoreByReference(Reference(VT_I2, &small), 7.0);
  StoreByReference(Reference(VT_R8, &real), 2);
  StoreByReference(Reference(VT_BOOL, &truth), true);
  StoreByReference(Reference(VT_DATE, &date), Date{3.5});
  StoreByReference(Reference(VT_UI1, &byte), 200);
  StoreByReference(Reference(VT_I8, &large), 5000000000.0);
  EXPECT_EQ(number, 12);
  EXPECT_EQ(small, 7);
  EXPECT_EQ(real, 2);
  EXPECT_EQ(truth, VARIANT_TRUE);
  EXPECT_EQ(date, 3.5);
  EXPECT_EQ(byte, 200);
  EXPECT_EQ(large, 5000000000);
}

TEST(StoringByReference, ReplacesTexts) {
  Bstr text(u"old");
  BSTR held = text.release();
  StoreByReference(Reference(VT_BSTR, &held), Value(u"新"));
  text.attach(held);
  EXPECT_EQ(Utf8(text.Text()), "新");
}

TEST(StoringByReference, ReplacesVariantsOfAnyType) {
  Variant variant = windows::ToVariant(u"old");
  StoreByReference(Reference(VT_VARIANT, variant.share()), 5);
  EXPECT_EQ(Readable(windows::FromVariant(variant.get())), "5");
}

TEST(StoringByReference, GoesThroughAVariantThatIsAReference) {
  LONG number = 1;
  VARIANT inner = Reference(VT_I4, &number);
  StoreByReference(Reference(VT_VARIANT, &inner), 9);
  EXPECT_EQ(number, 9);
  EXPECT_EQ(inner.vt, VT_I4 | VT_BYREF);
}

TEST(StoringByReference, ReplacesObjectsAndReleasesTheOldOnes) {
  const auto old = std::make_shared<SimpleObject>();
  const auto next = std::make_shared<SimpleObject>();
  IDispatch* held = windows::ToDispatch(old).release();
  StoreByReference(Reference(VT_DISPATCH, &held), Value(ObjectPtr(next)));
  const auto owner = ComPtr<IDispatch>::Adopt(held);
  EXPECT_EQ(old.use_count(), 1);
  EXPECT_EQ(windows::FromDispatch(held), next);
}

TEST(StoringByReference, StoresDecimals) {
  DECIMAL decimal{};
  StoreByReference(Reference(VT_DECIMAL, &decimal), 2.5);
  EXPECT_EQ(decimal.Lo64, 25U);
  EXPECT_EQ(decimal.scale, 1);
  EXPECT_EQ(decimal.wReserved, 0);
}

TEST(StoringByReference, StoresListsInArrays) {
  windows::SafeArray array;
  StoreByReference(Reference(VT_ARRAY | VT_VARIANT, array.put()),
                   std::vector<Value>{Value(1), Value(u"乙")});
  VARIANT held = Nothing(VT_ARRAY | VT_VARIANT);
  held.parray = array.get();
  EXPECT_EQ(Readable(windows::FromVariant(held)), R"([1, "乙"])");
}

TEST(StoringByReference, ThatDoesNotFitChangesNothing) {
  LONG number = 1;
  BYTE byte = 3;
  EXPECT_EQ(FailureOf([&] { StoreByReference(Reference(VT_I4, &number), u"甲"); }).substr(0, 8),
            "80020005");
  EXPECT_EQ(FailureOf([&] { StoreByReference(Reference(VT_UI1, &byte), 300); }).substr(0, 8),
            "8002000A");
  EXPECT_EQ(number, 1);
  EXPECT_EQ(byte, 3);
}

}  // namespace
}  // namespace pricedown::testing
