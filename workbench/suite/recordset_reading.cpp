// Reading many rows of the in-memory recordset at once: as a block, or as one text.
#include "platform/convert.h"
#include "workbench/suite/recordset.h"
#include "workbench/suite/recordset_errors.h"

namespace workbench {
namespace {

using pricedown::CellBlock;
using pricedown::CellBlockPtr;
using pricedown::CellView;

// Including the delimiter; to estimate a text's length.
constexpr std::size_t kTypicalCellLength = 16;

// Rows of a store selected by GetRows, without copying texts. Keeps the recordset alive; clients of
// GetRows read it before the recordset changes.
class PickedRows : public CellBlock {
 public:
  PickedRows(std::shared_ptr<Recordset> owner, std::vector<std::size_t> columns,
             std::vector<std::size_t> rows)
      : owner_(std::move(owner)), columns_(std::move(columns)), rows_(std::move(rows)) {}

  std::size_t ColumnCount() const override { return columns_.size(); }
  std::size_t RowCount() const override { return rows_.size(); }
  CellView Cell(std::size_t column, std::size_t row) const override {
    return owner_->Rows().View(rows_[row], columns_[column]);
  }
  pricedown::Value CellValue(std::size_t column, std::size_t row) const override {
    return owner_->Rows().Get(rows_[row], columns_[column]);
  }

 private:
  std::shared_ptr<Recordset> owner_;
  std::vector<std::size_t> columns_;
  std::vector<std::size_t> rows_;
};

}  // namespace

std::vector<std::size_t> Recordset::NextRows(std::int32_t count) {
  RequireOpen();
  if (position_ != Position::Row) ThrowNoCurrentRecord();
  if (added_) Update();
  std::vector<std::size_t> picked;
  std::optional<std::size_t> row = NextFrom(row_);
  while (row && (count < 0 || picked.size() < static_cast<std::size_t>(count))) {
    picked.push_back(*row);
    row = NextFrom(*row + 1);
  }
  position_ = row ? Position::Row : Position::End;
  if (row) row_ = *row;
  return picked;
}

CellBlockPtr Recordset::GetRows(std::int32_t count, const std::vector<std::size_t>& columns) {
  return std::make_shared<PickedRows>(shared_from_this(), columns, NextRows(count));
}

std::u16string Recordset::GetString(std::int32_t count, const ClipFormat& format) {
  const std::size_t columns = rows_->Fields().size();
  const std::vector<std::size_t> rows = NextRows(count);
  std::u16string text;
  text.reserve(rows.size() * columns * kTypicalCellLength);
  for (const std::size_t row : rows) {
    for (std::size_t column = 0; column < columns; ++column) {
      if (column > 0) text += format.columnDelimiter;
      const CellView cell = rows_->View(row, column);
      switch (cell.kind) {
        case CellView::Kind::Null:
          text += format.nullText;
          break;
        case CellView::Kind::Text:
          text += cell.text;
          break;
        case CellView::Kind::Number:
          text += pricedown::NumberText(cell.number);
          break;
        case CellView::Kind::Other:
          text += pricedown::ToText(rows_->Get(row, column));
          break;
      }
    }
    text += format.rowDelimiter;
  }
  return text;
}

}  // namespace workbench
