// The tour's steps through finding and copying: an item by its name, a class by its name, a price
// typed, a block copied with titles and shown as a spreadsheet would get it, a narrow window.
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "windows/base/control_ids.h"
#include "windows/com/wide_text.h"
#include "workbench/host/tour.h"
#include "workbench/host/tour_input.h"

namespace workbench {

namespace ids = pricedown::windows::control_ids;

namespace {

// The table on the clipboard, without its header.
std::wstring CopiedTable(HWND owner) {
  Require(OpenClipboard(owner) != FALSE, u"剪贴板没有打开。");
  std::string html;
  if (const HANDLE data = GetClipboardData(RegisterClipboardFormatW(L"HTML Format"))) {
    if (const auto* text = static_cast<const char*>(GlobalLock(data))) {
      html = text;
      GlobalUnlock(data);
    }
  }
  CloseClipboard();
  const auto start = html.find("<table>");
  Require(start != std::string::npos, u"没有复制成表格。");
  return pricedown::windows::ToWide(pricedown::FromUtf8(html.substr(start)));
}

std::vector<std::wstring> Inside(const std::wstring& html, const std::wregex& element) {
  std::vector<std::wstring> contents;
  for (std::wsregex_iterator found(html.begin(), html.end(), element), end; found != end; ++found) {
    contents.push_back((*found)[1].str());
  }
  return contents;
}

HWND pasteTarget = nullptr;

void SetCell(int row, int column, std::wstring text) {
  LVITEMW item{};
  item.mask = LVIF_TEXT;
  item.iItem = row;
  item.iSubItem = column;
  item.pszText = text.data();
  SendMessageW(pasteTarget, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
               reinterpret_cast<LPARAM>(&item));
}

// A window that shows the cells as a spreadsheet would get them.
void OpenPasteTarget(HWND frame) {
  const std::wstring table = CopiedTable(frame);
  Require(table.find(L"<td class=t>物料代码</td>") != std::wstring::npos, u"复制时没有带上标题。");
  Require(table.find(L"<td>12.50</td>") != std::wstring::npos, u"没有输入单价。");
  RECT area{};
  GetWindowRect(frame, &area);
  const LONG width = (area.right - area.left) * 3 / 4;
  const LONG height = (area.bottom - area.top) / 2;
  pasteTarget = CreateWindowExW(
      0, WC_LISTVIEWW, L"粘贴",
      WS_POPUP | WS_CAPTION | WS_VISIBLE | WS_CLIPCHILDREN | LVS_REPORT | LVS_NOCOLUMNHEADER,
      area.left + width / 6, area.top + height / 2, width, height, frame, nullptr, nullptr,
      nullptr);
  SendMessageW(RequireWindow(pasteTarget), LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_GRIDLINES,
               LVS_EX_GRIDLINES);
  const std::wregex rowElement(L"<tr>(.*?)</tr>");
  const std::wregex cellElement(L"<td[^>]*>(.*?)</td>");
  int row = 0;
  for (const std::wstring& cells : Inside(table, rowElement)) {
    int column = 0;
    for (const std::wstring& text : Inside(cells, cellElement)) {
      if (row == 0) {
        LVCOLUMNW shown{};
        shown.mask = LVCF_WIDTH;
        shown.cx = width / 5;
        SendMessageW(pasteTarget, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&shown));
      }
      SetCell(row, column++, text);
    }
    ++row;
  }
}

}  // namespace

HWND Tour::Grid() const { return RequireWindow(GetDlgItem(Child(ids::kGridPane), ids::kGrid)); }

void Tour::ExpectHit(std::wstring_view start) {
  std::array<wchar_t, 32> count{};
  GetDlgItemTextW(Child(ids::kFindBar), ids::kFindCount, count.data(),
                  static_cast<int>(count.size()));
  Require(std::wstring_view(count.data()).starts_with(start), u"没有找到。");
}

void Tour::AddFinding() {
  steps_.push_back({nullptr, [this] { frame_.OpenChild(kItemClassesCaption); }});
  steps_.push_back({nullptr, [this] { SelectClass(5); }});
  steps_.push_back({nullptr, [this] {
                      SetFocus(Grid());
                      PressWithControl('F', false);
                    }});
  steps_.push_back(
      {nullptr, [this] { PostText(GetDlgItem(Child(ids::kFindBar), ids::kFindField), L"1"); }});
  steps_.push_back({L"39-found-in-the-grid", [this] { ExpectHit(L"1 / "); }});
  steps_.push_back({nullptr, [] { PostKey(GetFocus(), VK_ESCAPE); }});
  steps_.push_back({nullptr, [this] {
                      SetFocus(Child(ids::kTree));
                      PressWithControl('F', false);
                    }});
  steps_.push_back({nullptr, [this] {
                      const HWND field = GetDlgItem(Child(ids::kFindBar), ids::kFindField);
                      SendMessageW(field, EM_SETSEL, 0, -1);
                      PostText(field, L"07(");
                    }});
  steps_.push_back({L"40-found-in-the-tree", [this] { ExpectHit(L"1 / "); }});
  steps_.push_back({nullptr, [] { PostKey(GetFocus(), VK_RETURN); }});
  steps_.push_back({nullptr, [this] {
                      SetFocus(Grid());
                      Press(VK_END);
                      PressText(L"１２．５");
                    }});
  steps_.push_back({L"41-price-typed", [this] {
                      PostKey(RequireWindow(GetDlgItem(Grid(), ids::kCellEditor)), VK_RETURN);
                    }});
  steps_.push_back({nullptr, [this] {
                      Require(GetFocus() == Grid(), u"单价还在输入。");
                      PressWithControl('A', false);
                    }});
  steps_.push_back({nullptr, [] { PressWithControl('C', true); }});
  steps_.push_back({L"42-copied-with-titles", [this] { OpenPasteTarget(frame_.Handle()); }});
  steps_.push_back({nullptr, [this] {
                      DestroyWindow(pasteTarget);
                      RECT area{};
                      GetWindowRect(frame_.Handle(), &area);
                      SetWindowPos(frame_.Handle(), nullptr, 0, 0, (area.right - area.left) / 3,
                                   area.bottom - area.top, SWP_NOMOVE | SWP_NOZORDER);
                    }});
  steps_.push_back({L"43-narrow", [this] { RequireWindow(Child(ids::kToolStrip)); }});
  steps_.push_back({nullptr, [this] { frame_.CloseChildren(); }});
}

}  // namespace workbench
