// Reads a recordset's rows as one text per block, which costs far less than one per cell. For
// columns of texts only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/cell_block.h"
#include "platform/recordset.h"

namespace pricedown {

// Rows per call, for both ways of reading: large enough to make calls cheap, small enough for
// the caches.
inline constexpr std::int32_t kRowsPerBlock = 4096;

class TextBlocks {
 public:
  // Nothing when the recordset cannot be read this way: it lacks the members, does not know its
  // position, or a column of `fields` is not declared as text. Throws nothing;
  // the recordset stays where it is.
  static std::optional<TextBlocks> Of(const Recordset& recordset,
                                      const std::vector<std::u16string_view>& fields);

  // The next rows, as many as one GetRows would return; moves the recordset past them. Null cells
  // are empty texts. Null when all rows are read, when the recordset fails, and when a cell holds
  // a delimiter; the recordset is then positioned before the rows that are not read yet.
  // Throws AutomationError when it cannot be brought there.
  CellBlockPtr Read();

 private:
  TextBlocks(const Recordset& recordset, std::int32_t position, std::int32_t rows)
      : recordset_(recordset), position_(position), rows_(rows) {}

  bool FindColumns(const std::vector<std::u16string_view>& fields);

  Recordset recordset_;
  std::int32_t position_;             // of the first row that is not read, from 1
  std::int32_t rows_;                 // of the recordset
  std::size_t columnCount_ = 0;       // of the recordset
  std::vector<std::size_t> columns_;  // the requested ones among them
};

}  // namespace pricedown
