// The copying of rows: read in blocks, each added with one call; what fails that way is copied step
// by step. A step that fails loses what it would have copied; the copying goes on.
#include "editor/record_copy.h"

#include <array>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/bound_fields.h"
#include "platform/skip.h"
#include "platform/text_blocks.h"

namespace pricedown {
namespace {

// Browser: all rows, committed row by row. Form: the rows that pass the filter, committed once.
enum class CopyMode { Browser, Form };

using FieldNames = std::vector<std::u16string_view>;

// Makes an open recordset with those fields; `appended` gets the names of those that it has, in
// their order. No object when it cannot be made or opened.
Recordset MakeLike(ObjectFactory& factory, const std::vector<FieldDefinition>& fields,
                   FieldNames& appended) {
  Recordset copy;
  SkipFailing([&] { copy = Recordset::Create(factory); });
  for (const FieldDefinition& field : fields) {
    if (SkipFailing([&] { copy.AppendField(field); })) appended.push_back(field.name);
  }
  return SkipFailing([&] { copy.Open(); }) ? copy : Recordset();
}

std::vector<Value> Positions(std::size_t count) {
  std::vector<Value> positions;
  for (std::size_t i = 0; i < count; ++i) positions.emplace_back(static_cast<std::int32_t>(i));
  return positions;
}

// A source that fails counts as at its end, so that the loop ends.
bool HasRow(const Recordset& source) {
  bool atEnd = true;
  SkipFailing([&] { atEnd = source.AtEnd(); });
  return !atEnd;
}

class RowCopier {
 public:
  // `fields` are the names of the copy's fields in their order.
  RowCopier(const Recordset& source, const Recordset& copy, FieldNames fields, CopyMode mode)
      : source_(source),
        copy_(copy),
        fields_(std::move(fields)),
        addArguments_{copy_.Object()->Prepared(Positions(fields_.size())), Value()},
        mode_(mode) {
    for (const std::u16string_view name : fields_) {
      sourceFields_.emplace_back(source_, name);
      copyFields_.emplace_back(copy_, name);
    }
  }

  // Requires: the source is on its first row.
  void CopyAll() {
    SkipFailing([&] { addNew_ = copy_.Object()->Find(u"AddNew"); });
    SkipFailing([&] { updateBatch_ = copy_.Object()->Find(u"UpdateBatch"); });
    while (HasRow(source_)) {
      CellBlockPtr block;
      if (!SkipFailing([&] { block = source_.GetRows(kRowsPerBlock, fields_); }) ||
          block->RowCount() == 0) {
        if (ReturnToFirstUncopied()) CopyOneByOne();
        break;
      }
      for (std::size_t row = 0; row < block->RowCount(); ++row) CopyRow({block, row});
      copied_ += block->RowCount();
    }
    if (mode_ == CopyMode::Form) SkipFailing([&] { copy_.UpdateBatch(); });
  }

 private:
  using CellOf = std::function<Value(std::size_t field)>;

  void CopyRow(const BlockRow& row) {
    addArguments_[1] = row;
    if (!SkipFailing([&] { copy_.Object()->Invoke(addNew_, Access::Call, addArguments_); })) {
      // The failed call may have begun a row.
      SkipFailing([&] { copy_.CancelUpdate(); });
      CopyFields([&](std::size_t field) { return row.block->CellValue(field, row.row); });
    }
    CommitRow();
  }

  // A block that failed may have moved the source. One that cannot go back stays where it is. False
  // when it stops halfway, where rows would be copied twice.
  bool ReturnToFirstUncopied() {
    if (!SkipFailing([&] { source_.MoveFirst(); })) return true;
    for (std::size_t row = 0; row < copied_; ++row) {
      if (!SkipFailing([&] { source_.MoveNext(); })) return false;
    }
    return true;
  }

  void CopyOneByOne() {
    while (HasRow(source_)) {
      CopyFields([&](std::size_t field) { return sourceFields_[field].Get(); });
      CommitRow();
      // A source that does not move on would be copied forever.
      if (!SkipFailing([&] { source_.MoveNext(); })) break;
    }
  }

  void CopyFields(const CellOf& cellOf) {
    // Without a new row the values would go into the one before.
    if (!SkipFailing([&] { copy_.AddNew(); })) return;
    for (std::size_t field = 0; field < fields_.size(); ++field) {
      SkipFailing([&] { copyFields_[field].Set(cellOf(field)); });
    }
    // Commits the row, so that CancelUpdate for the next one cannot discard it.
    SkipFailing([&] { copy_.Update(); });
  }

  void CommitRow() {
    if (mode_ == CopyMode::Form) return;
    SkipFailing([&] { copy_.Object()->Invoke(updateBatch_, Access::Call, {}); });
  }

  Recordset source_;
  Recordset copy_;
  FieldNames fields_;
  std::vector<LazyField> sourceFields_;
  std::vector<LazyField> copyFields_;
  std::size_t copied_ = 0;             // rows of blocks
  std::array<Value, 2> addArguments_;  // positions of the fields, a row of a block
  // Looked up once, because they are called for every row.
  MemberId addNew_ = 0;
  MemberId updateBatch_ = 0;
  CopyMode mode_;
};

Recordset Copy(ObjectFactory& factory, const Recordset& source, CopyMode mode) {
  std::vector<FieldDefinition> fields;
  SkipFailing([&] { fields = source.Fields(); });
  FieldNames names;
  Recordset copy = MakeLike(factory, fields, names);
  if (!copy) return copy;
  if (mode == CopyMode::Browser) SkipFailing([&] { source.SetFilter({}); });
  SkipFailing([&] { source.MoveFirst(); });
  RowCopier(source, copy, std::move(names), mode).CopyAll();
  SkipFailing([&] { copy.MoveFirst(); });
  return copy;
}

}  // namespace

Recordset CopyRecords(ObjectFactory& factory, const Recordset& source) {
  return Copy(factory, source, CopyMode::Browser);
}

Recordset CopyList(ObjectFactory& factory, const Recordset& source) {
  return Copy(factory, source, CopyMode::Form);
}

}  // namespace pricedown
