// Cells of a query's result as automation values.
#include "workbench/suite/result_rows.h"

#include <limits>

namespace workbench {

using pricedown::CellView;
using pricedown::Value;

ResultRows::ResultRows(ResultSet result) : result_(std::move(result)) {
  for (std::size_t i = 0; i < result_.ColumnCount(); ++i) {
    const ResultColumn& column = result_.Column(i);
    pricedown::FieldDefinition field;
    field.name = column.name;
    field.type = static_cast<std::int32_t>(column.type);
    field.definedSize = static_cast<std::int32_t>(column.definedSize);
    field.attributes = pricedown::ado::kFieldIsNullable;
    field.precision = column.precision;
    field.scale = column.scale;
    fields_.push_back(std::move(field));
  }
}

CellView ResultRows::View(std::size_t row, std::size_t column) const {
  const Cell& cell = result_.At(row, column);
  switch (cell.Kind()) {
    case CellKind::Text:
      return {CellView::Kind::Text, 0, cell.Text()};
    case CellKind::Integer:
      return {CellView::Kind::Number, static_cast<double>(cell.Integer()), {}};
    case CellKind::Number:
      return {CellView::Kind::Number, cell.Number(), {}};
    case CellKind::Null:
      break;
  }
  return {};
}

Value ResultRows::Get(std::size_t row, std::size_t column) const {
  const Cell& cell = result_.At(row, column);
  switch (cell.Kind()) {
    case CellKind::Text:
      return cell.Text();
    case CellKind::Integer:
      if (cell.Integer() >= std::numeric_limits<std::int32_t>::min() &&
          cell.Integer() <= std::numeric_limits<std::int32_t>::max()) {
        return static_cast<std::int32_t>(cell.Integer());
      }
      return static_cast<double>(cell.Integer());
    case CellKind::Number:
      return cell.Number();
    case CellKind::Null:
      break;
  }
  return pricedown::Null{};
}

}  // namespace workbench
