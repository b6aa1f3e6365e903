// Two groups of tools from left to right, then a line, then the pane. All constants are pixels of a
// design at 96 dpi.
#include "print/preview_layout.h"

#include <algorithm>

namespace pricedown {
namespace {

constexpr std::int32_t kMargin = 4;
constexpr std::int32_t kGap = 4;          // between a field and its label
constexpr std::int32_t kGroupGap = 14;    // between groups
constexpr std::int32_t kFieldEdges = 4;   // of a field, in pixels at every resolution
constexpr std::int32_t kFieldMargin = 1;  // below its text, which is at its top
constexpr std::int32_t kLineHeight = 2;   // in pixels at every resolution
constexpr std::int32_t kMinimumPaneHeight = 160;
constexpr std::int32_t kDropDownHeight = 320;
constexpr Size kFirstSize{900, 800};
constexpr std::int32_t kEnoughHeight = 600;

// The constants and the measures at one resolution.
struct Measured {
  Measured(const PreviewMeasures& theMeasures, std::int32_t dotsPerInch)
      : measures(theMeasures),
        dpi(dotsPerInch),
        margin(Scale(kMargin)),
        gap(Scale(kGap)),
        groupGap(Scale(kGroupGap)),
        fieldHeight(measures.lineHeight + kFieldEdges + Scale(kFieldMargin)),
        rowHeight(std::max({measures.documentBar.height, measures.viewBar.height,
                            measures.zoom.height, fieldHeight})),
        firstGroup(measures.documentBar.width + groupGap + measures.pageLabel + measures.pageField +
                   measures.pageCount + 2 * gap),
        secondGroup(measures.zoomLabel + measures.zoom.width + measures.viewBar.width + 2 * gap),
        oneRow(2 * margin + firstGroup + groupGap + secondGroup) {}

  std::int32_t Scale(std::int32_t pixels) const { return ScalePixels(pixels, dpi); }

  const PreviewMeasures& measures;
  std::int32_t dpi;
  std::int32_t margin;
  std::int32_t gap;
  std::int32_t groupGap;
  std::int32_t fieldHeight;
  std::int32_t rowHeight;
  std::int32_t firstGroup;
  std::int32_t secondGroup;
  std::int32_t oneRow;
};

// Places one thing after the other, each in the middle of the row's height.
class Row {
 public:
  Row(std::int32_t left, std::int32_t top, std::int32_t height)
      : left_(left), top_(top), height_(height) {}

  Rectangle Place(const Size& size) {
    const Rectangle place{left_, top_ + (height_ - size.height) / 2, size.width, size.height};
    left_ += size.width;
    return place;
  }
  void Skip(std::int32_t width) { left_ += width; }

 private:
  std::int32_t left_;
  std::int32_t top_;
  std::int32_t height_;
};

}  // namespace

PreviewPlaces PlacePreview(const Size& client, const PreviewMeasures& measures,
                           std::int32_t dotsPerInch) {
  const Measured m(measures, dotsPerInch);
  PreviewPlaces places;
  Row row(m.margin, m.margin, m.rowHeight);
  places.documentBar = row.Place(measures.documentBar);
  row.Skip(m.groupGap);
  places.pageLabel = row.Place({measures.pageLabel, measures.lineHeight});
  row.Skip(m.gap);
  places.pageField = row.Place({measures.pageField, m.fieldHeight});
  row.Skip(m.gap);
  places.pageCount = row.Place({measures.pageCount, measures.lineHeight});
  row.Skip(m.groupGap);
  std::int32_t bottom = m.margin + m.rowHeight;
  if (client.width < m.oneRow) {
    row = Row(m.margin, bottom + m.margin, m.rowHeight);
    bottom += m.margin + m.rowHeight;
  }
  places.zoomLabel = row.Place({measures.zoomLabel, measures.lineHeight});
  row.Skip(m.gap);
  places.zoom = row.Place(measures.zoom);
  places.zoom.height += m.Scale(kDropDownHeight);
  row.Skip(m.gap);
  places.viewBar = row.Place(measures.viewBar);
  places.line = {0, bottom + m.margin, client.width, kLineHeight};
  const std::int32_t pane = places.line.Bottom();
  places.pane = {0, pane, client.width, std::max(client.height - pane, 0)};
  return places;
}

Size MinimumPreviewSize(const PreviewMeasures& measures, std::int32_t dotsPerInch) {
  const Measured m(measures, dotsPerInch);
  return {2 * m.margin + std::max(m.firstGroup, m.secondGroup),
          3 * m.margin + 2 * m.rowHeight + kLineHeight + m.Scale(kMinimumPaneHeight)};
}

Size FirstPreviewSize(const PreviewMeasures& measures, std::int32_t dotsPerInch) {
  const Measured m(measures, dotsPerInch);
  return {std::max(m.Scale(kFirstSize.width), m.oneRow), m.Scale(kFirstSize.height)};
}

Size PreviewSizeOver(const Size& first, const Size& owner, std::int32_t dotsPerInch) {
  const bool highEnough = owner.height >= ScalePixels(kEnoughHeight, dotsPerInch);
  return {std::max(first.width, owner.width), highEnough ? owner.height : first.height};
}

ProgressPlaces PlaceProgress(std::int32_t dotsPerInch) {
  constexpr std::int32_t kWidth = 320;
  constexpr std::int32_t kEdge = 14;
  constexpr std::int32_t kTextHeight = 20;
  constexpr std::int32_t kBarHeight = 16;
  constexpr std::int32_t kSpace = 12;
  constexpr Size kButton{84, 26};
  constexpr std::int32_t kHeight =
      2 * kEdge + kTextHeight + kBarHeight + kButton.height + 2 * kSpace;
  const auto scale = [&](std::int32_t pixels) { return ScalePixels(pixels, dotsPerInch); };
  const std::int32_t inside = scale(kWidth) - 2 * scale(kEdge);
  ProgressPlaces places;
  places.client = {scale(kWidth), scale(kHeight)};
  places.text = {scale(kEdge), scale(kEdge), inside, scale(kTextHeight)};
  places.bar = {scale(kEdge), places.text.Bottom() + scale(kSpace) / 2, inside, scale(kBarHeight)};
  places.button = {(scale(kWidth) - scale(kButton.width)) / 2, places.bar.Bottom() + scale(kSpace),
                   scale(kButton.width), scale(kButton.height)};
  return places;
}

}  // namespace pricedown
