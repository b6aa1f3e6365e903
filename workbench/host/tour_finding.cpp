// The tour's steps through finding and copying: an item by its name, a class by its name, a price
// typed and emptied, a block copied with titles and shown as a spreadsheet would get it.
#include <windows.h>

#include <array>
#include <string>
#include <string_view>

#include "platform/text.h"
#include "windows/base/control_ids.h"
#include "windows/com/wide_text.h"
#include "workbench/host/tour.h"
#include "workbench/host/tour_input.h"

namespace workbench {

namespace ids = pricedown::windows::control_ids;

namespace {

// What the clipboard has as a table, behind its header.
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

HWND pasteTarget = nullptr;

// A window that shows the table as it was copied.
void OpenPasteTarget(HWND frame) {
  const std::wstring table = CopiedTable(frame);
  Require(table.find(L"<td class=t>物料代码</td>") != std::wstring::npos, u"复制时没有带上标题。");
  RECT area{};
  GetWindowRect(frame, &area);
  const LONG width = (area.right - area.left) * 3 / 4;
  const LONG height = (area.bottom - area.top) / 2;
  pasteTarget =
      CreateWindowExW(0, L"EDIT", L"粘贴",
                      WS_POPUP | WS_CAPTION | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY,
                      area.left + width / 6, area.top + height / 2, width, height, frame, nullptr,
                      nullptr, nullptr);
  SendMessageW(RequireWindow(pasteTarget), WM_SETFONT,
               reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), TRUE);
  SetWindowTextW(pasteTarget, table.c_str());
}

}  // namespace

HWND Tour::Grid() const { return RequireWindow(GetDlgItem(Child(ids::kGridPane), ids::kGrid)); }

void Tour::ExpectHits() {
  std::array<wchar_t, 32> count{};
  GetDlgItemTextW(Child(ids::kFindBar), ids::kFindCount, count.data(),
                  static_cast<int>(count.size()));
  Require(std::wstring_view(count.data()).starts_with(L"1 / "), u"没有找到。");
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
  steps_.push_back({L"39-found-in-the-grid", [this] { ExpectHits(); }});
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
  steps_.push_back({L"40-found-in-the-tree", [this] { ExpectHits(); }});
  steps_.push_back({nullptr, [] { PostKey(GetFocus(), VK_RETURN); }});
  steps_.push_back({nullptr, [this] {
                      SetFocus(Grid());
                      PostKey(GetFocus(), VK_END);
                      PostText(GetFocus(), L"１２．５");
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
                      frame_.CloseChildren();
                    }});
}

}  // namespace workbench
