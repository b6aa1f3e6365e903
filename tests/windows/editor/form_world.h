// The item class form in its real window, on a real company, opened over a host window.
// The test plays the user in steps while the form is shown.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "editor/member_list.h"
#include "editor/record_copy.h"
#include "tests/integration/class_company.h"
#include "tests/support/utf8.h"
#include "tests/windows/base/message_boxes.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "tests/windows/support/modal_steps.h"
#include "windows/base/control_ids.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"
#include "windows/editor/form_ids.h"
#include "windows/editor/item_class_dialog.h"

namespace pricedown::testing {

namespace form_ids = windows::form_ids;

class FormWorld : public workbench::ClassCompany, public Input {
 protected:
  // As the browser opens the form; return when it has closed.
  void ShowForAdd(Steps steps) {
    Recordset members = Recordset::Create(factory_);
    AppendMemberFields(members);
    members.Open();
    dialog.Form().SetMemberList(members);
    dialog.Form().SetMode(kAddMode);
    Show(std::move(steps));
  }
  void ShowForEdit(std::u16string_view number, Steps steps) {
    const Recordset rows = Connection(factory_).Execute(statements::ItemsOfClass(number));
    dialog.Form().SetMode(0);
    dialog.Form().SetOpeningNumber(std::u16string(number));
    dialog.Form().SetMemberList(CopyRecords(factory_, rows));
    dialog.Form().SetSecondRecordSet(CopyRecords(factory_, dialog.Form().MemberList()));
    Show(std::move(steps));
  }
  void Show(Steps steps) {
    ModalSteps player(std::move(steps));
    dialog.ShowModal(host.Handle());
    EXPECT_TRUE(player.Ended());
    RunMessages();
  }

  HWND Form() const { return FindWindowW(L"PriceDown.ItemClass", nullptr); }
  HWND Child(int id) const { return GetDlgItem(Form(), id); }
  std::string TextIn(int id) const { return Utf8(windows::TextOf(Child(id))); }
  // Selected characters of a field.
  std::size_t Selection(int id) const {
    DWORD first = 0;
    DWORD last = 0;
    SendMessageW(Child(id), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    return last - first;
  }
  bool IsEnabled(FormTool tool) const {
    return SendMessageW(
               Child(form_ids::kToolStrip), TB_ISBUTTONENABLED,
               static_cast<WPARAM>(windows::control_ids::kFirstButton) + static_cast<WPARAM>(tool),
               0) != 0;
  }

  // The user's input.
  void TypeInto(int id, std::u16string_view text) {
    SetFocus(Child(id));
    SendMessageW(Child(id), EM_SETSEL, 0, -1);
    Type(text);
  }
  void ClickTool(FormTool tool) {
    RECT area{};
    SendMessageW(Child(form_ids::kToolStrip), TB_GETITEMRECT, static_cast<WPARAM>(tool) - 1,
                 reinterpret_cast<LPARAM>(&area));
    Click(Child(form_ids::kToolStrip),
          {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
  }
  void ClickChild(int id) {
    RECT area{};
    GetClientRect(Child(id), &area);
    Click(Child(id), {area.right / 2, area.bottom / 2});
  }
  void ClickRow(int item, WPARAM keys = 0) {
    RECT area{};
    ListView_GetItemRect(List(), item, &area, LVIR_BOUNDS);
    Click(List(), {area.left + 30, (area.top + area.bottom) / 2}, keys);
  }
  // The list reads the keyboard's state, not the message's.
  void PressedControlClick(int item) {
    HoldControl(true);
    ClickRow(item, MK_CONTROL);
    HoldControl(false);
  }
  // Posts to the form's own message loop, which runs it after the step.
  void PostKey(WPARAM key) { PostMessageW(GetFocus(), WM_KEYDOWN, key, 1); }
  void HoldControl(bool held) {
    std::array<BYTE, 256> keys{};
    GetKeyboardState(keys.data());
    keys[VK_CONTROL] = held ? 0x80 : 0;
    SetKeyboardState(keys.data());
  }
  void CloseByFrame() {
    PostMessageW(Form(), WM_CLOSE, 0, 0);
    RunMessages();
  }

  HWND List() const { return Child(form_ids::kMembers); }
  int ListCount() const { return ListView_GetItemCount(List()); }
  // Column from 0; the list's rows without the titles, from 0.
  std::string Cell(int item, int column) const {
    std::wstring text(256, L'\0');
    LVITEMW description{};
    description.iSubItem = column;
    description.pszText = text.data();
    description.cchTextMax = static_cast<int>(text.size());
    SendMessageW(List(), LVM_GETITEMTEXTW, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&description));
    return Utf8(windows::FromWide(text.c_str()));
  }
  std::string Codes() const {
    std::string codes;
    for (int item = 0; item < ListCount(); ++item) codes += Cell(item, 0) + " ";
    return codes;
  }

  HostWindow host{900, 620};
  MessageBoxes boxes;
  ThreadState state;
  windows::ItemClassDialog dialog{GetModuleHandleW(nullptr), factory_, state, u"Host"};
};

}  // namespace pricedown::testing
