// Opens over a cell, checks what is typed or pasted, and reports the number when it closes.
#include "windows/grid/grid_editor.h"

#include <algorithm>
#include <optional>

#include "browser/number_cell.h"
#include "platform/text.h"
#include "windows/base/clipboard.h"
#include "windows/base/control_ids.h"
#include "windows/base/plain_control.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

void GridEditor::Begin(HWND parent, HINSTANCE module, const Start& start) {
  upperBound_ = start.upperBound;
  const std::wstring text = ToWide(start.text);
  label_.emplace().Create(parent, module, L"STATIC", control_ids::kCellLabel, WS_VISIBLE,
                          start.name);
  Creation creation;
  creation.className = L"EDIT";
  creation.text = text.c_str();
  creation.style = WS_CHILD | WS_CLIPSIBLINGS | ES_RIGHT | ES_AUTOHSCROLL;
  creation.parent = parent;
  creation.id = control_ids::kCellEditor;
  creation.module = module;
  CreateControl(creation);
  SetFontOf(Handle(), start.font);
  SendMessageW(Handle(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
  // The text stays where the cell shows it.
  const Rectangle line = MiddleOf(FromRect(start.area), start.lineHeight);
  SetWindowPos(Handle(), nullptr, line.left + start.margin, line.top,
               std::max(line.width - 2 * start.margin, 1), line.height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  const auto end = static_cast<LPARAM>(text.size());
  SendMessageW(Handle(), EM_SETSEL, start.selectAll ? 0 : static_cast<WPARAM>(end), end);
  SetFocus(Handle());
}

bool GridEditor::End() {
  const Lifetime object = object_;
  ending_ = true;
  label_.reset();
  Destroy();
  if (object.HasEnded()) return false;
  ending_ = false;
  return true;
}

void GridEditor::Finish(WPARAM key, bool left) {
  if (!IsActive()) return;
  const std::optional<std::u16string> number = CellNumber(TextOf(Handle()), upperBound_);
  if (!End()) return;
  if (number) {
    events_.EditingAccepted(*number, key);
  } else {
    events_.EditingCancelled(left);
  }
}

void GridEditor::Cancel() {
  if (IsActive() && End()) events_.EditingCancelled(false);
}

bool GridEditor::Allows(std::u16string_view inserted) const {
  DWORD from = 0;
  DWORD to = 0;
  SendMessageW(Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  return MayInsert(TextOf(Handle()), from, to, inserted, upperBound_);
}

void GridEditor::OnPaste() {
  const std::u16string text = CellCharacters(ClipboardText(Handle()));
  const std::u16string_view trimmed = Trim(text);
  if (trimmed.empty()) return;
  if (!Allows(trimmed)) {
    MessageBeep(MB_OK);
    return;
  }
  const std::wstring wide = ToWide(trimmed);
  SendMessageW(Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide.c_str()));
}

bool GridEditor::OnKeyDown(WPARAM key) {
  switch (CellKeyOf(static_cast<Key>(key))) {
    case CellKey::Cancel:
      Cancel();
      return true;
    case CellKey::Accept:
      if (CellNumber(TextOf(Handle()), upperBound_)) {
        Finish(key);
      } else {
        MessageBeep(MB_OK);
      }
      return true;
    case CellKey::AcceptAndMove:
      Finish(key);
      return true;
    case CellKey::Command:
      events_.CommandKeyPressed(key);
      return true;
    case CellKey::None:
      break;
  }
  return false;
}

bool GridEditor::OnChar(WPARAM character) {
  // Control characters are the edit control's: backspace, copy, paste, undo.
  if (character == VK_RETURN || character == VK_TAB || character == VK_ESCAPE) return true;
  if (character < L' ' || character == 0x7F) return false;
  const char16_t unit = static_cast<char16_t>(character);
  if (Allows({&unit, 1})) return false;
  MessageBeep(MB_OK);
  return true;
}

LRESULT GridEditor::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS | DLGC_HASSETSEL;
    case WM_KEYDOWN:
      if (OnKeyDown(wParam)) return 0;
      break;
    case WM_CHAR:
      wParam = CellCharacter(static_cast<char16_t>(wParam));
      if (OnChar(wParam)) return 0;
      break;
    case WM_PASTE:
      OnPaste();
      return 0;
    case WM_KILLFOCUS: {
      const LRESULT result = Default(message, wParam, lParam);
      const Lifetime object = object_;
      Finish(0, true);
      if (!object.HasEnded()) events_.EditorLeft(reinterpret_cast<HWND>(wParam));
      return result;
    }
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace pricedown::windows
