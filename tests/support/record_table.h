// The rows of a scripted recordset: columns, values, a position, a filter.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset.h"

namespace pricedown::testing {

// Failures are AutomationErrors with the numbers of ADO.
class RecordTable {
 public:
  // Closed, without columns.
  RecordTable() = default;
  // Open on its first row. A column of type 0 gets the type of its first value.
  RecordTable(std::vector<FieldDefinition> columns, std::vector<std::vector<Value>> rows);

  // Requires: closed.
  void AppendColumn(FieldDefinition column);
  const std::vector<FieldDefinition>& Columns() const { return columns_; }
  FieldDefinition& ColumnAt(std::size_t column);
  // Fails with ItemNotFound.
  std::size_t ColumnNamed(std::u16string_view name) const;

  void Open();
  void Close();
  bool IsOpen() const { return open_; }

  // Of the rows that pass the filter.
  std::size_t RowCount() const;
  bool AtBegin() const;
  bool AtEnd() const;
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  // The current row's place among the visible ones, from 1; -1 without rows, -3 after the last.
  std::int32_t Place() const;
  // After the last row for a greater number. Fails with InvalidArgument below 1.
  void MoveTo(std::int32_t place);

  const Value& ValueAt(std::size_t column) const;
  // Converts to the column's type.
  void SetValue(std::size_t column, const Value& value);
  void AddRow();
  void CommitRow();
  // Drops a row that was added and not yet committed; the row before it is current again.
  void CancelRow();
  void DeleteRow();
  // column = 'text' or column = number; the empty text ends filtering.
  void SetFilter(std::u16string_view filter);
  const std::u16string& Filter() const { return filter_; }

 private:
  using Row = std::vector<Value>;

  void RequireOpen() const;
  void RequireCurrent() const;
  void ShowRows();

  std::vector<FieldDefinition> columns_;
  std::vector<Row> rows_;
  bool open_ = false;
  std::u16string filter_;
  std::vector<std::size_t> visible_;     // the rows that pass the filter, by index
  std::size_t position_ = 0;             // in visible_
  std::optional<std::size_t> previous_;  // the position before a row that is not yet committed
  bool currentDeleted_ = false;          // the position is that of the row after the deleted one
};

}  // namespace pricedown::testing
