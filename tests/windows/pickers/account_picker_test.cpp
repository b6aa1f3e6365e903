// The account picker from the user's side.
#include <gtest/gtest.h>

#include "tests/pickers/picker_company.h"
#include "tests/windows/pickers/picker_user.h"
#include "workbench/pickers/dialog/dialog_pickers.h"
#include "workbench/pickers/picker_ids.h"

namespace workbench::testing {
namespace {

namespace ids = picker_ids;

class AccountPickerWindow : public ::testing::Test {
 protected:
  AccountPickerWindow() {
    company_.Execute(u"DELETE FROM t_account");
    int id = 0;
    for (const auto& [code, name] : {std::pair{u"1001", u"库存现金"},
                                     {u"1002", u"银行存款"},
                                     {u"1002.01", u"工商银行"},
                                     {u"1471", u"存货跌价准备"},
                                     {u"1471.10", u"原材料跌价准备"},
                                     {u"6701", u"资产减值损失"}}) {
      const std::string number = std::to_string(++id);
      std::u16string statement =
          u"INSERT INTO t_account(FLevel,FParentID,FDetail,FDC,FAccountID,FNumber,FName)"
          u"VALUES(1,0,1,1,";
      statement.append(number.begin(), number.end());
      company_.Execute(statement.append(u",'").append(code).append(u"','").append(name) + u"')");
    }
  }

  // The chosen number, or "-" when cancelled.
  std::string Pick(std::u16string_view text = {}) {
    const auto number = pickers_.PickAccount(company_, text);
    return number ? Utf8FromUtf16(*number) : "-";
  }

