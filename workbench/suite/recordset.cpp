// Position and editing of the in-memory recordset, with ADO's semantics.
#include "workbench/suite/recordset.h"

#include <algorithm>
#include <numeric>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "workbench/suite/recordset_errors.h"

namespace workbench {

using pricedown::AutomationError;
using pricedown::ErrorNumber;
using pricedown::Value;

void ThrowNoCurrentRecord() {
  throw AutomationError(ErrorNumber::NoCurrentRecord,
                        u"BOF 或 EOF 中有一个为“真”，或者当前的记录已被删除，"
                        u"所需的操作要求有一个当前的记录。",
                        std::u16string(kRecordsetSource));
}

void ThrowInvalidArgument() {
  throw AutomationError(static_cast<std::int32_t>(0x800A0BB9),
                        u"参数类型不正确，或不在可以接受的范围之内，或与其他参数冲突。",
                        std::u16string(kRecordsetSource));
}

Recordset::Recordset() : rows_(std::make_unique<EditableRows>()) {}

Recordset::Recordset(std::unique_ptr<RowStore> rows) : rows_(std::move(rows)) { Open(); }

std::shared_ptr<Recordset> Recordset::Closed() { return std::make_shared<Recordset>(); }

void Recordset::RequireOpen() const {
  if (!open_) {
    throw AutomationError(ErrorNumber::ObjectClosed, u"对象关闭时，不允许操作。",
                          std::u16string(kRecordsetSource));
  }
}

void Recordset::Open() {
  if (open_) {
    throw AutomationError(static_cast<std::int32_t>(0x800A0E79), u"对象打开时，不允许操作。",
                          std::u16string(kRecordsetSource));
  }
  open_ = true;
  if (rows_->LiveCount() > 0) {
    MoveFirst();
  } else {
    position_ = Position::End;
  }
}

void Recordset::Close() {
  RequireOpen();
  if (added_) CancelUpdate();
  open_ = false;
  filterText_.clear();
  filterColumn_.reset();
}

std::int32_t Recordset::RecordCount() {
  RequireOpen();
  if (!filterColumn_) return static_cast<std::int32_t>(rows_->LiveCount());
  const auto* matching = Matching();
  if (matching == nullptr) return 0;
  return static_cast<std::int32_t>(std::count_if(matching->begin(), matching->end(),
                                                 [&](std::size_t row) { return Passes(row); }));
}

bool Recordset::AtBeginning() {
  RequireOpen();
  return position_ == Position::Beginning || (position_ == Position::End && !NextFrom(0));
}

bool Recordset::AtEnd() {
  RequireOpen();
  return position_ == Position::End || (position_ == Position::Beginning && !NextFrom(0));
}

void Recordset::MoveFirst() {
  RequireOpen();
  if (added_) Update();
  const auto first = NextFrom(0);
  if (!first) ThrowNoCurrentRecord();
  row_ = *first;
  position_ = Position::Row;
}

void Recordset::MoveLast() {
  RequireOpen();
  if (added_) Update();
  const auto last = PreviousFrom(rows_->RowCount());
  if (!last) ThrowNoCurrentRecord();
  row_ = *last;
  position_ = Position::Row;
}

void Recordset::MoveNext() {
  RequireOpen();
  if (added_) Update();
  if (position_ == Position::End) ThrowNoCurrentRecord();
  const auto next = NextFrom(position_ == Position::Beginning ? 0 : row_ + 1);
  position_ = next ? Position::Row : Position::End;
  if (next) row_ = *next;
}

void Recordset::MovePrevious() {
  RequireOpen();
  if (added_) Update();
  if (position_ == Position::Beginning) ThrowNoCurrentRecord();
  const auto previous = PreviousFrom(position_ == Position::End ? rows_->RowCount() : row_);
  position_ = previous ? Position::Row : Position::Beginning;
  if (previous) row_ = *previous;
}

void Recordset::AddNew() {
  RequireOpen();
  if (added_) Update();
  beforeAdded_ = {position_, row_};
  added_ = rows_->AddRow();
  row_ = *added_;
  position_ = Position::Row;
  indexColumn_.reset();
}

void Recordset::AddNew(const std::vector<std::size_t>& columns, const Value& values) {
  const pricedown::BlockRow* const cells = values.Is(Value::Kind::Row) ? &values.Row() : nullptr;
  if (columns.size() != (cells != nullptr ? cells->block->ColumnCount() : values.List().size())) {
    ThrowInvalidArgument();
  }
  AddNew();
  try {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (cells == nullptr) {
        rows_->Set(row_, columns[i], values.List()[i]);
        continue;
      }
      if (!rows_->SetView(row_, columns[i], cells->block->Cell(i, cells->row))) {
        rows_->Set(row_, columns[i], cells->block->CellValue(i, cells->row));
      }
    }
    Update();
  } catch (...) {
    CancelUpdate();
    throw;
  }
}

