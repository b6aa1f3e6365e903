// Tests of arrays between values and variants: lists, and blocks that are read in place.
#include <gtest/gtest.h>

#include "platform/cell_block.h"
#include "tests/support/failure.h"
#include "tests/support/memory_block.h"
#include "tests/windows/raw_call.h"
#include "windows/com/bstr.h"
#include "windows/com/outgoing_arguments.h"
#include "windows/com/safe_array.h"
#include "windows/com/safe_array_block.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::SafeArray;
using windows::Variant;

// Two columns and three rows, the lower bounds not zero.
SafeArray Table(VARTYPE type) {
  SAFEARRAYBOUND bounds[] = {{2, 1}, {3, 5}};
  SafeArray array;
  array.attach(SafeArrayCreate(type, 2, bounds));
  return array;
}

void Store(const SafeArray& array, LONG column, LONG row, void* element) {
  LONG indexes[] = {column, row};
  ASSERT_EQ(SafeArrayPutElement(array.get(), indexes, element), S_OK);
}

VARIANT Holding(const SafeArray& array, VARTYPE type) {
  VARIANT variant = Nothing(static_cast<VARTYPE>(VT_ARRAY | type));
  variant.parray = array.get();
  return variant;
}

Variant Owning(SafeArray array, VARTYPE type) {
  VARIANT variant = Holding(array, type);
  array.release();
  Variant owner;
  owner.attach(variant);
  return owner;
}

TEST(TwoDimensionalArray, IsABlockWithTheFirstDimensionAsColumn) {
  SafeArray array = Table(VT_VARIANT);
  VARIANT number = Number(12);
  const Bstr text(u"物料");
  VARIANT name = Text(text.get());
  VARIANT null = Nothing(VT_NULL);
  Store(array, 1, 5, &number);
  Store(array, 2, 5, &name);
  Store(array, 2, 7, &null);
  const Value value = windows::ConsumeVariant(Owning(std::move(array), VT_VARIANT));
  const CellBlock& block = *value.Block();
  EXPECT_EQ(block.ColumnCount(), 2U);
  EXPECT_EQ(block.RowCount(), 3U);
  EXPECT_EQ(block.Cell(0, 0).kind, CellView::Kind::Number);
  EXPECT_EQ(block.Cell(0, 0).number, 12);
  EXPECT_EQ(block.Cell(1, 0).kind, CellView::Kind::Text);
  EXPECT_EQ(Utf8(block.Cell(1, 0).text), "物料");
  EXPECT_EQ(block.Cell(1, 2).kind, CellView::Kind::Null);
  EXPECT_EQ(Readable(block.CellValue(1, 0)), R"("物料")");
  EXPECT_EQ(Readable(block.CellValue(1, 2)), "Null");
  EXPECT_EQ(Readable(block.CellValue(0, 1)), "Empty");
}

TEST(TwoDimensionalArray, IsReadInPlace) {
  SafeArray array = Table(VT_VARIANT);
  const Bstr text(u"物料");
  VARIANT name = Text(text.get());
  Store(array, 1, 5, &name);
  VARIANT* first = nullptr;
  ASSERT_EQ(SafeArrayAccessData(array.get(), reinterpret_cast<void**>(&first)), S_OK);
  const void* characters = first->bstrVal;
  SafeArrayUnaccessData(array.get());
  const Value value = windows::ConsumeVariant(Owning(std::move(array), VT_VARIANT));
  EXPECT_EQ(value.Block()->Cell(0, 0).text.data(), characters);
}

TEST(TwoDimensionalArray, OfTheCallersIsCopied) {
  SafeArray array = Table(VT_I4);
  LONG number = 4;
  Store(array, 2, 6, &number);
  const Value value = windows::FromVariant(Holding(array, VT_I4));
  number = 5;
  Store(array, 2, 6, &number);
  EXPECT_EQ(value.Block()->Cell(1, 1).number, 4);
  EXPECT_EQ(Readable(value.Block()->CellValue(1, 1)), "4");
}

TEST(TwoDimensionalArray, OfTextsIsABlockToo) {
  SafeArray array = Table(VT_BSTR);
  const Bstr text(u"甲");
  Store(array, 1, 6, text.get());
  const Value value = windows::FromVariant(Holding(array, VT_BSTR));
  EXPECT_EQ(Utf8(value.Block()->Cell(0, 1).text), "甲");
  EXPECT_EQ(value.Block()->Cell(0, 0).kind, CellView::Kind::Text);
  EXPECT_EQ(value.Block()->Cell(0, 0).text, u"");
}

