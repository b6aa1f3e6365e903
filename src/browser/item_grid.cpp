// Reads the items of a class into the grid row by row.
#include "browser/item_grid.h"

#include <array>
#include <string>
#include <vector>

#include "env/translation.h"
#include "platform/cell_text.h"
#include "platform/error.h"
#include "platform/failure.h"
#include "platform/row_reader.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

// In width units.
constexpr std::array<double, grid_columns::kCount> kColumnWidths{12, 20, 18, 12};

}  // namespace

void ItemGrid::Prepare() {
  std::array<std::u16string, grid_columns::kCount> titles;
  for (std::size_t i = 0; i < titles.size(); ++i) titles[i] = Translate(kItemColumnTitles[i]);
  // One change for the view: each one measures fonts and sets scroll bars.
  grid_.SetRedraw(false);
  for (std::int32_t column = 1; column <= grid_columns::kCount; ++column) {
    const auto index = static_cast<std::size_t>(column - 1);
    grid_.SetText(column, kTitleRow, titles[index]);
    grid_.SetColumnWidth(column, kColumnWidths[index]);
  }
  grid_.SetRedraw(true);
}

void ItemGrid::LoadItemGrid(std::u16string_view classNumber) {
  const std::uint32_t load = ++lastLoad_;
  Failure failure;
  try {
    Fill(classNumber, load);
    return;
  } catch (...) {
    failure = CurrentFailure();
  }
  if (load != lastLoad_) return;
  environment_.NotifyFailed(failure);
  // The control may have ended inside the call that failed, or in the event.
  if (environment_.lifetime.HasEnded()) return;
  environment_.messages.Inform(FailureText(failure));
}

void ItemGrid::Fill(std::u16string_view classNumber, std::uint32_t load) {
  state_.itemRecordset.Release();
  const std::u16string statement =
      state_.ByItemClass() ? statements::ItemsOfClass(classNumber) : statements::AllItems();
  const Recordset items = Connection(environment_.factory).Execute(statement);
  // Each call to the suite may run messages, and emptying the grid ends its editor, which the host
  // hears: either may end the control, which releases the grid, or fill it with another class.
  if (!IsCurrent(load)) return;
  state_.itemRecordset = items;
  grid_.SetMaxRows(0);
  if (!IsCurrent(load)) return;
  grid_.SetRedraw(false);
  const std::int32_t count = items.RecordCount();
  if (!IsCurrent(load)) return;
  grid_.SetMaxRows(count);
  // An empty recordset refuses to move.
  if (grid_.MaxRows() > 0) items.MoveFirst();
  FillRows(items, load);
  if (!IsCurrent(load)) return;
  grid_.SetRedraw(true);
  grid_.LockColumns(grid_columns::kModel);
  ApplyScopeLock();
}

void ItemGrid::FillRows(const Recordset& items, std::uint32_t load) {
  RowReader rows(items,
                 {state_.fullNumber ? columns::kNumber : columns::kShortNumber, columns::kName,
                  columns::kModel},
                 NullCells::AsEmptyText);
  std::array<std::u16string, grid_columns::kModel> scratch;
  std::array<std::u16string_view, grid_columns::kModel> texts;
  for (std::int32_t row = 1; row <= grid_.MaxRows(); ++row) {
    const bool found = rows.Next();
    if (!IsCurrent(load)) return;
    if (!found) {
      throw AutomationError(ErrorNumber::NoCurrentRecord, u"物料记录少于记录集报告的行数",
                            u"vaList");
    }
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = CellText(rows.Field(i), scratch[i]);
    if (!IsCurrent(load)) return;
    grid_.SetRowTexts(row, texts);
    grid_.SetUpperBound(grid_columns::kPrice, row, kPriceUpperBound);
    if (row % kRowsBetweenReports == 0) grid_.NotifyFilling();
  }
}

void ItemGrid::ApplyScopeLock() {
  if (environment_.state.dataScope == 0) grid_.LockColumns(grid_.MaxColumns());
}

void ItemGrid::Release() {
  state_.itemRecordset.Release();
  grid_.SetMaxRows(0);
}

}  // namespace pricedown
