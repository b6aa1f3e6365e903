// A virtual list view: the system asks for the texts that it paints and keeps only the selection.
#include "windows/editor/member_list_window.h"

#include <algorithm>

#include "editor/form_layout.h"
#include "env/translation.h"
#include "windows/base/clipboard.h"
#include "windows/base/context_menu.h"
#include "windows/base/fonts.h"
#include "windows/base/gdi.h"
#include "windows/base/keyboard.h"
#include "windows/base/plain_control.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"
#include "windows/editor/form_ids.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kEmptyHint = u"尚无物料，请点击“增加物料”添加";

// The list view counts items from 0.
std::int32_t RowOfItem(int item) { return item + MemberRows::kFirstItem; }
int ItemOf(std::int32_t row) { return row - MemberRows::kFirstItem; }

}  // namespace

void MemberListWindow::Create(HWND parent, HINSTANCE module, Dpi dpi, std::u16string_view name) {
  rows_ = nullptr;
  dpi_ = dpi;
  const std::wstring text = ToWide(name);
  Creation creation;
  creation.className = WC_LISTVIEWW;
  creation.text = text.c_str();
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | LVS_REPORT |
                   LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
  creation.extendedStyle = WS_EX_CLIENTEDGE;
  creation.parent = parent;
  creation.id = form_ids::kMembers;
  creation.module = module;
  CreateControl(creation);
  ListView_SetExtendedListViewStyle(
      Handle(), LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
  for (int column = 0; column < member_columns::kCount; ++column) {
    wchar_t none[] = L"";
    LVCOLUMNW description{};
    description.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    description.pszText = none;
    description.cx = dpi.Scale(100);
    description.iSubItem = column;
    ListView_InsertColumn(Handle(), column, &description);
  }
}

// The system makes rows as high as their small pictures, so an empty picture sets the height. The
// list view destroys its image list when it is destroyed.
void MemberListWindow::SetFont(HFONT font) {
  if (Handle() == nullptr) return;
  SetFontOf(Handle(), font);
  const int height = LineHeight(Handle(), font) + dpi_.Scale(kItemRowMargin);
  const HIMAGELIST spacer = ImageList_Create(1, height, ILC_COLOR, 1, 0);
  if (const HIMAGELIST before = ListView_SetImageList(Handle(), spacer, LVSIL_SMALL)) {
    ImageList_Destroy(before);
  }
}

void MemberListWindow::UpdateAppearance(Dpi dpi) {
  if (Handle() == nullptr) return;
  for (int column = 0; column < member_columns::kCount; ++column) {
    const int width = ListView_GetColumnWidth(Handle(), column);
    ListView_SetColumnWidth(Handle(), column, MulDiv(width, dpi.Value(), dpi_.Value()));
  }
  dpi_ = dpi;
}

void MemberListWindow::SetColumnWidth(std::int32_t column, std::int32_t twips) {
  if (Handle() == nullptr) return;
  ListView_SetColumnWidth(Handle(), column - 1, dpi_.ToPixels(twips));
}

// The keyboard stays where it was.
void MemberListWindow::ShowRows(const MemberRows& rows) {
  rows_ = &rows;
  if (Handle() == nullptr) return;
  ShowTitles();
  const int items = rows.Items();
  const int focused = ListView_GetNextItem(Handle(), -1, LVNI_FOCUSED);
  ListView_SetItemState(Handle(), -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
  ListView_SetItemCountEx(Handle(), items, 0);
  if (items > 0) {
    const int place = std::clamp(focused, 0, items - 1);
    ListView_SetItemState(Handle(), place, LVIS_FOCUSED, LVIS_FOCUSED);
    ListView_EnsureVisible(Handle(), place, FALSE);
  }
  InvalidateRect(Handle(), nullptr, TRUE);
}

void MemberListWindow::ShowTitles() {
  for (std::int32_t column = 1; column <= member_columns::kCount; ++column) {
    std::wstring title = ToWide(Text(column, MemberRows::kTitleRow));
    LVCOLUMNW description{};
    description.mask = LVCF_TEXT;
    description.pszText = title.data();
    ListView_SetColumn(Handle(), column - 1, &description);
  }
}

std::u16string_view MemberListWindow::Text(std::int32_t column, std::int32_t row) const {
  return rows_ == nullptr ? std::u16string_view() : rows_->Text(column, row);
}

std::vector<std::int32_t> MemberListWindow::SelectedRows() const {
  std::vector<std::int32_t> rows;
  if (Handle() == nullptr) return rows;
  for (int item = -1; (item = ListView_GetNextItem(Handle(), item, LVNI_SELECTED)) != -1;) {
    rows.push_back(RowOfItem(item));
  }
  return rows;
}

void MemberListWindow::SetItemText(LVITEMW& item) const {
  if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0) return;
  const std::u16string_view text = Text(item.iSubItem + 1, RowOfItem(item.iItem));
  const std::u16string_view shown = text.substr(0, static_cast<std::size_t>(item.cchTextMax) - 1);
  CopyWide(shown, item.pszText);
  item.pszText[shown.size()] = L'\0';
}

// By the beginning of the code, as the user types it.
int MemberListWindow::FindItem(const NMLVFINDITEMW& search) const {
  if ((search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || search.lvfi.psz == nullptr ||
      rows_ == nullptr) {
    return -1;
  }
  // -1 means the beginning.
  const auto row = rows_->Find(FromWide(search.lvfi.psz), RowOfItem(std::max(search.iStart, 0)));
  return row ? ItemOf(*row) : -1;
}

LRESULT MemberListWindow::OnNotify(NMHDR& header) {
  if (header.code == LVN_GETDISPINFOW) {
    SetItemText(reinterpret_cast<NMLVDISPINFOW&>(header).item);
  } else if (header.code == LVN_ODFINDITEMW) {
    return FindItem(reinterpret_cast<const NMLVFINDITEMW&>(header));
  }
  return 0;
}

void MemberListWindow::CopySelected(bool titled) {
  const std::vector<std::int32_t> rows = SelectedRows();
  if (rows.empty() || rows_ == nullptr) return;
  if (!CopyToClipboard(Handle(), rows_->Copied(rows, titled))) MessageBeep(MB_OK);
}

bool MemberListWindow::IsEnabled(MemberListCommand command) const {
  if (Handle() == nullptr) return false;
  return HasItemsFor(command, static_cast<std::size_t>(ListView_GetItemCount(Handle())),
                     ListView_GetSelectedCount(Handle()));
}

void MemberListWindow::Run(MemberListCommand command) {
  if (const auto tool = ToolOf(command)) return events_.ToolChosen(*tool);
  if (command == MemberListCommand::SelectAll) {
    ListView_SetItemState(Handle(), -1, LVIS_SELECTED, LVIS_SELECTED);
  } else {
    CopySelected(command == MemberListCommand::CopyTitled);
  }
}

// Returns whether the key was handled.
bool MemberListWindow::OnKeyDown(WPARAM key) {
  const auto command = MemberListCommandOf(PressOf(key));
  if (command) Run(*command);
  return command.has_value();
}

// False for a click beside the client area.
bool MemberListWindow::OnContextMenu(LPARAM place) {
  RECT current{};
  const int focused = ListView_GetNextItem(Handle(), -1, LVNI_FOCUSED);
  if (focused < 0 || ListView_GetItemRect(Handle(), focused, &current, LVIR_LABEL) == FALSE) {
    current = {};
  }
  const auto point = MenuPlace(Handle(), place, current);
  if (point) events_.MenuRequested(*point);
  return point.has_value();
}

void MemberListWindow::PaintHint() {
  if (!IsEmpty()) return;
  RECT area{};
  GetClientRect(Handle(), &area);
  RECT titles{};
  if (GetClientRect(ListView_GetHeader(Handle()), &titles) != FALSE) area.top += HeightOf(titles);
  const WindowContext context(Handle());
  const auto font = reinterpret_cast<HFONT>(SendMessageW(Handle(), WM_GETFONT, 0, 0));
  const Selected selected(context.Get(), font);
  SetBkMode(context.Get(), TRANSPARENT);
  SetTextColor(context.Get(), GetSysColor(COLOR_GRAYTEXT));
  const std::wstring hint = ToWide(Translate(kEmptyHint));
  DrawTextW(context.Get(), hint.c_str(), static_cast<int>(hint.size()), &area,
            DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

LRESULT MemberListWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_KEYDOWN && OnKeyDown(wParam)) return 0;
  if (IsContextMenuKey(message, wParam)) {
    OnContextMenu(kByKeyboard);
    return 0;
  }
  if (message == WM_CONTEXTMENU && OnContextMenu(lParam)) return 0;
  const LRESULT result = Default(message, wParam, lParam);
  if (message == WM_SIZE && IsEmpty()) InvalidateRect(Handle(), nullptr, TRUE);
  if (message == WM_PAINT && Handle() != nullptr) PaintHint();
  return result;
}

}  // namespace pricedown::windows
