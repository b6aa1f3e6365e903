// The picker's window: creation, layout and messages. Input is handled in picker_dialog_input.cpp.
#include "workbench/pickers/dialog/picker_dialog.h"

#include <algorithm>
#include <string>
#include <utility>

#include "windows/base/gdi.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"
#include "workbench/pickers/dialog/row_images.h"
#include "workbench/pickers/picker_ids.h"

namespace workbench {

namespace ids = picker_ids;
using pricedown::windows::Dpi;
using pricedown::windows::ToWide;

namespace {

constexpr wchar_t kSearchLabel[] = L"查找(&F)：";
constexpr wchar_t kChooseAll[] = L"全选(&A)";
constexpr wchar_t kClear[] = L"全部清除(&C)";
constexpr wchar_t kOk[] = L"确定";
constexpr wchar_t kCancel[] = L"取消";
constexpr WPARAM kLongestSearch = 80;
constexpr int kNarrowest = 80;  // last column, pixels at 96 dpi

// An empty dialog template; the controls are created for the screen's resolution and font.
struct alignas(DWORD) Template {
  DLGTEMPLATE head{};
  WORD menu = 0;
  WORD windowClass = 0;
  WORD title = 0;
};

void Move(HWND control, const Box& box) {
  SetWindowPos(control, nullptr, box.left, box.top, box.width, box.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

// Of the window itself, or of its class.
LPARAM SmallIconOf(HWND window) {
  if (window == nullptr) return 0;
  if (const LRESULT own = SendMessageW(window, WM_GETICON, ICON_SMALL, 0)) return own;
  if (const ULONG_PTR small = GetClassLongPtrW(window, GCLP_HICONSM)) {
    return static_cast<LPARAM>(small);
  }
  return static_cast<LPARAM>(GetClassLongPtrW(window, GCLP_HICON));
}

RECT WorkArea(HWND window) {
  MONITORINFO information{};
  information.cbSize = sizeof information;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &information);
  return information.rcWork;
}

}  // namespace

PickerDialog::PickerDialog(HINSTANCE module, Picking& picking, std::optional<int> dpi)
    : module_(module),
      picking_(picking),
      styles_(module),
      dpi_(dpi ? Dpi(*dpi) : Dpi::Of(nullptr)),
      font_(pricedown::windows::MakeMessageFont(dpi_)) {}

std::vector<std::int32_t> PickerDialog::Show(HWND owner, std::u16string_view text) {
  text_ = text;
  const pricedown::windows::VisualStyles::Scope scope(styles_);
  INITCOMMONCONTROLSEX classes{};
  classes.dwSize = sizeof classes;
  classes.dwICC = ICC_LISTVIEW_CLASSES;
  InitCommonControlsEx(&classes);

  Template description;
  description.head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
  description.head.dwExtendedStyle = WS_EX_DLGMODALFRAME;
  const INT_PTR result = DialogBoxIndirectParamW(module_, &description.head, owner, &Procedure,
                                                 reinterpret_cast<LPARAM>(this));
  if (failure_ != nullptr) std::rethrow_exception(failure_);
  if (result == -1) pricedown::windows::ThrowLastError();
  return answer_;
}

INT_PTR CALLBACK PickerDialog::Procedure(HWND dialog, UINT message, WPARAM wParam,
                                         LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    reinterpret_cast<PickerDialog*>(lParam)->dialog_ = dialog;
  }
  auto* self = reinterpret_cast<PickerDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
  if (self == nullptr || self->failure_ != nullptr) return FALSE;
  try {
    return self->OnMessage(message, wParam, lParam);
  } catch (...) {
    self->Fail();
    return FALSE;
  }
}

LRESULT CALLBACK PickerDialog::ControlProcedure(HWND control, UINT message, WPARAM wParam,
                                                LPARAM lParam) noexcept {
  auto* self = reinterpret_cast<PickerDialog*>(GetWindowLongPtrW(control, GWLP_USERDATA));
  const bool isList = GetDlgCtrlID(control) == ids::kList;
  const WNDPROC next = isList ? self->listProcedure_ : self->searchProcedure_;
  if (self->failure_ == nullptr) {
    try {
      if (isList ? self->OnListKey(message, wParam) : self->OnSearchKey(message, wParam)) return 0;
    } catch (...) {
      self->Fail();
      return 0;
    }
  }
  return CallWindowProcW(next, control, message, wParam, lParam);
}

void PickerDialog::Fail() noexcept {
  if (failure_ == nullptr) failure_ = std::current_exception();
  answer_.clear();
  EndDialog(dialog_, IDABORT);
}

INT_PTR PickerDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      Create();
      return FALSE;  // the focus is set
    case WM_SIZE:
      LayOut();
      return TRUE;
    case WM_GETMINMAXINFO:
      OnLimits(*reinterpret_cast<MINMAXINFO*>(lParam));
      return TRUE;
    case WM_COMMAND:
      return OnCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY:
      SetWindowLongPtrW(dialog_, DWLP_MSGRESULT,
                        OnNotify(*reinterpret_cast<const NMHDR*>(lParam), lParam));
      return TRUE;
    case WM_TIMER:
      SearchOn();
      return TRUE;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      OnSystemChange(message);
      return TRUE;
    case pricedown::windows::kDpiChanged:
      OnDpiChanged(Dpi(LOWORD(wParam)), *reinterpret_cast<const RECT*>(lParam));
      return TRUE;
    case WM_CTLCOLORSTATIC:
      if (GetDlgCtrlID(reinterpret_cast<HWND>(lParam)) != ids::kNothing) return FALSE;
      SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_GRAYTEXT));
      SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
      return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
    default:
      return FALSE;
  }
}

