// A read-only two-dimensional array, read in place: what GetRows returns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/value.h"

namespace pricedown {

// One cell, borrowed from its block. Text stays valid as long as the block does.
struct CellView {
  enum class Kind { Null, Number, Text, Other };
  Kind kind = Kind::Null;
  double number = 0;           // Kind::Number
  std::u16string_view text{};  // Kind::Text
};

class CellBlock {
 public:
  virtual ~CellBlock() = default;
  virtual std::size_t ColumnCount() const = 0;
  virtual std::size_t RowCount() const = 0;
  // Requires: column and row are below the counts.
  virtual CellView Cell(std::size_t column, std::size_t row) const = 0;
  // The cell as a value, of any kind.
  virtual Value CellValue(std::size_t column, std::size_t row) const = 0;
};

// The view of a value that is kept elsewhere, followed through references. Empty and Missing are
// shown as null.
CellView ViewOf(const Value& value);

}  // namespace pricedown
