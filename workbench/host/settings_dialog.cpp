// The settings page: fills its fields from the suite's settings and stores them on OK. A value that
// the suite or its calendar refuses is reported and the page stays open.
#include "workbench/host/settings_dialog.h"

#include <iterator>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/wide_text.h"
#include "workbench/host/messages.h"
#include "workbench/host/resource_ids.h"
#include "workbench/host/window_icon.h"

namespace workbench {

using pricedown::ObjectPtr;
using pricedown::ToInt32;
using pricedown::ToText;
using pricedown::Value;
using pricedown::windows::FromWide;
using pricedown::windows::ToWide;

namespace {

struct RightSwitch {
  int control;
  std::int32_t objectType;
  std::int32_t objectNumber;
  std::int32_t mask;
};

// The data scope is a right to the object of either mode.
constexpr std::int32_t kCommandRights = 1002;
constexpr RightSwitch kRights[] = {
    {IDC_RIGHT_ADD, kCommandRights, 35, 0x20000},
    {IDC_RIGHT_EDIT, kCommandRights, 35, 0x400000},
    {IDC_RIGHT_DELETE, kCommandRights, 35, 0x10000},
    {IDC_RIGHT_PRINT, kCommandRights, 35, 0x8000},
    {IDC_SCOPE_2, 10, 151, 0x400000},
    {IDC_SCOPE_1, 10, 151, 0x200000},
    {IDC_SCOPE_0, 10, 151, 0x100000},
    {IDC_SCOPE_2, 11, 151, 0x400000},
    {IDC_SCOPE_1, 11, 151, 0x200000},
    {IDC_SCOPE_0, 11, 151, 0x100000},
};

struct Choice {
  const wchar_t* text;
  const char16_t* value;
};
constexpr Choice kLanguages[] = {
    {L"简体中文 (chs)", u"chs"}, {L"繁體中文 (cht)", u"cht"}, {L"English (en)", u"en"}};
constexpr Choice kItemClassTypes[] = {{L"1 按物料类别计提", u"1"}, {L"2 按物料计提", u"2"}};

class SettingsPage {
 public:
  explicit SettingsPage(ObjectPtr settings) : settings_(std::move(settings)) {}

  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept {
    try {
      if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        SendMessageW(dialog, WM_SETICON, ICON_SMALL,
                     reinterpret_cast<LPARAM>(WindowIcon(SM_CXSMICON)));
        reinterpret_cast<SettingsPage*>(lParam)->Fill(dialog);
        return TRUE;
      }
      auto* page = reinterpret_cast<SettingsPage*>(GetWindowLongPtrW(dialog, DWLP_USER));
      if (page != nullptr && message == WM_COMMAND) return page->OnCommand(dialog, wParam);
    } catch (...) {
      ShowFailure(dialog, pricedown::CurrentFailure());
      if (message == WM_INITDIALOG) EndDialog(dialog, IDABORT);
      return TRUE;
    }
    return FALSE;
  }

 private:
  INT_PTR OnCommand(HWND dialog, WPARAM wParam) {
    switch (LOWORD(wParam)) {
      case IDOK:
        Store(dialog);
        EndDialog(dialog, IDOK);
        return TRUE;
      case IDCANCEL:
        EndDialog(dialog, IDCANCEL);
        return TRUE;
      case IDC_USER:
        // Shows the rights of the selected user.
        if (HIWORD(wParam) == CBN_SELCHANGE) {
          settings_->Put(u"UserID", SelectedUser(dialog));
          FillRights(dialog);
        }
        return TRUE;
      default:
        return FALSE;
    }
  }

  void Fill(HWND dialog) {
    FillUsers(dialog);
    FillChoices(dialog, IDC_LANGUAGE, kLanguages, ToText(settings_->Get(u"Language")));
    FillChoices(dialog, IDC_ITEM_CLASS_TYPE, kItemClassTypes,
                ToText(settings_->Get(u"ItemClassType")));
    SetText(dialog, IDC_YEAR, ToText(settings_->Get(u"CurrentYear")));
    SetText(dialog, IDC_PERIOD, ToText(settings_->Get(u"CurrentPeriod")));
    Check(dialog, IDC_SHORT_NUMBERS,
          pricedown::LeadingNumber(settings_->Get(u"UseShortNumber")) != 0);
    Check(dialog, IDC_VOUCHER, pricedown::ToBoolean(settings_->Get(u"VoucherPresent")));
    FillRights(dialog);
  }

  void FillUsers(HWND dialog) {
    const HWND list = GetDlgItem(dialog, IDC_USER);
    const std::int32_t current = ToInt32(settings_->Get(u"UserID"));
    const std::u16string users = ToText(settings_->Get(u"Users"));
    std::u16string_view rest = users;
    while (!rest.empty()) {
      const std::u16string_view entry = rest.substr(0, rest.find(u'\n'));
      rest = entry.size() == rest.size() ? std::u16string_view() : rest.substr(entry.size() + 1);
      const auto equals = entry.find(u'=');
      users_.push_back(ToInt32(Value(entry.substr(0, equals))));
      ComboAdd(list, ToWide(entry.substr(equals + 1)).c_str());
      if (users_.back() == current) {
        SendMessageW(list, CB_SETCURSEL, users_.size() - 1, 0);
      }
    }
  }

  void FillRights(HWND dialog) {
    for (const RightSwitch& right : kRights) Check(dialog, right.control, false);
    // A box that two objects share is checked where either has the right.
    for (const RightSwitch& right : kRights) {
      const std::int32_t mask =
          ToInt32(settings_->Call(u"Rights", {right.objectType, right.objectNumber}));
      if ((mask & right.mask) != 0) Check(dialog, right.control, true);
    }
  }

