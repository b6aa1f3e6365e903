// Reads the rows of a recordset from its current one to the end, in blocks where it has GetRows,
// else field by field. From a block that fails on, too, the rows are read field by field, so that a
// value that cannot be read fails alone.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/bound_fields.h"
#include "platform/cell_block.h"
#include "platform/recordset.h"
#include "platform/text_blocks.h"

namespace pricedown {

// How null cells are read. Columns of texts are read much faster as empty texts.
enum class NullCells { Kept, AsEmptyText };

class RowReader {
 public:
  // Columns are returned in the order of `fields`, whose texts must outlive the reader. With
  // NullCells::AsEmptyText a null may be returned as null or as the empty text. A block that fails
  // is found again by counting from the recordset's first row, where the walk must have begun for
  // that.
  RowReader(const Recordset& recordset, std::vector<std::u16string_view> fields,
            NullCells nullCells = NullCells::Kept);

  // Moves to the next row; false at the end. Throws AutomationError when the recordset cannot move
  // on; a further call after a failure returns false, so that a caller who skips errors ends.
  bool Next();

  // A field of the current row, borrowed until the next call of Next. A value that is neither
  // text, number nor null has its default text. Throws AutomationError when it cannot be read; Next
  // goes on after that. Requires: Next returned true.
  CellView Field(std::size_t index) {
    const CellView view = hasBlocks_ ? block_->Cell(index, row_) : ReadField(index);
    return view.kind != CellView::Kind::Other ? view : Converted(index);
  }

 private:
  bool NextOfBlock();
  CellBlockPtr ReadBlock();
  CellBlockPtr ReadTextBlock();
  bool ReturnToFirstUnread();
  CellView ReadField(std::size_t index);
  CellView Converted(std::size_t index);

  Recordset recordset_;
  std::vector<std::u16string_view> fields_;
  bool finished_ = false;
  bool hasBlocks_ = true;
  // By blocks; as texts as long as there are text blocks.
  bool mayReadTexts_;
  bool isFirstBlock_ = true;
  std::optional<TextBlocks> texts_;
  CellBlockPtr block_;
  std::size_t row_ = 0;
  std::size_t read_ = 0;  // rows of the blocks before
  // Field by field.
  std::vector<LazyField> columns_;
  std::vector<Value> values_;
  // One text per column, for values that are neither text nor number.
  std::vector<std::u16string> converted_;
};

}  // namespace pricedown
