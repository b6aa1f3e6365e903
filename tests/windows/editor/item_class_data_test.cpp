// Classes of a real company added, changed and emptied through the form's window.
// Rows are compared before and after; every message box that appears is named.
#include <gtest/gtest.h>

#include "platform/convert.h"
#include "tests/windows/editor/form_world.h"
#include "windows/base/clipboard.h"

namespace pricedown::testing {
namespace {

class ItemClassDataWindow : public FormWorld {
 protected:
  void TypeHeader(std::u16string_view number, std::u16string_view name) {
    TypeInto(form_ids::kClassNumber, number);
    TypeInto(form_ids::kClassName, name);
    TypeInto(form_ids::kLossAccount, u"5711");
    TypeInto(form_ids::kReserveAccount, u"1281.1");
    TypeInto(form_ids::kPercentage, u"7.25");
  }
};

TEST_F(ItemClassDataWindow, AddsAClassFromEmptyAndStaysReadyForTheNext) {
  pickers->items = {{7, 8, 9}};
  boxes.WillPress({IDNO});
  ShowForAdd({[&] { TypeHeader(u"C1", u"包装物"); },
              [&] {
                ClickTool(FormTool::AddItem);
                EXPECT_EQ(Codes(), "01.7 01.8 01.9 ");
                KeepPicture(Form(), "form with a new class");
              },
              [&] {
                ClickTool(FormTool::Save);
                EXPECT_EQ(TextIn(form_ids::kClassNumber), "");
                EXPECT_EQ(ListCount(), 0);
                EXPECT_TRUE(IsEnabled(FormTool::Add));
                EXPECT_EQ(GetFocus(), Child(form_ids::kClassNumber));
              },
              [&] { ClickTool(FormTool::Exit); }});
  EXPECT_EQ(Classes(),
            "A1|原材料|1|1051|5711|1023|1281.1|12.5\nA1|原材料|2|1051|5711|1023|1281.1|12.5\n"
            "A1|原材料|3|1051|5711|1023|1281.1|12.5\nB1|成品|4|1051|5711|1023|1281.1|12.5\n"
            "B1|成品|5|1051|5711|1023|1281.1|12.5\nC1|包装物|7|1051|5711|1023|1281.1|7.25\n"
            "C1|包装物|8|1051|5711|1023|1281.1|7.25\nC1|包装物|9|1051|5711|1023|1281.1|7.25\n");
  // The emptied list differs from the saved one.
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].text, "当前记录已经改变，是否保存?");
}

TEST_F(ItemClassDataWindow, RenamesAClassWithTheKeyboard) {
  ShowForEdit(u"B1", {[&] {
                        TypeInto(form_ids::kClassNumber, u"B2");
                        TypeInto(form_ids::kClassName, u"半成品");
                        HoldControl(true);
                        PostKey('S');
                      },
                      [&] {
                        HoldControl(false);
                        EXPECT_FALSE(IsEnabled(FormTool::Save));
                      },
                      [&] { ClickTool(FormTool::Exit); }});
  EXPECT_TRUE(boxes.All().empty());
  EXPECT_EQ(Classes().find("B1|"), std::string::npos);
  EXPECT_NE(Classes().find("B2|半成品|4|1051|5711|1023|1281.1|12.5\nB2|半成品|5|"),
            std::string::npos);
}

TEST_F(ItemClassDataWindow, RemovesTheSelectedItemsButTheRefusedOne) {
  AddProvision(2, 2008, 2, 5);
  AddProvision(3, 2008, 3, 6);
  HWND form = nullptr;
  ShowForEdit(u"A1", {[&] {
                        ClickRow(0);
                        SetFocus(List());
                        PressWith(VK_SHIFT, VK_DOWN);
                        PressWith(VK_SHIFT, VK_DOWN);
                        EXPECT_EQ(ListView_GetSelectedCount(List()), 3u);
                        KeepPicture(Form(), "form with selected items");
                      },
                      [&] {
                        form = Form();
                        ClickTool(FormTool::DelItem);
                        EXPECT_EQ(Codes(), "01.2 ");
                      },
                      [&] { CloseByFrame(); }});
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].text, "该物料(01.2)在以前期间已有业务发生，不得删除！");
  EXPECT_EQ(boxes.All()[0].owner, form);
  // At once, though the class was not saved; the earlier period stays.
  EXPECT_EQ(Provisions(), "2|2008|2|5\n");
  EXPECT_NE(Classes().find("A1|原材料|1|"), std::string::npos);
}