  // Throws AutomationError when the company's calendar has no such period; the field that is wrong
  // is selected then.
  static void RequirePeriod(HWND dialog) {
    const ObjectPtr calendar =
        pricedown::windows::ComObjectFactory().Create(u"ZEPCBSSystemData.AisInfo");
    const auto number = [&](int field) {
      return pricedown::RoundToInt32(pricedown::LeadingNumber(Value(Text(dialog, field))));
    };
    int field = IDC_YEAR;
    try {
      const std::int32_t year = number(field);
      calendar->Call(u"GetPeriodDate", {year, std::int32_t{1}});
      field = IDC_PERIOD;
      calendar->Call(u"GetPeriodDate", {year, number(field)});
    } catch (const pricedown::AutomationError&) {
      SendDlgItemMessageW(dialog, field, EM_SETSEL, 0, -1);
      SetFocus(GetDlgItem(dialog, field));
      throw;
    }
  }

  // All or nothing: what is stored before a failure is undone.
  void Store(HWND dialog) {
    RequirePeriod(dialog);
    settings_->Put(u"UserID", SelectedUser(dialog));
    settings_->Call(u"Begin", {});
    try {
      StoreChoice(dialog, IDC_ITEM_CLASS_TYPE, kItemClassTypes, u"ItemClassType");
      settings_->Put(u"CurrentYear", Text(dialog, IDC_YEAR));
      settings_->Put(u"CurrentPeriod", Text(dialog, IDC_PERIOD));
      if (IsChanged(dialog, IDC_SHORT_NUMBERS)) {
        settings_->Put(u"UseShortNumber", IsChecked(dialog, IDC_SHORT_NUMBERS) ? u"1" : u"0");
      }
      if (IsChanged(dialog, IDC_VOUCHER)) {
        settings_->Put(u"VoucherPresent", IsChecked(dialog, IDC_VOUCHER));
      }
      for (const RightSwitch& right : kRights) StoreRight(dialog, right);
      settings_->Call(u"Commit", {});
    } catch (...) {
      settings_->Call(u"Rollback", {});
      throw;
    }
    StoreChoice(dialog, IDC_LANGUAGE, kLanguages, u"Language");
  }

  // The objects of the two modes share boxes and may have different rights.
  void StoreRight(HWND dialog, const RightSwitch& right) {
    if (!IsChanged(dialog, right.control)) return;
    std::vector<Value> arguments{right.objectType, right.objectNumber};
    const std::int32_t before =
        ToInt32(settings_->Call(u"Rights", {right.objectType, right.objectNumber}));
    const std::int32_t after =
        IsChecked(dialog, right.control) ? before | right.mask : before & ~right.mask;
    if (after == before) return;
    arguments.emplace_back(after);
    settings_->Invoke(settings_->Find(u"Rights"), pricedown::Access::Put, arguments);
  }

  std::int32_t SelectedUser(HWND dialog) const {
    const LRESULT selected = SendDlgItemMessageW(dialog, IDC_USER, CB_GETCURSEL, 0, 0);
    return selected < 0 ? 0 : users_[static_cast<std::size_t>(selected)];
  }

  static void FillChoices(HWND dialog, int control, std::span<const Choice> choices,
                          std::u16string_view current) {
    const HWND list = GetDlgItem(dialog, control);
    for (std::size_t i = 0; i < choices.size(); ++i) {
      ComboAdd(list, choices[i].text);
      if (pricedown::EqualsIgnoringCase(current, choices[i].value)) {
        SendMessageW(list, CB_SETCURSEL, i, 0);
      }
    }
  }

  // A value that is none of the choices stays until one is chosen.
  void StoreChoice(HWND dialog, int control, std::span<const Choice> choices,
                   std::u16string_view setting) {
    const LRESULT selected = SendDlgItemMessageW(dialog, control, CB_GETCURSEL, 0, 0);
    if (selected >= 0) settings_->Put(setting, choices[static_cast<std::size_t>(selected)].value);
  }

  static void ComboAdd(HWND list, const wchar_t* text) {
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
  }
  void Check(HWND dialog, int control, bool on) {
    shown_[control] = on;
    CheckDlgButton(dialog, control, on ? BST_CHECKED : BST_UNCHECKED);
  }
  bool IsChanged(HWND dialog, int control) const {
    return IsChecked(dialog, control) != shown_.at(control);
  }
  static bool IsChecked(HWND dialog, int control) {
    return IsDlgButtonChecked(dialog, control) == BST_CHECKED;
  }
  static void SetText(HWND dialog, int control, const std::u16string& text) {
    SetDlgItemTextW(dialog, control, ToWide(text).c_str());
  }
  static std::u16string Text(HWND dialog, int control) {
    wchar_t text[32] = {};
    const UINT length = GetDlgItemTextW(dialog, control, text, static_cast<int>(std::size(text)));
    return FromWide({text, length});
  }

  ObjectPtr settings_;
  std::vector<std::int32_t> users_;
  std::map<int, bool> shown_;  // the state of each box as it was filled
};

}  // namespace

bool ShowSettings(HINSTANCE module, HWND owner, const ObjectPtr& settings) {
  // The page switches the user to show the rights; restored on Cancel.
  const Value user = settings->Get(u"UserID");
  SettingsPage page(settings);
  const INT_PTR answer = DialogBoxParamW(module, MAKEINTRESOURCEW(IDD_SETTINGS), owner,
                                         SettingsPage::Procedure, reinterpret_cast<LPARAM>(&page));
  if (answer != IDOK) settings->Put(u"UserID", user);
  return answer == IDOK;
}

}  // namespace workbench
