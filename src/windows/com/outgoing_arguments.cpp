// Conversion of a call's arguments, and of by-reference results.
#include "windows/com/outgoing_arguments.h"

#include <utility>

#include "windows/com/safe_array_block.h"
#include "windows/com/variant_value.h"

namespace pricedown::windows {

namespace {

// The cells of a row of another module's block, passed on without copying them; else null.
SAFEARRAY* BorrowedCells(const Value& value) {
  if (!value.Is(Value::Kind::Row)) return nullptr;
  const auto* block = dynamic_cast<const SafeArrayBlock*>(value.Row().block.get());
  return block == nullptr ? nullptr : block->RowArray(value.Row().row);
}

}  // namespace

OutgoingArguments::OutgoingArguments(std::span<Value> values)
    : values_(values), reversed_(values.size()) {
  contents_.reserve(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    VARIANT& argument = reversed_[values.size() - 1 - i];
    if (SAFEARRAY* const cells = BorrowedCells(values[i])) {
      contents_.emplace_back();
      argument.parray = cells;
      argument.vt = VT_ARRAY | VT_VARIANT;
      continue;
    }
    contents_.push_back(ToVariant(values[i]));
    argument = contents_.back().get();
    if (values[i].Is(Value::Kind::Reference)) {
      // What a script or a late-bound Basic client sends for a variable.
      argument.vt = VT_BYREF | VT_VARIANT;
      argument.pvarVal = contents_.back().share();
    }
  }
}

void OutgoingArguments::WriteBack() {
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (values_[i].Is(Value::Kind::Reference)) {
      values_[i].Target() = ConsumeVariant(std::move(contents_[i]));
    }
  }
}

}  // namespace pricedown::windows
