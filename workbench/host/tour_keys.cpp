// The tour with the keyboard alone: a class is added with both pickers, found, changed; another one
// is deleted; and the class table is checked at the end.
#include <windows.h>

#include <commctrl.h>

#include "windows/base/control_ids.h"
#include "windows/editor/form_ids.h"
#include "workbench/host/tour.h"
#include "workbench/host/tour_input.h"

namespace workbench {

namespace ids = pricedown::windows::control_ids;
namespace form_ids = pricedown::windows::form_ids;

namespace {

// Throws unless that field of the form has the focus.
void RequireField(int id) {
  Require(GetFocus() == GetDlgItem(RequireForm(), id), u"焦点不在这个字段。");
}

void RequirePreview() {
  RequireWindow(FindWindowW(L"PriceDown.Preview", nullptr));
  Require(GetActiveWindow() == FindWindowW(L"PriceDown.Preview", nullptr), u"预览还没有打开。");
}

}  // namespace

void Tour::RequireFocus(int controlId) const {
  Require(GetFocus() == Child(controlId), u"焦点不在控件的这个部分。");
}

// Ctrl+F, the text, Enter: the class is the selected one then, and its items are shown.
void Tour::FindClassByKeys(const wchar_t* text) {
  steps_.push_back({nullptr, [this] {
                      RequireFocus(ids::kTree);
                      PressWithControl('F', false);
                    }});
  steps_.push_back({nullptr, [this, text] {
                      Require(GetFocus() == GetDlgItem(Child(ids::kFindBar), ids::kFindField),
                              u"查找栏没有打开。");
                      PressText(text);
                    }});
  steps_.push_back({nullptr, [this] {
                      ExpectHit(L"1 / ");
                      Press(VK_RETURN);
                    }});
}

void Tour::AddClassByKeys() {
  // The fields in the order of Enter; the loss account is looked up.
  const auto type = [this](int field, const wchar_t* text) {
    steps_.push_back({nullptr, [field, text] {
                        RequireField(field);
                        PressText(text);
                        Press(VK_RETURN);
                      }});
  };
  steps_.push_back({nullptr, [this] {
                      RequireFocus(ids::kTree);
                      Press(VK_INSERT);
                    }});
  type(form_ids::kClassNumber, L"KEYS");
  type(form_ids::kClassName, L"键盘类别");
  type(form_ids::kReserveAccount, L"1471.01");
  steps_.push_back({nullptr, [] {
                      RequireField(form_ids::kLossAccount);
                      PressText(L"资产减值");
                      Press(VK_F4);
                    }});
  steps_.push_back({L"k2-account-by-keys", [] { RequirePicker(kPickerFound); }});
  steps_.push_back({nullptr, [] { Press(VK_RETURN); }});
  steps_.push_back({nullptr, [] {
                      RequireField(form_ids::kLossAccount);
                      Press(VK_RETURN);
                    }});
  type(form_ids::kPercentage, L"7.5");
  steps_.push_back({nullptr, [] {
                      RequireField(form_ids::kMembers);
                      Press(VK_INSERT);
                    }});
  steps_.push_back({nullptr, [] {
                      RequirePicker(kPickerAll);
                      PressText(L"螺");
                    }});
  for (int i = 0; i < 2; ++i) {
    steps_.push_back({nullptr, [] {
                        RequirePicker(kPickerFound);
                        Press(VK_DOWN);
                      }});
    steps_.push_back({nullptr, [] { Press(VK_SPACE); }});
  }
  steps_.push_back({nullptr, [] { Press(VK_RETURN); }});
  steps_.push_back({L"k3-filled-by-keys", [] {
                      const HWND list = GetDlgItem(RequireForm(), form_ids::kMembers);
                      Require(ListView_GetItemCount(list) == 2, u"没有加上两种物料。");
                    }});
  steps_.push_back({nullptr, [] { PressWithControl('S', false); }});
  ExpectRows(u"FItemClassNumber='KEYS' and FPencentPrepare=7.5", 2);
  steps_.push_back({nullptr, [] {
                      RequireForm();
                      Press(VK_ESCAPE);
                    }});
  // 否 is the second button.
  steps_.push_back({nullptr, [] {
                      RequireBox(L"当前记录已经改变，是否保存?");
                      Press(VK_RIGHT);
                      Press(VK_RETURN);
                    }});
}

// The name is changed, and one of the two items removed by the list's menu.
void Tour::ChangeClassByKeys() {
  FindClassByKeys(L"KEYS");
  steps_.push_back({nullptr, [this] {
                      RequireFocus(ids::kTree);
                      Press(VK_F2);
                    }});
  steps_.push_back({nullptr, [] {
                      RequireField(form_ids::kClassNumber);
                      Press(VK_RETURN);
                    }});
  steps_.push_back({nullptr, [] {
                      RequireField(form_ids::kClassName);
                      PressText(L"键盘类别二");
                      for (int i = 0; i < 4; ++i) Press(VK_RETURN);
                    }});
  steps_.push_back({nullptr, [] {
                      RequireField(form_ids::kMembers);
                      Press(VK_HOME);
                      Press(VK_SPACE);
                      Press(VK_APPS);
                    }});
  // The line after 增加物料.
  steps_.push_back({nullptr, [] {
                      RequireMenu();
                      Press(VK_DOWN);
                      Press(VK_DOWN);
                    }});
  steps_.push_back({L"k4-removal-by-keys", [] { RequireMenu(); }});
  steps_.push_back({nullptr, [] { Press(VK_RETURN); }});
  steps_.push_back({nullptr, [] {
                      const HWND list = GetDlgItem(RequireForm(), form_ids::kMembers);
                      Require(ListView_GetItemCount(list) == 1, u"物料没有去掉。");
                      PressWithControl('S', false);
                    }});
  ExpectRows(u"FItemClassNumber='KEYS' and FItemClassName='键盘类别二'", 1);
  steps_.push_back({nullptr, [] {
                      RequireForm();
                      Press(VK_ESCAPE);
                    }});
}

void Tour::DeleteClassByKeys() {
  FindClassByKeys(L"10(");
  steps_.push_back({nullptr, [this] {
                      RequireFocus(ids::kTree);
                      Press(VK_DELETE);
                    }});
  steps_.push_back({L"k5-deletion-by-keys", [] { RequireBox(kDeleteQuestion); }});
  steps_.push_back({nullptr, [] { Press(VK_RETURN); }});
}

// From the tree backwards: the tool strip, and in it 预览.
void Tour::PreviewByBarAndKeys() {
  steps_.push_back({nullptr, [this] {
                      RequireFocus(ids::kTree);
                      Press(VK_TAB);
                      Press(VK_TAB);
                    }});
  steps_.push_back({nullptr, [this] {
                      RequireFocus(ids::kToolStrip);
                      for (int i = 0; i < 4; ++i) Press(VK_RIGHT);
                      Press(VK_RETURN);
                    }});
  steps_.push_back({nullptr, [] { RequirePreview(); }});
  steps_.push_back({nullptr, [] { Press(VK_ESCAPE); }});
  steps_.push_back({L"k12-back-by-keys", [this] { RequireFocus(ids::kToolStrip); }});
}

void Tour::AddKeys() {
  steps_.push_back({nullptr, [this] {
                      Require(GetForegroundWindow() == frame_.Handle(), u"窗口还没有激活。");
                      PressWithControl('1', false);
                    }});
  steps_.push_back({L"k1-opened-by-keys", [this] { RequireFocus(ids::kTree); }});
  AddClassByKeys();
  ChangeClassByKeys();
  DeleteClassByKeys();
  FindClassByKeys(L"KEYS");
  TypePriceByKeys();
  LeaveGridByKeys();
  FindClassByKeys(L"05(");
  GoToGridByKeys();
  FindItemsByKeys();
  PrintByKeys();
  UseOtherModeByKeys();
  // The focus is where it was in that window.
  LeaveGridByKeys();
  FindClassByKeys(L"KEYS");
  PreviewByBarAndKeys();
  ExpectRows(u"FItemClassNumber='KEYS' and FItemClassName='键盘类别二'", 1);
  ExpectRows(u"FItemClassNumber in ('09','10')", 0);
}

}  // namespace workbench
