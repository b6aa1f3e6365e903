// Everything follows from paper, area and zoom. A border of an eighth of an inch is left around the
// paper.
#include "print/preview_state.h"

#include <algorithm>
#include <cmath>

namespace pricedown {
namespace {

constexpr std::int32_t kLineStep = 24;   // pixels at 96 dpi
constexpr std::int32_t kWheelLines = 3;  // of a notch
// A fitted size equals a usual one only up to rounding.
constexpr double kSameSize = 0.01;

std::int32_t Rounded(double pixels) { return static_cast<std::int32_t>(std::lround(pixels)); }

// The scroll that shows the same middle of content that has grown or shrunk.
std::int32_t Recentred(std::int32_t scroll, std::int32_t area, std::int32_t before,
                       std::int32_t after) {
  const double middle = before > area ? (scroll + area / 2.0) / before : 0.5;
  return std::clamp(Rounded(middle * after - area / 2.0), 0, std::max(after - area, 0));
}

}  // namespace

void PreviewState::SetPages(std::int32_t count, const Paper& paper) {
  pageCount_ = std::max(count, 1);
  page_ = std::min(page_, pageCount_);
  paper_ = paper;
  Place();
}

void PreviewState::SetArea(const PreviewArea& area) {
  area_ = {std::max(area.width, 0), std::max(area.height, 0), std::max(area.dotsPerInch, 1)};
  Place();
}

bool PreviewState::GoTo(std::int32_t page) {
  page = std::clamp(page, 1, pageCount_);
  scrollY_ = 0;
  if (page == page_) return false;
  page_ = page;
  return true;
}

void PreviewState::FitPage() { Choose(Zoom::Page, percent_); }

void PreviewState::FitWidth() { Choose(Zoom::Width, percent_); }

void PreviewState::SetPercent(double percent) { Choose(Zoom::Fixed, percent); }

void PreviewState::ZoomIn() {
  const auto larger =
      std::upper_bound(kPreviewSizes.begin(), kPreviewSizes.end(), percent_ + kSameSize);
  SetPercent(larger == kPreviewSizes.end() ? kPreviewSizes.back() : *larger);
}

void PreviewState::ZoomOut() {
  const auto notSmaller =
      std::lower_bound(kPreviewSizes.begin(), kPreviewSizes.end(), percent_ - kSameSize);
  // There is no size below the least one.
  if (notSmaller != kPreviewSizes.begin()) SetPercent(*(notSmaller - 1));
}

void PreviewState::Choose(Zoom zoom, double percent) {
  zoom_ = zoom;
  percent_ = percent;
  Place();
}

bool PreviewState::ScrollBy(std::int32_t x, std::int32_t y) {
  const auto moved = [](std::int32_t& scroll, std::int64_t distance, std::int32_t most) {
    const auto target = static_cast<std::int32_t>(
        std::clamp<std::int64_t>(scroll + distance, 0, std::max(most, 0)));
    const bool isMoved = target != scroll;
    scroll = target;
    return isMoved;
  };
  const bool across = moved(scrollX_, x, contentWidth_ - area_.width);
  const bool down = moved(scrollY_, y, contentHeight_ - area_.height);
  return across || down;
}

void PreviewState::Advance(std::int32_t pixels) {
  if (pixels == 0 || ScrollBy(0, pixels)) return;
  if (GoTo(pixels > 0 ? page_ + 1 : page_ - 1)) {
    if (pixels < 0) ScrollBy(0, contentHeight_);
  } else if (pixels > 0) {
    // The last page: GoTo went to its top.
    ScrollBy(0, contentHeight_);
  }
}

void PreviewState::Wheel(std::int32_t delta, std::int32_t notch) {
  const bool scrolls = contentHeight_ > area_.height;
  Advance(-wheel_.Steps(delta, scrolls ? notch / kWheelLines : notch) * LineStep());
}

std::optional<PreviewCommand> PreviewState::ZoomOfWheel(std::int32_t delta, std::int32_t notch) {
  const std::int32_t steps = wheel_.Steps(delta, notch);
  if (steps == 0) return std::nullopt;
  return steps > 0 ? PreviewCommand::ZoomIn : PreviewCommand::ZoomOut;
}

bool PreviewState::IsEnabled(PreviewCommand command) const {
  switch (command) {
    case PreviewCommand::First:
    case PreviewCommand::Previous:
      return page_ > 1;
    case PreviewCommand::Next:
    case PreviewCommand::Last:
      return page_ < pageCount_;
    case PreviewCommand::ZoomIn:
      return percent_ < kMaximumPreviewPercent;
    case PreviewCommand::ZoomOut: {
      PreviewState tried = *this;
      tried.ZoomOut();
      return tried.percent_ < percent_;
    }
    default:
      return true;
  }
}

void PreviewState::Run(PreviewCommand command) {
  switch (command) {
    case PreviewCommand::First:
      GoTo(1);
      break;
    case PreviewCommand::Previous:
      GoTo(page_ - 1);
      break;
    case PreviewCommand::Next:
      GoTo(page_ + 1);
      break;
    case PreviewCommand::Last:
      GoTo(pageCount_);
      break;
    case PreviewCommand::ZoomOut:
      ZoomOut();
      break;
    case PreviewCommand::ZoomIn:
      ZoomIn();
      break;
    case PreviewCommand::FitPage:
      FitPage();
      break;
    case PreviewCommand::FitWidth:
      FitWidth();
      // It is for reading, which begins at the top.
      ScrollBy(0, -contentHeight_);
      break;
    case PreviewCommand::LineUp:
      ScrollBy(0, -LineStep());
      break;
    case PreviewCommand::LineDown:
      ScrollBy(0, LineStep());
      break;
    case PreviewCommand::LineLeft:
      ScrollBy(-LineStep(), 0);
      break;
    case PreviewCommand::LineRight:
      ScrollBy(LineStep(), 0);
      break;
    case PreviewCommand::ScreenUp:
      Advance(-ScreenStep());
      break;
    case PreviewCommand::ScreenDown:
      Advance(ScreenStep());
      break;
    case PreviewCommand::Top:
      ScrollBy(0, -contentHeight_);
      break;
    case PreviewCommand::Bottom:
      ScrollBy(0, contentHeight_);
      break;
    default:
      break;
  }
}

Rectangle PreviewState::PaperBox() const {
  const auto start = [](std::int32_t paper, std::int32_t content, std::int32_t area,
                        std::int32_t scroll) {
    return (std::max(content, area) - paper) / 2 - scroll;
  };
  return {start(paperWidth_, contentWidth_, area_.width, scrollX_),
          start(paperHeight_, contentHeight_, area_.height, scrollY_), paperWidth_, paperHeight_};
}

double PreviewState::Pixels(double tenths) const {
  return tenths * percent_ / 100 * area_.dotsPerInch / kTenthsPerInch;
}

std::int32_t PreviewState::LineStep() const { return ScalePixels(kLineStep, area_.dotsPerInch); }

// A little of the previous view stays visible.
std::int32_t PreviewState::ScreenStep() const {
  return std::max(area_.height - LineStep(), LineStep());
}

std::int32_t PreviewState::Border() const { return area_.dotsPerInch / 8; }

double PreviewState::FittingPercent(std::int32_t pixels, Tenths paper) const {
  const double inches = std::max(paper, 1) / double{kTenthsPerInch};
  return (pixels - 2 * Border()) / inches / area_.dotsPerInch * 100;
}

void PreviewState::Place() {
  const double width = FittingPercent(area_.width, paper_.width);
  const double height = FittingPercent(area_.height, paper_.height);
  if (zoom_ == Zoom::Width) percent_ = width;
  if (zoom_ == Zoom::Page) percent_ = std::min(width, height);
  percent_ = std::clamp(percent_, kMinimumPreviewPercent, kMaximumPreviewPercent);
  // Down, so that what fits needs no scroll bar; but not for an error in the last digit.
  const auto whole = [&](Tenths paper) {
    return static_cast<std::int32_t>(std::floor(Pixels(paper) + 1E-6));
  };
  paperWidth_ = whole(paper_.width);
  paperHeight_ = whole(paper_.height);
  const std::int32_t widthBefore = contentWidth_;
  const std::int32_t heightBefore = contentHeight_;
  contentWidth_ = paperWidth_ + 2 * Border();
  contentHeight_ = paperHeight_ + 2 * Border();
  scrollX_ = Recentred(scrollX_, area_.width, widthBefore, contentWidth_);
  scrollY_ = Recentred(scrollY_, area_.height, heightBefore, contentHeight_);
}

}  // namespace pricedown
