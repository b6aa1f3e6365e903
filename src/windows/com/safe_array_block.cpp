// Cells of a SAFEARRAY, and a SAFEARRAY of cells.
// The conversion of a single cell is variant_value.cpp.
#include "windows/com/safe_array_block.h"

#include <cstddef>
#include <utility>

#include "platform/error.h"
#include "windows/com/failure.h"
#include "windows/com/variant_value.h"

namespace pricedown::windows {
namespace {

std::size_t Extent(SAFEARRAY* array, UINT dimension) {
  LONG lower = 0;
  LONG upper = -1;
  ThrowIfFailed(SafeArrayGetLBound(array, dimension, &lower));
  ThrowIfFailed(SafeArrayGetUBound(array, dimension, &upper));
  return upper < lower ? 0 : static_cast<std::size_t>(upper - lower) + 1;
}

}  // namespace

SafeArrayBlock::SafeArrayBlock(SafeArray array) : array_(std::move(array)) {
  if (SafeArrayGetDim(array_.get()) != 2) {
    throw AutomationError(ErrorNumber::TypeMismatch, u"数组不是二维的");
  }
  ThrowIfFailed(SafeArrayGetVartype(array_.get(), &type_));
  elementSize_ = SafeArrayGetElemsize(array_.get());
  columns_ = Extent(array_.get(), 1);
  rows_ = Extent(array_.get(), 2);
  void* data = nullptr;
  ThrowIfFailed(SafeArrayAccessData(array_.get(), &data));
  data_ = static_cast<std::byte*>(data);
}

SafeArrayBlock::~SafeArrayBlock() { SafeArrayUnaccessData(array_.get()); }

VARIANT SafeArrayBlock::Element(std::size_t column, std::size_t row) const {
  VARIANT element;
  VariantInit(&element);
  // The first dimension varies fastest.
  element.byref = data_ + (row * columns_ + column) * elementSize_;
  if (type_ == VT_VARIANT) return *element.pvarVal;
  element.vt = static_cast<VARTYPE>(type_ | VT_BYREF);
  return element;
}

CellView SafeArrayBlock::Cell(std::size_t column, std::size_t row) const {
  return ViewOf(Element(column, row));
}

Value SafeArrayBlock::CellValue(std::size_t column, std::size_t row) const {
  return FromVariant(Element(column, row));
}

SafeArray ToSafeArray(const CellBlock& block) {
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(block.ColumnCount()), 0},
                             {static_cast<ULONG>(block.RowCount()), 0}};
  SafeArray array;
  array.attach(SafeArrayCreate(VT_VARIANT, 2, bounds));
  if (!array) throw std::bad_alloc();
  void* data = nullptr;
  ThrowIfFailed(SafeArrayAccessData(array.get(), &data));
  // Unlocked again whatever happens; what was filled is freed with the array.
  struct Unlock {
    SAFEARRAY* locked;
    ~Unlock() { SafeArrayUnaccessData(locked); }
  } unlock{array.get()};
  auto* cell = static_cast<VARIANT*>(data);
  for (std::size_t row = 0; row < block.RowCount(); ++row) {
    for (std::size_t column = 0; column < block.ColumnCount(); ++column) {
      *cell++ = CellToVariant(block, column, row).release();
    }
  }
  return array;
}

}  // namespace pricedown::windows
