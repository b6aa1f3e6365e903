// The picker's input, and the search in the background: it runs in steps on a timer, which comes
// after all input and painting.
#include <algorithm>
#include <chrono>
#include <string>

#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"
#include "workbench/pickers/dialog/picker_dialog.h"
#include "workbench/pickers/picker_ids.h"

namespace workbench {

namespace ids = picker_ids;

namespace {

constexpr UINT_PTR kTimer = 1;
// Keys typed in quick succession start one search.
constexpr UINT kTypingMilliseconds = 80;
constexpr UINT kNextMilliseconds = 10;
// Longest time slice of the search; shorter when input is waiting.
constexpr std::chrono::milliseconds kStep{60};

constexpr WPARAM kControlA = 1;  // as WM_CHAR

bool IsDown(int key) { return GetKeyState(key) < 0; }
bool IsListKey(WPARAM key) {
  if (key == VK_HOME || key == VK_END) return IsDown(VK_CONTROL);
  return key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT;
}

bool HasInput() { return HIWORD(GetQueueStatus(QS_INPUT)) != 0; }

}  // namespace

INT_PTR PickerDialog::OnCommand(int id, int code) {
  switch (id) {
    case IDOK:
      Accept();
      return TRUE;
    case IDCANCEL:
      answer_.clear();
      EndDialog(dialog_, IDCANCEL);
      return TRUE;
    case ids::kChooseAll:
      ToggleAll();
      return TRUE;
    case ids::kClear:
      picking_.ClearChosen();
      ShowTexts();
      Redraw();
      return TRUE;
    case ids::kSearch:
      if (code == EN_CHANGE) {
        keysInList_ = false;
        textChanged_ = true;
        SetTimer(dialog_, kTimer, kTypingMilliseconds, nullptr);
      }
      return TRUE;
    default:
      return FALSE;
  }
}

LRESULT PickerDialog::OnNotify(const NMHDR& header, LPARAM lParam) {
  if (header.idFrom != ids::kList) return 0;
  switch (header.code) {
    case LVN_GETDISPINFOW:
      FillItem(reinterpret_cast<NMLVDISPINFOW*>(lParam)->item);
      return 0;
    case NM_CUSTOMDRAW:
      return OnDrawRow(*reinterpret_cast<NMLVCUSTOMDRAW*>(lParam));
    case NM_CLICK:
      OnListClick(false);
      return 0;
    case NM_DBLCLK:
      OnListClick(true);
      return 0;
    default:
      return 0;
  }
}

LRESULT PickerDialog::OnDrawRow(NMLVCUSTOMDRAW& drawing) const {
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  // Draws the current row as focused: the search field's arrow keys move it.
  if (Current() != static_cast<std::size_t>(drawing.nmcd.dwItemSpec)) return CDRF_DODEFAULT;
  drawing.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED | CDIS_FOCUS);
  drawing.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
  drawing.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
  return CDRF_NEWFONT;
}

