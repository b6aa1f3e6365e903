// The rows behind a recordset: a query's result, or rows that a client creates and edits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/cell_block.h"
#include "platform/recordset.h"
#include "platform/text_arena.h"

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
  // Requires: row and column exist; a deleted row's cells are empty. A text view is valid until the
  // store changes.
  virtual pricedown::CellView View(std::size_t row, std::size_t column) const = 0;
  virtual pricedown::Value Get(std::size_t row, std::size_t column) const = 0;

  // Editing; a read-only store throws AutomationError.
  virtual void AppendField(const pricedown::FieldDefinition& field) = 0;
  virtual void DescribeNumeric(std::size_t column, std::int32_t precision, std::int32_t scale) = 0;
  virtual std::size_t AddRow() = 0;
  // Converts to the column's type; throws AutomationError when the value does not fit it.
  virtual void Set(std::size_t row, std::size_t column, const pricedown::Value& value) = 0;
  // The same for a cell that is kept elsewhere; false, with nothing set, when the view does not
  // hold the value.
  virtual bool SetView(std::size_t row, std::size_t column, const pricedown::CellView& given) = 0;
  virtual void Delete(std::size_t row) = 0;
};

// Rows that a client creates: fields first, then rows. Texts are kept in blocks and only once where
// a column repeats them row after row; a replaced text stays until the store is destroyed.
class EditableRows : public RowStore {
 public:
  EditableRows() = default;
  EditableRows(const EditableRows&) = delete;
  EditableRows& operator=(const EditableRows&) = delete;

  const std::vector<pricedown::FieldDefinition>& Fields() const override { return fields_; }
  std::size_t RowCount() const override { return live_.size(); }
  std::size_t LiveCount() const override { return liveCount_; }
  bool IsLive(std::size_t row) const override { return live_[row]; }
  pricedown::CellView View(std::size_t row, std::size_t column) const override;
  pricedown::Value Get(std::size_t row, std::size_t column) const override;
  // Throws AutomationError when there are rows.
  void AppendField(const pricedown::FieldDefinition& field) override;
  void DescribeNumeric(std::size_t column, std::int32_t precision, std::int32_t scale) override;
  std::size_t AddRow() override;
  void Set(std::size_t row, std::size_t column, const pricedown::Value& given) override;
  bool SetView(std::size_t row, std::size_t column, const pricedown::CellView& given) override;
  void Delete(std::size_t row) override;

 private:
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init) One member of the union has a value.
  struct Cell {
    pricedown::Value::Kind kind = pricedown::Value::Kind::Empty;
    std::uint32_t length = 0;  // of a text
    union {
      std::int32_t integer;
      double number = 0;
      const char16_t* text;
      std::size_t other;  // into others_
    };
    std::u16string_view Text() const { return {text, length}; }
  };
  static constexpr std::size_t kBlockRows = 1024;

  void SetText(std::size_t row, std::size_t column, std::u16string_view text);

  const Cell& At(std::size_t row, std::size_t column) const {
    return blocks_[row / kBlockRows][(row % kBlockRows) * fields_.size() + column];
  }
  Cell& At(std::size_t row, std::size_t column) {
    return blocks_[row / kBlockRows][(row % kBlockRows) * fields_.size() + column];
  }

  std::vector<pricedown::FieldDefinition> fields_;
  // Blocks instead of one vector: growing never copies what is already there.
  std::vector<std::unique_ptr<Cell[]>> blocks_;
  std::vector<bool> live_;
  std::size_t liveCount_ = 0;
  pricedown::TextArena texts_;
  std::vector<std::u16string_view> lastTexts_;  // of each column
  std::vector<pricedown::Value> others_;        // values of any other kind
};

// Throws ADO's error for a value that does not fit its field.
[[noreturn]] void ThrowValueDoesNotFit(std::u16string_view field);
// Throws ADO's error for a read-only recordset.
[[noreturn]] void ThrowReadOnly();

}  // namespace workbench
