// The walk over a recordset's rows, by blocks where it offers them, else by fields.
#include "platform/row_reader.h"

#include <utility>

#include "platform/convert.h"
#include "platform/error.h"

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
  const bool found = hasBlocks_ ? NextOfBlock() : NextByField();
  finished_ = !found;
  return found;
}

bool RowReader::NextOfBlock() {
  if (block_ != nullptr && ++row_ < block_->RowCount()) return true;
  block_.reset();
  row_ = 0;
  // GetRows fails at the end, so ask first.
  if (recordset_.AtEnd()) return false;
  try {
    block_ = ReadBlock();
  } catch (const AutomationError& error) {
    if (!IsMemberNotFound(error)) throw;
    hasBlocks_ = false;
    FindColumns();
    ReadRow();
    return true;
  }
  return block_->RowCount() > 0;
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

void RowReader::FindColumns() {
  const ObjectPtr fields = RequireObject(recordset_.Object()->Get(u"Fields"), u"Fields");
  for (std::u16string_view name : fields_) {
    ObjectPtr field = RequireObject(fields->Call(u"", {name}), name);
    const MemberId value = field->Find(u"Value");
    columns_.push_back({std::move(field), value});
  }
  values_.resize(columns_.size());
}

bool RowReader::NextByField() {
  recordset_.MoveNext();
  if (recordset_.AtEnd()) return false;
  ReadRow();
  return true;
}

void RowReader::ReadRow() {
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    values_[index] = columns_[index].field->Invoke(columns_[index].value, Access::Call, {});
  }
}

CellView RowReader::Converted(std::size_t index) const {
  converted_[index] = ToText(hasBlocks_ ? block_->CellValue(index, row_) : values_[index]);
  return {CellView::Kind::Text, 0, converted_[index]};
}

}  // namespace pricedown
