// The layout cuts areas off the free rectangle, so none overlaps or has a negative size. Distances
// are for a 9-point font and an 18-point title.
#include "control/layout.h"

#include <algorithm>

namespace pricedown {
namespace {

constexpr std::int32_t kTitleAreaHeight = 660;
constexpr std::int32_t kTitleMargin = 120;
constexpr std::int32_t kTitleTop = 75;
constexpr std::int32_t kTitleHeight = 510;
constexpr std::int32_t kPeriodTop = 330;
constexpr std::int32_t kPeriodHeight = 255;
constexpr std::int32_t kPeriodWidth = 2400;
constexpr std::int32_t kSeparatorHeight = 30;
constexpr std::int32_t kToolStripHeight = 450;
constexpr std::int32_t kHeadingHeight = 300;
constexpr std::int32_t kStatusBarHeight = 330;
constexpr std::int32_t kProgressMargin = 45;

// Cuts an edge off `free` and returns it, smaller if there is less space.
Rectangle CutTop(Rectangle& free, std::int32_t height) {
  const Rectangle cut{free.left, free.top, free.width, std::clamp(height, 0, free.height)};
  free.top += cut.height;
  free.height -= cut.height;
  return cut;
}

Rectangle CutBottom(Rectangle& free, std::int32_t height) {
  const std::int32_t cut = std::clamp(height, 0, free.height);
  free.height -= cut;
  return {free.left, free.top + free.height, free.width, cut};
}

Rectangle CutLeft(Rectangle& free, std::int32_t width) {
  const Rectangle cut{free.left, free.top, std::clamp(width, 0, free.width), free.height};
  free.left += cut.width;
  free.width -= cut.width;
  return cut;
}

Rectangle CutRight(Rectangle& free, std::int32_t width) {
  const std::int32_t cut = std::clamp(width, 0, free.width);
  free.width -= cut;
  return {free.left + free.width, free.top, cut, free.height};
}

// `area` cut down to the vertical span that begins `top` below its upper edge.
Rectangle Span(const Rectangle& area, std::int32_t top, std::int32_t height) {
  Rectangle rest = area;
  CutTop(rest, top);
  return CutTop(rest, height);
}

void PlaceTitle(Layout& layout, Rectangle area) {
  CutLeft(area, kTitleMargin);
  CutRight(area, kTitleMargin);
  const Rectangle column = CutRight(area, kPeriodWidth);
  layout.period = Span(column, kPeriodTop, kPeriodHeight);
  Rectangle labels = Span(column, kTitleTop, kPeriodTop - kTitleTop);
  layout.firstLabel = CutLeft(labels, labels.width / 2);
  layout.secondLabel = labels;
  layout.title = Span(area, kTitleTop, kTitleHeight);
}

void PlacePanes(Layout& layout, Rectangle area, std::int32_t splitter) {
  // In a control that is too narrow, only the placement changes; the splitter keeps its position
  // for when the control grows again.
  Rectangle classPane = CutLeft(area, ClampSplitter(splitter, area.width));
  layout.splitter = CutLeft(area, kSplitterWidth);
  layout.classHeading = CutTop(classPane, kHeadingHeight);
  layout.tree = classPane;
  layout.itemHeading = CutTop(area, kHeadingHeight);
  layout.gridPane = area;
  layout.grid = area;
  layout.grid.width = std::max(area.width - kGridMargin, 0);
}

void PlaceProgressBar(Layout& layout) {
  Rectangle area = layout.statusBar;
  area = CutRight(area, kWaitPanelWidth);
  CutLeft(area, kProgressMargin);
  CutRight(area, kProgressMargin);
  CutTop(area, kProgressMargin);
  CutBottom(area, kProgressMargin);
  layout.progressBar = area;
}

}  // namespace

Layout ComputeLayout(const LayoutInput& input) {
  Rectangle free{0, 0, std::max(input.control.width, 0), std::max(input.control.height, 0)};
  Layout layout;
  PlaceTitle(layout, CutTop(free, kTitleAreaHeight));
  layout.upperLine = CutTop(free, kSeparatorHeight);
  layout.toolStrip = CutTop(free, input.toolStripVisible ? kToolStripHeight : 0);
  layout.lowerLine = CutTop(free, input.toolStripVisible ? kSeparatorHeight : 0);
  layout.statusBar = CutBottom(free, input.statusBarVisible ? kStatusBarHeight : 0);
  PlacePanes(layout, free, input.splitter);
  PlaceProgressBar(layout);
  return layout;
}

std::int32_t ClampSplitter(std::int32_t proposed, std::int32_t controlWidth) {
  std::int32_t position = std::max(proposed, kMinimumPaneWidth);
  if (position > std::int64_t{controlWidth} - kMinimumPaneWidth) {
    position = std::max(controlWidth, kMinimumPaneWidth) - kMinimumPaneWidth;
  }
  return position;
}

}  // namespace pricedown
