// The tour's steps through all ways to run a command: context menus of tree and grid, the merged
// toolbar with and without the right, the bar itself; and an item of the form that cannot be
// removed.
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <string>

#include "windows/base/control_ids.h"
#include "windows/editor/form_ids.h"
#include "workbench/host/tour.h"
#include "workbench/host/tour_input.h"

namespace workbench {

namespace ids = pricedown::windows::control_ids;
namespace form_ids = pricedown::windows::form_ids;

namespace {

// Lines of the context menus, from 0.
constexpr int kEditLine = 1;
constexpr int kDeleteLine = 2;
// Positions in the merged toolbar.
constexpr int kInsert = 1;
constexpr int kEdit = 2;
constexpr int kCut = 3;
constexpr int kExit = 9;
constexpr int kClassTools[] = {kInsert, kEdit, kCut};
constexpr int kFormDelItem = 5;
constexpr std::size_t kStripDelete = 4;  // position in the control's tool strip

// Rows of classes of the sample company.
constexpr std::int32_t kItemsOf01 = 134;
constexpr std::int32_t kItemsOf03 = 104;

constexpr std::int32_t kCommands = 1002;  // object type, and its number, of the commands' rights
constexpr std::int32_t kNumber = 35;
constexpr std::int32_t kEveryRight = 0x438000;

constexpr const wchar_t* kNoRight = L"没有权限,请与系统管理员联系";

void CloseForm() { PostMessageW(RequireForm(), WM_CLOSE, 0, 0); }

}  // namespace

void Tour::ExpectBox(const wchar_t* picture, const std::wstring& text, int button) {
  steps_.push_back({picture, [text] { RequireBox(text); }});
  steps_.push_back({nullptr, [button] { PressBoxButton(button); }});
}

void Tour::PressMerged(int position) {
  const HWND frame = RequireReady(frame_.Handle());
  PressButton(FindWindowExW(frame, nullptr, TOOLBARCLASSNAMEW, nullptr), position - 1);
}

void Tour::GrantRights(std::int32_t mask) {
  std::array<pricedown::Value, 3> arguments{kCommands, kNumber, mask};
  const pricedown::ObjectPtr& settings = frame_.Settings();
  settings->Invoke(settings->Find(u"Rights"), pricedown::Access::Put, arguments);
}

void Tour::AddMenus() {
  steps_.push_back({nullptr, [this] { frame_.OpenChild(kItemClassesCaption); }});
  // The menu belongs to the class under the mouse.
  steps_.push_back({nullptr, [this] { RightClick(Child(ids::kTree), ClassPoint(3)); }});
  steps_.push_back({L"26-menu-of-the-tree", [] { RequireMenu(); }});
  steps_.push_back({nullptr, [] { PressMenuLine(kDeleteLine); }});
  ExpectBox(L"27-question-from-the-menu", kDeleteQuestion + std::wstring(L"03"), IDNO);
  ExpectRows(u"FItemClassNumber='03'", kItemsOf03);
  steps_.push_back({nullptr, [this] {
                      RightClick(GetDlgItem(Child(ids::kGridPane), ids::kGrid), {200, 80});
                    }});
  steps_.push_back({L"28-menu-of-the-grid", [] { RequireMenu(); }});
  steps_.push_back({nullptr, [] { PressMenuLine(kEditLine); }});
  steps_.push_back({nullptr, [] { CloseForm(); }});
  // The form holds the grid's rows, so select the class again first.
  steps_.push_back({nullptr, [this] { PressMerged(kCut); }});
  ExpectBox(L"29-class-to-select-again", L"请选择要删除的物料类别", IDOK);
}

void Tour::AddToolbar() {
  steps_.push_back({nullptr, [this] {
                      // Fills the grid again, so that there is a class to delete.
                      frame_.ActiveChild()->Bar()->Call(u"Click", {u"iRefresh"});
                    }});
  steps_.push_back({nullptr, [this] { PressMerged(kCut); }});
  ExpectBox(nullptr, kDeleteQuestion + std::wstring(L"03"), IDNO);
  steps_.push_back({nullptr, [this] { GrantRights(0); }});
  for (const int tool : kClassTools) {
    steps_.push_back({nullptr, [this, tool] { PressMerged(tool); }});
    ExpectBox(tool == kInsert ? L"30-no-right" : nullptr, kNoRight, IDOK);
  }
  steps_.push_back({nullptr, [this] { GrantRights(kEveryRight); }});
  steps_.push_back({nullptr, [this] { PressMerged(kInsert); }});
  steps_.push_back({L"31-form-from-the-toolbar", [] { RequireForm(); }});
  steps_.push_back({nullptr, [] { CloseForm(); }});
}

void Tour::AddRefusals() {
  // Its items have provisions of earlier periods.
  constexpr int kWithHistory = 1;
  steps_.push_back({nullptr, [this] { SelectClass(kWithHistory); }});
  steps_.push_back({nullptr, [this] { PressMerged(kEdit); }});
  steps_.push_back({nullptr, [] {
                      const HWND members =
                          RequireWindow(GetDlgItem(RequireForm(), form_ids::kMembers));
                      SetFocus(members);
                      PostKey(members, VK_DOWN);
                      PostKey(members, VK_SPACE);
                    }});
  steps_.push_back(
      {nullptr,
       [] { PressButton(GetDlgItem(RequireForm(), form_ids::kToolStrip), kFormDelItem - 1); }});
  ExpectBox(L"32-item-that-must-stay", L"该物料(01.01.0002)在以前期间已有业务发生，不得删除！",
            IDOK);
  steps_.push_back({nullptr, [] { CloseForm(); }});
  steps_.push_back({L"33-still-there", [this] { SelectClass(kWithHistory); }});
  const auto refuseDeleting = [this](const wchar_t* refusal) {
    steps_.push_back({nullptr, [this] { PressStrip(kStripDelete); }});
    ExpectBox(nullptr, kDeleteQuestion + std::wstring(L"01"), IDYES);
    ExpectBox(nullptr, refusal, IDOK);
    ExpectRows(u"FItemClassNumber='01'", kItemsOf01);
  };
  refuseDeleting(L"该物料类别在以前期间已有业务发生，不得删除！");
  steps_.push_back({nullptr, [this] { frame_.Settings()->Put(u"VoucherPresent", true); }});
  refuseDeleting(L"本期跌价准备数据已经生成凭证，不得删除物料类别！");
  steps_.push_back({nullptr, [this] { frame_.Settings()->Put(u"VoucherPresent", false); }});
  steps_.push_back({nullptr, [this] { PressMerged(kExit); }});
  steps_.push_back(
      {nullptr, [this] { Require(frame_.ActiveChild() == nullptr, u"窗口没有关闭。"); }});
}

}  // namespace workbench
