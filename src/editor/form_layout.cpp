// Tool strip, header frame with one field a row, item frame with the member list.
// Constants are pixels of a design at 96 dpi.
#include "editor/form_layout.h"

#include <algorithm>

namespace pricedown {
namespace {

constexpr std::int32_t kMargin = 8;
constexpr std::int32_t kStripMargin = 3;
constexpr std::int32_t kLineHeight = 2;  // at every resolution
constexpr std::int32_t kFrameInset = 10;
constexpr std::int32_t kBelowCaption = 6;
constexpr std::int32_t kRowGap = 6;
constexpr std::int32_t kFieldMargin = 2;  // of a field above and below its text together
constexpr std::int32_t kFieldEdges = 6;   // of a field, at every resolution
constexpr std::int32_t kLabelGap = 6;
constexpr std::int32_t kNumberWidth = 260;
constexpr std::int32_t kNameWidth = 520;  // forty Chinese characters
constexpr std::int32_t kPercentageWidth = 90;
constexpr std::int32_t kLookupGap = 3;
constexpr std::int32_t kLookupWidth = 28;
constexpr std::int32_t kMinimumFieldWidth = 160;
constexpr std::int32_t kMinimumItemRows = 4;
constexpr std::int32_t kFirstItemRows = 11;
// The three columns of the list, a scroll bar and edges.
constexpr std::int32_t kFirstWidth = 560;

class Layout {
 public:
  Layout(const FormMeasures& measures, std::int32_t dotsPerInch)
      : measures_(measures), dotsPerInch_(dotsPerInch) {}

  FormPlaces Place(Size client) const;
  Size MinimumSize() const;
  Size FirstSize() const;

 private:
  std::int32_t Scale(std::int32_t pixels) const { return ScalePixels(pixels, dotsPerInch_); }
  std::int32_t FieldHeight() const {
    return measures_.lineHeight + kFieldEdges + Scale(kFieldMargin);
  }
  // From the upper edge of a frame to what it holds.
  std::int32_t CaptionHeight() const { return measures_.lineHeight + Scale(kBelowCaption); }
  std::int32_t LineTop() const { return measures_.toolStripHeight + 2 * Scale(kStripMargin); }
  std::int32_t HeaderTop() const { return LineTop() + kLineHeight + Scale(kMargin) / 2; }
  std::int32_t HeaderHeight() const {
    const auto rows = static_cast<std::int32_t>(kFormRows.size());
    return CaptionHeight() + rows * FieldHeight() + (rows - 1) * Scale(kRowGap) +
           Scale(kFrameInset);
  }
  // The height of the form with so many rows in the item list, the title row not counted.
  std::int32_t HeightWith(std::int32_t itemRows) const {
    const std::int32_t rowHeight = measures_.lineHeight + Scale(kItemRowMargin);
    return HeaderTop() + HeaderHeight() + Scale(kMargin) + CaptionHeight() +
           (itemRows + 1) * rowHeight + Scale(kFrameInset) + Scale(kMargin);
  }
  std::int32_t FieldWidth(FormField field) const {
    switch (field) {
      case FormField::ClassName:
        return Scale(kNameWidth);
      case FormField::Percentage:
        return Scale(kPercentageWidth);
      default:
        return Scale(kNumberWidth);
    }
  }
  void PlaceRows(FormPlaces& places) const;

  const FormMeasures& measures_;
  std::int32_t dotsPerInch_;
};

void Layout::PlaceRows(FormPlaces& places) const {
  const std::int32_t height = FieldHeight();
  const std::int32_t labelLeft = places.headerFrame.left + Scale(kFrameInset);
  const std::int32_t left = labelLeft + measures_.labelWidth + Scale(kLabelGap);
  const std::int32_t available =
      std::max(std::int32_t{0},
               places.headerFrame.left + places.headerFrame.width - Scale(kFrameInset) - left);
  std::int32_t top = places.headerFrame.top + CaptionHeight();
  for (std::size_t i = 0; i < kFormRows.size(); ++i) {
    const FormField field = kFormRows[i];
    places.labels[i] = {labelLeft, top, measures_.labelWidth, height};
    std::int32_t width = std::min(available, FieldWidth(field));
    if (IsAccountField(field)) {
      Rectangle& lookup =
          field == FormField::ReserveAccount ? places.reserveLookup : places.lossLookup;
      lookup = {left + width - Scale(kLookupWidth), top, Scale(kLookupWidth), height};
      width -= Scale(kLookupWidth) + Scale(kLookupGap);
    }
    places.fields[i] = {left, top, width, height};
    top += height + Scale(kRowGap);
  }
}

FormPlaces Layout::Place(Size client) const {
  const std::int32_t margin = Scale(kMargin);
  const std::int32_t inset = Scale(kFrameInset);
  const std::int32_t stripMargin = Scale(kStripMargin);
  const std::int32_t frameWidth = client.width - 2 * margin;
  FormPlaces places;
  places.toolStrip = {stripMargin, stripMargin, client.width - 2 * stripMargin,
                      measures_.toolStripHeight};
  places.line = {0, LineTop(), client.width, kLineHeight};
  places.headerFrame = {margin, HeaderTop(), frameWidth, HeaderHeight()};
  PlaceRows(places);
  const std::int32_t itemTop = HeaderTop() + HeaderHeight() + margin;
  const std::int32_t itemHeight = std::max(std::int32_t{0}, client.height - margin - itemTop);
  places.itemFrame = {margin, itemTop, frameWidth, itemHeight};
  places.members = {margin + inset, itemTop + CaptionHeight(), frameWidth - 2 * inset,
                    std::max(std::int32_t{0}, itemHeight - inset - CaptionHeight())};
  return places;
}

Size Layout::MinimumSize() const {
  const std::int32_t frame = 2 * (Scale(kMargin) + Scale(kFrameInset));
  const std::int32_t fields =
      frame + measures_.labelWidth + Scale(kLabelGap) + Scale(kMinimumFieldWidth);
  return {std::max(fields, measures_.toolStripWidth + 2 * Scale(kStripMargin)),
          HeightWith(kMinimumItemRows)};
}

Size Layout::FirstSize() const {
  return {std::max(MinimumSize().width, Scale(kFirstWidth)), HeightWith(kFirstItemRows)};
}

}  // namespace

FormPlaces PlaceForm(Size client, const FormMeasures& measures, std::int32_t dotsPerInch) {
  return Layout(measures, dotsPerInch).Place(client);
}

Size MinimumFormSize(const FormMeasures& measures, std::int32_t dotsPerInch) {
  return Layout(measures, dotsPerInch).MinimumSize();
}

Size FirstFormSize(const FormMeasures& measures, std::int32_t dotsPerInch) {
  return Layout(measures, dotsPerInch).FirstSize();
}

}  // namespace pricedown
