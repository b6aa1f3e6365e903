// Opening companies as the user does: failures are shown over the open frame, another company may
// be chosen, and passwords are neither shown nor kept.
#include <gmock/gmock.h>

#include "platform/convert.h"
#include "platform/text.h"
#include "tests/support/utf8.h"
#include "tests/windows/host/dialog_user.h"
#include "tests/windows/host/sample_company_suite.h"
#include "windows/base/plain_control.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/wide_text.h"
#include "workbench/host/frame_window.h"
#include "workbench/host/recent_companies.h"
#include "workbench/host/resource_ids.h"
#include "workbench/host/window_icon.h"
#include "workbench/sample/company_file.h"

namespace workbench {
namespace {

using pricedown::testing::Utf8;
using pricedown::windows::TextOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr int kTextOfBox = 0xFFFF;  // the id of a message box's text

// The user's part of the registry is empty while it lives.
class EmptyRegistry {
 public:
  EmptyRegistry() {
    HKEY key = nullptr;
    RegCreateKeyW(HKEY_CURRENT_USER, kKey, &key);
    RegOverridePredefKey(HKEY_CURRENT_USER, key);
    RegCloseKey(key);
  }
  ~EmptyRegistry() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
  }
  EmptyRegistry(const EmptyRegistry&) = delete;
  EmptyRegistry& operator=(const EmptyRegistry&) = delete;

 private:
  static constexpr const wchar_t* kKey = L"Software\\PriceDownWorkbenchTests";
};

std::wstring Wide(const std::string& text) {
  return pricedown::windows::ToWide(pricedown::FromUtf8(text));
}
std::string Narrow(const std::wstring& text) { return Utf8(pricedown::windows::FromWide(text)); }

class OpenCompany : public SampleCompanySuite {
 protected:
  OpenCompany() {
    // The frame of the previous test has ended the thread's messages.
    MSG quit{};
    PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    frame_.Show(SW_SHOW);
  }
  ~OpenCompany() override {
    frame_.CloseChildren();
    frame_.Settings()->Call(u"Close");
  }

  std::string Status() const {
    return Utf8(TextOf(FindWindowExW(frame_.Handle(), nullptr, L"msctls_statusbar32", nullptr)));
  }
  std::string Setting(std::u16string_view name) const {
    return Utf8(pricedown::ToText(frame_.Settings()->Get(name)));
  }
  // A step that checks the message of a failure and answers its question.
  DialogUser::Step AnswerFailure(int button, const ::testing::Matcher<std::string>& text) {
    return [this, button, text](HWND box) {
      EXPECT_EQ(Utf8(TextOf(box)), "工作台");
      EXPECT_THAT(Utf8(TextOf(GetDlgItem(box, kTextOfBox))), text);
      EXPECT_TRUE(IsWindowVisible(frame_.Handle()));
      EXPECT_THAT(Status(), StartsWith("公司没有打开："));
      DialogUser::Press(box, button);
    };
  }

