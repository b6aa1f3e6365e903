// The members of the item grid as automation clients name them, and the selection of a block.
// Numbers are checked by the grid, which ignores what lies outside.
#include "browser/grid_object.h"

#include <array>
#include <cmath>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/skip.h"

namespace pricedown {
namespace {

// What a cell without a colour of its own is painted with: the system's window background.
constexpr std::uint32_t kWindowBackground = 0x80000005;

Value ColourValue(std::uint32_t colour) { return static_cast<std::int32_t>(colour); }

// Clients send system colours signed or unsigned.
std::uint32_t ToColour(const Value& value) {
  const double number = ToDouble(value);
  if (!(number >= -2147483648.0 && number <= 4294967295.0)) {
    throw AutomationError(ErrorNumber::Overflow, u"颜色值超出范围", u"BackColor");
  }
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(std::nearbyint(number)));
}

template <std::int32_t CellRange::*part>
Value BlockPart(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  CellRange block = grid.Block();
  if (access == Access::Call) return block.*part;
  block.*part = ToInt32(arguments.back());
  grid.SetBlock(block);
  return {};
}

Value MaxCols(GridObject& object, Access, std::span<Value>) {
  return object.Required().MaxColumns();
}

Value MaxRows(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  if (access == Access::Call) return grid.MaxRows();
  grid.SetMaxRows(ToInt32(arguments.back()));
  return {};
}

Value BlockMode(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  if (access == Access::Call) return grid.BlockMode();
  grid.SetBlockMode(ToBoolean(arguments.back()));
  return {};
}

Value Lock(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  if (access == Access::Call) return grid.IsLocked(grid.Block().column, grid.Block().row);
  grid.LockBlock(ToBoolean(arguments.back()));
  return {};
}

Value BackColor(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  if (access == Access::Call) {
    const auto colour = grid.Colour(grid.Block().column, grid.Block().row);
    return ColourValue(colour.value_or(kWindowBackground));
  }
  grid.ColourBlock(ToColour(arguments.back()));
  return {};
}

Value Text(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  const CellRange& block = grid.Block();
  if (access == Access::Call) return grid.Text(block.column, block.row);
  grid.SetText(block.column, block.row, ToText(arguments.back()));
  return {};
}

Value Redraw(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  if (access == Access::Call) return grid.Redraw();
  grid.SetRedraw(ToBoolean(arguments.back()));
  return {};
}

Value ColumnWidth(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  const std::int32_t column = ToInt32(arguments.front());
  if (access == Access::Call) return grid.ColumnWidth(column);
  grid.SetColumnWidth(column, ToDouble(arguments.back()));
  return {};
}

Value RowHeight(GridObject& object, Access access, std::span<Value> arguments) {
  Grid& grid = object.Required();
  const std::int32_t row = ToInt32(arguments.front());
  if (access == Access::Call) return row == kTitleRow ? grid.TitleHeight() : grid.RowHeight();
  if (row != kTitleRow && row != kAll) {
    throw AutomationError(ErrorNumber::InvalidArgument, u"各行的高度相同，只能一起设置",
                          u"RowHeight");
  }
  grid.SetRowHeight(row, ToDouble(arguments.back()));
  return {};
}

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

Grid& GridObject::Required() {
  if (grid_ != nullptr) return *grid_;
  throw AutomationError(ErrorNumber::ObjectNotSet, u"未设置对象: 控件已经关闭", u"vaList");
}

std::span<const Member<GridObject>> GridObject::Members() {
  static constexpr std::array<Member<GridObject>, 13> kMembers{{
      {u"Col", MemberKind::GetPut, BlockPart<&CellRange::column>},
      {u"Col2", MemberKind::GetPut, BlockPart<&CellRange::column2>},
      {u"Row", MemberKind::GetPut, BlockPart<&CellRange::row>},
      {u"Row2", MemberKind::GetPut, BlockPart<&CellRange::row2>},
      {u"MaxCols", MemberKind::Get, MaxCols},
      {u"MaxRows", MemberKind::GetPut, MaxRows},
      {u"BlockMode", MemberKind::GetPut, BlockMode},
      {u"Lock", MemberKind::GetPut, Lock},
      {u"BackColor", MemberKind::GetPut, BackColor},
      {u"Text", MemberKind::GetPut, Text},
      {u"ReDraw", MemberKind::GetPut, Redraw},
      {u"ColWidth", MemberKind::GetPut, ColumnWidth, 1, 1},
      {u"RowHeight", MemberKind::GetPut, RowHeight, 1, 1},
  }};
  return kMembers;
}

void SelectBlock(const ObjectPtr& grid, const Value& column, const Value& column2, const Value& row,
                 const Value& row2) {
  if (grid == nullptr) return;
  PutOrDefault(*grid, u"Col", column, {});
  PutOrDefault(*grid, u"Col2", column2, u"MaxCols");
  PutOrDefault(*grid, u"Row", row, {});
  PutOrDefault(*grid, u"Row2", row2, u"MaxRows");
}

}  // namespace pricedown
