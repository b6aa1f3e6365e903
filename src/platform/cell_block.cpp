// The view of a single value.
#include "platform/cell_block.h"

namespace pricedown {

CellView ViewOf(const Value& value) {
  const Value& resolved = value.Resolved();
  switch (resolved.GetKind()) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
    case Value::Kind::Missing:
      return {};
    case Value::Kind::Int16:
      return {CellView::Kind::Number, static_cast<double>(resolved.Int16())};
    case Value::Kind::Int32:
      return {CellView::Kind::Number, static_cast<double>(resolved.Int32())};
    case Value::Kind::Double:
      return {CellView::Kind::Number, resolved.Double()};
    case Value::Kind::Text:
      return {CellView::Kind::Text, 0, resolved.Text()};
    default:
      return {CellView::Kind::Other};
  }
}

}  // namespace pricedown
