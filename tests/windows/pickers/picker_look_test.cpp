// The pickers' look: places and widths at every resolution, growing and shrinking, pictures.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <vector>

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
  void Show(const PickerDescription& description, bool several, std::u16string_view text = {},
            int dpi = GetParam()) {
    Picking picking(company_, description, {}, several);
    PickerDialog dialog(GetModuleHandleW(nullptr), picking, dpi);
    dialog.Show(owner_.Handle(), text);
  }

  // What depends on the resolution: the window's places, the rows' height, the columns' widths.
  std::vector<LONG> Sizes() const {
    std::vector<LONG> sizes;
    for (const int id : {ids::kSearchLabel, ids::kSearch, ids::kList, ids::kFound, ids::kChooseAll,
                         ids::kClear, static_cast<int>(IDOK), static_cast<int>(IDCANCEL)}) {
      const RECT area = AreaIn(user_.Dialog(), user_.Control(id));
      sizes.insert(sizes.end(), {area.left, area.top, area.right, area.bottom});
    }
    const HWND list = user_.Control(ids::kList);
    RECT row{};
    ListView_GetItemRect(list, 0, &row, LVIR_BOUNDS);
    sizes.push_back(row.bottom - row.top);
    for (int column = 0; column < 3; ++column) {
      sizes.push_back(ListView_GetColumnWidth(list, column));
    }
    return sizes;
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

TEST_P(PickerLook, FollowsAChangeOfTheResolution) {
  const int other = GetParam() == 96 ? 144 : 96;
  RECT place{};
  std::vector<LONG> expected;
  user_
      .Then([&] {
        GetWindowRect(user_.Dialog(), &place);
        expected = Sizes();
      })
      .Press(VK_ESCAPE);
  Show(ItemPicker(), true, {}, other);
  user_
      .Then([&] {
        EXPECT_NE(Sizes(), expected);
        SendMessageW(user_.Dialog(), pricedown::windows::kDpiChanged,
                     static_cast<WPARAM>(MAKELONG(other, other)), reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(Sizes(), expected);
        CheckPlaces(3);
      })
      .CapturePicture(Name("item-picker-moved"))
      .Press(VK_ESCAPE);
  Show(ItemPicker(), true);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, PickerLook, ::testing::Values(96, 144, 192));

}  // namespace
}  // namespace workbench::testing
