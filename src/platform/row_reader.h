// Reads the rows of a recordset from its current one to the end, in blocks where it has GetRows,
// else field by field.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cell_block.h"
#include "platform/recordset.h"
#include "platform/text_blocks.h"

namespace pricedown {

// How null cells are read. Columns of texts are read much faster as empty texts.
enum class NullCells { Kept, AsEmptyText };

class RowReader {
 public:
  // Columns are returned in the order of `fields`, whose texts must outlive the reader. With
  // NullCells::AsEmptyText a null may be returned as null or as the empty text.
  RowReader(const Recordset& recordset, std::vector<std::u16string_view> fields,
            NullCells nullCells = NullCells::Kept);

  // Moves to the next row; false at the end. Throws AutomationError when the recordset fails;
  // a further call after a failure returns false, so that a caller who skips errors ends.
  bool Next();

  // A field of the current row, borrowed until the next call of Next. A value that is neither
  // text, number nor null has its default text. Requires: Next returned true.
  CellView Field(std::size_t index) const {
    const CellView view = hasBlocks_ ? block_->Cell(index, row_) : ViewOf(values_[index]);
    return view.kind != CellView::Kind::Other ? view : Converted(index);
  }

 private:
  struct Column {
    ObjectPtr field;
    MemberId value;  // the id of the field's Value
  };

  bool NextOfBlock();
  CellBlockPtr ReadBlock();
  CellBlockPtr ReadTextBlock();
  void FindColumns();
  bool NextByField();
  void ReadRow();
  CellView Converted(std::size_t index) const;

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
  // Field by field.
  std::vector<Column> columns_;
  std::vector<Value> values_;
  // One text per column, for values that are neither text nor number.
  mutable std::vector<std::u16string> converted_;
};

}  // namespace pricedown
