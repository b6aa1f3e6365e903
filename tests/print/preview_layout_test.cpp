// Where the preview's children are.
#include "print/preview_layout.h"

#include <gtest/gtest.h>

#include <vector>

namespace pricedown::testing {
namespace {

// As a common font at 96 dpi makes them.
const PreviewMeasures kMeasures{{400, 28}, {220, 28}, 50, 60, 70, 45, {80, 22}, 15};
// Margins, both groups, and the gap between them.
constexpr std::int32_t kOneRow = 8 + (400 + 14 + 50 + 60 + 70 + 8) + 14 + (45 + 80 + 220 + 8);

std::vector<Rectangle> Tools(const PreviewPlaces& places) {
  Rectangle zoom = places.zoom;
  zoom.height = kMeasures.zoom.height;
  return {places.documentBar, places.pageLabel, places.pageField,
          places.pageCount,   places.zoomLabel, zoom,
          places.viewBar};
}

bool Meet(const Rectangle& one, const Rectangle& other) {
  return one.left < other.Right() && other.left < one.Right() && one.top < other.Bottom() &&
         other.top < one.Bottom();
}

void ExpectApartAndInside(const PreviewPlaces& places, std::int32_t width) {
  const std::vector<Rectangle> tools = Tools(places);
  for (std::size_t i = 0; i < tools.size(); ++i) {
    EXPECT_GE(tools[i].left, 0) << i;
    EXPECT_LE(tools[i].Right(), width) << i;
    EXPECT_LE(tools[i].Bottom(), places.line.top) << i;
    for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(Meet(tools[i], tools[j])) << i << " " << j;
  }
}

TEST(PreviewLayout, StandsInOneRowWhereItFits) {
  const PreviewPlaces places = PlacePreview({kOneRow, 700}, kMeasures, 96);
  EXPECT_EQ(places.documentBar, (Rectangle{4, 4, 400, 28}));
  // Lower things are in the middle of the row.
  EXPECT_EQ(places.pageLabel, (Rectangle{418, 10, 50, 15}));
  EXPECT_EQ(places.pageField, (Rectangle{472, 8, 60, 20}));
  EXPECT_EQ(places.viewBar, (Rectangle{kOneRow - 4 - 220, 4, 220, 28}));
  EXPECT_EQ(places.line, (Rectangle{0, 36, kOneRow, 2}));
  EXPECT_EQ(places.pane, (Rectangle{0, 38, kOneRow, 662}));
  ExpectApartAndInside(places, kOneRow);
}

TEST(PreviewLayout, HasASecondRowWhereItIsTooNarrow) {
  const PreviewPlaces places = PlacePreview({kOneRow - 1, 700}, kMeasures, 96);
  EXPECT_EQ(places.pageCount, (Rectangle{536, 10, 70, 15}));
  EXPECT_EQ(places.zoomLabel, (Rectangle{4, 42, 45, 15}));
  EXPECT_EQ(places.zoom, (Rectangle{53, 39, 80, 22 + 320}));
  EXPECT_EQ(places.viewBar, (Rectangle{137, 36, 220, 28}));
  EXPECT_EQ(places.pane.top, 70);
  ExpectApartAndInside(places, kOneRow - 1);
}

TEST(PreviewLayout, KeepsTheEdgesOfLineAndFieldAtTwiceTheResolution) {
  const PreviewPlaces places = PlacePreview({2000, 700}, kMeasures, 192);
  EXPECT_EQ(places.pageField.height, 15 + 4 + 2);
  EXPECT_EQ(places.line, (Rectangle{0, 44, 2000, 2}));
}

TEST(PreviewLayout, ShowsEveryButtonAtItsMinimumSize) {
  for (const std::int32_t dpi : {96, 120, 144, 192}) {
    const Size least = MinimumPreviewSize(kMeasures, dpi);
    const PreviewPlaces places = PlacePreview(least, kMeasures, dpi);
    ExpectApartAndInside(places, least.width);
    EXPECT_EQ(places.pane.height, ScalePixels(160, dpi)) << dpi;
  }
}

TEST(PreviewLayout, ShowsNoPaneInAWindowThatIsTooLow) {
  EXPECT_EQ(PlacePreview({kOneRow, 10}, kMeasures, 96).pane, (Rectangle{0, 38, kOneRow, 0}));
}

TEST(PreviewLayout, OpensInOneRow) {
  EXPECT_EQ(FirstPreviewSize(kMeasures, 96), (Size{kOneRow, 800}));
  EXPECT_EQ(FirstPreviewSize({}, 192), (Size{1800, 1600}));
}

TEST(PreviewLayout, OpensAsLargeAsItsOwnerUnlessThatIsSmall) {
  EXPECT_EQ(PreviewSizeOver({900, 800}, {1200, 700}, 96), (Size{1200, 700}));
  EXPECT_EQ(PreviewSizeOver({900, 800}, {600, 599}, 96), (Size{900, 800}));
  EXPECT_EQ(PreviewSizeOver({900, 800}, {600, 600}, 96), (Size{900, 600}));
}

TEST(ProgressLayout, StacksTextBarAndButton) {
  const ProgressPlaces places = PlaceProgress(96);
  EXPECT_EQ(places.client, (Size{320, 114}));
  EXPECT_EQ(places.text, (Rectangle{14, 14, 292, 20}));
  EXPECT_EQ(places.bar, (Rectangle{14, 40, 292, 16}));
  EXPECT_EQ(places.button, (Rectangle{118, 68, 84, 26}));
  EXPECT_EQ(PlaceProgress(192).button, (Rectangle{236, 136, 168, 52}));
}

}  // namespace
}  // namespace pricedown::testing