void PickerDialog::FillItem(LVITEMW& item) {
  const auto position = static_cast<std::size_t>(item.iItem);
  if (item.iItem < 0 || position >= picking_.List().Count()) return;
  if ((item.mask & LVIF_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0) {
    const CandidateRow& row = picking_.List().Row(position);
    const auto column = static_cast<std::size_t>(item.iSubItem);
    const std::u16string_view text = column < row.size() ? row[column] : std::u16string_view();
    const auto length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
    pricedown::windows::CopyWide(text.substr(0, length), item.pszText);
    item.pszText[length] = L'\0';
  }
  if ((item.mask & LVIF_STATE) != 0 && picking_.Several()) {
    item.stateMask = LVIS_STATEIMAGEMASK;
    item.state = INDEXTOSTATEIMAGEMASK(picking_.IsChosen(position) ? 2U : 1U);
  }
}

void PickerDialog::OnListClick(bool isDouble) {
  const HWND list = Control(ids::kList);
  const DWORD place = GetMessagePos();
  LVHITTESTINFO hit{};
  hit.pt = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  ScreenToClient(list, &hit.pt);
  if (ListView_HitTest(list, &hit) < 0) return;
  if (picking_.Several() && (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON) {
    MoveTo(static_cast<std::size_t>(hit.iItem));
    ToggleCurrent();
    return;
  }
  if (!isDouble) return;
  // A double click adds the row to the earlier choices.
  const auto position = static_cast<std::size_t>(hit.iItem);
  MoveTo(position);
  if (picking_.ChosenCount() > 0 && !picking_.IsChosen(position) && !picking_.Toggle(position)) {
    Refuse();
    return;
  }
  Accept();
}

bool PickerDialog::MovesInList(WPARAM key) {
  if (!IsListKey(key)) return false;
  // The key applies to the rows for the typed text, not to those still shown.
  if (textChanged_) SearchOn();
  const auto current = Current();
  const std::size_t count = picking_.List().Count();
  switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
      // With Ctrl the list would move the focus rectangle only.
      if (!IsDown(VK_CONTROL) && !IsDown(VK_MENU)) {
        SendMessageW(Control(ids::kList), WM_KEYDOWN, key, 1);
        // Without a current row the list ignores the key.
        if (!current && count > 0) MoveTo(0);
      }
      return true;
    default:
      if (count > 0) MoveTo(key == VK_HOME ? 0 : count - 1);
      return true;
  }
}

bool PickerDialog::OnSearchKey(UINT message, WPARAM wParam) {
  if (message == WM_LBUTTONDOWN) keysInList_ = false;
  if (message == WM_KEYDOWN && MovesInList(wParam)) return keysInList_ = true;
  if (message == WM_KEYDOWN && wParam == 'A' && IsDown(VK_CONTROL)) {
    SendMessageW(Control(ids::kSearch), EM_SETSEL, 0, -1);
    return true;
  }
  if (message != WM_CHAR) return false;
  if (wParam == kControlA) return true;
  if (!picking_.Several()) return false;
  const bool ticks = keysInList_ || GetWindowTextLengthW(Control(ids::kSearch)) == 0;
  if (wParam != L' ' || !ticks) return false;
  ToggleCurrent();
  return true;
}

bool PickerDialog::OnListKey(UINT message, WPARAM wParam) {
  if (message == WM_KEYDOWN && picking_.Several()) {
    if (wParam == VK_SPACE) {
      ToggleCurrent();
      return true;
    }
    if (wParam == 'A' && IsDown(VK_CONTROL)) {
      ToggleAll();
      return true;
    }
  }
  if (message != WM_CHAR || wParam < L' ') return false;
  if (wParam == L' ') return true;
  const HWND search = Control(ids::kSearch);
  SetFocus(search);
  SendMessageW(search, EM_SETSEL, static_cast<WPARAM>(GetWindowTextLengthW(search)), -1);
  SendMessageW(search, WM_CHAR, wParam, 1);
  return true;
}

void PickerDialog::ReadSearchText() {
  picking_.List().Search(pricedown::windows::TextOf(Control(ids::kSearch)));
  textChanged_ = false;
}

void PickerDialog::SearchOn() {
  KillTimer(dialog_, kTimer);
  const bool fromTop = textChanged_ || Current() == std::nullopt;
  if (textChanged_) ReadSearchText();
  const auto end = std::chrono::steady_clock::now() + kStep;
  CandidateList& list = picking_.List();
  while (list.IsSearching()) {
    list.Advance();
    if (HasInput() || std::chrono::steady_clock::now() >= end) break;
  }
  ShowFound(fromTop);
  if (list.IsSearching()) SetTimer(dialog_, kTimer, kNextMilliseconds, nullptr);
}

void PickerDialog::ShowFound(bool fromTop) {
  const HWND list = Control(ids::kList);
  const CandidateList& found = picking_.List();
  // Rows found later are appended, so visible rows do not move.
  ListView_SetItemCountEx(list, static_cast<int>(found.Count()),
                          LVSICF_NOSCROLL | (fromTop ? 0 : LVSICF_NOINVALIDATEALL));
  const bool isEmpty = found.Count() == 0 && !found.IsSearching();
  ShowWindow(Control(ids::kNothing), isEmpty ? SW_SHOWNA : SW_HIDE);
  if (fromTop && found.Count() > 0) MoveTo(0);
  FitLastColumn();
  ShowTexts();
}

void PickerDialog::ShowTexts() {
  SetDlgItemTextW(dialog_, ids::kFound, pricedown::windows::ToWide(picking_.FoundText()).c_str());
  SetDlgItemTextW(dialog_, ids::kChosen, pricedown::windows::ToWide(picking_.ChosenText()).c_str());
}

void PickerDialog::Refuse() {
  SetDlgItemTextW(dialog_, ids::kFound, pricedown::windows::ToWide(Picking::LimitText()).c_str());
  MessageBeep(MB_ICONWARNING);
}

void PickerDialog::ToggleCurrent() {
  const auto current = Current();
  if (!current) return;
  if (!picking_.Toggle(*current)) {
    Refuse();
    return;
  }
  ShowTexts();
  const int row = static_cast<int>(*current);
  ListView_RedrawItems(Control(ids::kList), row, row);
}

void PickerDialog::ToggleAll() {
  if (textChanged_) SearchOn();
  const bool done = picking_.ToggleAllFound();
  ShowFound(false);
  if (!done) Refuse();
  Redraw();
}

void PickerDialog::Redraw() const { InvalidateRect(Control(ids::kList), nullptr, FALSE); }

void PickerDialog::MoveTo(std::size_t position) {
  const HWND list = Control(ids::kList);
  const int row = static_cast<int>(position);
  ListView_SetItemState(list, row, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  ListView_EnsureVisible(list, row, FALSE);
}

std::optional<std::size_t> PickerDialog::Current() const {
  const int row = ListView_GetNextItem(Control(ids::kList), -1, LVNI_SELECTED);
  if (row < 0 || static_cast<std::size_t>(row) >= picking_.List().Count()) return std::nullopt;
  return static_cast<std::size_t>(row);
}

void PickerDialog::Accept() {
  // Enter may arrive before the search has started or found a row.
  if (textChanged_) SearchOn();
  picking_.FindFirst();
  answer_ = picking_.Answer(Current().value_or(0));
  if (!answer_.empty()) {
    EndDialog(dialog_, IDOK);
    return;
  }
  ShowFound(true);
  MessageBeep(MB_ICONWARNING);
  SetFocus(Control(ids::kSearch));
}

}  // namespace workbench
