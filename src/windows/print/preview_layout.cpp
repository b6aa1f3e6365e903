// Two groups of tools from left to right, then a line, then the pane.
// All distances are those of a design at 96 dpi.
#include "windows/print/preview_layout.h"

#include <algorithm>

namespace pricedown::windows {
namespace {

constexpr int kMargin = 4;
constexpr int kGap = 4;          // between a field and its label
constexpr int kGroupGap = 14;    // between groups
constexpr int kFieldEdges = 4;   // of a field, in pixels at every resolution
constexpr int kFieldMargin = 1;  // below its text, which stands at its top
constexpr int kLineHeight = 2;
constexpr int kLeastPaneHeight = 160;
constexpr SIZE kFirstSize{900, 800};

int FieldHeight(const PreviewMeasures& measures, Dpi dpi) {
  return measures.lineHeight + kFieldEdges + dpi.Scale(kFieldMargin);
}

int RowHeight(const PreviewMeasures& measures, Dpi dpi) {
  return std::max<int>({static_cast<int>(measures.documentBar.cy),
                        static_cast<int>(measures.viewBar.cy), static_cast<int>(measures.zoom.cy),
                        FieldHeight(measures, dpi)});
}

int FirstGroupWidth(const PreviewMeasures& measures, Dpi dpi) {
  return static_cast<int>(measures.documentBar.cx) + dpi.Scale(kGroupGap) + measures.pageLabel +
         measures.pageField + measures.pageCount + 2 * dpi.Scale(kGap);
}

int SecondGroupWidth(const PreviewMeasures& measures, Dpi dpi) {
  return measures.zoomLabel + static_cast<int>(measures.zoom.cx + measures.viewBar.cx) +
         2 * dpi.Scale(kGap);
}

// Places one thing after the other, each in the middle of the row's height.
class Row {
 public:
  Row(int left, int top, int height) : left_(left), top_(top), height_(height) {}

  RECT Place(int width, int height) {
    const int top = top_ + (height_ - height) / 2;
    const RECT place{left_, top, left_ + width, top + height};
    left_ += width;
    return place;
  }
  void Skip(int width) { left_ += width; }

 private:
  int left_;
  int top_;
  int height_;
};

}  // namespace

PreviewPlaces PlacePreview(SIZE client, const PreviewMeasures& measures, Dpi dpi) {
  const int margin = dpi.Scale(kMargin);
  const int gap = dpi.Scale(kGap);
  const int height = RowHeight(measures, dpi);
  const int field = FieldHeight(measures, dpi);
  PreviewPlaces places;
  Row row(margin, margin, height);
  places.documentBar = row.Place(static_cast<int>(measures.documentBar.cx),
                                 static_cast<int>(measures.documentBar.cy));
  row.Skip(dpi.Scale(kGroupGap));
  places.pageLabel = row.Place(measures.pageLabel, measures.lineHeight);
  row.Skip(gap);
  places.pageField = row.Place(measures.pageField, field);
  row.Skip(gap);
  places.pageCount = row.Place(measures.pageCount, measures.lineHeight);
  row.Skip(dpi.Scale(kGroupGap));
  const int oneRow = 2 * margin + FirstGroupWidth(measures, dpi) + dpi.Scale(kGroupGap) +
                     SecondGroupWidth(measures, dpi);
  int bottom = margin + height;
  if (client.cx < oneRow) {
    row = Row(margin, bottom + margin, height);
    bottom += margin + height;
  }
  places.zoomLabel = row.Place(measures.zoomLabel, measures.lineHeight);
  row.Skip(gap);
  places.zoom = row.Place(static_cast<int>(measures.zoom.cx), static_cast<int>(measures.zoom.cy));
  row.Skip(gap);
  places.viewBar =
      row.Place(static_cast<int>(measures.viewBar.cx), static_cast<int>(measures.viewBar.cy));
  const int line = bottom + margin;
  places.line = {0, line, client.cx, line + kLineHeight};
  places.pane = {0, line + kLineHeight, client.cx, std::max<LONG>(client.cy, line + kLineHeight)};
  return places;
}

SIZE LeastPreviewSize(const PreviewMeasures& measures, Dpi dpi) {
  const int margin = dpi.Scale(kMargin);
  const int width = std::max(FirstGroupWidth(measures, dpi), SecondGroupWidth(measures, dpi));
  return {2 * margin + width,
          3 * margin + 2 * RowHeight(measures, dpi) + kLineHeight + dpi.Scale(kLeastPaneHeight)};
}

SIZE FirstPreviewSize(const PreviewMeasures& measures, Dpi dpi) {
  const int oneRow = 2 * dpi.Scale(kMargin) + FirstGroupWidth(measures, dpi) +
                     dpi.Scale(kGroupGap) + SecondGroupWidth(measures, dpi);
  return {std::max<LONG>(dpi.Scale(kFirstSize.cx), oneRow), dpi.Scale(kFirstSize.cy)};
}

}  // namespace pricedown::windows
