// Geometry and numbers of the windows, without a window.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "browser/grid_text.h"
#include "tests/support/utf8.h"
#include "windows/base/clipboard.h"
#include "windows/base/dpi.h"
#include "windows/grid/cell_number.h"
#include "windows/grid/grid_geometry.h"

namespace pricedown::testing {
namespace {

using windows::Dpi;
using windows::GridGeometry;
using windows::GridSelection;

struct NumberCase {
  const char* name;
  std::u16string_view text;
  bool mayBecome;
  std::optional<std::string> number;
};

class CellNumber : public ::testing::TestWithParam<NumberCase> {};

TEST_P(CellNumber, IsReadWithTwoDecimalsUpToTheBound) {
  const NumberCase& c = GetParam();
  EXPECT_EQ(windows::MayBecomeCellNumber(c.text, 99999999999.99), c.mayBecome);
  std::optional<std::string> number;
  if (const auto read = windows::CellNumber(c.text, 99999999999.99)) number = Utf8(*read);
  EXPECT_EQ(number, c.number);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CellNumber,
    ::testing::Values(NumberCase{"Empty", u"", true, ""}, NumberCase{"Whole", u"12", true, "12.00"},
                      NumberCase{"OneDecimal", u"0.5", true, "0.50"},
                      NumberCase{"NoWholePart", u".25", true, "0.25"},
                      NumberCase{"LeadingZeros", u"007", true, "7.00"},
                      NumberCase{"PointBehind", u"3.", true, "3.00"},
                      NumberCase{"Negative", u"-1.5", true, "-1.50"},
                      NumberCase{"NegativeZero", u"-0", true, "0.00"},
                      NumberCase{"OnlySign", u"-", true, std::nullopt},
                      NumberCase{"OnlyPoint", u".", true, std::nullopt},
                      NumberCase{"AtTheBound", u"99999999999.99", true, "99999999999.99"},
                      NumberCase{"AboveTheBound", u"100000000000", false, std::nullopt},
                      NumberCase{"ThreeDecimals", u"1.234", false, std::nullopt},
                      NumberCase{"TwoPoints", u"1.2.3", false, std::nullopt},
                      NumberCase{"Letters", u"1e5", false, std::nullopt},
                      NumberCase{"FullWidthDigits", u"１２", false, std::nullopt},
                      NumberCase{"Blank", u"1 2", false, std::nullopt},
                      NumberCase{"VeryLong", u"000000000000000000000001", false, std::nullopt}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(Dpi, KeepsNeighboursTogether) {
  for (const int value : {96, 120, 144, 192, 240}) {
    const Dpi dpi(value);
    for (std::int32_t width = 0; width < 200; width += 7) {
      const RECT left = dpi.ToPixels(Rectangle{0, 0, width, 10});
      const RECT right = dpi.ToPixels(Rectangle{width, 0, 75, 10});
      EXPECT_EQ(left.right, right.left);
    }
  }
}

TEST(Dpi, RestoresASizeInPixelsAfterTwips) {
  for (const int value : {96, 120, 144, 168, 192, 240}) {
    const Dpi dpi(value);
    for (int pixels = 0; pixels < 3000; pixels += 13) {
      EXPECT_NEAR(dpi.ToPixels(dpi.ToTwips(pixels)), pixels, 0) << value;
    }
  }
}

TEST(Dpi, CountsFontHeightsInPoints) {
  EXPECT_EQ(Dpi(96).FontHeight(9), -12);
  EXPECT_EQ(Dpi(144).FontHeight(9), -18);
  EXPECT_EQ(Dpi(192).FontHeight(18), -48);
}

class Geometry : public ::testing::Test {
 protected:
  Geometry() {
    sheet_.SetColumnWidth(1, 10);  // 100 pixels at 96 dpi
    sheet_.SetColumnWidth(2, 0);
    sheet_.SetColumnWidth(3, 5.5);
    geometry_.Update(sheet_, 96, 15);
  }

  Grid sheet_{3};
  GridGeometry geometry_;
};

TEST_F(Geometry, FindsColumnsByPosition) {
  EXPECT_EQ(geometry_.Width(), 155);
  EXPECT_EQ(geometry_.ColumnAt(0), 1);
  EXPECT_EQ(geometry_.ColumnAt(99), 1);
  EXPECT_EQ(geometry_.ColumnAt(100), 3);
  EXPECT_EQ(geometry_.ColumnAt(154), 3);
  EXPECT_EQ(geometry_.ColumnAt(155), 0);
  EXPECT_EQ(geometry_.ColumnAt(-1), 0);
  EXPECT_EQ(geometry_.NearestColumn(-5), 1);
  EXPECT_EQ(geometry_.NearestColumn(1000), 3);
}

TEST_F(Geometry, FindsTheColumnWithoutWidthAtItsEdge) {
  EXPECT_EQ(geometry_.EdgeAt(98, 4), 2);
  EXPECT_EQ(geometry_.EdgeAt(104, 4), 2);
  EXPECT_EQ(geometry_.EdgeAt(105, 4), 0);
  EXPECT_EQ(geometry_.EdgeAt(155, 4), 3);
}

TEST_F(Geometry, SizesRowsForTheirText) {
  sheet_.SetRowHeight(4);
  geometry_.Update(sheet_, 96, 15);
  EXPECT_EQ(geometry_.RowHeight(), 17);
  sheet_.SetRowHeight(16.33);
  geometry_.Update(sheet_, 96, 12);
  EXPECT_EQ(geometry_.RowHeight(), 17);
}

TEST_F(Geometry, WidthsSurviveConversionToPixels) {
  EXPECT_EQ(windows::ColumnPixels(12, 96), 120);
  EXPECT_EQ(windows::ColumnPixels(12, 192), 240);
  for (const int dpi : {96, 120, 144, 192}) {
    for (int pixels = 0; pixels < 500; ++pixels) {
      EXPECT_EQ(windows::ColumnPixels(windows::ColumnWidthUnits(pixels, dpi), dpi), pixels);
    }
  }
}

TEST_F(Geometry, ASelectionStaysInTheGrid) {
  sheet_.SetMaxRows(5);
  GridSelection selection;
  selection.MoveTo(9, 9, false, sheet_);
  EXPECT_EQ(selection.Range(), (CellRange{3, 5, 3, 5}));
  selection.MoveTo(0, -3, true, sheet_);
  EXPECT_EQ(selection.Range(), (CellRange{1, 1, 3, 5}));
  EXPECT_TRUE(selection.IsBlock());
}

TEST(TabbedText, IsOneLinePerRowOfTheGrid) {
  Grid sheet(2);
  sheet.SetMaxRows(2);
  sheet.SetText(1, 1, u"甲");
  sheet.SetText(2, 2, u"2.00");
  EXPECT_EQ(Utf8(TabbedText(sheet, {1, 1, 2, 9})), "甲\t\r\n\t2.00\r\n");
}

}  // namespace
}  // namespace pricedown::testing
