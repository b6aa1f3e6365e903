// The keyboard on the sheet: moving, selecting, copying, typing numbers.
// Part of SheetWindow.
#include <algorithm>

#include "windows/ui/clipboard.h"
#include "windows/ui/sheet_window.h"

namespace pricedown::windows {
namespace {

constexpr int kTextMargin = 4;  // pixels at 96 dpi, as the painter's

bool StartsNumber(WPARAM character) {
  return (character >= L'0' && character <= L'9') || character == L'.' || character == L'-';
}

}  // namespace

void SheetWindow::MoveTo(std::int32_t column, std::int32_t row, bool extend) {
  if (sheet_ == nullptr) return;
  selection_.MoveTo(column, row, extend, *sheet_);
  scroll_.Reveal(Handle(), geometry_, selection_.column, selection_.row);
  Invalidate();
}

void SheetWindow::SelectAll() {
  selection_ = {1, 1, std::max(sheet_->MaxColumns(), 1), std::max(sheet_->MaxRows(), 1)};
  Invalidate();
}

void SheetWindow::Copy() {
  if (sheet_ == nullptr || sheet_->MaxRows() == 0) return;
  std::u16string text = TabbedText(*sheet_, selection_.Range());
  // One cell is copied as its bare text.
  if (!selection_.IsBlock()) text = sheet_->Text(selection_.column, selection_.row);
  if (!CopyToClipboard(Handle(), text)) MessageBeep(MB_OK);
}

bool SheetWindow::OnMoveKey(WPARAM key, bool extend) {
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
      MoveTo(column, row > sheet_->MaxRows() - page ? sheet_->MaxRows() : row + page, extend);
      return true;
    case VK_HOME:
      MoveTo(1, row, extend);
      return true;
    case VK_END:
      MoveTo(sheet_->MaxColumns(), row, extend);
      return true;
    default:
      return false;
  }
}

bool SheetWindow::OnControlKey(WPARAM key, bool extend) {
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
      MoveTo(sheet_->MaxColumns(), sheet_->MaxRows(), extend);
      return true;
    case VK_UP:
      MoveTo(selection_.column, 1, extend);
      return true;
    case VK_DOWN:
      MoveTo(selection_.column, sheet_->MaxRows(), extend);
      return true;
    case VK_LEFT:
      MoveTo(1, selection_.row, extend);
      return true;
    case VK_RIGHT:
      MoveTo(sheet_->MaxColumns(), selection_.row, extend);
      return true;
    default:
      return false;
  }
}

// True when the key was used up.
bool SheetWindow::OnKeyDown(WPARAM key) {
  const bool shift = GetKeyState(VK_SHIFT) < 0;
  if (key == VK_TAB) {
    events_.TabPressed(shift);
    return true;
  }
  if (key == VK_ESCAPE && mouse_ == Mouse::Sizing) {
    EndMouse(false);
    return true;
  }
  if (sheet_ == nullptr) return false;
  if (GetKeyState(VK_CONTROL) < 0) return OnControlKey(key, shift);
  if (key == VK_SPACE && shift) {
    // The whole rows of the selection.
    selection_.anchorColumn = std::max(sheet_->MaxColumns(), 1);
    selection_.column = 1;
    Invalidate();
    return true;
  }
  return OnMoveKey(key, shift);
}

// In an open cell F2 and Enter mean its number, anywhere else the class.
void SheetWindow::OnCommandKey(UserCommand command) {
  if (command == UserCommand::Edit && CanEdit()) {
    BeginEditing({});
  } else {
    events_.CommandChosen(command);
  }
}

LRESULT SheetWindow::OnKeyboard(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      if (const auto command = CommandOfKey(wParam)) {
        if (!IsRepeated(lParam)) OnCommandKey(*command);
        return 0;
      }
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

bool SheetWindow::CanEdit() const {
  return sheet_ != nullptr && selection_.row <= sheet_->MaxRows() &&
         sheet_->UpperBound(selection_.column, selection_.row).has_value() &&
         !sheet_->IsLocked(selection_.column, selection_.row);
}

void SheetWindow::BeginEditing(std::u16string_view first) {
  if (editor_.IsActive()) return;
  selection_.MoveTo(selection_.column, selection_.row, false, *sheet_);
  scroll_.Reveal(Handle(), geometry_, selection_.column, selection_.row);
  SheetEditor::Start start{};
  start.area = CellArea(Scene(), selection_.column, selection_.row);
  start.area.right -= 1;
  start.area.bottom -= 1;
  start.font = font_.Get();
  start.lineHeight = lineHeight_;
  start.margin = dpi_.Scale(kTextMargin);
  const std::u16string text(first.empty() ? sheet_->Text(selection_.column, selection_.row)
                                          : first);
  start.text = text;
  start.selectAll = first.empty();
  start.upperBound = *sheet_->UpperBound(selection_.column, selection_.row);
  editor_.Begin(Handle(), module_, start);
  Invalidate();
}

void SheetWindow::EditingAccepted(std::u16string_view text, WPARAM key) {
  if (sheet_ != nullptr && sheet_->Text(selection_.column, selection_.row) != text) {
    sheet_->SetText(selection_.column, selection_.row, text);
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

// The keys that work while a number is typed; it is taken over first.
void SheetWindow::FunctionKeyPressed(WPARAM key) {
  const auto command = CommandOfKey(key);
  if (!command) return;
  const std::shared_ptr<void> hold = events_.Hold();
  editor_.Finish(0);
  if (Handle() == nullptr) return;
  SetFocus(Handle());
  if (Handle() == nullptr) return;
  events_.CommandChosen(*command);
}

void SheetWindow::EditingCancelled() {
  Invalidate();
  if (Handle() != nullptr && GetFocus() == nullptr) SetFocus(Handle());
}

}  // namespace pricedown::windows
