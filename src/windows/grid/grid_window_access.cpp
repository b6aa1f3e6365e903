// GridWindow: the interface for its providers.
#include "windows/grid/grid_access.h"

#include "browser/number_cell.h"
#include "windows/grid/grid_window.h"

namespace pricedown::windows {

GridElements GridWindow::Elements() const {
  RECT client{};
  GetClientRect(Handle(), &client);
  return {grid_, viewport_, selection_, {client.right, client.bottom}};
}

void GridWindow::SetSelection(const GridSelection& selection) {
  if (!FinishEditing() || grid_ == nullptr) return;
  selection_ = selection;
  RevealSelection();
}

void GridWindow::ScrollTo(std::int32_t topRow, int left) {
  if (FinishEditing()) Scrolled(viewport_.ScrollTo(topRow, left));
}

bool GridWindow::SetNumber(GridElement cell, std::u16string_view text) {
  if (grid_ == nullptr) return false;
  const auto number = CellNumber(text, *grid_->UpperBound(cell.column, cell.row));
  if (!number) return false;
  // What is being typed would replace the number later.
  if (cell == Elements().Current() && !CancelEditing()) return true;
  if (grid_ != nullptr && grid_->Text(cell.column, cell.row) != *number) {
    grid_->SetText(cell.column, cell.row, *number);
  }
  return true;
}

}  // namespace pricedown::windows
