// A two-dimensional SAFEARRAY as a block of cells, read in place: what GetRows answers over COM.
// It copies no text and no number; one-dimensional arrays become lists (variant_value.h).
#pragma once

#include "platform/cell_block.h"
#include "windows/com/safe_array.h"

namespace pricedown::windows {

class SafeArrayBlock final : public CellBlock {
 public:
  // The first dimension is the column. Throws AutomationError: TypeMismatch unless the array has
  // two dimensions.
  explicit SafeArrayBlock(SafeArray array);
  ~SafeArrayBlock() override;

  std::size_t ColumnCount() const override { return columns_; }
  std::size_t RowCount() const override { return rows_; }
  CellView Cell(std::size_t column, std::size_t row) const override;
  Value CellValue(std::size_t column, std::size_t row) const override;

  // Borrowed.
  SAFEARRAY* Array() const { return array_.get(); }

 private:
  // The element as a variant that owns nothing.
  VARIANT Element(std::size_t column, std::size_t row) const;

  SafeArray array_;
  VARTYPE type_ = VT_EMPTY;
  std::size_t elementSize_ = 0;
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
  std::byte* data_ = nullptr;
};

// A new array of variants with the block's cells, columns first. Throws AutomationError.
SafeArray ToSafeArray(const CellBlock& block);

}  // namespace pricedown::windows