  EmptyRegistry registry_;
  pricedown::windows::ComObjectFactory factory_;
  FrameWindow frame_{GetModuleHandleW(nullptr), factory_.Create(u"ZEPWorkbench.Settings")};
  DialogUser user_;
};

TEST_F(OpenCompany, ShowsAFailureOverTheFrameAndOpensAnotherOne) {
  const std::wstring missing = Wide(folder_->PathOf("没有.db"));
  user_.Will(AnswerFailure(IDYES, HasSubstr("无法打开公司数据库")));
  user_.Will([&](HWND dialog) {
    EXPECT_EQ(Utf8(TextOf(dialog)), "打开公司");
    EXPECT_EQ(Utf8(TextOf(GetDlgItem(dialog, IDC_COMPANY))), Narrow(missing));
    SetDlgItemTextW(dialog, IDC_COMPANY, Company().c_str());
    DialogUser::Press(dialog, IDOK);
  });
  EXPECT_TRUE(frame_.OpenCompanyOrAsk(missing));
  EXPECT_EQ(Status(), "公司：" + Narrow(Company()) + "    当前期间：2008年第3期");
  EXPECT_THAT(RecentCompanies(), ElementsAre(Company()));
}

TEST_F(OpenCompany, AcceptsAPathInQuotes) {
  user_.Will([&](HWND dialog) {
    SetDlgItemTextW(dialog, IDC_COMPANY, (L" \"" + Company() + L"\"").c_str());
    DialogUser::Press(dialog, IDOK);
  });
  SendMessageW(frame_.Handle(), WM_COMMAND, IDM_FILE_OPEN, 0);
  EXPECT_EQ(Status(), "公司：" + Narrow(Company()) + "    当前期间：2008年第3期");
  EXPECT_THAT(RecentCompanies(), ElementsAre(Company()));
}

TEST_F(OpenCompany, NamesADatabaseThatIsNoCompany) {
  folder_->Write("empty.db", "");
  user_.Will(AnswerFailure(IDNO, HasSubstr("不是公司文件")));
  EXPECT_FALSE(frame_.OpenCompanyOrAsk(Wide(folder_->PathOf("empty.db"))));
  EXPECT_EQ(Setting(u"Location"), "");
  EXPECT_TRUE(RecentCompanies().empty());
}

TEST_F(OpenCompany, NeverShowsThePasswordOfAServer) {
  user_.Will(AnswerFailure(IDYES, Not(HasSubstr("Geheim"))));
  user_.Will([&](HWND dialog) {
    EXPECT_EQ(Utf8(TextOf(GetDlgItem(dialog, IDC_COMPANY))),
              "driver=NoSuchDriver;Server=db;Uid=me");
    EXPECT_EQ(Utf8(TextOf(GetDlgItem(dialog, IDC_PASSWORD))), "");
    SetDlgItemTextW(dialog, IDC_PASSWORD, L"Geheim-2");
    DialogUser::Press(dialog, IDOK);
  });
  user_.Will(AnswerFailure(IDNO, Not(HasSubstr("Geheim"))));
  EXPECT_FALSE(frame_.OpenCompanyOrAsk(L"driver=NoSuchDriver;Server=db;Uid=me;Pwd=Geheim-1"));
  EXPECT_EQ(Status(), "公司没有打开：driver=NoSuchDriver;Server=db");
}

TEST_F(OpenCompany, KeepsTheCompanyOfBeforeWhenTheUserCancels) {
  frame_.OpenCompany(Company());
  const ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
  ASSERT_NE(child, nullptr);
  const HWND window = child->Handle();
  const std::string status = Status();
  user_.Will([&](HWND dialog) {
    SetDlgItemTextW(dialog, IDC_COMPANY, L"没有.db");
    DialogUser::Press(dialog, IDOK);
  });
  user_.Will(AnswerFailure(IDYES, HasSubstr("没有.db")));
  user_.Will([](HWND dialog) { DialogUser::Press(dialog, IDCANCEL); });
  SendMessageW(frame_.Handle(), WM_COMMAND, IDM_FILE_OPEN, 0);
  EXPECT_EQ(Status(), status);
  EXPECT_EQ(Setting(u"CurrentYear"), "2008");
  EXPECT_TRUE(IsWindow(window)) << "the windows of the company before stay open";
  EXPECT_EQ(frame_.ActiveChild(), child);
}

TEST_F(OpenCompany, ClosesTheWindowsOfTheCompanyBeforeWhileItIsOpen) {
  const std::string second = folder_->PathOf("second.db");
  CreateCompanyFile(second, {});
  const auto storedNodes = [this] {
    return Utf8(pricedown::ToText(frame_.Settings()->Call(
        u"Query", {u"select count(*) from t_UserProfile where FKey='NodeSel1'"})));
  };
  frame_.OpenCompany(Wide(second));
  const std::string before = storedNodes();
  frame_.OpenCompany(Company());
  ASSERT_NE(frame_.OpenChild(kItemClassesCaption), nullptr);
  frame_.OpenCompany(Wide(second));
  EXPECT_EQ(frame_.ActiveChild(), nullptr);
  EXPECT_EQ(storedNodes(), before) << "the selection is stored in its own company";
  frame_.OpenCompany(Company());
  EXPECT_EQ(storedNodes(), "1");
}

TEST_F(OpenCompany, OffersTheRecentOnesWithoutPasswords) {
  for (int i = 0; i < 9; ++i) AddRecentCompany(L"company" + std::to_wstring(i) + L".db");
  AddRecentCompany(L"company4.db");
  AddRecentCompany(L"Driver=D;Server=s;UID=u;PWD={Geh;eim}");
  EXPECT_THAT(RecentCompanies(), ElementsAre(L"Driver=D;Server=s;UID=u", L"company4.db",
                                             L"company8.db", L"company7.db", L"company6.db",
                                             L"company5.db", L"company3.db", L"company2.db"));
  user_.Will([](HWND dialog) {
    const HWND list = GetDlgItem(dialog, IDC_COMPANY);
    EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 8);
    EXPECT_EQ(Utf8(TextOf(list)), "Driver=D;Server=s;UID=u");
    DialogUser::Press(dialog, IDCANCEL);
  });
  SendMessageW(frame_.Handle(), WM_COMMAND, IDM_FILE_OPEN, 0);
}

