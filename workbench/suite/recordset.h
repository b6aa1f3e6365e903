// The workbench's in-memory `ADODB.Recordset`: position, filter and members over a row store, as
// far as automation clients of the suite use them.
//
// Members: AbsolutePosition, ActiveConnection, AddNew, BOF, CancelUpdate, Close, CursorLocation,
// Delete, EOF, Fields, Filter, GetRows, GetString, LockType, CursorType, MoveFirst, MoveLast,
// MoveNext, MovePrevious, Open, RecordCount, State, Update, UpdateBatch; the default member is
// Fields(name).
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/local_object.h"
#include "workbench/suite/row_store.h"

namespace workbench {

class Recordset : public pricedown::LocalObject<Recordset> {
 public:
  // A new, closed recordset for a client to append fields to.
  Recordset();
  // The open result of a query, on its first row.
  explicit Recordset(std::unique_ptr<RowStore> rows);
  // The closed result of a statement without rows.
  static std::shared_ptr<Recordset> Closed();

  static std::span<const pricedown::Member<Recordset>> Members();

  bool IsOpen() const { return open_; }
  void Open();
  void Close();

  // Rows that the filter lets through.
  std::int32_t RecordCount();
  bool AtBeginning();
  bool AtEnd();
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  void AddNew();
  // Adds a row with those values in those columns and commits it; adds none when one does not fit.
  // The values are a list or a block's row, as many as there are columns.
  void AddNew(const std::vector<std::size_t>& columns, const pricedown::Value& values);
  void Update();
  void CancelUpdate();
  void Delete();
  const std::u16string& Filter() const { return filterText_; }
  // One comparison name = 'value' or an empty text. Throws AutomationError for anything else.
  void SetFilter(std::u16string_view filter);

  // Up to `count` rows from the current one on, all for a negative count; moves past them.
  pricedown::CellBlockPtr GetRows(std::int32_t count, const std::vector<std::size_t>& columns);

  struct ClipFormat {
    std::u16string columnDelimiter = u"\t";
    std::u16string rowDelimiter = u"\r";
    std::u16string nullText;
  };
  // The same rows as one text of all columns; each row ends with its delimiter.
  std::u16string GetString(std::int32_t count, const ClipFormat& format);

  // The current row's position among the filtered rows, from 1; as in ADO -1 for an empty
  // recordset, -2 before the first row, -3 after the last one.
  std::int32_t AbsolutePosition();
  // Moves to that row, or past the last one. Throws AutomationError below 1.
  void SetAbsolutePosition(std::int32_t position);

  const RowStore& Rows() const { return *rows_; }
  RowStore& Rows() { return *rows_; }
  bool HasColumn(std::u16string_view name) const;
  // Throws AutomationError when there is none of that name or number.
  std::size_t ColumnOf(const pricedown::Value& nameOrNumber) const;
  // The columns of a list of names or numbers, of a single one, or all for nothing; valid until the
  // next call. Throws AutomationError when there is none of that name or number.
  const std::vector<std::size_t>& ColumnsOf(const pricedown::Value& fields);
  // The row that fields read and write. Throws AutomationError when there is none.
  std::size_t CurrentRow() const;
  // Called after a cell of the current row was written.
  void NoteWritten(std::size_t column);

  std::int32_t cursorLocation = 2;
  std::int32_t cursorType = 3;
  std::int32_t lockType = 4;

 private:
  enum class Position { Row, Beginning, End };
  struct Place {
    Position position = Position::Beginning;
    std::size_t row = 0;
  };
  using FilterIndex = std::unordered_map<std::u16string, std::vector<std::size_t>>;

  void RequireOpen() const;
  // Up to `count` rows from the current one on; moves past them.
  std::vector<std::size_t> NextRows(std::int32_t count);
  bool Passes(std::size_t row) const;
  std::optional<std::size_t> NextFrom(std::size_t row) const;
  std::optional<std::size_t> PreviousFrom(std::size_t end) const;
  const std::vector<std::size_t>* Matching() const;
  void BuildFilterIndex(std::size_t column);

  std::unique_ptr<RowStore> rows_;
  bool open_ = false;
  Position position_ = Position::Beginning;
  std::size_t row_ = 0;
  std::optional<std::size_t> added_;  // AddNew's row until it is committed
  Place beforeAdded_;                 // the current place to restore on cancel
  // Kept for its memory: clients add many rows.
  std::vector<std::size_t> pickedColumns_;
  std::u16string filterText_;
  std::optional<std::size_t> filterColumn_;
  std::u16string filterValue_;  // in upper case
  // Rows by the filter column's text, so that filtering for each of many values stays linear.
  std::optional<std::size_t> indexColumn_;
  FilterIndex index_;
};

}  // namespace workbench