TEST(TwoDimensionalArray, WithoutRowsIsAnEmptyBlock) {
  SAFEARRAYBOUND bounds[] = {{2, 0}, {0, 0}};
  SafeArray array;
  array.attach(SafeArrayCreate(VT_VARIANT, 2, bounds));
  const Value value = windows::FromVariant(Holding(array, VT_VARIANT));
  EXPECT_EQ(value.Block()->ColumnCount(), 2U);
  EXPECT_EQ(value.Block()->RowCount(), 0U);
}

TEST(OneDimensionalArray, IsAList) {
  SafeArray array;
  array.attach(SafeArrayCreateVector(VT_VARIANT, 3, 2));
  VARIANT number = Number(7);
  LONG index = 4;
  ASSERT_EQ(SafeArrayPutElement(array.get(), &index, &number), S_OK);
  EXPECT_EQ(Readable(windows::FromVariant(Holding(array, VT_VARIANT))), "[Empty, 7]");
}

TEST(OneDimensionalArray, OfSimpleElementsIsAListToo) {
  SafeArray array;
  array.attach(SafeArrayCreateVector(VT_I2, 0, 1));
  short number = 3;
  LONG index = 0;
  ASSERT_EQ(SafeArrayPutElement(array.get(), &index, &number), S_OK);
  EXPECT_EQ(Readable(windows::FromVariant(Holding(array, VT_I2))), "[int16 3]");
}

TEST(MissingArray, IsAnEmptyList) {
  EXPECT_EQ(Readable(windows::FromVariant(Holding(SafeArray(), VT_VARIANT))), "[]");
}

TEST(ThreeDimensionalArray, IsATypeMismatch) {
  SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}, {1, 0}};
  SafeArray array;
  array.attach(SafeArrayCreate(VT_VARIANT, 3, bounds));
  EXPECT_EQ(FailureOf([&] { windows::FromVariant(Holding(array, VT_VARIANT)); }).substr(0, 8),
            "80020005");
}

TEST(BlockOfTheCore, BecomesAnArrayOfVariants) {
  const auto block = std::make_shared<MemoryBlock>(
      2, std::vector<std::vector<Value>>{{u"甲", 1}, {Null{}, 2.5}, {true, u""}});
  const Variant variant = windows::ToVariant(CellBlockPtr(block));
  EXPECT_EQ(variant.get().vt, VT_ARRAY | VT_VARIANT);
  const Value back = windows::FromVariant(variant.get());
  ASSERT_EQ(back.Block()->ColumnCount(), 2U);
  ASSERT_EQ(back.Block()->RowCount(), 3U);
  for (std::size_t column = 0; column < 2; ++column) {
    for (std::size_t row = 0; row < 3; ++row) {
      EXPECT_EQ(back.Block()->CellValue(column, row), block->CellValue(column, row));
    }
  }
}

