// Going to a row of the grid by typing the beginning of its text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "browser/grid.h"

namespace pricedown {

class TypeAhead {
 public:
  // Characters that follow one another within a second belong together, unless the current cell is
  // another one than the last call left; `time` is in milliseconds and may wrap around. The row to
  // go to: the next one whose text in that column begins with what was typed, in any case, from the
  // current row on and around the end. The same character again and again goes from row to row.
  // None for a control character, or when no row begins so.
  std::optional<std::int32_t> Type(char16_t character, std::uint32_t time, const Grid& grid,
                                   std::int32_t column, std::int32_t row);

 private:
  std::optional<std::int32_t> Find(const Grid& grid, std::int32_t column, std::int32_t row) const;

  std::u16string typed_;
  std::uint32_t lastTime_ = 0;
  // The cell that the last call left.
  std::int32_t column_ = 0;
  std::int32_t row_ = 0;
};

}  // namespace pricedown
