// The item picker in high contrast, on its pixels: texts, ticks and the current row stand out.
#include <gtest/gtest.h>

#include <commctrl.h>

#include "tests/pickers/picker_company.h"
#include "tests/windows/base/high_contrast.h"
#include "tests/windows/pickers/picker_user.h"
#include "workbench/pickers/dialog/picker_dialog.h"
#include "workbench/pickers/picker_ids.h"

namespace workbench::testing {
namespace {

namespace ids = picker_ids;
using pricedown::testing::CapturePicture;
using pricedown::testing::Contrast;
using pricedown::testing::HighContrast;
using pricedown::testing::KeepPicture;
using pricedown::testing::Picture;
using pricedown::testing::ShareThatStandsOut;

class PickerInHighContrast : public ::testing::TestWithParam<bool> {
 protected:
  // Of the control's client area.
  double Share(int id) const {
    const Picture picture = CapturePicture(user_.Control(id));
    return ShareThatStandsOut(picture, {1, 1, picture.width - 1, picture.height - 1}, 4.5);
  }
  RECT RowArea(int row, int part) const {
    RECT area{};
    ListView_GetItemRect(user_.Control(ids::kList), row, &area, part);
    return area;
  }
  // From the row's start to its text.
  RECT TickArea(int row) const {
    const RECT text = RowArea(row, LVIR_LABEL);
    return {1, text.top + 1, text.left - 1, text.bottom - 1};
  }

  void CheckList() const {
    const Picture list = CapturePicture(user_.Control(ids::kList));
    const auto ground = [&](int row) {
      const RECT text = RowArea(row, LVIR_LABEL);
      EXPECT_GT(ShareThatStandsOut(list, text, 4.5), 0.02) << row;
      return list.At(text.left, text.top + 1);
    };
    EXPECT_GT(Contrast(ground(1), ground(2)), 3) << "the current row";
    EXPECT_GT(ShareThatStandsOut(list, TickArea(2), 1.3), 0.05) << "no tick";
    const RECT ticked = TickArea(1);
    int different = 0;
    for (LONG y = ticked.top; y < ticked.bottom; ++y) {
      for (LONG x = ticked.left; x < ticked.right; ++x) {
        const LONG below = y - ticked.top + TickArea(2).top;
        if (Contrast(list.At(x, y), list.At(x, below)) > 3) ++different;
      }
    }
    EXPECT_GT(different, 10) << "a tick";
  }

  PickerCompany company_;
  OwnerWindow owner_;
  PickerUser user_;
  const HighContrast colours_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Schemes, PickerInHighContrast, ::testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Dark" : "Light"; });

TEST_P(PickerInHighContrast, TextsTicksAndTheCurrentRowStandOut) {
  user_.Press(VK_DOWN)
      .Press(VK_SPACE)
      .Await(ids::kChosen, u"已选 1 项")
      .Then([this] { HighContrast::Apply(user_.Dialog()); })
      .Then([this] {
        KeepPicture(user_.Dialog(), GetParam() ? "picker in dark" : "picker in light");
        CheckList();
        for (const int id : {ids::kSearchLabel, ids::kFound, ids::kChosen, ids::kChooseAll,
                             ids::kClear, static_cast<int>(IDOK), static_cast<int>(IDCANCEL)}) {
          EXPECT_GT(Share(id), 0.003) << id;
        }
      })
      .Press(VK_ESCAPE);
  Picking picking(company_, ItemPicker(), {}, true);
  PickerDialog dialog(GetModuleHandleW(nullptr), picking);
  dialog.Show(owner_.Handle(), {});
}

TEST_P(PickerInHighContrast, ATickIsDrawnInColoursThatChangeWhileThePickerIsOpen) {
  Picture before;
  Picture after;
  user_.Then([&] { before = CapturePicture(user_.Control(ids::kList)); })
      .Then([&] {
        const HighContrast others(!GetParam());
        HighContrast::Apply(user_.Dialog());
        after = CapturePicture(user_.Control(ids::kList));
        KeepPicture(before, "picker before the colours");
        KeepPicture(after, "picker in other colours");
        const RECT tick = TickArea(2);
        // Beside the box, in its picture.
        const int x = tick.left + 3;
        EXPECT_GT(Contrast(before.At(x, tick.top), after.At(x, tick.top)), 4.5);
      })
      .Press(VK_ESCAPE);
  Picking picking(company_, ItemPicker(), {}, true);
  PickerDialog dialog(GetModuleHandleW(nullptr), picking);
  dialog.Show(owner_.Handle(), {});
}

}  // namespace
}  // namespace workbench::testing
