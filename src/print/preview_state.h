// What a preview shows: which page, how large, and which part of it, in pixels of its window.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/geometry.h"
#include "platform/wheel_turns.h"
#include "print/paper.h"
#include "print/preview_commands.h"

namespace pricedown {

inline constexpr double kMinimumPreviewPercent = 10;
inline constexpr double kMaximumPreviewPercent = 500;
// The usual sizes, in percent.
inline constexpr std::array<double, 10> kPreviewSizes{25,  50,  75,  100, 125,
                                                      150, 200, 300, 400, 500};

// The part of the window that pages are drawn in.
struct PreviewArea {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t dotsPerInch = kDesignDotsPerInch;
};

class PreviewState {
 public:
  // For new pages, as after a change of font or paper: stays on the page if there still is one.
  void SetPages(std::int32_t count, const Paper& paper);
  void SetArea(const PreviewArea& area);

  std::int32_t Page() const { return page_; }
  std::int32_t PageCount() const { return pageCount_; }
  // Goes to the top of `page` (clamped); returns whether the page changed.
  bool GoTo(std::int32_t page);

  // The whole page, or its whole width, follow the area's size until another size is chosen.
  void FitPage();
  void FitWidth();
  // Of the size on paper, at the area's resolution; clamped to least and greatest.
  void SetPercent(double percent);
  // To the next larger or smaller of the usual sizes.
  void ZoomIn();
  void ZoomOut();
  double Percent() const { return percent_; }

  // Pixels to the right and down, as far as there is something to see; returns whether anything
  // moved.
  bool ScrollBy(std::int32_t x, std::int32_t y);
  // Scrolls down, or up when negative. Where there is no more to see it turns the page: to the top
  // of the next or to the bottom of the one before.
  void Advance(std::int32_t pixels);
  // Turns of the wheel, of which `notch` are one notch, up positive. Where the page fits, a notch
  // turns it; else a third of a notch scrolls by a line. Parts of a step add up.
  void Wheel(std::int32_t delta, std::int32_t notch);
  // The zoom command of such a turn of the wheel, one for a notch or more.
  std::optional<PreviewCommand> ZoomOfWheel(std::int32_t delta, std::int32_t notch);

  bool IsEnabled(PreviewCommand command) const;
  // Runs a command that changes page, size or scrolling; a no-op for the others.
  void Run(PreviewCommand command);

  // What an arrow key scrolls by.
  std::int32_t LineStep() const;
  // What scroll bars show: everything, and where the area begins in it.
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
  std::int32_t ScreenStep() const;
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
  WheelTurns wheel_;
};

}  // namespace pricedown
