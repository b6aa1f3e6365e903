// The text typed so far and the row that it leads to. Typing in quick succession makes one text;
// the same character again leads on to the next row.
#include "browser/type_ahead.h"

#include "browser/text_pattern.h"

namespace pricedown {
namespace {

constexpr std::uint32_t kPause = 1000;  // milliseconds

std::optional<std::int32_t> RowBeginningWith(std::u16string_view text, const Grid& grid,
                                             std::int32_t column, std::int32_t first) {
  const TextPattern pattern(text);
  const std::int32_t rows = grid.MaxRows();
  for (std::int32_t i = 0; i < rows; ++i) {
    const std::int32_t row = (first - 1 + i) % rows + 1;
    if (pattern.Begins(grid.Text(column, row))) return row;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::int32_t> TypeAhead::Type(char16_t character, std::uint32_t time,
                                            const Grid& grid, std::int32_t column,
                                            std::int32_t row) {
  if (character < u' ' || character == 0x7F) return std::nullopt;
  if (time - lastTime_ > kPause || column != column_ || row != row_) typed_.clear();
  // A blank alone is the key that selects rows.
  if (typed_.empty() && character == u' ') return std::nullopt;
  lastTime_ = time;
  typed_ += character;
  const auto found = Find(grid, column, row);
  column_ = column;
  row_ = found.value_or(row);
  return found;
}

std::optional<std::int32_t> TypeAhead::Find(const Grid& grid, std::int32_t column,
                                            std::int32_t row) const {
  // The first character is searched for below the current row, the next ones from that row on.
  const bool isFirst = typed_.size() == 1;
  if (const auto found = RowBeginningWith(typed_, grid, column, isFirst ? row + 1 : row)) {
    return found;
  }
  if (typed_.find_first_not_of(typed_[0]) != std::u16string::npos) return std::nullopt;
  return RowBeginningWith(typed_.substr(0, 1), grid, column, row + 1);
}

}  // namespace pricedown
