// Tool bar, header frame with one field a row, item frame with the list below.
// All distances are those of a design at 96 dpi.
#include "windows/editor/item_class_layout.h"

#include <algorithm>

namespace pricedown::windows {
namespace {

constexpr int kMargin = 8;
constexpr int kStripMargin = 3;
constexpr int kFrameInset = 10;
constexpr int kBelowCaption = 6;
constexpr int kRowGap = 6;
constexpr int kFieldMargin = 2;  // of a field above and below its text together
constexpr int kFieldEdges = 6;   // of a field, in pixels at every resolution
constexpr int kLabelGap = 6;
constexpr int kNumberWidth = 260;
constexpr int kNameWidth = 520;  // forty Chinese characters
constexpr int kPercentageWidth = 90;
constexpr int kLookupGap = 3;
constexpr int kLookupWidth = 28;
constexpr int kLeastFieldWidth = 160;
constexpr int kRowMargin = 5;  // of an item row, above and below its text together
constexpr int kLeastItemRows = 4;
constexpr int kFirstItemRows = 11;
// The three columns of the list, a scroll bar and edges.
constexpr int kFirstWidth = 560;

int FieldHeight(const FormMeasures& measures, Dpi dpi) {
  return measures.lineHeight + kFieldEdges + dpi.Scale(kFieldMargin);
}

int HeaderTop(const FormMeasures& measures, Dpi dpi) {
  return measures.stripHeight + 2 * dpi.Scale(kStripMargin) + 2 + dpi.Scale(kMargin) / 2;
}

int HeaderHeight(const FormMeasures& measures, Dpi dpi) {
  const int rows = static_cast<int>(kFormRows.size());
  return measures.lineHeight + dpi.Scale(kBelowCaption) + rows * FieldHeight(measures, dpi) +
         (rows - 1) * dpi.Scale(kRowGap) + dpi.Scale(kFrameInset);
}

int WidthOf(FormField field, int available, Dpi dpi) {
  switch (field) {
    case FormField::ClassName:
      return std::min(available, dpi.Scale(kNameWidth));
    case FormField::Percentage:
      return std::min(available, dpi.Scale(kPercentageWidth));
    default:
      return std::min(available, dpi.Scale(kNumberWidth));
  }
}

// The height of the form with so many rows in the item list, the title row not counted.
int HeightWith(int rows, const FormMeasures& measures, Dpi dpi) {
  const int rowHeight = measures.lineHeight + dpi.Scale(kRowMargin);
  return HeaderTop(measures, dpi) + HeaderHeight(measures, dpi) + dpi.Scale(kMargin) +
         measures.lineHeight + dpi.Scale(kBelowCaption) + (rows + 1) * rowHeight +
         dpi.Scale(kFrameInset) + dpi.Scale(kMargin);
}

}  // namespace

FormPlaces PlaceForm(SIZE client, const FormMeasures& measures, Dpi dpi) {
  const int margin = dpi.Scale(kMargin);
  const int inset = dpi.Scale(kFrameInset);
  const int width = static_cast<int>(client.cx);
  FormPlaces places{};
  const int stripTop = dpi.Scale(kStripMargin);
  places.strip = {stripTop, stripTop, width - stripTop, stripTop + measures.stripHeight};
  const int lineTop = places.strip.bottom + dpi.Scale(kStripMargin);
  places.line = {0, lineTop, width, lineTop + 2};

  const int headerTop = HeaderTop(measures, dpi);
  places.headerFrame = {margin, headerTop, width - margin, headerTop + HeaderHeight(measures, dpi)};
  const int fieldHeight = FieldHeight(measures, dpi);
  const int labelLeft = margin + inset;
  const int fieldLeft = labelLeft + measures.labelWidth + dpi.Scale(kLabelGap);
  const int available = std::max(0, width - margin - inset - fieldLeft);
  int top = headerTop + measures.lineHeight + dpi.Scale(kBelowCaption);
  for (std::size_t i = 0; i < kFormRows.size(); ++i) {
    const FormField field = kFormRows[i];
    places.labels[i] = {labelLeft, top, labelLeft + measures.labelWidth, top + fieldHeight};
    RECT area{fieldLeft, top, fieldLeft + WidthOf(field, available, dpi), top + fieldHeight};
    if (field == FormField::ReserveAccount || field == FormField::LossAccount) {
      RECT& lookup = field == FormField::ReserveAccount ? places.reserveLookup : places.lossLookup;
      lookup = {area.right - dpi.Scale(kLookupWidth), top, area.right, area.bottom};
      area.right = lookup.left - dpi.Scale(kLookupGap);
    }
    places.fields[i] = area;
    top += fieldHeight + dpi.Scale(kRowGap);
  }

  const int itemTop = places.headerFrame.bottom + margin;
  const int bottom = std::max(itemTop, static_cast<int>(client.cy) - margin);
  places.itemFrame = {margin, itemTop, width - margin, bottom};
  const int listTop = itemTop + measures.lineHeight + dpi.Scale(kBelowCaption);
  places.members = {margin + inset, listTop, width - margin - inset,
                    std::max(listTop, bottom - inset)};
  return places;
}

SIZE LeastFormSize(const FormMeasures& measures, Dpi dpi) {
  const int frame = 2 * (dpi.Scale(kMargin) + dpi.Scale(kFrameInset));
  const int fields =
      frame + measures.labelWidth + dpi.Scale(kLabelGap) + dpi.Scale(kLeastFieldWidth);
  return {std::max(fields, measures.stripWidth + 2 * dpi.Scale(kStripMargin)),
          HeightWith(kLeastItemRows, measures, dpi)};
}

SIZE FirstFormSize(const FormMeasures& measures, Dpi dpi) {
  const SIZE least = LeastFormSize(measures, dpi);
  return {std::max(least.cx, LONG{dpi.Scale(kFirstWidth)}),
          HeightWith(kFirstItemRows, measures, dpi)};
}

}  // namespace pricedown::windows
