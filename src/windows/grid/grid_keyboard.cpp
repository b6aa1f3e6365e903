// GridWindow: the keyboard.
#include <algorithm>

#include "browser/grid_text.h"
#include "browser/number_cell.h"
#include "windows/base/clipboard.h"
#include "windows/base/keyboard.h"
#include "windows/base/rectangles.h"
#include "windows/grid/grid_window.h"

namespace pricedown::windows {

void GridWindow::MoveTo(std::int32_t column, std::int32_t row, bool extend) {
  if (grid_ == nullptr) return;
  selection_.MoveTo(column, row, extend, *grid_);
  RevealSelection();
}

void GridWindow::GoTo(std::int32_t column, std::int32_t row) {
  if (Handle() != nullptr && FinishEditing()) MoveTo(column, row, false);
}

void GridWindow::RevealSelection() {
  if (viewport_.Reveal(selection_.column, selection_.row)) SetScrollBars();
  // Once and last: a client that receives its events may end the window.
  Invalidate();
}

void GridWindow::Copy(bool titled) {
  if (grid_ == nullptr || Handle() == nullptr) return;
  const auto cells = Copied(*grid_, selection_, titled);
  if (cells && !CopyToClipboard(Handle(), *cells)) MessageBeep(MB_OK);
}

// True when the key was handled.
bool GridWindow::OnKeyDown(WPARAM key) {
  const KeyPress press = PressOf(key);
  if (press.key == Key::Tab) {
    events_.TabPressed(press.shift);
    return true;
  }
  if (press.key == Key::Escape && mouse_ == Mouse::Sizing) {
    EndMouse(false);
    return true;
  }
  if (grid_ == nullptr) return false;
  const GridKey meaning = GridKeyOf(press);
  switch (meaning) {
    case GridKey::None:
      return false;
    case GridKey::SelectAll:
      selection_.SelectAll(*grid_);
      Invalidate();
      return true;
    case GridKey::SelectRows:
      selection_.SelectRows(*grid_);
      Invalidate();
      return true;
    default:
      selection_.Move(meaning, press.shift, std::max(viewport_.PageRows() - 1, 1), *grid_);
      RevealSelection();
      return true;
  }
}

// In an open cell F2, Enter and Delete mean its number, anywhere else they are the window's.
bool GridWindow::UsesCellKey(const KeyPress& press) const {
  return CellStartOf(press) != CellStart::None && CanEdit();
}

void GridWindow::OnCellKey(const KeyPress& press) {
  if (CellStartOf(press) == CellStart::Edit) {
    BeginEditing({});
  } else {
    grid_->ClearNumbers(selection_.Range());
  }
}

void GridWindow::OnCharacter(char16_t character) {
  if (grid_ == nullptr) return;
  const char16_t unit = CellCharacter(character);
  if (CanEdit()) {
    if (StartsCellNumber(unit)) BeginEditing({&unit, 1});
    return;
  }
  const auto time = static_cast<std::uint32_t>(GetMessageTime());
  const auto row = typeAhead_.Type(character, time, *grid_, selection_.column, selection_.row);
  if (row) MoveTo(selection_.column, *row, false);
}

LRESULT GridWindow::OnKeyboard(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      if (UsesCellKey(PressOf(wParam))) {
        if (!IsRepeated(lParam)) OnCellKey(PressOf(wParam));
        return 0;
      }
      if (events_.KeyPressed(Handle(), PressOf(wParam), IsRepeated(lParam))) return 0;
      return OnKeyDown(wParam) ? 0 : Default(message, wParam, lParam);
    case WM_CHAR:
      OnCharacter(static_cast<char16_t>(wParam));
      return 0;
    default:
      Copy(false);
      return 0;
  }
}

bool GridWindow::CanEdit() const {
  return grid_ != nullptr && grid_->IsEditable(selection_.column, selection_.row);
}

void GridWindow::BeginEditing(std::u16string_view first) {
  if (editor_.IsActive()) return;
  const Lifetime window = WindowLifetime();
  selection_.MoveTo(selection_.column, selection_.row, false, *grid_);
  RevealSelection();
  if (window.HasEnded() || !CanEdit()) return;
  GridEditor::Start start{};
  start.area = ToRect(viewport_.CellArea(selection_.column, selection_.row));
  start.area.right -= 1;
  start.area.bottom -= 1;
  start.font = font_.Get();
  start.lineHeight = lineHeight_;
  start.margin = dpi_.Scale(kCellTextMargin);
  const std::u16string name = Elements().FieldName({selection_.column, selection_.row});
  start.name = name;
  const std::u16string text(first.empty() ? grid_->Text(selection_.column, selection_.row) : first);
  start.text = text;
  start.selectAll = first.empty();
  start.upperBound = *grid_->UpperBound(selection_.column, selection_.row);
  editor_.Begin(Handle(), module_, start);
  if (!window.HasEnded()) Invalidate();
}

void GridWindow::EditingAccepted(std::u16string_view text, WPARAM key) {
  const Lifetime window = WindowLifetime();
  const GridAccessibility::Step step(accessibility_, window);
  if (grid_ != nullptr && grid_->Text(selection_.column, selection_.row) != text) {
    grid_->SetText(selection_.column, selection_.row, text);
  }
  if (window.HasEnded()) return;
  Invalidate();
  // cppcheck-suppress identicalConditionAfterEarlyExit
  if (window.HasEnded() || key == 0) return;
  SetFocus(Handle());
  // cppcheck-suppress identicalConditionAfterEarlyExit
  if (window.HasEnded()) return;
  if (key == VK_RETURN) {
    MoveTo(selection_.column, selection_.row + 1, false);
  } else {
    OnKeyDown(key);
  }
}

// A key without modifiers that works while a number is typed; the number is accepted first.
void GridWindow::CommandKeyPressed(WPARAM key) {
  const KeyPress press = PressOf(key);
  if (press != KeyPress{press.key}) return;
  if (!FinishEditing()) return;
  const Lifetime window = WindowLifetime();
  SetFocus(Handle());
  if (window.HasEnded()) return;
  events_.KeyPressed(Handle(), press, false);
}

void GridWindow::EditingCancelled(bool left) {
  const Lifetime window = WindowLifetime();
  Invalidate();
  if (!window.HasEnded() && !left && GetFocus() == nullptr) SetFocus(Handle());
}

}  // namespace pricedown::windows
