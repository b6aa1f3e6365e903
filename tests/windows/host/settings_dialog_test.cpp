// The settings page as its user sees it.
#include "workbench/host/settings_dialog.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "tests/integration/counting_factory.h"
#include "tests/sample/temporary_folder.h"
#include "tests/support/utf8.h"
#include "tests/windows/host/dialog_user.h"
#include "windows/base/plain_control.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/wide_text.h"
#include "workbench/company/connection.h"
#include "workbench/host/resource_ids.h"
#include "workbench/host/window_icon.h"
#include "workbench/sample/company_file.h"

namespace workbench {
namespace {

using pricedown::testing::Utf8;
using pricedown::windows::TextOf;

class SettingsDialog : public ::testing::Test {
 protected:
  SettingsDialog() {
    // The frame of a previous test has ended the thread's messages.
    MSG quit{};
    PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    OleInitialize(nullptr);
    folder_ = std::make_unique<testing::TemporaryFolder>();
    CreateCompanyFile(folder_->PathOf("company.db"), {});
    settings_ = pricedown::windows::ComObjectFactory().Create(u"ZEPWorkbench.Settings");
    settings_->Call(u"Open", {pricedown::FromUtf8(folder_->PathOf("company.db"))});
  }
  ~SettingsDialog() override {
    settings_->Call(u"Close");
    settings_ = nullptr;
    OleUninitialize();
  }
  bool Show() { return ShowSettings(GetModuleHandleW(nullptr), nullptr, settings_); }
  std::string Setting(std::u16string_view name) const {
    return Utf8(pricedown::ToText(settings_->Get(name)));
  }

  // The rights mask of the data scope in the mode of that object type.
  std::int32_t Scope(std::int32_t objectType) const {
    return pricedown::ToInt32(settings_->Call(u"Rights", {objectType, kScopeNumber}));
  }
  void SetScope(std::int32_t objectType, std::int32_t mask) {
    std::vector<pricedown::Value> arguments{objectType, kScopeNumber, mask};
    settings_->Invoke(settings_->Find(u"Rights"), pricedown::Access::Put, arguments);
  }