TEST_F(OpenCompany, ShowsTheProductsIcon) {
  user_.Will([](HWND dialog) {
    EXPECT_EQ(SendMessageW(dialog, WM_GETICON, ICON_SMALL, 0),
              reinterpret_cast<LRESULT>(WindowIcon(SM_CXSMICON)));
    DialogUser::Press(dialog, IDCANCEL);
  });
  SendMessageW(frame_.Handle(), WM_COMMAND, IDM_FILE_OPEN, 0);
}

TEST_F(OpenCompany, RemovesPasswordsThatAreStored) {
  constexpr const wchar_t* kKey = L"Software\\PriceDownWorkbench";
  constexpr const wchar_t* kValue = L"RecentCompanies";
  constexpr wchar_t kStored[] =
      L"DSN=books;Uid=me;Pwd=Geheim-1\0company.db\0DSN=books;Uid=me;PWD={Geheim;2}\0"
      L"PWD=Geheim-3\0";
  ASSERT_EQ(
      RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, REG_MULTI_SZ, kStored, sizeof(kStored)),
      ERROR_SUCCESS);
  EXPECT_THAT(RecentCompanies(), ElementsAre(L"DSN=books;Uid=me", L"company.db"));
  std::wstring stored(1000, L'?');
  auto bytes = static_cast<DWORD>(stored.size() * sizeof(wchar_t));
  ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_MULTI_SZ, nullptr,
                         stored.data(), &bytes),
            ERROR_SUCCESS);
  constexpr std::wstring_view kKept(L"DSN=books;Uid=me\0company.db\0", 28);
  EXPECT_EQ(stored.substr(0, kKept.size()), kKept);
  EXPECT_EQ(stored.find(L"Geheim"), std::wstring::npos);
}

TEST_F(OpenCompany, StoresAllSettingsOrNone) {
  frame_.OpenCompany(Company());
  user_.Will([&](HWND dialog) {
    CheckDlgButton(dialog, IDC_SHORT_NUMBERS, BST_CHECKED);
    SetDlgItemTextW(dialog, IDC_YEAR, L"2008年");      // which begins with a year: it is stored
    CheckDlgButton(dialog, IDC_VOUCHER, BST_CHECKED);  // which needs digits only: it fails after it
    DialogUser::Press(dialog, IDOK);
  });
  const std::string before = Setting(u"UseShortNumber");
  user_.Will([&](HWND box) {
    EXPECT_EQ(Utf8(TextOf(box)), "工作台");
    DialogUser::Press(box, IDOK);
    const HWND settings = GetWindow(box, GW_OWNER);
    DialogUser::Press(settings, IDCANCEL);
  });
  SendMessageW(frame_.Handle(), WM_COMMAND, IDM_SETTINGS, 0);
  EXPECT_EQ(Setting(u"CurrentYear"), "2008");
  EXPECT_EQ(Setting(u"UseShortNumber"), before);
  EXPECT_NE(before, "1");
}

}  // namespace
}  // namespace workbench
