// The keyboard on the grid: moving, selecting, copying, typing numbers.
// Part of GridWindow.
#include <algorithm>

#include "browser/grid_text.h"
#include "windows/base/clipboard.h"
#include "windows/base/keyboard.h"
#include "windows/grid/grid_window.h"

namespace pricedown::windows {
namespace {

constexpr int kTextMargin = 4;  // pixels at 96 dpi, as the painter's

bool StartsNumber(WPARAM character) {
  return (character >= L'0' && character <= L'9') || character == L'.' || character == L'-';
}

}  // namespace

void GridWindow::MoveTo(std::int32_t column, std::int32_t row, bool extend) {
  if (grid_ == nullptr) return;
  selection_.MoveTo(column, row, extend, *grid_);
  scroll_.Reveal(Handle(), geometry_, selection_.column, selection_.row);
  Invalidate();
}

void GridWindow::SelectAll() {
  selection_ = {1, 1, std::max(grid_->MaxColumns(), 1), std::max(grid_->MaxRows(), 1)};
  Invalidate();
}

void GridWindow::Copy() {
  if (grid_ == nullptr || grid_->MaxRows() == 0) return;
  std::u16string text = TabbedText(*grid_, selection_.Range());
  // One cell is copied as its bare text.
  if (!selection_.IsBlock()) text = grid_->Text(selection_.column, selection_.row);
  if (!CopyToClipboard(Handle(), text)) MessageBeep(MB_OK);
}

bool GridWindow::OnMoveKey(WPARAM key, bool extend) {
  RECT client{};
  GetClientRect(Handle(), &client);
  const std::int32_t page = std::max(geometry_.WholeRows(client.bottom) - 1, 1);
  const std::int32_t column = selection_.column;
  const std::int32_t row = selection_.row;
  switch (key) {
    case VK_LEFT:
      MoveTo(column - 1, row, extend);
      return true;
    case VK_RIGHT:
      MoveTo(column + 1, row, extend);
      return true;
    case VK_UP:
      MoveTo(column, row - 1, extend);
      return true;
    case VK_DOWN:
      MoveTo(column, row + 1, extend);
      return true;
    case VK_PRIOR:
      MoveTo(column, row - page, extend);
      return true;
    case VK_NEXT:
      MoveTo(column, row > grid_->MaxRows() - page ? grid_->MaxRows() : row + page, extend);
      return true;
    case VK_HOME:
      MoveTo(1, row, extend);
      return true;
    case VK_END:
      MoveTo(grid_->MaxColumns(), row, extend);
      return true;
    default:
      return false;
  }
}

bool GridWindow::OnControlKey(WPARAM key, bool extend) {
  switch (key) {
    case 'A':
      SelectAll();
      return true;
    case 'C':
    case VK_INSERT:
      Copy();
      return true;
    case VK_HOME:
      MoveTo(1, 1, extend);
      return true;
    case VK_END:
      MoveTo(grid_->MaxColumns(), grid_->MaxRows(), extend);
      return true;
    case VK_UP:
      MoveTo(selection_.column, 1, extend);
      return true;
    case VK_DOWN:
      MoveTo(selection_.column, grid_->MaxRows(), extend);
      return true;
    case VK_LEFT:
      MoveTo(1, selection_.row, extend);
      return true;
    case VK_RIGHT:
      MoveTo(grid_->MaxColumns(), selection_.row, extend);
      return true;
    default:
      return false;
  }
}

// True when the key was used up.
bool GridWindow::OnKeyDown(WPARAM key) {
  const bool shift = GetKeyState(VK_SHIFT) < 0;
  if (key == VK_TAB) {
    events_.TabPressed(shift);
    return true;
  }
  if (key == VK_ESCAPE && mouse_ == Mouse::Sizing) {
    EndMouse(false);
    return true;
  }
  if (grid_ == nullptr) return false;
  if (GetKeyState(VK_CONTROL) < 0) return OnControlKey(key, shift);
  if (key == VK_SPACE && shift) {
    // The whole rows of the selection.
    selection_.anchorColumn = std::max(grid_->MaxColumns(), 1);
    selection_.column = 1;
    Invalidate();
    return true;
  }
  return OnMoveKey(key, shift);
}

// In an open cell F2 and Enter mean its number, anywhere else they are the window's.
bool GridWindow::EditsWith(const KeyPress& press) const {
  return (press == KeyPress{Key::F2} || press == KeyPress{Key::Enter}) && CanEdit();
}

LRESULT GridWindow::OnKeyboard(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      if (EditsWith(PressOf(wParam))) {
        if (!IsRepeated(lParam)) BeginEditing({});
        return 0;
      }
      if (events_.KeyPressed(Handle(), PressOf(wParam), IsRepeated(lParam))) return 0;
      return OnKeyDown(wParam) ? 0 : Default(message, wParam, lParam);
    case WM_CHAR: {
      const char16_t unit = static_cast<char16_t>(wParam);
      if (StartsNumber(wParam) && CanEdit()) BeginEditing({&unit, 1});
      return 0;
    }
    default:
      Copy();
      return 0;
  }
}

bool GridWindow::CanEdit() const {
  return grid_ != nullptr && grid_->IsEditable(selection_.column, selection_.row);
}

void GridWindow::BeginEditing(std::u16string_view first) {
  if (editor_.IsActive()) return;
  selection_.MoveTo(selection_.column, selection_.row, false, *grid_);
  scroll_.Reveal(Handle(), geometry_, selection_.column, selection_.row);
  GridEditor::Start start{};
  start.area = CellArea(Scene(), selection_.column, selection_.row);
  start.area.right -= 1;
  start.area.bottom -= 1;
  start.font = font_.Get();
  start.lineHeight = lineHeight_;
  start.margin = dpi_.Scale(kTextMargin);
  const std::u16string text(first.empty() ? grid_->Text(selection_.column, selection_.row) : first);
  start.text = text;
  start.selectAll = first.empty();
  start.upperBound = *grid_->UpperBound(selection_.column, selection_.row);
  editor_.Begin(Handle(), module_, start);
  Invalidate();
}

void GridWindow::EditingAccepted(std::u16string_view text, WPARAM key) {
  if (grid_ != nullptr && grid_->Text(selection_.column, selection_.row) != text) {
    grid_->SetText(selection_.column, selection_.row, text);
  }
  Invalidate();
  if (key == 0) return;
  const std::shared_ptr<void> hold = events_.Hold();
  SetFocus(Handle());
  if (Handle() == nullptr) return;
  if (key == VK_RETURN) {
    MoveTo(selection_.column, selection_.row + 1, false);
  } else {
    OnKeyDown(key);
  }
}

// A key without modifiers that works while a number is typed; the number is accepted first.
void GridWindow::FunctionKeyPressed(WPARAM key) {
  const KeyPress press = PressOf(key);
  if (press != KeyPress{press.key}) return;
  const std::shared_ptr<void> hold = events_.Hold();
  editor_.Finish(0);
  if (Handle() == nullptr) return;
  SetFocus(Handle());
  if (Handle() == nullptr) return;
  events_.KeyPressed(Handle(), press, false);
}

void GridWindow::EditingCancelled() {
  Invalidate();
  if (Handle() != nullptr && GetFocus() == nullptr) SetFocus(Handle());
}

}  // namespace pricedown::windows
