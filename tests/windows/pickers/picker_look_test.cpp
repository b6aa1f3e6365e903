// The pickers' look: places and widths at every resolution, growing and shrinking, pictures.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "tests/pickers/picker_company.h"
#include "tests/windows/pickers/picker_user.h"
#include "workbench/pickers/dialog/picker_dialog.h"
#include "workbench/pickers/picker_ids.h"

namespace workbench::testing {
namespace {

namespace ids = picker_ids;

RECT AreaIn(HWND dialog, HWND control) {
  RECT area{};
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

int ColumnWidths(HWND list, int count) {
  int width = 0;
  for (int column = 0; column < count; ++column) width += ListView_GetColumnWidth(list, column);
  return width;
}

class PickerLook : public ::testing::TestWithParam<int> {
 protected:
  void Show(const PickerDescription& description, bool several, std::u16string_view text = {}) {
    Picking picking(company_, description, {}, several);
    PickerDialog dialog(GetModuleHandleW(nullptr), picking, GetParam());
    dialog.Show(owner_.Handle(), text);
  }

  // Every control is inside, every button shows its whole text, no column is cut off.
  void CheckPlaces(int columns) {
    const HWND dialog = user_.Dialog();
    RECT client{};
    GetClientRect(dialog, &client);
    for (const int id : {ids::kSearch, ids::kList, ids::kChooseAll, ids::kClear, IDOK, IDCANCEL}) {
      const HWND control = user_.Control(id);
      if (control == nullptr) continue;
      const RECT area = AreaIn(dialog, control);
      EXPECT_GE(area.left, 0) << id;
      EXPECT_LE(area.right, client.right) << id;
      EXPECT_LE(area.bottom, client.bottom) << id;
      SIZE ideal{};
      if (SendMessageW(control, BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&ideal)) != 0) {
        EXPECT_GE(area.right - area.left, ideal.cx) << id;
        EXPECT_GE(area.bottom - area.top, ideal.cy) << id;
      }
    }
    RECT list{};
    GetClientRect(user_.Control(ids::kList), &list);
    EXPECT_EQ(list.right, ColumnWidths(user_.Control(ids::kList), columns));
  }

  std::string Name(const char* picker) const {
    return std::string(picker) + "-" + std::to_string(GetParam());
  }

  PickerCompany company_;
  OwnerWindow owner_;
  PickerUser user_;
};

TEST_P(PickerLook, AccountsFitTheirWindow) {
  user_.Then([this] { CheckPlaces(2); })
      .Press(VK_DOWN)
      .CapturePicture(Name("account-picker"))
      .Press(VK_ESCAPE);
  Show(AccountPicker(), false, u"1");
}

TEST_P(PickerLook, ItemsFitTheirWindow) {
  user_.Then([this] { CheckPlaces(3); })
      .CapturePicture(Name("item-picker-all"))
      .Type(u"钢")
      .Press(VK_DOWN)
      .Press(VK_SPACE)
      .Press(VK_DOWN)
      .Press(VK_DOWN)
      .Press(VK_SPACE)
      .Await(ids::kChosen, u"已选 2 项")
      .CapturePicture(Name("item-picker"))
      .Press(VK_ESCAPE);
  Show(ItemPicker(), true);
}

TEST_P(PickerLook, GrowsAndKeepsASensibleSmallestSize) {
  user_.Then([this] { SetWindowPos(user_.Dialog(), nullptr, 0, 0, 10, 10, SWP_NOZORDER); })
      .Then([this] {
        CheckPlaces(3);
        EXPECT_GE(ListView_GetCountPerPage(user_.Control(ids::kList)), 3);
      })
      .CapturePicture(Name("item-picker-smallest"))
      .Then([this] { SetWindowPos(user_.Dialog(), nullptr, 0, 0, 1200, 760, SWP_NOZORDER); })
      .Then([this] { CheckPlaces(3); })
      .Press(VK_ESCAPE);
  Show(ItemPicker(), true);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, PickerLook, ::testing::Values(96, 144, 192));

}  // namespace
}  // namespace workbench::testing
