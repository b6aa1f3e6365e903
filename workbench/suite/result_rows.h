// The read-only rows of a query's result behind a recordset.
#pragma once

#include "workbench/company/result_set.h"
#include "workbench/suite/row_store.h"

namespace workbench {

class ResultRows : public RowStore {
 public:
  explicit ResultRows(ResultSet result);

  const std::vector<pricedown::FieldDefinition>& Fields() const override { return fields_; }
  std::size_t RowCount() const override { return result_.RowCount(); }
  std::size_t LiveCount() const override { return result_.RowCount(); }
  bool IsLive(std::size_t) const override { return true; }
  pricedown::CellView View(std::size_t row, std::size_t column) const override;
  pricedown::Value Get(std::size_t row, std::size_t column) const override;
  void AppendField(const pricedown::FieldDefinition&) override { ThrowReadOnly(); }
  void DescribeNumeric(std::size_t, std::int32_t, std::int32_t) override { ThrowReadOnly(); }
  std::size_t AddRow() override { ThrowReadOnly(); }
  void Set(std::size_t, std::size_t, const pricedown::Value&) override { ThrowReadOnly(); }
  bool SetView(std::size_t, std::size_t, const pricedown::CellView&) override { ThrowReadOnly(); }
  void Delete(std::size_t) override { ThrowReadOnly(); }

 private:
  ResultSet result_;
  std::vector<pricedown::FieldDefinition> fields_;
};

}  // namespace workbench
