// The item class form in its window: how it opens, what it accepts and shows, how it closes.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <vector>

#include "platform/error.h"
#include "tests/windows/base/other_resolution.h"
#include "tests/windows/control/context_menus.h"
#include "tests/windows/editor/form_world.h"

namespace pricedown::testing {
namespace {

class ItemClassFormWindow : public FormWorld {};

TEST_F(ItemClassFormWindow, OpensEmptyForANewClass) {
  ShowForAdd({[&] {
                for (int id = form_ids::kClassNumber; id <= form_ids::kPercentage; ++id) {
                  EXPECT_EQ(TextIn(id), "") << id;
                }
                EXPECT_EQ(Utf8(windows::TextOf(Form())), "物料类别维护");
                EXPECT_EQ(GetFocus(), Child(form_ids::kClassNumber));
                EXPECT_TRUE(IsEnabled(FormTool::Add));
                EXPECT_TRUE(IsEnabled(FormTool::Save));
                EXPECT_EQ(ListCount(), 0);
                KeepPicture(Form(), "form for a new class");
              },
              [&] { CloseByFrame(); }});
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(ItemClassFormWindow, OpensFilledOnAClass) {
  ShowForEdit(u"A1", {[&] {
                        EXPECT_EQ(TextIn(form_ids::kClassNumber), "A1");
                        EXPECT_EQ(TextIn(form_ids::kClassName), "原材料");
                        EXPECT_EQ(TextIn(form_ids::kLossAccount), "5711");
                        EXPECT_EQ(TextIn(form_ids::kReserveAccount), "1281.1");
                        EXPECT_EQ(TextIn(form_ids::kPercentage), "12.5");
                        EXPECT_FALSE(IsEnabled(FormTool::Add));
                        EXPECT_TRUE(IsEnabled(FormTool::Save));
                        EXPECT_EQ(Codes(), "01.1 01.2 01.3 ");
                        EXPECT_EQ(Cell(1, 1), "物料2");
                        EXPECT_EQ(Cell(1, 2), "M2");
                        const windows::Dpi dpi = windows::Dpi::Of(List());
                        EXPECT_EQ(ListView_GetColumnWidth(List(), 0), dpi.ToPixels(2000));
                        EXPECT_EQ(ListView_GetColumnWidth(List(), 1), dpi.ToPixels(2500));
                        EXPECT_EQ(ListView_GetColumnWidth(List(), 2), dpi.ToPixels(2800));
                        KeepPicture(Form(), "form on a class");
                      },
                      [&] { CloseByFrame(); }});
}

// As the list asks when the user types into it.
TEST_F(ItemClassFormWindow, FindsAnItemByTheBeginningOfItsCode) {
  const auto found = [this](const wchar_t* code, int from) {
    LVFINDINFOW search{};
    search.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
    search.psz = code;
    return static_cast<int>(SendMessageW(List(), LVM_FINDITEMW, static_cast<WPARAM>(from),
                                         reinterpret_cast<LPARAM>(&search)));
  };
  ShowForEdit(u"A1", {[&] {
                        EXPECT_EQ(found(L"01", -1), 0);
                        EXPECT_EQ(found(L"01.3", -1), 2);
                        EXPECT_EQ(found(L"01.2", 0), 1);
                        EXPECT_EQ(found(L"02", -1), -1);
                      },
                      [&] { CloseByFrame(); }});
}

TEST_F(ItemClassFormWindow, ShowsItsCaptions) {
  ShowForAdd({[&] {
                EXPECT_EQ(TextIn(form_ids::kHeaderFrame), "物料类别：");
                EXPECT_EQ(TextIn(form_ids::kItemFrame), "对应明细物料：");
                EXPECT_EQ(TextIn(form_ids::kLabel1), "物料类别代码：");
                EXPECT_EQ(TextIn(form_ids::kLabel1 + 1), "物料类别名称：");
                EXPECT_EQ(TextIn(form_ids::kLabel1 + 2), "对应存货跌价损失科目：");
                EXPECT_EQ(TextIn(form_ids::kLabel1 + 3), "对应存货跌价准备科目：");
                EXPECT_EQ(TextIn(form_ids::kLabel1 + 4), "计提跌价比例(%)：");
                std::array<wchar_t, 32> title{};
                LVCOLUMNW column{};
                column.mask = LVCF_TEXT;
                column.pszText = title.data();
                column.cchTextMax = static_cast<int>(title.size());
                ListView_GetColumn(List(), 2, &column);
                EXPECT_EQ(Utf8(windows::FromWide(title.data())), "规格型号");
              },
              [&] { CloseByFrame(); }});
}

TEST_F(ItemClassFormWindow, LimitsTheLengthOfItsFields) {
  const auto limit = [&](int id) { return SendMessageW(Child(id), EM_GETLIMITTEXT, 0, 0); };
  ShowForAdd({[&] {
                EXPECT_EQ(limit(form_ids::kClassNumber), 40);
                EXPECT_EQ(limit(form_ids::kClassName), 40);
                EXPECT_EQ(limit(form_ids::kPercentage), 7);
                EXPECT_GT(limit(form_ids::kLossAccount), 30000);
                EXPECT_GT(limit(form_ids::kReserveAccount), 30000);
              },
              [&] { CloseByFrame(); }});
}

TEST_F(ItemClassFormWindow, NumberAndNameAcceptNoBlankAndNoApostrophe) {
  ShowForAdd({[&] {
                TypeInto(form_ids::kClassNumber, u"A 1'x");
                TypeInto(form_ids::kClassName, u"原 料'");
                TypeInto(form_ids::kPercentage, u" 1'2");
                TypeInto(form_ids::kLossAccount, u"57 11'");
                EXPECT_EQ(TextIn(form_ids::kClassNumber), "A1x");
                EXPECT_EQ(TextIn(form_ids::kClassName), "原料");
                EXPECT_EQ(TextIn(form_ids::kPercentage), " 1'2");
                EXPECT_EQ(TextIn(form_ids::kLossAccount), "57 11'");
              },
              [&] { CloseByFrame(); }});
}

TEST_F(ItemClassFormWindow, LooksUpAccountsByKeyAndByButton) {
  pickers->accounts = {u"5711", u"1281.1"};
  ShowForAdd({[&] {
                SetFocus(Child(form_ids::kLossAccount));
                PressWith(VK_CONTROL, VK_F7);
                EXPECT_EQ(TextIn(form_ids::kLossAccount), "5711");
                EXPECT_EQ(TextIn(form_ids::kReserveAccount), "");
                ClickChild(form_ids::kReserveLookup);
                EXPECT_EQ(TextIn(form_ids::kReserveAccount), "1281.1");
                // The queue is empty: the user cancels.
                ClickChild(form_ids::kLossLookup);
                EXPECT_EQ(TextIn(form_ids::kLossAccount), "5711");
              },
              [&] { CloseByFrame(); }});
  EXPECT_TRUE(boxes.All().empty());
  // There is no control to release it later.
  EXPECT_EQ(state.ledgerView, nullptr);
}

TEST_F(ItemClassFormWindow, UsesTheSuitesLanguage) {
  suite_->language = u"en";
  ShowForAdd({[&] {
                EXPECT_EQ(Utf8(windows::TextOf(Form())), "Item class");
                EXPECT_EQ(TextIn(form_ids::kHeaderFrame), "Item class:");
                EXPECT_EQ(TextIn(form_ids::kItemFrame), "Items of the class:");
                EXPECT_EQ(TextIn(form_ids::kLabel1), "Class number:");
                EXPECT_EQ(TextIn(form_ids::kLabel1 + 3), "Reserve account:");
                std::array<wchar_t, 64> caption{};
                SendMessageW(Child(form_ids::kToolStrip), TB_GETBUTTONTEXTW,
                             static_cast<WPARAM>(windows::control_ids::kFirstButton) + 5,
                             reinterpret_cast<LPARAM>(caption.data()));
                EXPECT_EQ(Utf8(windows::FromWide(caption.data())), "Remove items");
                KeepPicture(Form(), "form in English");
              },
              [&] { CloseByFrame(); }});
}

TEST_F(ItemClassFormWindow, AppliesTheSizeThatANewResolutionSuggests) {
  ShowForAdd({[&] {
                RECT suggested{};
                GetWindowRect(Form(), &suggested);
                InflateRect(&suggested, 10, 0);
                SendMessageW(Form(), 0x02E0, MAKEWPARAM(192, 192),
                             reinterpret_cast<LPARAM>(&suggested));
                RECT area{};
                GetWindowRect(Form(), &area);
                EXPECT_TRUE(EqualRect(&area, &suggested) != FALSE);
              },
              [&] { CloseByFrame(); }});
}

TEST_F(ItemClassFormWindow, EscapeClosesWithoutAQuestionWhenNothingChanged) {
  ShowForAdd({[&] { PostKey(VK_ESCAPE); }});
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(ItemClassFormWindow, EscapeAsksWhenAFieldWasChanged) {
  boxes.WillPress({IDNO});
  ShowForAdd({[&] { TypeInto(form_ids::kClassName, u"新类"); }, [&] { PostKey(VK_ESCAPE); }});
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].text, "当前记录已经改变，是否保存?");
  EXPECT_EQ(boxes.All()[0].title, "岚禾提示");
}

TEST_F(ItemClassFormWindow, TheFrameClosesAChangedFormWithoutAQuestion) {
  ShowForEdit(u"A1", {[&] { TypeInto(form_ids::kClassName, u"改了"); }, [&] { CloseByFrame(); }});
  EXPECT_TRUE(boxes.All().empty());
  EXPECT_NE(Classes().find("原材料"), std::string::npos);
}

TEST_F(ItemClassFormWindow, DisablesTheOwnerAndReturnsItsFocus) {
  const HWND field = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20,
                                   host.Handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
  SetFocus(field);
  ShowForAdd({[&] {
                EXPECT_FALSE(IsWindowEnabled(host.Handle()) != FALSE);
                EXPECT_EQ(GetWindow(Form(), GW_OWNER), host.Handle());
              },
              [&] { CloseByFrame(); }});
  EXPECT_TRUE(IsWindowEnabled(host.Handle()) != FALSE);
  EXPECT_EQ(GetFocus(), field);
  EXPECT_EQ(Form(), nullptr);
}

TEST_F(ItemClassFormWindow, LeavesTheFocusInAnotherWindowThatIsActiveWhenItCloses) {
  const HWND field = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20,
                                   host.Handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
  SetFocus(field);
  std::unique_ptr<HostWindow> other;
  ShowForAdd({[&] {
                other = std::make_unique<HostWindow>(300, 200);
                SetFocus(other->Handle());
              },
              [&] { CloseByFrame(); }});
  EXPECT_EQ(GetActiveWindow(), other->Handle());
  EXPECT_EQ(GetFocus(), other->Handle());
  EXPECT_TRUE(IsWindowEnabled(host.Handle()) != FALSE);
}

TEST_F(ItemClassFormWindow, EndsWithItsOwner) {
  ShowForAdd({[&] { DestroyWindow(host.Handle()); }});
  EXPECT_FALSE(dialog.IsShown());
  EXPECT_FALSE(dialog.Form().IsLoaded());
}

TEST_F(ItemClassFormWindow, EndsWithItsOwnerWhileAQuestionIsAsked) {
  boxes.WillPress({0});
  ShowForEdit(u"A1", {[&] { TypeInto(form_ids::kClassName, u"改了"); },
                      [&] { PostMessageW(Form(), WM_COMMAND, IDCANCEL, 0); },
                      [&] { DestroyWindow(host.Handle()); }});
  EXPECT_FALSE(dialog.Form().IsLoaded());
  EXPECT_EQ(boxes.All().size(), 1u);
  EXPECT_NE(Classes().find("原材料"), std::string::npos);
}

TEST_F(ItemClassFormWindow, EndsWhenTheProgramQuits) {
  ShowForAdd({[] { PostQuitMessage(7); }});
  EXPECT_FALSE(dialog.IsShown());
  EXPECT_TRUE(IsWindowEnabled(host.Handle()) != FALSE);
}

TEST_F(ItemClassFormWindow, AFormThatCannotBeLoadedShowsNothing) {
  // There is no member list.
  dialog.Form().SetMode(0);
  EXPECT_THROW(dialog.ShowModal(host.Handle()), AutomationError);
  EXPECT_EQ(Form(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(host.Handle()) != FALSE);
  ShowForAdd({[&] { CloseByFrame(); }});
}

// A window that records whether the form exists when its message arrives.
class Witness {
 public:
  Witness()
      : handle_(
            CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
    SetWindowSubclass(handle_, &Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
  }
  ~Witness() { DestroyWindow(handle_); }
  Witness(const Witness&) = delete;
  Witness& operator=(const Witness&) = delete;

  void Post() const { PostMessageW(handle_, WM_APP, 0, 0); }
  int Seen() const { return seen_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                    UINT_PTR, DWORD_PTR self) {
    if (message == WM_APP && FindWindowW(L"PriceDown.ItemClass", nullptr) != nullptr) {
      ++reinterpret_cast<Witness*>(self)->seen_;
    }
    return DefSubclassProc(window, message, wParam, lParam);
  }

  HWND handle_;
  int seen_ = 0;
};

TEST_F(ItemClassFormWindow, ClosingWaitsForARunningCommand) {
  // The user closes the form while pending messages are processed under the picker.
  pickers->accounts = {u"5711"};
  const Witness witness;
  ShowForAdd({[&] {
    PostMessageW(Form(), WM_CLOSE, 0, 0);
    witness.Post();
    SendMessageW(Child(form_ids::kLossLookup), BM_CLICK, 0, 0);
    EXPECT_EQ(Form(), nullptr);
  }});
  EXPECT_EQ(witness.Seen(), 1);
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(ItemClassFormWindow, KeepsItsMinimumSizeAndItsLastSize) {
  SIZE wanted{};
  SIZE shown{};
  ShowForAdd({[&] {
                SetWindowPos(Form(), nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER);
                RECT area{};
                GetWindowRect(Form(), &area);
                const SIZE least{area.right - area.left, area.bottom - area.top};
                EXPECT_GT(least.cx, 250);
                EXPECT_GT(least.cy, 250);
                KeepPicture(Form(), "form at its least size");
                wanted = {least.cx + 90, least.cy + 40};
                SetWindowPos(Form(), nullptr, 0, 0, wanted.cx, wanted.cy,
                             SWP_NOMOVE | SWP_NOZORDER);
              },
              [&] { CloseByFrame(); }});
  ShowForAdd({[&] {
                RECT area{};
                GetWindowRect(Form(), &area);
                shown = {area.right - area.left, area.bottom - area.top};
              },
              [&] { CloseByFrame(); }});
  EXPECT_EQ(shown.cx, wanted.cx);
  EXPECT_EQ(shown.cy, wanted.cy);
}

TEST_F(ItemClassFormWindow, TheLookupButtonsHaveNamesAndShowAPicture) {
  ShowForAdd({[&] {
    EXPECT_EQ(TextIn(form_ids::kLossLookup), "查找存货跌价损失科目");
    EXPECT_EQ(TextIn(form_ids::kReserveLookup), "查找存货跌价准备科目");
    for (const int id : {form_ids::kLossLookup, form_ids::kReserveLookup}) {
      EXPECT_NE(SendMessageW(Child(id), BM_GETIMAGE, IMAGE_ICON, 0), 0);
    }
    CloseByFrame();
  }});
}

TEST_F(ItemClassFormWindow, ItsFrameHasAnIcon) {
  ShowForAdd({[&] {
    EXPECT_NE(SendMessageW(Form(), WM_GETICON, ICON_SMALL, 0), 0);
    EXPECT_NE(SendMessageW(Form(), WM_GETICON, ICON_BIG, 0), 0);
    CloseByFrame();
  }});
}

TEST_F(ItemClassFormWindow, HasItsFontsHeightsAndIconsAgainAfterAChangeOfTheResolution) {
  ShowForEdit(u"A1", {[&] {
                const std::vector<HWND> children{Child(form_ids::kClassNumber),
                                                 Child(form_ids::kPercentage), List(),
                                                 Child(form_ids::kToolStrip)};
                const auto before = HeightsOf(children);
                const OtherResolution other(children);
                SendMessageW(Form(), WM_SETICON, ICON_SMALL, 0);
                EXPECT_NE(HeightsOf(children), before);
                OtherResolution::SendChange(Form());
                EXPECT_EQ(HeightsOf(children), before);
                EXPECT_NE(SendMessageW(Form(), WM_GETICON, ICON_SMALL, 0), 0);
                CloseByFrame();
              }});
}

TEST_F(ItemClassFormWindow, TheListHasAContextMenuThatRunsItsCommands) {
  ContextMenus menu(5, "form list menu");
  ShowForEdit(u"A1", {[&] {
                        SetFocus(List());
                        SendMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()), -1);
                      },
                      [&] {
                        EXPECT_EQ(ListView_GetSelectedCount(List()),
                                  static_cast<UINT>(ListCount()));
                        CloseByFrame();
                      }});
  EXPECT_EQ(menu.Lines(),
            (std::vector<std::string>{"增加物料\tIns", "[删除物料]", "-", "[复制\tCtrl+C]",
                                      "[连同标题复制\tCtrl+Shift+C]", "-", "全选\tCtrl+A"}));
}

}  // namespace
}  // namespace pricedown::testing