TEST(RowOfTheCoresBlock, BecomesAOneDimensionalArray) {
  const auto block =
      std::make_shared<MemoryBlock>(2, std::vector<std::vector<Value>>{{u"甲", 1}, {Null{}, 2.5}});
  const Variant variant = windows::ToVariant(BlockRow{block, 1});
  EXPECT_EQ(variant.get().vt, VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(Readable(windows::FromVariant(variant.get())), "[Null, 2.5]");
}

TEST(RowOfABlockOverAnArray, IsPassedInPlace) {
  SafeArray array = Table(VT_VARIANT);
  const Bstr text(u"物料");
  VARIANT name = Text(text.get());
  VARIANT number = Number(12);
  Store(array, 2, 6, &name);
  Store(array, 1, 7, &number);
  const CellBlockPtr block = windows::ConsumeVariant(Owning(std::move(array), VT_VARIANT)).Block();
  Value rows[] = {BlockRow{block, 1}};
  {
    windows::OutgoingArguments arguments(rows);
    const VARIANT& passed = arguments.Reversed()[0];
    EXPECT_EQ(Readable(windows::FromVariant(passed)), R"([Empty, "物料"])");
    LONG second = 1;
    VARIANT* element = nullptr;
    ASSERT_EQ(SafeArrayPtrOfIndex(passed.parray, &second, reinterpret_cast<void**>(&element)),
              S_OK);
    EXPECT_EQ(static_cast<const void*>(element->bstrVal), block->Cell(1, 1).text.data());
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(SafeArrayGetVartype(passed.parray, &type), S_OK);
    EXPECT_EQ(type, VT_VARIANT);
    EXPECT_NE(SafeArrayDestroy(passed.parray), S_OK) << "a callee cannot free it";
  }
  rows[0] = BlockRow{block, 2};
  windows::OutgoingArguments arguments(rows);
  EXPECT_EQ(Readable(windows::FromVariant(arguments.Reversed()[0])), "[12, Empty]");
  EXPECT_EQ(Utf8(block->Cell(1, 1).text), "物料") << "the block is as it was";
}

TEST(RowOfABlockOverAnArray, OfOtherElementsIsConverted) {
  SafeArray array = Table(VT_I4);
  LONG number = 4;
  Store(array, 2, 6, &number);
  const CellBlockPtr block = windows::ConsumeVariant(Owning(std::move(array), VT_I4)).Block();
  Value rows[] = {BlockRow{block, 1}};
  windows::OutgoingArguments arguments(rows);
  EXPECT_EQ(Readable(windows::FromVariant(arguments.Reversed()[0])), "[0, 4]");
}

TEST(ArgumentArray, OfVariantsIsARowThatIsReadInPlace) {
  SafeArray array;
  array.attach(SafeArrayCreateVector(VT_VARIANT, 3, 2));
  const Bstr text(u"物料");
  VARIANT name = Text(text.get());
  LONG index = 4;
  ASSERT_EQ(SafeArrayPutElement(array.get(), &index, &name), S_OK);
  VARIANT* element = nullptr;
  ASSERT_EQ(SafeArrayPtrOfIndex(array.get(), &index, reinterpret_cast<void**>(&element)), S_OK);
  {
    const Value argument = windows::FromArgument(Holding(array, VT_VARIANT));
    ASSERT_TRUE(argument.Is(Value::Kind::Row));
    const auto& [block, row] = argument.Row();
    EXPECT_EQ(block->ColumnCount(), 2U);
    EXPECT_EQ(block->RowCount(), 1U);
    EXPECT_EQ(block->Cell(1, row).text.data(), static_cast<const void*>(element->bstrVal));
    EXPECT_EQ(Readable(block->CellValue(0, row)), "Empty");
    EXPECT_NE(SafeArrayRedim(array.get(), array.get()->rgsabound), S_OK) << "it is locked";
  }
  EXPECT_EQ(SafeArrayDestroy(array.release()), S_OK);
}

TEST(ArgumentArray, OfOtherElementsIsAList) {
  SafeArray array;
  array.attach(SafeArrayCreateVector(VT_I2, 0, 1));
  EXPECT_EQ(Readable(windows::FromArgument(Holding(array, VT_I2))), "[int16 0]");
  EXPECT_EQ(Readable(windows::FromArgument(Holding(SafeArray(), VT_VARIANT))), "[]");
  SafeArray table = Table(VT_VARIANT);
  EXPECT_TRUE(windows::FromArgument(Holding(table, VT_VARIANT)).Is(Value::Kind::Block));
}

TEST(PreparedList, IsConvertedOnce) {
  Value rows[] = {windows::ToRow({1, u"甲"})};
  // At the same time: a second array of its own would be elsewhere.
  windows::OutgoingArguments first(rows);
  windows::OutgoingArguments second(rows);
  for (windows::OutgoingArguments* call : {&first, &second}) {
    const VARIANT& passed = call->Reversed()[0];
    EXPECT_EQ(Readable(windows::FromVariant(passed)), R"([1, "甲"])");
    EXPECT_EQ(passed.parray->pvData, first.Reversed()[0].parray->pvData);
  }
}

TEST(BlockOverAnArray, IsPassedAsACopyOfTheArray) {
  SafeArray array = Table(VT_I4);
  LONG number = 4;
  Store(array, 2, 6, &number);
  const Value value = windows::ConsumeVariant(Owning(std::move(array), VT_I4));
  const Variant variant = windows::ToVariant(value);
  EXPECT_EQ(variant.get().vt, VT_ARRAY | VT_I4);
  LONG indexes[] = {2, 6};
  LONG found = 0;
  ASSERT_EQ(SafeArrayGetElement(variant.get().parray, indexes, &found), S_OK);
  EXPECT_EQ(found, 4);
}

}  // namespace
}  // namespace pricedown::testing