void PickerDialog::OnSystemChange(UINT message) {
  for (HWND child = GetWindow(dialog_, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    SendMessageW(child, message, 0, 0);
  }
  SetListColours();
  RedrawWindow(dialog_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// The list keeps the colours it was created with, which the common controls may have read when they
// were loaded; the ticks are pictures in them.
void PickerDialog::SetListColours() {
  const HWND list = Control(ids::kList);
  ListView_SetBkColor(list, GetSysColor(COLOR_WINDOW));
  ListView_SetTextBkColor(list, GetSysColor(COLOR_WINDOW));
  ListView_SetTextColor(list, GetSysColor(COLOR_WINDOWTEXT));
  AddRowImages();
}

void PickerDialog::OnDpiChanged(Dpi dpi, const RECT& suggested) {
  dpi_ = dpi;
  pricedown::windows::FontHandle font = pricedown::windows::MakeMessageFont(dpi_);
  for (HWND child = GetWindow(dialog_, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
  }
  font_ = std::move(font);
  Measure();
  AddRowImages();
  int index = 0;
  for (const PickerColumn& column : picking_.Description().columns) {
    ListView_SetColumnWidth(Control(ids::kList), index++, dpi_.Scale(column.width));
  }
  Move(dialog_, {suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top});
  LayOut();
}

void PickerDialog::Create() {
  SetWindowTextW(dialog_, ToWide(picking_.Description().title).c_str());
  Measure();
  CreateControls();
  const HWND owner = GetWindow(dialog_, GW_OWNER);
  SendMessageW(dialog_, WM_SETICON, ICON_SMALL, SmallIconOf(owner));
  Place(owner);
  LayOut();
  const HWND search = Control(ids::kSearch);
  SetWindowTextW(search, ToWide(text_).c_str());
  SendMessageW(search, EM_SETSEL, 0, -1);
  ReadSearchText();
  SearchOn();
  SetFocus(search);
}

HWND PickerDialog::AddControl(const wchar_t* className, const wchar_t* text, DWORD style, int id,
                              DWORD extendedStyle) {
  const HWND control =
      CreateWindowExW(extendedStyle, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                      dialog_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), module_, nullptr);
  if (control == nullptr) pricedown::windows::ThrowLastError();
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
  return control;
}

void PickerDialog::CreateControls() {
  AddControl(WC_STATICW, kSearchLabel, SS_LEFT, ids::kSearchLabel);
  const HWND search =
      AddControl(WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL, ids::kSearch, WS_EX_CLIENTEDGE);
  SendMessageW(search, EM_LIMITTEXT, kLongestSearch, 0);
  SendMessageW(search, EM_SETCUEBANNER, TRUE,
               reinterpret_cast<LPARAM>(ToWide(picking_.Description().cue).c_str()));

  const HWND list = AddControl(WC_LISTVIEWW, L"",
                               WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT | LVS_OWNERDATA |
                                   LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                               ids::kList, WS_EX_CLIENTEDGE);
  const DWORD ticks = picking_.Several() ? LVS_EX_CHECKBOXES : 0;
  SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
               static_cast<LPARAM>(LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | ticks));
  // Tick states are requested by callback, like the texts.
  if (ticks != 0) ListView_SetCallbackMask(list, LVIS_STATEIMAGEMASK);
  AddColumns();
  SetListColours();

  const HWND nothing = AddControl(WC_STATICW, ToWide(picking_.Description().nothing).c_str(),
                                  SS_CENTER | SS_NOPREFIX, ids::kNothing);
  ShowWindow(nothing, SW_HIDE);
  SetWindowPos(nothing, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  AddControl(WC_STATICW, L"", SS_LEFT | SS_NOPREFIX, ids::kFound);
  AddControl(WC_STATICW, L"", SS_RIGHT | SS_NOPREFIX, ids::kChosen);
  if (picking_.Several()) {
    AddControl(WC_BUTTONW, kChooseAll, WS_TABSTOP, ids::kChooseAll);
    AddControl(WC_BUTTONW, kClear, WS_TABSTOP, ids::kClear);
  }
  AddControl(WC_BUTTONW, kOk, WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK);
  AddControl(WC_BUTTONW, kCancel, WS_TABSTOP, IDCANCEL);

  for (const HWND control : {search, list}) {
    SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    WNDPROC& next = control == list ? listProcedure_ : searchProcedure_;
    next = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(control, GWLP_WNDPROC));
    SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlProcedure));
  }
}

