// The list view: rows kept as the form gave them, cells cut out when they are shown.
// The system keeps only which rows are selected, so that long lists cost nothing.
#include "windows/editor/member_list_window.h"

#include <algorithm>
#include <utility>

#include "env/translation.h"
#include "platform/text.h"
#include "windows/base/clipboard.h"
#include "windows/base/fonts.h"
#include "windows/base/gdi.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"
#include "windows/editor/form_ids.h"

namespace pricedown::windows {
namespace {

constexpr int kRowMargin = 5;  // above and below a row's text together; pixels at 96 dpi
constexpr std::int32_t kColumns = member_columns::kModel;
constexpr std::int32_t kTitleRow = 1;
// Item rows begin behind the title row; the list view counts them from 0.
constexpr std::int32_t kFirstItemRow = 2;
constexpr char16_t kCellSign = u'|';
constexpr std::u16string_view kEmptyHint = u"尚无物料，请点击“增加物料”添加";

}  // namespace

void MemberListWindow::Create(HWND parent, HINSTANCE module, Dpi dpi, std::u16string_view name) {
  rowCount_ = 0;
  due_ = false;
  rows_.clear();
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
  for (int column = 0; column < kColumns; ++column) {
    wchar_t none[] = L"";
    LVCOLUMNW description{};
    description.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    description.pszText = none;
    description.cx = dpi.Scale(100);
    description.iSubItem = column;
    ListView_InsertColumn(Handle(), column, &description);
  }
}

// The system makes rows as high as their small pictures, which are only high here. The list view
// destroys the one that it has at its end.
void MemberListWindow::SetFont(HFONT font) {
  if (Handle() == nullptr) return;
  GiveFont(Handle(), font);
  const int height = LineHeight(Handle(), font) + dpi_.Scale(kRowMargin);
  const HIMAGELIST spacer = ImageList_Create(1, height, ILC_COLOR, 1, 0);
  if (const HIMAGELIST before = ListView_SetImageList(Handle(), spacer, LVSIL_SMALL)) {
    ImageList_Destroy(before);
  }
}

void MemberListWindow::TakeAppearance(Dpi dpi) {
  if (Handle() == nullptr) return;
  for (int column = 0; column < kColumns; ++column) {
    const int width = ListView_GetColumnWidth(Handle(), column);
    ListView_SetColumnWidth(Handle(), column, MulDiv(width, dpi.Value(), dpi_.Value()));
  }
  dpi_ = dpi;
}

void MemberListWindow::SetColumnWidth(std::int32_t column, std::int32_t twips) {
  if (Handle() == nullptr) return;
  ListView_SetColumnWidth(Handle(), column - 1, dpi_.ToPixels(twips));
}

void MemberListWindow::SetRowCount(std::int32_t count) {
  rowCount_ = std::max(count, std::int32_t{0});
  due_ = true;
}

void MemberListWindow::Fill() {
  if (Handle() == nullptr || !std::exchange(due_, false)) return;
  rows_.clear();
  rows_.reserve(static_cast<std::size_t>(rowCount_));
  try {
    for (std::int32_t row = kTitleRow; row <= rowCount_; ++row) {
      rows_.push_back(events_.MemberRow(row));
    }
    // A row of an item has its signs at least; one without is counted but not there.
    while (!rows_.empty() && rows_.back().empty()) rows_.pop_back();
  } catch (...) {
    ShowRows();
    throw;
  }
  ShowRows();
}

// Nothing is selected in a new list; the keyboard stays where it was.
void MemberListWindow::ShowRows() {
  if (Handle() == nullptr) return;
  ShowTitles();
  const int items = std::max(0, static_cast<int>(rows_.size()) - 1);
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
  for (std::int32_t column = 1; column <= kColumns; ++column) {
    std::wstring title = ToWide(rows_.empty() ? std::u16string_view() : Cell(column, 0));
    LVCOLUMNW description{};
    description.mask = LVCF_TEXT;
    description.pszText = title.data();
    ListView_SetColumn(Handle(), column - 1, &description);
  }
}

std::u16string_view MemberListWindow::Cell(std::int32_t column, std::size_t row) const {
  if (row >= rows_.size()) return {};
  std::u16string_view rest = rows_[row];
  for (; column > 1; --column) {
    const std::size_t sign = rest.find(kCellSign);
    if (sign == std::u16string_view::npos) return {};
    rest.remove_prefix(sign + 1);
  }
  return rest.substr(0, rest.find(kCellSign));
}

std::vector<std::int32_t> MemberListWindow::SelectedRows() const {
  std::vector<std::int32_t> rows;
  if (Handle() == nullptr) return rows;
  for (int item = -1; (item = ListView_GetNextItem(Handle(), item, LVNI_SELECTED)) != -1;) {
    rows.push_back(item + kFirstItemRow);
  }
  return rows;
}

std::u16string MemberListWindow::Text(std::int32_t column, std::int32_t row) const {
  return row < kTitleRow ? std::u16string()
                         : std::u16string(Cell(column, static_cast<std::size_t>(row) - 1));
}

void MemberListWindow::AnswerText(LVITEMW& item) const {
  if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0) return;
  const std::u16string_view text =
      Cell(item.iSubItem + 1, static_cast<std::size_t>(item.iItem) + 1);
  const std::u16string_view shown = text.substr(0, static_cast<std::size_t>(item.cchTextMax) - 1);
  CopyWide(shown, item.pszText);
  item.pszText[shown.size()] = L'\0';
}

