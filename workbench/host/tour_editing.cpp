// The tour's steps through the item class form and the suite's pickers: a class is added, changed,
// loses an item and is deleted. Each step posts what a user would do.
#include <windows.h>

#include <commctrl.h>

#include "platform/convert.h"
#include "platform/text.h"
#include "windows/base/control_ids.h"
#include "windows/editor/form_ids.h"
#include "workbench/host/tour.h"
#include "workbench/host/tour_input.h"

namespace workbench {

namespace ids = pricedown::windows::control_ids;
namespace form_ids = pricedown::windows::form_ids;

namespace {

// Positions, from 1: of the control's and of the form's tool strip.
constexpr std::size_t kStripEdit = 3;
constexpr int kFormSave = 2;
constexpr int kFormAddItem = 4;
constexpr int kFormDeleteItem = 5;
constexpr int kFormExit = 7;

HWND FormChild(int id) { return RequireWindow(GetDlgItem(RequireForm(), id)); }

void PressFormTool(int position) { PressButton(FormChild(form_ids::kToolStrip), position - 1); }

void TypeInto(int id, const wchar_t* text) {
  const HWND field = FormChild(id);
  SetFocus(field);
  SendMessageW(field, EM_SETSEL, 0, -1);
  PostText(field, text);
}

}  // namespace

// Fails the tour unless the class table has `count` rows under that condition.
void Tour::ExpectRows(std::u16string_view condition, std::int32_t count) {
  const std::u16string statement =
      pricedown::Concatenate({u"select count(*) from icPriceDownClass where ", condition});
  steps_.push_back({nullptr, [this, statement, count] {
                      const pricedown::Value found = frame_.Settings()->Call(u"Query", {statement});
                      Require(pricedown::ToInt32(found) == count, statement);
                    }});
}

void Tour::AddEditing() {
  steps_.push_back({nullptr, [this] { frame_.OpenChild(kItemClassesCaption); }});
  steps_.push_back({nullptr, [this] {
                      SetFocus(Child(ids::kTree));
                      PostKey(Child(ids::kTree), VK_INSERT);
                    }});
  steps_.push_back({L"13-new-class", [] { RequireForm(); }});
  steps_.push_back({nullptr, [] {
                      TypeInto(form_ids::kClassNumber, L"DEMO");
                      TypeInto(form_ids::kClassName, L"演示类别");
                      TypeInto(form_ids::kReserveAccount, L"1471.01");
                      TypeInto(form_ids::kPercentage, L"12.5");
                      SetFocus(FormChild(form_ids::kLossAccount));
                      PostText(FormChild(form_ids::kLossAccount), L"资产减值");
                    }});
  steps_.push_back({nullptr, [] { PostKey(FormChild(form_ids::kLossAccount), VK_F7); }});
  steps_.push_back({L"14-account-picker", [] { RequirePicker(kPickerFound); }});
  steps_.push_back({nullptr, [] { PostKey(GetFocus(), VK_RETURN); }});
  steps_.push_back({nullptr, [] { PressFormTool(kFormAddItem); }});
  steps_.push_back({nullptr, [] {
                      RequirePicker(kPickerAll);
                      PostText(GetFocus(), L"螺");
                    }});
  for (int i = 0; i < 3; ++i) {
    // In this order: a blank becomes a character only after the messages posted before it.
    steps_.push_back({nullptr, [] {
                        RequirePicker(kPickerFound);
                        PostKey(GetFocus(), VK_DOWN);
                      }});
    steps_.push_back({i < 2 ? nullptr : L"15-item-picker", [] { PostKey(GetFocus(), VK_SPACE); }});
  }
  steps_.push_back({L"16-items-added", [] { PostKey(GetFocus(), VK_RETURN); }});
  steps_.push_back({L"17-saved", [] { PressFormTool(kFormSave); }});
  ExpectRows(u"FItemClassNumber='DEMO' and FItemClassName='演示类别' and FPencentPrepare=12.5", 3);
  steps_.push_back({nullptr, [] { PressFormTool(kFormExit); }});
  ExpectBox(L"18-question-on-leaving", L"当前记录已经改变，是否保存?", IDNO);
  steps_.push_back({L"19-class-in-the-tree", [this] { SelectClass(kLastClass); }});
}

void Tour::AddRemoving() {
  steps_.push_back({nullptr, [this] { PressStrip(kStripEdit); }});
  steps_.push_back({L"20-class-in-the-form", [] { RequireForm(); }});
  steps_.push_back({nullptr, [] {
                      SetFocus(FormChild(form_ids::kMembers));
                      PostKey(FormChild(form_ids::kMembers), VK_DOWN);
                      PostKey(FormChild(form_ids::kMembers), VK_SPACE);
                    }});
  steps_.push_back({L"21-item-removed", [] { PressFormTool(kFormDeleteItem); }});
  steps_.push_back({nullptr, [] { TypeInto(form_ids::kClassName, L"演示类别二"); }});
  steps_.push_back({nullptr, [] { PressFormTool(kFormSave); }});
  steps_.push_back({nullptr, [] { PressFormTool(kFormExit); }});
  ExpectRows(u"FItemClassNumber='DEMO' and FItemClassName='演示类别二'", 2);
  steps_.push_back({L"22-class-renamed", [this] { SelectClass(kLastClass); }});
  steps_.push_back({nullptr, [this] {
                      SetFocus(Child(ids::kTree));
                      PostKey(Child(ids::kTree), VK_DELETE);
                    }});
  ExpectBox(L"23-question-before-deleting", kDeleteQuestion + std::wstring(L"DEMO"), IDYES);
  steps_.push_back({L"24-class-deleted", [this] { Child(ids::kTree); }});
  ExpectRows(u"FItemClassNumber='DEMO'", 0);
  steps_.push_back({L"25-closed-again", [this] { frame_.CloseChildren(); }});
}

}  // namespace workbench
