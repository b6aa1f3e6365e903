// The tour with the keyboard alone, in tree and grid: a price is typed, copied and forgotten; items
// are found, previewed and printed; a class is deleted in the second mode.
#include <windows.h>

#include "platform/convert.h"
#include "platform/text.h"
#include "windows/base/clipboard.h"
#include "windows/base/control_ids.h"
#include "windows/print/preview_ids.h"
#include "workbench/host/tour.h"
#include "workbench/host/tour_input.h"

namespace workbench {

namespace ids = pricedown::windows::control_ids;
namespace preview_ids = pricedown::windows::preview_ids;

namespace {

HWND RequireKeyPreview() {
  const HWND preview = RequireReady(FindWindowW(L"PriceDown.Preview", nullptr));
  Require(GetActiveWindow() == preview, u"预览还没有打开。");
  return preview;
}

void RequireKeyPage(const wchar_t* number) {
  wchar_t shown[16] = {};
  GetDlgItemTextW(RequireKeyPreview(), preview_ids::kPage, shown, 16);
  Require(std::wstring_view(shown) == number, u"预览显示的是另一页。");
}

}  // namespace

void Tour::RequireGridFocus() const { Require(GetFocus() == Grid(), u"焦点不在表格。"); }

// F6 from the tree over the splitter to the grid.
void Tour::GoToGridByKeys() {
  steps_.push_back({nullptr, [this] {
                      RequireFocus(ids::kTree);
                      Press(VK_F6);
                    }});
  steps_.push_back({nullptr, [this] {
                      RequireFocus(ids::kSplitter);
                      Press(VK_F6);
                    }});
  steps_.push_back({nullptr, [this] { RequireGridFocus(); }});
}

// F6 from the grid to the tree.
void Tour::LeaveGridByKeys() {
  steps_.push_back({nullptr, [this] {
                      RequireGridFocus();
                      Press(VK_F6);
                    }});
}

// All cells with their titles; then the clipboard has the only item of the class in the company,
// and that price.
void Tour::CopyByKeys(std::u16string_view classNumber, const char16_t* price) {
  const std::u16string item = pricedown::Concatenate(
      {u"select b.FNumber from icPriceDownClass a inner join t_ICItem b on a.FItemID=b.FItemID "
       u"where a.FItemClassNumber='",
       classNumber, u"'"});
  steps_.push_back({nullptr, [this] {
                      RequireGridFocus();
                      PressWithControl('A', false);
                      PressWithControl('C', true);
                    }});
  steps_.push_back(
      {nullptr, [this, item, price = std::u16string(price)] {
         const std::u16string copied = pricedown::windows::ClipboardText(frame_.Handle());
         const std::u16string number = pricedown::ToText(frame_.Settings()->Call(u"Query", {item}));
         const std::u16string row = pricedown::Concatenate({u"\r\n", number, u"\t"});
         Require(copied.starts_with(u"物料代码\t") && copied.find(row) != std::u16string::npos &&
                     copied.ends_with(pricedown::Concatenate({u"\t", price, u"\r\n"})),
                 copied);
       }});
}

void Tour::TypePriceByKeys() {
  GoToGridByKeys();
  steps_.push_back({nullptr, [] {
                      Press(VK_END);
                      PressText(L"１２．５");
                    }});
  steps_.push_back({L"k6-price-by-keys", [this] {
                      const HWND field = RequireWindow(GetDlgItem(Grid(), ids::kCellEditor));
                      Require(GetWindowTextLengthW(field) == 4, u"单价还没有输入。");
                    }});
  steps_.push_back({nullptr, [] { Press(VK_RETURN); }});
  CopyByKeys(u"KEYS", u"12.50");
  // The price is stored nowhere: the items are read again without it.
  steps_.push_back({nullptr, [] { Press(VK_F5); }});
  CopyByKeys(u"KEYS", u"");
}

void Tour::FindItemsByKeys() {
  steps_.push_back({nullptr, [this] {
                      RequireGridFocus();
                      PressWithControl('F', false);
                    }});
  steps_.push_back({nullptr, [this] {
                      Require(GetFocus() == GetDlgItem(Child(ids::kFindBar), ids::kFindField),
                              u"查找栏没有打开。");
                      PressText(L"1");
                    }});
  steps_.push_back({nullptr, [this] {
                      ExpectHit(L"1 / ");
                      Press(VK_F3);
                    }});
  steps_.push_back({L"k7-next-by-keys", [this] { ExpectHit(L"2 / "); }});
  steps_.push_back({nullptr, [] { PressWithShift(VK_F3); }});
  steps_.push_back({nullptr, [this] {
                      ExpectHit(L"1 / ");
                      Press(VK_ESCAPE);
                    }});
  steps_.push_back({nullptr, [this] { RequireGridFocus(); }});
}

// The preview from the menu, printing from the preview, both closed again.
void Tour::PrintByKeys() {
  // The line after 新增, 修改, 删除, 刷新, 打印; the separators are skipped.
  constexpr int kPreviewLine = 6;
  steps_.push_back({nullptr, [] { Press(VK_APPS); }});
  steps_.push_back({L"k8-menu-by-keys", [] {
                      RequireMenu();
                      for (int i = 0; i < kPreviewLine; ++i) Press(VK_DOWN);
                    }});
  steps_.push_back({nullptr, [] {
                      RequireMenu();
                      Press(VK_RETURN);
                    }});
  steps_.push_back({nullptr, [] {
                      RequireKeyPage(L"1");
                      PressWithControl(VK_END, false);
                    }});
  steps_.push_back(
      {L"k9-last-page-by-keys", [] {
         Require(GetDlgItemInt(RequireKeyPreview(), preview_ids::kPage, nullptr, FALSE) > 1,
                 u"预览还在第一页。");
       }});
  steps_.push_back({nullptr, [] { PressWithControl('G', false); }});
  steps_.push_back({nullptr, [] {
                      Require(GetFocus() == GetDlgItem(RequireKeyPreview(), preview_ids::kPage),
                              u"焦点不在页码。");
                      PressText(L"1");
                      Press(VK_RETURN);
                    }});
  steps_.push_back({nullptr, [] {
                      RequireKeyPage(L"1");
                      Press(VK_ESCAPE);
                    }});
  steps_.push_back({nullptr, [this] {
                      RequireGridFocus();
                      PressWithControl('P', false);
                    }});
  // The system's dialog, or what says that there is no printer.
  steps_.push_back({L"k10-print-by-keys", [] {
                      const HWND dialog = FindWindowW(L"#32770", nullptr);
                      Require(RequireWindow(dialog) == GetActiveWindow(), u"打印还没有开始。");
                    }});
  steps_.push_back({nullptr, [] { Press(VK_ESCAPE); }});
  steps_.push_back({nullptr, [this] { RequireGridFocus(); }});
}

void Tour::UseOtherModeByKeys() {
  const auto requireMode = [this](const wchar_t* caption) {
    const ChildWindow* child = frame_.ActiveChild();
    Require(child != nullptr && child->Caption() == caption, u"另一个窗口还没有打开。");
    RequireFocus(ids::kTree);
  };
  steps_.push_back({nullptr, [] { PressWithControl('2', false); }});
  steps_.push_back({nullptr, [requireMode] { requireMode(kPriceDownCaption); }});
  FindClassByKeys(L"09(");
  steps_.push_back({L"k11-other-mode-by-keys", [requireMode] {
                      requireMode(kPriceDownCaption);
                      Press(VK_DELETE);
                    }});
  steps_.push_back({nullptr, [] {
                      RequireBox(kDeleteQuestion);
                      Press(VK_RETURN);
                    }});
  // Back to the first window by closing the second one.
  steps_.push_back({nullptr, [requireMode] {
                      requireMode(kPriceDownCaption);
                      PressWithControl(VK_F4, false);
                    }});
  steps_.push_back({nullptr, [this] {
                      const ChildWindow* child = frame_.ActiveChild();
                      Require(child != nullptr && child->Caption() == kItemClassesCaption,
                              u"第二个窗口还没有关闭。");
                    }});
  ExpectRows(u"FItemClassNumber='09'", 0);
}

}  // namespace workbench