TEST_F(ItemClassDataWindow, PickingTheSameAccountEnablesSaving) {
  pickers->accounts = {u"5711"};
  ShowForEdit(u"A1", {[&] {
                        ClickTool(FormTool::Save);
                        EXPECT_FALSE(IsEnabled(FormTool::Save));
                      },
                      [&] {
                        ClickChild(form_ids::kLossLookup);
                        EXPECT_EQ(TextIn(form_ids::kLossAccount), "5711");
                        EXPECT_TRUE(IsEnabled(FormTool::Save));
                      },
                      [&] { CloseByFrame(); }});
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(ItemClassDataWindow, ClicksBetweenTheToolsStartNothing) {
  const std::string before = Classes();
  ShowForEdit(u"A1", {[&] {
                        ClickTool(FormTool{3});
                        ClickTool(FormTool{6});
                        EXPECT_NE(Form(), nullptr);
                        EXPECT_TRUE(IsEnabled(FormTool::Save));
                      },
                      [&] { CloseByFrame(); }});
  EXPECT_TRUE(boxes.All().empty());
  EXPECT_EQ(Classes(), before);
}

TEST_F(ItemClassDataWindow, TheDeleteKeyOfTheListRemovesNothing) {
  ShowForEdit(u"A1", {[&] {
                        ClickRow(0);
                        SetFocus(List());
                        Press(VK_DELETE);
                        EXPECT_EQ(Codes(), "01.1 01.2 01.3 ");
                      },
                      [&] { CloseByFrame(); }});
}

TEST_F(ItemClassDataWindow, SelectsSingleItemsWithTheMouse) {
  ShowForEdit(u"A1", {[&] {
                        ClickRow(0);
                        PressedControlClick(2);
                        EXPECT_EQ(ListView_GetSelectedCount(List()), 2u);
                        ClickTool(FormTool::DelItem);
                        EXPECT_EQ(Codes(), "01.2 ");
                      },
                      [&] { CloseByFrame(); }});
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(ItemClassDataWindow, TheInsertKeyOfTheListAddsItems) {
  pickers->items = {{9}};
  ShowForEdit(u"B1", {[&] {
                        SetFocus(List());
                        Press(VK_INSERT);
                        EXPECT_EQ(Codes(), "01.4 01.5 01.9 ");
                      },
                      [&] { CloseByFrame(); }});
}

TEST_F(ItemClassDataWindow, CopiesSelectedItemsAsTabbedText) {
  ShowForEdit(u"B1", {[&] {
                        SetFocus(List());
                        PressWith(VK_CONTROL, 'A');
                        PressWith(VK_CONTROL, 'C');
                      },
                      [&] { CloseByFrame(); }});
  EXPECT_EQ(Utf8(windows::ClipboardText(host.Handle())), "01.4\t物料4\tM4\r\n01.5\t物料5\tM5\r\n");
}

TEST_F(ItemClassDataWindow, ARefusedCheckNamesTheFieldAndFocusesIt) {
  ShowForEdit(u"A1", {[&] {
                        TypeInto(form_ids::kPercentage, u"101");
                        ClickTool(FormTool::Save);
                        EXPECT_EQ(GetFocus(), Child(form_ids::kPercentage));
                        EXPECT_EQ(Selection(form_ids::kPercentage), 3u) << "all of 101";
                      },
                      [&] { CloseByFrame(); }});
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].text, "跌价比例有误,数值应位于0-100之间");
  EXPECT_NE(Classes().find("A1|原材料|1|1051|5711|1023|1281.1|12.5"), std::string::npos);
}

TEST_F(ItemClassDataWindow, ExitStaysWhenTheSaveItAskedForIsRefused) {
  boxes.WillPress({IDYES, IDOK});
  ShowForEdit(u"A1", {[&] {
                        TypeInto(form_ids::kClassNumber, u"b1");
                        ClickTool(FormTool::Exit);
                        EXPECT_TRUE(IsWindowVisible(Form()) != FALSE);
                        EXPECT_EQ(GetFocus(), Child(form_ids::kClassNumber));
                      },
                      [&] { CloseByFrame(); }});
  ASSERT_EQ(boxes.All().size(), 2u);
  EXPECT_EQ(boxes.All()[0].text, "当前记录已经改变，是否保存?");
  EXPECT_EQ(boxes.All()[1].text, "已经存在代码为:B1的物料类别,请重新输入物料类别代码！");
}

TEST_F(ItemClassDataWindow, AnErrorOfTheDatabaseIsShownAndTheFormStaysUsable) {
  ShowForEdit(u"A1", {[&] {
                        // Pasted, because it cannot be typed.
                        SetWindowTextW(Child(form_ids::kClassName), L"O'Neil");
                        ClickTool(FormTool::Save);
                        EXPECT_FALSE(IsEnabled(FormTool::Save));
                      },
                      [&] {
                        TypeInto(form_ids::kClassName, u"金属");
                        EXPECT_TRUE(IsEnabled(FormTool::Save));
                        ClickTool(FormTool::Save);
                      },
                      [&] { CloseByFrame(); }});
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].title, "岚禾提示");
  EXPECT_NE(boxes.All()[0].text.find("INSERT"), std::string::npos) << boxes.All()[0].text;
  EXPECT_NE(Classes().find("A1|金属|3|"), std::string::npos);
}

TEST_F(ItemClassDataWindow, LongListsScrollToTheirEnd) {
  Run(u"delete from t_ICItem");
  Run(u"delete from icPriceDownClass");
  std::vector<std::int32_t> items;
  for (std::int32_t id = 1; id <= 2000; ++id) {
    AddItem(id);
    items.push_back(id);
  }
  InsertClass(u"L1", u"长", items);
  ShowForEdit(u"L1", {[&] {
                        EXPECT_EQ(ListCount(), 2000);
                        SetFocus(List());
                        Press(VK_END);
                        EXPECT_EQ(ListView_GetNextItem(List(), -1, LVNI_FOCUSED), 1999);
                        KeepPicture(Form(), "form at the end of a long list");
                      },
                      [&] { CloseByFrame(); }});
}

}  // namespace
}  // namespace pricedown::testing