void Recordset::Update() {
  RequireOpen();
  added_.reset();
  if (filterColumn_ && indexColumn_ != filterColumn_) BuildFilterIndex(*filterColumn_);
}

void Recordset::CancelUpdate() {
  RequireOpen();
  if (!added_) return;
  rows_->Delete(*added_);
  added_.reset();
  position_ = beforeAdded_.position;
  row_ = beforeAdded_.row;
}

void Recordset::Delete() {
  RequireOpen();
  const std::size_t row = CurrentRow();
  rows_->Delete(row);
  added_.reset();
}

std::int32_t Recordset::AbsolutePosition() {
  if (RecordCount() == 0) return -1;
  if (position_ != Position::Row) return position_ == Position::Beginning ? -2 : -3;
  std::size_t before = row_;
  if (filterColumn_ || rows_->LiveCount() != rows_->RowCount()) {
    before = 0;
    for (auto row = NextFrom(0); row && *row < row_; row = NextFrom(*row + 1)) ++before;
  }
  return static_cast<std::int32_t>(before) + 1;
}

void Recordset::SetAbsolutePosition(std::int32_t position) {
  RequireOpen();
  if (position < 1) ThrowInvalidArgument();
  if (added_) Update();
  std::optional<std::size_t> row = NextFrom(0);
  for (std::int32_t at = 1; row && at < position; ++at) row = NextFrom(*row + 1);
  position_ = row ? Position::Row : Position::End;
  if (row) row_ = *row;
}

bool Recordset::HasColumn(std::u16string_view name) const {
  const auto& fields = rows_->Fields();
  return std::any_of(fields.begin(), fields.end(), [&](const auto& field) {
    return pricedown::EqualsIgnoringCase(field.name, name);
  });
}

std::size_t Recordset::ColumnOf(const Value& nameOrNumber) const {
  const auto& fields = rows_->Fields();
  const Value& key = nameOrNumber.Resolved();
  if (key.Is(Value::Kind::Text)) {
    for (std::size_t column = 0; column < fields.size(); ++column) {
      if (pricedown::EqualsIgnoringCase(fields[column].name, key.Text())) return column;
    }
  } else {
    const std::int32_t number = pricedown::ToInt32(key);
    if (number >= 0 && static_cast<std::size_t>(number) < fields.size()) {
      return static_cast<std::size_t>(number);
    }
  }
  throw AutomationError(ErrorNumber::ItemNotFound, u"在对应所需名称或序数的集合中，未找到项目。",
                        std::u16string(kRecordsetSource));
}

const std::vector<std::size_t>& Recordset::ColumnsOf(const Value& fields) {
  pickedColumns_.clear();
  if (fields.IsNothing()) {
    pickedColumns_.resize(rows_->Fields().size());
    std::iota(pickedColumns_.begin(), pickedColumns_.end(), std::size_t{0});
  } else if (fields.Is(Value::Kind::List)) {
    for (const Value& field : fields.List()) pickedColumns_.push_back(ColumnOf(field));
  } else if (fields.Is(Value::Kind::Row)) {
    const auto& [block, row] = fields.Row();
    for (std::size_t i = 0; i < block->ColumnCount(); ++i) {
      pickedColumns_.push_back(ColumnOf(block->CellValue(i, row)));
    }
  } else {
    pickedColumns_.push_back(ColumnOf(fields));
  }
  return pickedColumns_;
}

std::size_t Recordset::CurrentRow() const {
  RequireOpen();
  if (position_ != Position::Row || !rows_->IsLive(row_)) ThrowNoCurrentRecord();
  return row_;
}

}  // namespace workbench