  static constexpr std::int32_t kScopeNumber = 151;
  std::unique_ptr<testing::TemporaryFolder> folder_;
  pricedown::ObjectPtr settings_;
  DialogUser user_;
};

// The selected text of a field with the focus; "-" without it.
std::string SelectedIn(HWND field) {
  if (GetFocus() != field) return "-";
  DWORD from = 0;
  DWORD to = 0;
  SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  return Utf8(TextOf(field)).substr(from, to - from);
}

TEST_F(SettingsDialog, ListsAUserWithASemicolonInItsName) {
  OpenConnection(folder_->PathOf("company.db"))
      ->Execute(u"UPDATE t_user SET FName='王;芳' WHERE FUserID=1");
  user_.Will([](HWND dialog) {
    EXPECT_EQ(Utf8(TextOf(GetDlgItem(dialog, IDC_USER))), "王;芳");
    EXPECT_EQ(SendDlgItemMessageW(dialog, IDC_USER, CB_GETCOUNT, 0, 0), 6);
    DialogUser::Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Show());
}

TEST_F(SettingsDialog, StaysOpenOnAPeriodThatTheCalendarDoesNotHaveAndSelectsWhatIsWrong) {
  struct Case {
    int field;
    const wchar_t* text;
    const char* selected;
  };
  for (const Case& tested :
       {Case{IDC_PERIOD, L"13", "13"}, Case{IDC_PERIOD, L"0", "0"}, Case{IDC_PERIOD, L"", ""},
        Case{IDC_YEAR, L"1899", "1899"}, Case{IDC_YEAR, L"99999999999", "99999999999"}}) {
    SCOPED_TRACE(tested.selected);
    HWND page = nullptr;
    user_.Will([&](HWND dialog) {
      page = dialog;
      SetDlgItemTextW(dialog, tested.field, tested.text);
      DialogUser::Press(dialog, IDOK);
    });
    user_.Will([&](HWND box) {
      EXPECT_TRUE(IsWindow(page));
      EXPECT_EQ(GetWindow(box, GW_OWNER), page);
      SendMessageW(box, WM_COMMAND, IDOK, 0);
      user_.Revisit(page);
    });
    user_.Will([&](HWND dialog) {
      EXPECT_EQ(SelectedIn(GetDlgItem(dialog, tested.field)), tested.selected);
      DialogUser::Press(dialog, IDCANCEL);
    });
    EXPECT_FALSE(Show());
    EXPECT_EQ(Setting(u"CurrentPeriod"), "3");
  }
}

TEST_F(SettingsDialog, KnowsHowManyPeriodsTheCompanyHas) {
  std::vector<pricedown::Value> arguments{u"General", u"PeriodCount", u"13"};
  settings_->Invoke(settings_->Find(u"Profile"), pricedown::Access::Put, arguments);
  user_.Will([&](HWND dialog) {
    SetDlgItemTextW(dialog, IDC_PERIOD, L"13");
    DialogUser::Press(dialog, IDOK);
  });
  EXPECT_TRUE(Show());
  EXPECT_EQ(Setting(u"CurrentPeriod"), "13");
}

TEST_F(SettingsDialog, StoresAPeriodThatTheCalendarHas) {
  user_.Will([&](HWND dialog) {
    EXPECT_EQ(Utf8(TextOf(GetDlgItem(dialog, IDC_PERIOD))), "3");
    SetDlgItemTextW(dialog, IDC_PERIOD, L"12");
    DialogUser::Press(dialog, IDOK);
  });
  EXPECT_TRUE(Show());
  EXPECT_EQ(Setting(u"CurrentPeriod"), "12");
}

TEST_F(SettingsDialog, KeepsWhatItCannotShowWhenNothingWasChanged) {
  settings_->Put(u"ItemClassType", u"0");
  SetScope(10, 0x400000);
  SetScope(11, 0x100000);
  user_.Will([](HWND dialog) { DialogUser::Press(dialog, IDOK); });
  EXPECT_TRUE(Show());
  EXPECT_EQ(Setting(u"ItemClassType"), "0");
  EXPECT_EQ(Scope(10), 0x400000);
  EXPECT_EQ(Scope(11), 0x100000);
}

TEST_F(SettingsDialog, StoresAChangedScopeForBothModes) {
  SetScope(10, 0x400000);
  SetScope(11, 0x100000);
  user_.Will([](HWND dialog) {
    CheckDlgButton(dialog, IDC_SCOPE_1, BST_CHECKED);
    DialogUser::Press(dialog, IDOK);
  });
  EXPECT_TRUE(Show());
  EXPECT_EQ(Scope(10), 0x600000);
  EXPECT_EQ(Scope(11), 0x300000);
}

TEST_F(SettingsDialog, LeavesTheVoucherOfAnotherPeriodAlone) {
  settings_->Put(u"CurrentPeriod", u"4");
  settings_->Put(u"VoucherPresent", true);
  settings_->Put(u"CurrentPeriod", u"3");
  settings_->Put(u"VoucherPresent", false);
  user_.Will([](HWND dialog) {
    EXPECT_EQ(IsDlgButtonChecked(dialog, IDC_VOUCHER), static_cast<UINT>(BST_UNCHECKED));
    SetDlgItemTextW(dialog, IDC_PERIOD, L"4");
    DialogUser::Press(dialog, IDOK);
  });
  EXPECT_TRUE(Show());
  EXPECT_EQ(Setting(u"CurrentPeriod"), "4");
  EXPECT_TRUE(pricedown::ToBoolean(settings_->Get(u"VoucherPresent")));
}

// Each call to the suite fails in turn while the page opens, as when the connection is lost.
TEST_F(SettingsDialog, OpensAtTheSecondTryWhicheverCallFails) {
  const pricedown::testing::CallLog log;
  const auto calls = std::make_shared<pricedown::testing::Recorder>(log);
  const pricedown::ObjectPtr settings =
      std::make_shared<CountedObject>(settings_, calls, "Settings");
  const auto cancel = [](HWND dialog) { DialogUser::Press(dialog, IDCANCEL); };
  user_.Will(cancel);
  const int before = calls->CallCount();
  EXPECT_FALSE(ShowSettings(GetModuleHandleW(nullptr), nullptr, settings));
  // The last call restores the user.
  const int needed = calls->CallCount() - before - 1;
  EXPECT_GT(needed, 15);
  // The first one is made before there is a page.
  calls->FailCall(1);
  EXPECT_THROW(ShowSettings(GetModuleHandleW(nullptr), nullptr, settings),
               pricedown::AutomationError);
  for (int failing = 2; failing <= needed; ++failing) {
    SCOPED_TRACE(failing);
    std::string text;
    user_.Will([&](HWND box) {
      text = Utf8(TextOf(GetDlgItem(box, 0xFFFF)));
      SendMessageW(box, WM_COMMAND, IDOK, 0);
    });
    calls->FailCall(failing);
    EXPECT_FALSE(ShowSettings(GetModuleHandleW(nullptr), nullptr, settings));
    EXPECT_NE(text.find("次调用失败"), std::string::npos) << text;
    calls->FailCall(0);
    user_.Will(cancel);
    EXPECT_FALSE(ShowSettings(GetModuleHandleW(nullptr), nullptr, settings));
  }
  EXPECT_EQ(Setting(u"UserID"), "1");
}

TEST_F(SettingsDialog, OpensCentredWithTheProductsIcon) {
  user_.Will([&](HWND dialog) {
    RECT area{};
    RECT work{};
    GetWindowRect(dialog, &area);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_LE(std::abs(area.left + area.right - work.left - work.right), 2);
    EXPECT_LE(std::abs(area.top + area.bottom - work.top - work.bottom), 2);
    EXPECT_EQ(SendMessageW(dialog, WM_GETICON, ICON_SMALL, 0),
              reinterpret_cast<LRESULT>(WindowIcon(SM_CXSMICON)));
    DialogUser::Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Show());
}

}  // namespace
}  // namespace workbench
