// The walk over a recordset's rows, by blocks where it offers them, else by fields.
#include "platform/row_reader.h"

#include <utility>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/skip.h"

namespace pricedown {
namespace {

bool IsMemberNotFound(const AutomationError& error) {
  return error.Number() == static_cast<std::int32_t>(ErrorNumber::UnknownName) ||
         error.Number() == static_cast<std::int32_t>(ErrorNumber::MemberNotFound) ||
         error.Number() == static_cast<std::int32_t>(ErrorNumber::NotImplemented);
}

}  // namespace

RowReader::RowReader(const Recordset& recordset, std::vector<std::u16string_view> fields,
                     NullCells nullCells)
    : recordset_(recordset),
      fields_(std::move(fields)),
      mayReadTexts_(nullCells == NullCells::AsEmptyText),
      converted_(fields_.size()) {}

bool RowReader::Next() {
  if (finished_) return false;
  finished_ = true;  // so that a failure below ends the walk
  bool found = true;
  if (hasBlocks_) {
    found = NextOfBlock();
  } else {
    recordset_.MoveNext();
    found = !recordset_.AtEnd();
  }
  finished_ = !found;
  return found;
}

bool RowReader::NextOfBlock() {
  if (block_ != nullptr && ++row_ < block_->RowCount()) return true;
  block_.reset();
  read_ += std::exchange(row_, 0);
  // GetRows fails at the end, so ask first.
  if (recordset_.AtEnd()) return false;
  try {
    block_ = ReadBlock();
  } catch (const AutomationError& error) {
    // The failed call may have moved the recordset. A member that the first block lacks has not;
    // later blocks are read by several members.
    const bool unmoved = read_ == 0 && IsMemberNotFound(error);
    if (!unmoved && !ReturnToFirstUnread()) throw;
    hasBlocks_ = false;
    for (const std::u16string_view name : fields_) columns_.emplace_back(recordset_, name);
    values_.resize(columns_.size());
    return true;
  }
  return block_->RowCount() > 0;
}

bool RowReader::ReturnToFirstUnread() {
  return SkipFailing([this] {
    recordset_.MoveFirst();
    for (std::size_t row = 0; row < read_; ++row) recordset_.MoveNext();
  });
}

CellBlockPtr RowReader::ReadTextBlock() {
  // Most results are one block, for which querying the columns' types does not pay.
  if (std::exchange(isFirstBlock_, false)) return nullptr;
  if (mayReadTexts_) texts_ = TextBlocks::Of(recordset_, fields_);
  mayReadTexts_ = false;
  if (!texts_) return nullptr;
  CellBlockPtr block = texts_->Read();
  if (block == nullptr) texts_.reset();
  return block;
}

CellBlockPtr RowReader::ReadBlock() {
  if (CellBlockPtr texts = ReadTextBlock()) return texts;
  return recordset_.GetRows(kRowsPerBlock, fields_);
}

CellView RowReader::ReadField(std::size_t index) {
  values_[index] = columns_[index].Get();
  return ViewOf(values_[index]);
}

CellView RowReader::Converted(std::size_t index) {
  converted_[index] = ToText(hasBlocks_ ? block_->CellValue(index, row_) : values_[index]);
  return {CellView::Kind::Text, 0, converted_[index]};
}

}  // namespace pricedown
