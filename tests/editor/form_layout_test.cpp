// Layout of the item class form at several resolutions.
#include "editor/form_layout.h"

#include <gtest/gtest.h>

#include <vector>

namespace pricedown {
namespace {

FormMeasures MeasuresAt(std::int32_t dpi) {
  return {ScalePixels(24, dpi), ScalePixels(370, dpi), ScalePixels(15, dpi), ScalePixels(140, dpi)};
}

std::vector<Rectangle> Children(const FormPlaces& places) {
  std::vector<Rectangle> areas{places.toolStrip, places.line, places.reserveLookup,
                               places.lossLookup, places.members};
  areas.insert(areas.end(), places.labels.begin(), places.labels.end());
  areas.insert(areas.end(), places.fields.begin(), places.fields.end());
  return areas;
}

bool Overlap(const Rectangle& a, const Rectangle& b) {
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

bool Contains(const Rectangle& outer, const Rectangle& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.Right() <= outer.Right() &&
         inner.Bottom() <= outer.Bottom();
}

TEST(FormLayout, NothingOverlapsAndNothingLeavesTheForm) {
  for (const std::int32_t dpi : {96, 120, 144, 192}) {
    const FormMeasures measures = MeasuresAt(dpi);
    for (const Size size : {MinimumFormSize(measures, dpi), FirstFormSize(measures, dpi)}) {
      const std::vector<Rectangle> areas = Children(PlaceForm(size, measures, dpi));
      for (std::size_t i = 0; i < areas.size(); ++i) {
        EXPECT_FALSE(areas[i].IsEmpty()) << i;
        EXPECT_TRUE(Contains({0, 0, size.width, size.height}, areas[i])) << i;
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(Overlap(areas[i], areas[j])) << i << j;
      }
    }
  }
}

TEST(FormLayout, FramesHoldTheirRowsAndTheList) {
  const FormMeasures measures = MeasuresAt(96);
  const FormPlaces places = PlaceForm(FirstFormSize(measures, 96), measures, 96);
  for (std::size_t i = 0; i < kFormRows.size(); ++i) {
    EXPECT_TRUE(Contains(places.headerFrame, places.labels[i])) << i;
    EXPECT_TRUE(Contains(places.headerFrame, places.fields[i])) << i;
  }
  EXPECT_TRUE(Contains(places.itemFrame, places.members));
}

TEST(FormLayout, ReserveAccountStandsAboveLossAccountEachWithItsLookup) {
  const FormMeasures measures = MeasuresAt(96);
  const FormPlaces places = PlaceForm(FirstFormSize(measures, 96), measures, 96);
  EXPECT_LT(places.reserveLookup.top, places.lossLookup.top);
  EXPECT_EQ(places.reserveLookup.top, places.fields[2].top);
  EXPECT_EQ(places.lossLookup.top, places.fields[3].top);
  EXPECT_LT(places.fields[2].Right(), places.reserveLookup.left);
}

// A tool strip of 24, a line of text of 15, labels of 140.
TEST(FormLayout, PlacesEachPartAtTheUsualResolution) {
  const FormPlaces places = PlaceForm({800, 500}, MeasuresAt(96), 96);
  EXPECT_EQ(places.toolStrip, (Rectangle{3, 3, 794, 24}));
  EXPECT_EQ(places.line, (Rectangle{0, 30, 800, 2}));
  EXPECT_EQ(places.headerFrame, (Rectangle{8, 36, 784, 170}));
  EXPECT_EQ(places.labels[0], (Rectangle{18, 57, 140, 23}));
  EXPECT_EQ(places.labels[4], (Rectangle{18, 173, 140, 23}));
  EXPECT_EQ(places.fields[0], (Rectangle{164, 57, 260, 23}));
  EXPECT_EQ(places.fields[1], (Rectangle{164, 86, 520, 23}));
  EXPECT_EQ(places.fields[2], (Rectangle{164, 115, 229, 23}));
  EXPECT_EQ(places.reserveLookup, (Rectangle{396, 115, 28, 23}));
  EXPECT_EQ(places.fields[4], (Rectangle{164, 173, 90, 23}));
  EXPECT_EQ(places.itemFrame, (Rectangle{8, 214, 784, 278}));
  EXPECT_EQ(places.members, (Rectangle{18, 235, 764, 247}));
}

TEST(FormLayout, KeepsTheEdgesOfLineAndFieldsAtTwiceTheResolution) {
  const FormPlaces places = PlaceForm({1600, 1000}, MeasuresAt(192), 192);
  EXPECT_EQ(places.line, (Rectangle{0, 60, 1600, 2}));
  EXPECT_EQ(places.fields[1], (Rectangle{328, 164, 1040, 40}));
}

TEST(FormLayout, SizesFollowFromTheLabelsAndTheRows) {
  const FormMeasures measures{24, 100, 15, 140};
  EXPECT_EQ(MinimumFormSize(measures, 96), (Size{342, 353}));
  EXPECT_EQ(FirstFormSize(measures, 96), (Size{560, 493}));
  EXPECT_EQ(MinimumFormSize(MeasuresAt(96), 96), (Size{376, 353})) << "all buttons are in sight";
}

TEST(FormLayout, OnlyTheMemberListGrowsWithTheHeight) {
  const FormMeasures measures = MeasuresAt(96);
  const FormPlaces low = PlaceForm({600, 500}, measures, 96);
  const FormPlaces high = PlaceForm({600, 700}, measures, 96);
  EXPECT_EQ(high.headerFrame, low.headerFrame);
  EXPECT_EQ(high.members.height, low.members.height + 200);
}

TEST(FormLayout, NothingHasANegativeSizeInATinyWindow) {
  const FormPlaces places = PlaceForm({600, 10}, MeasuresAt(96), 96);
  EXPECT_EQ(places.itemFrame.height, 0);
  EXPECT_EQ(places.members.height, 0);
}

}  // namespace
}  // namespace pricedown
