// The rows behind a recordset: a query's result, or rows that a client creates and edits.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/cell_block.h"
#include "platform/recordset.h"

namespace workbench {

class RowStore {
 public:
  virtual ~RowStore() = default;
  virtual const std::vector<pricedown::FieldDefinition>& Fields() const = 0;
  // Rows ever stored; deleted ones keep their number.
  virtual std::size_t RowCount() const = 0;
  // Rows that are not deleted.
  virtual std::size_t LiveCount() const = 0;
  virtual bool IsLive(std::size_t row) const = 0;
  // Requires: row and column exist. A text view is valid until the store changes.
  virtual pricedown::CellView View(std::size_t row, std::size_t column) const = 0;
  virtual pricedown::Value Get(std::size_t row, std::size_t column) const = 0;

  // Editing; a read-only store throws AutomationError.
  virtual void AppendField(const pricedown::FieldDefinition& field) = 0;
  virtual void DescribeNumeric(std::size_t column, std::int32_t precision, std::int32_t scale) = 0;
  virtual std::size_t AddRow() = 0;
  // Converts to the column's type; throws AutomationError when the value does not fit it.
  virtual void Set(std::size_t row, std::size_t column, const pricedown::Value& value) = 0;
  virtual void Delete(std::size_t row) = 0;
};

// Rows that a client creates: fields first, then rows.
class EditableRows : public RowStore {
 public:
  const std::vector<pricedown::FieldDefinition>& Fields() const override { return fields_; }
  std::size_t RowCount() const override { return rows_.size(); }
  std::size_t LiveCount() const override { return live_; }
  bool IsLive(std::size_t row) const override { return rows_[row].live; }
  pricedown::CellView View(std::size_t row, std::size_t column) const override;
  pricedown::Value Get(std::size_t row, std::size_t column) const override;
  void AppendField(const pricedown::FieldDefinition& field) override;
  void DescribeNumeric(std::size_t column, std::int32_t precision, std::int32_t scale) override;
  std::size_t AddRow() override;
  void Set(std::size_t row, std::size_t column, const pricedown::Value& value) override;
  void Delete(std::size_t row) override;

 private:
  struct Row {
    std::vector<pricedown::Value> cells;
    bool live = true;
  };

  std::vector<pricedown::FieldDefinition> fields_;
  std::vector<Row> rows_;
  std::size_t live_ = 0;
};

// Throws ADO's error for a value that does not fit its field.
[[noreturn]] void ThrowValueDoesNotFit(std::u16string_view field);
// Throws ADO's error for a read-only recordset.
[[noreturn]] void ThrowReadOnly();

}  // namespace workbench