// By the beginning of the code, as the user types it.
int MemberListWindow::FindRow(const NMLVFINDITEMW& search) const {
  if ((search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || search.lvfi.psz == nullptr) {
    return -1;
  }
  const std::u16string wanted = FromWide(search.lvfi.psz);
  const int items = static_cast<int>(rows_.size()) - 1;
  for (int i = 0; i < items; ++i) {
    const int item = (search.iStart + i) % items;
    const auto code = Cell(member_columns::kCode, static_cast<std::size_t>(item) + 1);
    if (EqualsIgnoringCase(code.substr(0, wanted.size()), wanted)) return item;
  }
  return -1;
}

LRESULT MemberListWindow::OnNotify(NMHDR& header) {
  if (header.code == LVN_GETDISPINFOW) {
    AnswerText(reinterpret_cast<NMLVDISPINFOW&>(header).item);
  } else if (header.code == LVN_ODFINDITEMW) {
    return FindRow(reinterpret_cast<const NMLVFINDITEMW&>(header));
  }
  return 0;
}

void MemberListWindow::SelectAll() {
  ListView_SetItemState(Handle(), -1, LVIS_SELECTED, LVIS_SELECTED);
}

// As the list shows them, tabs between the columns and a line break behind each row.
void MemberListWindow::CopySelected() {
  std::u16string text;
  for (const std::int32_t row : SelectedRows()) {
    for (std::int32_t column = 1; column <= kColumns; ++column) {
      if (column > 1) text += u'\t';
      text += Cell(column, static_cast<std::size_t>(row) - 1);
    }
    text += u"\r\n";
  }
  if (!text.empty()) CopyToClipboard(Handle(), text);
}

// True when the key was used up here; the form's keys are reported behind the system's part.
bool MemberListWindow::OnKeyDown(WPARAM key) {
  if (GetKeyState(VK_CONTROL) >= 0) return false;
  if (key == 'A') {
    SelectAll();
  } else if (key == 'C' || key == VK_INSERT) {
    CopySelected();
  } else {
    return false;
  }
  return true;
}

void MemberListWindow::PaintHint() {
  if (rows_.size() > 1) return;
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
  const bool control = GetKeyState(VK_CONTROL) < 0;
  const LRESULT result = Default(message, wParam, lParam);
  if (message == WM_SIZE && rows_.size() <= 1) InvalidateRect(Handle(), nullptr, TRUE);
  if (message == WM_PAINT && Handle() != nullptr) PaintHint();
  if (message == WM_KEYDOWN && !control && wParam == VK_INSERT) events_.InsertPressed();
  return result;
}

}  // namespace pricedown::windows
