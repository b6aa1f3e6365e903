// Tests of converting variants to values.
#include <gtest/gtest.h>

#include "tests/support/case_name.h"
#include "tests/support/failure.h"
#include "tests/windows/raw_call.h"
#include "windows/com/bstr.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::FromVariant;

struct VariantCase {
  const char* name;
  VARIANT given;
  const char* expected;  // as Readable shows it
};
void PrintTo(const VariantCase& row, std::ostream* stream) { *stream << row.name; }

VARIANT With(VARTYPE type, LONGLONG bits) {
  VARIANT variant = Nothing(type);
  variant.llVal = bits;
  return variant;
}

VARIANT Real(double number) {
  VARIANT variant = Nothing(VT_R8);
  variant.dblVal = number;
  return variant;
}

VARIANT SingleReal(float number) {
  VARIANT variant = Nothing(VT_R4);
  variant.fltVal = number;
  return variant;
}

VARIANT DateOf(double days) {
  VARIANT variant = Nothing(VT_DATE);
  variant.date = days;
  return variant;
}

VARIANT DecimalOf(ULONGLONG digits, BYTE scale, bool negative) {
  VARIANT variant;
  VariantInit(&variant);
  variant.decVal.Lo64 = digits;
  variant.decVal.scale = scale;
  variant.decVal.sign = negative ? DECIMAL_NEG : 0;
  variant.vt = VT_DECIMAL;
  return variant;
}

class ValueOfVariant : public ::testing::TestWithParam<VariantCase> {};

TEST_P(ValueOfVariant, HasTheKindThatHoldsIt) {
  EXPECT_EQ(Readable(FromVariant(GetParam().given)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ValueOfVariant,
    ::testing::Values(
        VariantCase{"Empty", Nothing(VT_EMPTY), "Empty"},
        VariantCase{"Null", Nothing(VT_NULL), "Null"},
        VariantCase{"OmittedArgument", Omitted(), "Missing"},
        VariantCase{"True", Truth(true), "True"}, VariantCase{"False", Truth(false), "False"},
        VariantCase{"TrueByOtherBits", With(VT_BOOL, 1), "True"},
        VariantCase{"SignedByte", With(VT_I1, 0xFF), "int16 -1"},
        VariantCase{"Byte", With(VT_UI1, 0xFF), "int16 255"},
        VariantCase{"Int16", With(VT_I2, 0x8000), "int16 -32768"},
        VariantCase{"Word", With(VT_UI2, 0x8000), "32768"},
        VariantCase{"Int32", Number(-12), "-12"}, VariantCase{"MachineInt", With(VT_INT, 7), "7"},
        VariantCase{"SmallUnsigned", With(VT_UI4, 7), "7"},
        VariantCase{"LargeUnsigned", With(VT_UI4, 0xFFFFFFFF), "4294967295.0"},
        VariantCase{"MachineUnsigned", With(VT_UINT, 0xFFFFFFFF), "4294967295.0"},
        VariantCase{"SmallInt64", With(VT_I8, -5), "-5"},
        VariantCase{"LargeInt64", With(VT_I8, 5000000001), "5000000001.0"},
        VariantCase{"SmallUnsigned64", With(VT_UI8, 5), "5"},
        VariantCase{"LargeUnsigned64", With(VT_UI8, 5000000001), "5000000001.0"},
        VariantCase{"Single", SingleReal(0.5F), "0.5"}, VariantCase{"Double", Real(2.25), "2.25"},
        VariantCase{"Currency", With(VT_CY, 12345678), "1234.5678"},
        VariantCase{"NegativeCurrency", With(VT_CY, -2500), "-0.25"},
        VariantCase{"Decimal", DecimalOf(12345, 2, false), "123.45"},
        VariantCase{"NegativeDecimal", DecimalOf(25, 2, true), "-0.25"},
        VariantCase{"Date", DateOf(39448.75), "date 39448.75"},
        VariantCase{"NullText", Text(nullptr), R"("")"},
        VariantCase{"NoObject", ObjectOf(nullptr), "Nothing"},
        VariantCase{"NoUnknown", Nothing(VT_UNKNOWN), "Nothing"}),
    CaseName<VariantCase>);

TEST(ValueOfText, KeepsEveryCodeUnit) {
  const std::u16string text = {u'物', 0, 0xD800, u' ', u'x'};
  const Bstr held(text);
  EXPECT_EQ(SysStringLen(held.get()), 5U);
  EXPECT_EQ(FromVariant(Text(held.get())).Text(), text);
}

struct RefusedCase {
  const char* name;
  VARIANT given;
};
void PrintTo(const RefusedCase& row, std::ostream* stream) { *stream << row.name; }

class RefusedVariant : public ::testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedVariant, IsATypeMismatch) {
  EXPECT_EQ(FailureOf([&] { FromVariant(GetParam().given); }).substr(0, 8), "80020005");
}

TEST_P(RefusedVariant, CannotBePassedOn) {
  const Value value = windows::FromVariantOrNullBlock(GetParam().given);
  EXPECT_EQ(value, Value(CellBlockPtr()));
  EXPECT_EQ(FailureOf([&] { windows::ToVariant(value); }).substr(0, 8), "80020005");
}

VARIANT gNestedTwice = Nothing(VT_EMPTY);
VARIANT gNested = Reference(VT_VARIANT, &gNestedTwice);

INSTANTIATE_TEST_SUITE_P(
    Table, RefusedVariant,
    ::testing::Values(RefusedCase{"ErrorCode", With(VT_ERROR, static_cast<LONG>(E_FAIL))},
                      RefusedCase{"Record", Nothing(VT_RECORD)},
                      RefusedCase{"UnknownType", Nothing(200)},
                      RefusedCase{"ReferenceToNowhere", Reference(VT_I4, nullptr)},
                      RefusedCase{"ReferenceToUnknownType", Reference(VT_RECORD, &gNestedTwice)},
                      RefusedCase{"ReferenceToReference", Reference(VT_VARIANT, &gNested)}),
    CaseName<RefusedCase>);

TEST(ReferredVariant, IsReadThroughEveryType) {
  LONG number = 12;
  short small = 3;
  VARIANT_BOOL truth = VARIANT_TRUE;
  double real = 1.5;
  CY currency{};
  currency.int64 = 15000;
  const Bstr text(u"甲");
  BSTR borrowed = text.get();
  VARIANT inner = Number(4);
  VARIANT decimal = DecimalOf(25, 1, false);
  EXPECT_EQ(Readable(FromVariant(Reference(VT_I4, &number))), "12");
  EXPECT_EQ(Readable(FromVariant(Reference(VT_I2, &small))), "int16 3");
  EXPECT_EQ(Readable(FromVariant(Reference(VT_BOOL, &truth))), "True");
  EXPECT_EQ(Readable(FromVariant(Reference(VT_R8, &real))), "1.5");
  EXPECT_EQ(Readable(FromVariant(Reference(VT_CY, &currency))), "1.5");
  EXPECT_EQ(Readable(FromVariant(Reference(VT_BSTR, &borrowed))), R"("甲")");
  EXPECT_EQ(Readable(FromVariant(Reference(VT_VARIANT, &inner))), "4");
  EXPECT_EQ(Readable(FromVariant(Reference(VT_DECIMAL, &decimal.decVal))), "2.5");
}

TEST(ReferredVariant, MayHoldAReferenceToASimpleType) {
  LONG number = 12;
  VARIANT inner = Reference(VT_I4, &number);
  EXPECT_EQ(Readable(FromVariant(Reference(VT_VARIANT, &inner))), "12");
}

}  // namespace
}  // namespace pricedown::testing
