// Tests of converting values to variants.
#include <gtest/gtest.h>

#include "tests/support/case_name.h"
#include "tests/support/utf8.h"
#include "windows/com/bstr.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::ToVariant;
using windows::Variant;

struct ValueCase {
  const char* name;
  Value given;
  VARTYPE type;
};
void PrintTo(const ValueCase& row, std::ostream* stream) { *stream << row.name; }

class VariantOfValue : public ::testing::TestWithParam<ValueCase> {};

TEST_P(VariantOfValue, HasTheTypeOfItsKind) {
  EXPECT_EQ(ToVariant(GetParam().given).get().vt, GetParam().type);
}

TEST_P(VariantOfValue, SurvivesTheRoundTrip) {
  EXPECT_EQ(windows::FromVariant(ToVariant(GetParam().given).get()), GetParam().given);
}

INSTANTIATE_TEST_SUITE_P(
    Table, VariantOfValue,
    ::testing::Values(ValueCase{"Empty", Value(), VT_EMPTY}, ValueCase{"Null", Null{}, VT_NULL},
                      ValueCase{"Missing", Missing{}, VT_ERROR}, ValueCase{"True", true, VT_BOOL},
                      ValueCase{"False", false, VT_BOOL},
                      ValueCase{"Int16", static_cast<std::int16_t>(-3), VT_I2},
                      ValueCase{"Int32", 70000, VT_I4}, ValueCase{"Double", 0.1, VT_R8},
                      ValueCase{"Date", Date{39448.75}, VT_DATE},
                      ValueCase{"Text", u"存货跌价准备", VT_BSTR},
                      ValueCase{"EmptyText", u"", VT_BSTR},
                      ValueCase{"NoObject", nullptr, VT_DISPATCH}),
    CaseName<ValueCase>);

TEST(VariantOfTruth, HasAllBitsSet) {
  EXPECT_EQ(ToVariant(true).get().boolVal, VARIANT_TRUE);
  EXPECT_EQ(ToVariant(false).get().boolVal, VARIANT_FALSE);
}

TEST(VariantOfMissing, IsTheCodeOfAnOmittedArgument) {
  EXPECT_EQ(ToVariant(Missing{}).get().scode, DISP_E_PARAMNOTFOUND);
}

TEST(VariantOfReference, HasTheContentOfItsTarget) {
  Value target = 12;
  const Variant variant = ToVariant(Value::ByReference(target));
  EXPECT_EQ(variant.get().vt, VT_I4);
  EXPECT_EQ(variant.get().lVal, 12);
}

TEST(BstrOfText, ThatDoesNotFitIsOutOfMemory) {
  // The view is never read: its length is refused.
  const char16_t one = u'x';
  const std::u16string_view huge(&one, 0x7FFFFFFF);
  EXPECT_THROW(windows::Bstr{huge}, std::bad_alloc);
}

}  // namespace
}  // namespace pricedown::testing
