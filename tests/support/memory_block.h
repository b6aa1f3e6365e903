// A cell block over values in memory.
#pragma once

#include <utility>
#include <vector>

#include "platform/cell_block.h"

namespace pricedown::testing {

class MemoryBlock : public CellBlock {
 public:
  // Requires: every row holds `columnCount` values.
  MemoryBlock(std::size_t columnCount, std::vector<std::vector<Value>> rows)
      : columnCount_(columnCount), rows_(std::move(rows)) {}

  std::size_t ColumnCount() const override { return columnCount_; }
  std::size_t RowCount() const override { return rows_.size(); }
  CellView Cell(std::size_t column, std::size_t row) const override {
    return ViewOf(rows_.at(row).at(column));
  }
  Value CellValue(std::size_t column, std::size_t row) const override {
    return rows_.at(row).at(column);
  }

 private:
  std::size_t columnCount_;
  std::vector<std::vector<Value>> rows_;
};

}  // namespace pricedown::testing
