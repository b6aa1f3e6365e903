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

// Ending the typing moves the focus, by which the host may end the control.
void GridWindow::SetSelection(const GridSelection& selection) {
  const Lifetime window = WindowLifetime();
  editor_.Finish(0);
  if (window.HasEnded() || grid_ == nullptr) return;
  selection_ = selection;
  RevealSelection();
}

void GridWindow::ScrollTo(std::int32_t topRow, int left) {
  const Lifetime window = WindowLifetime();
  editor_.Finish(0);
  if (!window.HasEnded()) Scrolled(viewport_.ScrollTo(topRow, left));
}

bool GridWindow::SetNumber(GridElement cell, std::u16string_view text) {
  if (grid_ == nullptr) return false;
  const auto number = CellNumber(text, *grid_->UpperBound(cell.column, cell.row));
  if (!number) return false;
  const Lifetime window = WindowLifetime();
  // What is being typed would replace the number later.
  if (cell == Elements().Current()) editor_.Cancel();
  if (!window.HasEnded() && grid_ != nullptr && grid_->Text(cell.column, cell.row) != *number) {
    grid_->SetText(cell.column, cell.row, *number);
  }
  return true;
}

}  // namespace pricedown::windows
