// What a preview shows: which page, how large, and which part of it, in pixels of its window.
// Drawing the page there, keys and buttons are the window's matter.
#pragma once

#include <cstdint>

#include "print/paper.h"

namespace pricedown {

inline constexpr double kLeastPreviewPercent = 10;
inline constexpr double kGreatestPreviewPercent = 500;

// The part of the window that pages are drawn in.
struct PreviewArea {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t dotsPerInch = 96;
};

class PreviewState {
 public:
  // Pages made anew, as after a change of font or paper: stays on the page if it is still there.
  void SetPages(std::int32_t count, const Paper& paper);
  void SetArea(const PreviewArea& area);

  std::int32_t Page() const { return page_; }
  std::int32_t PageCount() const { return pageCount_; }
  // To the top of that page, or of the nearest there is; whether it is another one.
  bool GoTo(std::int32_t page);

  // The whole page, or its whole width, follow the area's size until another size is chosen.
  void FitPage();
  void FitWidth();
  // Of the size on paper, at the area's resolution; kept between least and greatest.
  void SetPercent(double percent);
  // To the next larger or smaller of the usual sizes.
  void ZoomIn();
  void ZoomOut();
  double Percent() const { return percent_; }
  bool FitsPage() const { return zoom_ == Zoom::Page; }
  bool FitsWidth() const { return zoom_ == Zoom::Width; }

  // Pixels to the right and down, as far as there is something to see; whether anything moved.
  bool ScrollBy(std::int32_t x, std::int32_t y);
  // Down, or up when negative. Where there is no more to see it turns the page: to the top of the
  // next or to the bottom of the one before.
  void Wheel(std::int32_t pixels);
  // What scroll bars show: everything, and how far in the area begins.
  std::int32_t ContentWidth() const { return contentWidth_; }
  std::int32_t ContentHeight() const { return contentHeight_; }
  std::int32_t ScrollX() const { return scrollX_; }
  std::int32_t ScrollY() const { return scrollY_; }

  // The paper from the area's top left corner; it begins above or left of it when scrolled.
  Rectangle PaperBox() const;
  // A length on paper in pixels, not rounded.
  double Pixels(double tenths) const;

 private:
  enum class Zoom : std::uint8_t { Page, Width, Fixed };

  std::int32_t Border() const;
  double FittingPercent(std::int32_t pixels, Tenths paper) const;
  void Choose(Zoom zoom, double percent);
  // Size of paper and content for the zoom; the middle of what is seen stays in the middle.
  void Place();

  Paper paper_;
  PreviewArea area_;
  std::int32_t page_ = 1;
  std::int32_t pageCount_ = 1;
  Zoom zoom_ = Zoom::Page;
  double percent_ = 100;
  std::int32_t paperWidth_ = 0;
  std::int32_t paperHeight_ = 0;
  std::int32_t contentWidth_ = 0;
  std::int32_t contentHeight_ = 0;
  std::int32_t scrollX_ = 0;
  std::int32_t scrollY_ = 0;
};

}  // namespace pricedown
