// Cells of a SAFEARRAY.
#include "windows/com/safe_array_block.h"

#include <cstddef>
#include <utility>

#include "platform/error.h"
#include "windows/com/by_reference.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

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

SafeArrayBlock::SafeArrayBlock(SafeArray array, ToValue toValue)
    : SafeArrayBlock(array.get(), toValue) {
  owned_ = std::move(array);
}

SafeArrayBlock::SafeArrayBlock(SAFEARRAY* array, ToValue toValue)
    : array_(array), toValue_(toValue) {
  const UINT dimensions = SafeArrayGetDim(array_);
  if (dimensions < 1 || dimensions > 2) {
    throw AutomationError(ErrorNumber::TypeMismatch, u"数组的维数不是一或二");
  }
  ThrowIfFailed(SafeArrayGetVartype(array_, &type_));
  elementSize_ = SafeArrayGetElemsize(array_);
  columns_ = Extent(array_, 1);
  rows_ = dimensions == 2 ? Extent(array_, 2) : 1;
  void* data = nullptr;
  ThrowIfFailed(SafeArrayAccessData(array_, &data));
  data_ = static_cast<std::byte*>(data);
}

SafeArrayBlock::~SafeArrayBlock() {
  if (rowDescriptor_ != nullptr) {
    rowDescriptor_->pvData = nullptr;
    rowDescriptor_->cLocks = 0;
    SafeArrayDestroyDescriptor(rowDescriptor_);
  }
  SafeArrayUnaccessData(array_);
}

// Cells of a row lie side by side.
SAFEARRAY* SafeArrayBlock::RowArray(std::size_t row) const {
  if (type_ != VT_VARIANT) return nullptr;
  if (rowDescriptor_ == nullptr) {
    ThrowIfFailed(SafeArrayAllocDescriptorEx(VT_VARIANT, 1, &rowDescriptor_));
    // Data that belongs to the block is never freed or resized.
    rowDescriptor_->fFeatures |= FADF_STATIC | FADF_FIXEDSIZE;
    rowDescriptor_->cLocks = 1;
    rowDescriptor_->cbElements = static_cast<ULONG>(elementSize_);
    rowDescriptor_->rgsabound[0] = {static_cast<ULONG>(columns_), 0};
  }
  rowDescriptor_->pvData = data_ + row * columns_ * elementSize_;
  return rowDescriptor_;
}

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
  VARIANT element = Element(column, row);
  if ((element.vt & VT_BYREF) != 0) element = Dereferenced(element);
  switch (element.vt) {
    case VT_BSTR:
      return {CellView::Kind::Text, 0, BorrowText(element.bstrVal, SysStringLen(element.bstrVal))};
    case VT_I4:
      return {CellView::Kind::Number, static_cast<double>(element.lVal)};
    case VT_R8:
      return {CellView::Kind::Number, element.dblVal};
    case VT_ERROR:
      if (element.scode == DISP_E_PARAMNOTFOUND) return {};
      return {CellView::Kind::Other};
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_INT:
    case VT_UI4:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_R4:
    case VT_CY:
    case VT_DECIMAL:
      return ViewOf(toValue_(element));
    default:
      return {CellView::Kind::Other};
  }
}

Value SafeArrayBlock::CellValue(std::size_t column, std::size_t row) const {
  return toValue_(Element(column, row));
}

}  // namespace pricedown::windows