void PickerDialog::AddColumns() {
  int index = 0;
  for (const PickerColumn& described : picking_.Description().columns) {
    std::wstring title = ToWide(described.title);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = title.data();
    column.cx = dpi_.Scale(described.width);
    ListView_InsertColumn(Control(ids::kList), index++, &column);
  }
}

void PickerDialog::AddRowImages() {
  const HWND list = Control(ids::kList);
  const int height = RowHeight(measures_);
  // The list destroys its last image list, but not one that is replaced.
  const HIMAGELIST before =
      picking_.Several()
          ? ListView_SetImageList(list, MakeTickImages(list, dpi_, height), LVSIL_STATE)
          : ListView_SetImageList(list, MakeEmptyImages(height), LVSIL_SMALL);
  if (before != nullptr) ImageList_Destroy(before);
}

void PickerDialog::Measure() {
  const pricedown::windows::WindowContext context(dialog_);
  const auto width = [&](const wchar_t* text) {
    // The ampersand of the mnemonic takes no space.
    std::wstring shown(text);
    shown.erase(std::remove(shown.begin(), shown.end(), L'&'), shown.end());
    return pricedown::windows::TextWidth(context.Get(), font_.Get(), shown);
  };
  measures_.dpi = dpi_.Value();
  measures_.lineHeight = pricedown::windows::LineHeight(context.Get(), font_.Get());
  measures_.labelWidth = width(kSearchLabel);
  measures_.buttonWidth = std::max(width(kClear), width(kCancel));
  measures_.listWidth =
      dpi_.Scale(kNarrowest) + GetSystemMetrics(SM_CXVSCROLL) + 2 * GetSystemMetrics(SM_CXEDGE);
  for (const PickerColumn& column : picking_.Description().columns) {
    measures_.listWidth += dpi_.Scale(column.width);
  }
}

void PickerDialog::Place(HWND owner) {
  const RECT work = WorkArea(owner);
  RECT around = work;
  if (owner != nullptr && IsIconic(owner) == FALSE) GetWindowRect(owner, &around);
  const int width = std::min<int>(dpi_.Scale(picking_.Description().width), work.right - work.left);
  const int height =
      std::min<int>(dpi_.Scale(picking_.Description().height), work.bottom - work.top);
  const int left = (around.left + around.right - width) / 2;
  const int top = (around.top + around.bottom - height) / 2;
  SetWindowPos(dialog_, nullptr, std::clamp<int>(left, work.left, work.right - width),
               std::clamp<int>(top, work.top, work.bottom - height), width, height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void PickerDialog::LayOut() {
  if (Control(IDCANCEL) == nullptr) return;
  RECT client{};
  GetClientRect(dialog_, &client);
  const PickerLayout layout = LayOutPicker(client.right, client.bottom, measures_);
  Move(Control(ids::kSearchLabel), layout.searchLabel);
  Move(Control(ids::kSearch), layout.search);
  Move(Control(ids::kList), layout.list);
  Move(Control(ids::kNothing), layout.nothing);
  Move(Control(ids::kFound), layout.found);
  Move(Control(ids::kChosen), layout.chosen);
  if (picking_.Several()) {
    Move(Control(ids::kChooseAll), layout.chooseAll);
    Move(Control(ids::kClear), layout.clear);
  }
  Move(Control(IDOK), layout.ok);
  Move(Control(IDCANCEL), layout.cancel);
  FitLastColumn();
  // Repaints where labels have moved away.
  InvalidateRect(dialog_, nullptr, TRUE);
}

void PickerDialog::FitLastColumn() {
  const HWND list = Control(ids::kList);
  const int last = static_cast<int>(picking_.Description().columns.size()) - 1;
  RECT client{};
  GetClientRect(list, &client);
  int rest = client.right;
  for (int column = 0; column < last; ++column) rest -= ListView_GetColumnWidth(list, column);
  rest = std::max(rest, dpi_.Scale(kNarrowest));
  if (rest != ListView_GetColumnWidth(list, last)) ListView_SetColumnWidth(list, last, rest);
}

void PickerDialog::OnLimits(MINMAXINFO& limits) const {
  if (measures_.lineHeight == 0) return;
  const Box smallest = SmallestPicker(measures_);
  RECT frame{0, 0, smallest.width, smallest.height};
  AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(dialog_, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongPtrW(dialog_, GWL_EXSTYLE)));
  limits.ptMinTrackSize = {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace workbench