  PickerCompany company_;
  DialogPickers pickers_{GetModuleHandleW(nullptr)};
  OwnerWindow owner_;
  PickerUser user_;
};

TEST_F(AccountPickerWindow, OpensOnTheInitialTextWithItsFirstAccountCurrent) {
  user_
      .Then([this] {
        EXPECT_EQ("1471", user_.Text(ids::kSearch));
        EXPECT_EQ(user_.Control(ids::kSearch), GetFocus());
        EXPECT_EQ("找到 2 个科目", user_.Text(ids::kFound));
        EXPECT_EQ(0, user_.CurrentRow());
        EXPECT_EQ("1471.10", user_.Cell(1, 0));
        EXPECT_EQ("原材料跌价准备", user_.Cell(1, 1));
      })
      .Press(VK_RETURN);
  EXPECT_EQ("1471", Pick(u"1471"));
}

TEST_F(AccountPickerWindow, TypingReplacesTheInitialTextAndFindsInsideNames) {
  user_.Type(u"银行").Await(ids::kFound, u"找到 2 个科目").Press(VK_RETURN);
  EXPECT_EQ("1002", Pick(u"1471"));
}

TEST_F(AccountPickerWindow, ArrowsMoveInTheListWhileTheFieldHasTheFocus) {
  user_.Press(VK_DOWN)
      .Press(VK_DOWN)
      .Press(VK_DOWN)
      .Press(VK_UP)
      .Then([this] {
        EXPECT_EQ(user_.Control(ids::kSearch), GetFocus());
        EXPECT_EQ(2, user_.CurrentRow());
      })
      .Press(VK_RETURN);
  EXPECT_EQ("1002.01", Pick());
}

TEST_F(AccountPickerWindow, PageAndEndKeysMoveInTheListToo) {
  user_.Press(VK_NEXT)
      .Then([this] { EXPECT_EQ(5, user_.CurrentRow()); })
      .Press(VK_PRIOR)
      .Then([this] { EXPECT_EQ(0, user_.CurrentRow()); })
      .PressWithControl(VK_END)
      .Press(VK_RETURN);
  EXPECT_EQ("6701", Pick());
}

TEST_F(AccountPickerWindow, EscapeCancels) {
  user_.Press(VK_ESCAPE);
  EXPECT_EQ("-", Pick());
}

TEST_F(AccountPickerWindow, ClosingTheFrameCancels) {
  user_.Then([this] { PostMessageW(user_.Dialog(), WM_SYSCOMMAND, SC_CLOSE, 0); });
  EXPECT_EQ("-", Pick());
}

TEST_F(AccountPickerWindow, DoubleClickChooses) {
  user_.DoubleClick(3);
  EXPECT_EQ("1471", Pick());
}

TEST_F(AccountPickerWindow, EnterBeforeTheSearchBeganChoosesWhatWasTyped) {
  user_.Then([] {
    for (const char16_t unit : std::u16string_view(u"670")) {
      PostMessageW(GetFocus(), WM_CHAR, unit, 1);
    }
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
  });
  EXPECT_EQ("6701", Pick());
}

TEST_F(AccountPickerWindow, ReportsThatNothingIsFoundAndStaysOpenAtEnter) {
  user_.Then([this] { EXPECT_FALSE(IsWindowVisible(user_.Control(ids::kNothing))); })
      .Type(u"没有")
      .Await(ids::kFound, u"找到 0 个科目")
      .Then([this] {
        EXPECT_TRUE(IsWindowVisible(user_.Control(ids::kNothing)));
        EXPECT_EQ("没有符合条件的科目", user_.Text(ids::kNothing));
      })
      .CapturePicture("account-picker-nothing")
      .Press(VK_RETURN)
      .Then([this] { EXPECT_EQ(user_.Control(ids::kSearch), GetFocus()); })
      .Press(VK_ESCAPE);
  EXPECT_EQ("-", Pick());
}

TEST_F(AccountPickerWindow, TypingInTheListGoesToTheField) {
  user_.Press(VK_TAB)
      .Then([this] { EXPECT_EQ(user_.Control(ids::kList), GetFocus()); })
      .Type(u"67")
      .Await(ids::kFound, u"找到 1 个科目")
      .Then([this] {
        EXPECT_EQ(user_.Control(ids::kSearch), GetFocus());
        EXPECT_EQ("67", user_.Text(ids::kSearch));
      })
      .Press(VK_RETURN);
  EXPECT_EQ("6701", Pick());
}

TEST_F(AccountPickerWindow, TabGoesThroughTheWindowInReadingOrder) {
  for (const int id : {ids::kList, IDOK, IDCANCEL, ids::kSearch}) {
    user_.Press(VK_TAB).Then([this, id] { EXPECT_EQ(user_.Control(id), GetFocus()) << id; });
  }
  user_.Press(VK_ESCAPE);
  EXPECT_EQ("-", Pick());
}

TEST_F(AccountPickerWindow, ActiveWindowIsItsDisabledOwnerAndGetsTheFocusBack) {
  user_
      .Then([this] {
        EXPECT_EQ(owner_.Handle(), GetWindow(user_.Dialog(), GW_OWNER));
        EXPECT_FALSE(IsWindowEnabled(owner_.Handle()));
        RECT owner{};
        RECT dialog{};
        GetWindowRect(owner_.Handle(), &owner);
        GetWindowRect(user_.Dialog(), &dialog);
        EXPECT_NEAR(owner.left + owner.right, dialog.left + dialog.right, 2);
        EXPECT_NEAR(owner.top + owner.bottom, dialog.top + dialog.bottom, 2);
      })
      .Press(VK_ESCAPE);
  Pick();
  EXPECT_TRUE(IsWindowEnabled(owner_.Handle()));
  EXPECT_EQ(owner_.Field(), GetFocus());
}

TEST_F(AccountPickerWindow, HasTheIconOfItsOwnerOrOfItsOwnersClass) {
  const auto shown = [this] {
    LRESULT icon = 0;
    user_.Then([&] { icon = SendMessageW(user_.Dialog(), WM_GETICON, ICON_SMALL, 0); })
        .Press(VK_ESCAPE);
    Pick();
    return icon;
  };
  const auto own = reinterpret_cast<LPARAM>(LoadIconW(nullptr, IDI_WARNING));
  const auto ofClass = reinterpret_cast<LPARAM>(LoadIconW(nullptr, IDI_QUESTION));
  const ULONG_PTR before =
      SetClassLongPtrW(owner_.Handle(), GCLP_HICONSM, static_cast<LONG_PTR>(ofClass));
  EXPECT_EQ(shown(), ofClass);
  SendMessageW(owner_.Handle(), WM_SETICON, ICON_SMALL, own);
  EXPECT_EQ(shown(), own);
  SetClassLongPtrW(owner_.Handle(), GCLP_HICONSM, static_cast<LONG_PTR>(before));
}

TEST_F(AccountPickerWindow, DatabaseErrorWhileItIsOpenReachesTheCaller) {
  user_.Then([this] { company_.fails = true; }).Type(u"银");
  EXPECT_THROW(Pick(), DatabaseError);
  EXPECT_EQ(nullptr, user_.Dialog());
  EXPECT_TRUE(IsWindowEnabled(owner_.Handle()));
}

}  // namespace
}  // namespace workbench::testing
