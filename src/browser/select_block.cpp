// Each end of the block by a property of its own; one that fails leaves the others.
#include "browser/select_block.h"

#include "platform/skip.h"

namespace pricedown {
namespace {

// Requires: `name` outlives the call.
void PutOrDefault(AutomationObject& grid, std::u16string_view name, const Value& value,
                  std::u16string_view maximum) {
  SkipFailing([&] {
    if (!value.Resolved().Is(Value::Kind::Missing)) {
      grid.Put(name, value.Resolved());
    } else if (maximum.empty()) {
      grid.Put(name, std::int32_t{1});
    } else {
      grid.Put(name, grid.Get(maximum));
    }
  });
}

}  // namespace

void SelectBlock(const ObjectPtr& grid, const Value& column, const Value& column2, const Value& row,
                 const Value& row2) {
  if (grid == nullptr) return;
  PutOrDefault(*grid, u"Col", column, {});
  PutOrDefault(*grid, u"Col2", column2, u"MaxCols");
  PutOrDefault(*grid, u"Row", row, {});
  PutOrDefault(*grid, u"Row2", row2, u"MaxRows");
}

}  // namespace pricedown
