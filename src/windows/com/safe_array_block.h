// A SAFEARRAY as a block of cells, read in place: what GetRows returns over COM, or one row.
#pragma once

#include "platform/cell_block.h"
#include "windows/com/safe_array.h"

namespace pricedown::windows {

class SafeArrayBlock final : public CellBlock {
 public:
  // Converts one element.
  using ToValue = Value (*)(const VARIANT& element);

  // The first dimension is the column; an array without a second one is a single row. Throws
  // AutomationError: TypeMismatch for more dimensions.
  SafeArrayBlock(SafeArray array, ToValue toValue);
  // A borrowed array, which stays locked as long as this object lives.
  SafeArrayBlock(SAFEARRAY* array, ToValue toValue);
  ~SafeArrayBlock() override;

  std::size_t ColumnCount() const override { return columns_; }
  std::size_t RowCount() const override { return rows_; }
  CellView Cell(std::size_t column, std::size_t row) const override;
  Value CellValue(std::size_t column, std::size_t row) const override;

  // Borrowed.
  SAFEARRAY* Array() const { return array_; }
  // The cells of a row as a one-dimensional array, for a callee that only reads. Borrowed until the
  // next call; null when the cells are no variants.
  SAFEARRAY* RowArray(std::size_t row) const;

 private:
  // The element as a variant that owns nothing.
  VARIANT Element(std::size_t column, std::size_t row) const;

  SafeArray owned_;
  SAFEARRAY* array_;
  ToValue toValue_;
  VARTYPE type_ = VT_EMPTY;
  std::size_t elementSize_ = 0;
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
  std::byte* data_ = nullptr;
  // Of an array whose data is a row of `data_`; made when the first row is asked for.
  mutable SAFEARRAY* rowDescriptor_ = nullptr;
};

}  // namespace pricedown::windows
