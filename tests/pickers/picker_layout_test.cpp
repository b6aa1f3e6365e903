// The places of a picker's controls at every size and resolution.
#include "workbench/pickers/picker_layout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace workbench {
namespace {

bool Overlap(const Box& a, const Box& b) {
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

std::vector<Box> Apart(const PickerLayout& layout) {
  return {layout.searchLabel, layout.search, layout.list, layout.found, layout.chosen,
          layout.chooseAll,   layout.clear,  layout.ok,   layout.cancel};
}

class PickerLayoutAtDpi : public ::testing::TestWithParam<int> {
 protected:
  PickerMeasures Measures() const {
    return {GetParam(), 15 * GetParam() / 96, 64 * GetParam() / 96, 76 * GetParam() / 96};
  }
};

TEST_P(PickerLayoutAtDpi, NothingOverlapsOrLeavesTheWindowFromTheSmallestSizeOn) {
  const Box smallest = SmallestPicker(Measures());
  for (const int more : {0, 1, 37, 400}) {
    const int width = smallest.width + more;
    const int height = smallest.height + more;
    const std::vector<Box> boxes = Apart(LayOutPicker(width, height, Measures()));
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      EXPECT_GE(boxes[i].left, 0);
      EXPECT_LE(boxes[i].Right(), width);
      EXPECT_LE(boxes[i].Bottom(), height);
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_FALSE(Overlap(boxes[i], boxes[j])) << i << " and " << j;
      }
    }
  }
}

TEST_P(PickerLayoutAtDpi, SmallestWindowShowsFiveRows) {
  const PickerMeasures measures = Measures();
  const Box smallest = SmallestPicker(measures);
  const PickerLayout layout = LayOutPicker(smallest.width, smallest.height, measures);
  EXPECT_GE(layout.list.height, 5 * (measures.lineHeight + 2 * GetParam() / 96));
}

TEST_P(PickerLayoutAtDpi, TheListGetsTheExtraSpace) {
  const PickerLayout small = LayOutPicker(900, 700, Measures());
  const PickerLayout large = LayOutPicker(1000, 850, Measures());
  EXPECT_EQ(small.list.width + 100, large.list.width);
  EXPECT_EQ(small.list.height + 150, large.list.height);
  EXPECT_EQ(small.ok.width, large.ok.width);
}

TEST_P(PickerLayoutAtDpi, NoSizeIsNegativeInATinyWindow) {
  for (const Box& box : Apart(LayOutPicker(10, 10, Measures()))) {
    EXPECT_GE(box.width, 0);
    EXPECT_GE(box.height, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Resolutions, PickerLayoutAtDpi, ::testing::Values(96, 144, 192));

}  // namespace
}  // namespace workbench
