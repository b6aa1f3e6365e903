// From a printer's dots to tenths of a millimetre, and the margins in use.
#include "print/paper.h"

namespace pricedown {
namespace {

// Ten metres: more is a driver's error, and would overflow.
constexpr std::int64_t kMaximumTenths = 100'000;
// Of the shorter side at most, so that a label is more than its margins.
constexpr Tenths kMarginShare = 6;

Tenths Nearest(std::int32_t dots, std::int32_t perInch) {
  const std::int64_t tenths = (std::int64_t{dots} * kTenthsPerInch + perInch / 2) / perInch;
  return static_cast<Tenths>(std::min(tenths, kMaximumTenths));
}

Tenths RoundedUp(std::int64_t dots, std::int32_t perInch) {
  if (dots <= 0) return 0;
  const std::int64_t tenths = (dots * kTenthsPerInch + perInch - 1) / perInch;
  return static_cast<Tenths>(std::min(tenths, kMaximumTenths));
}

}  // namespace

Margins Larger(const Margins& one, const Margins& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top),
          std::max(one.right, other.right), std::max(one.bottom, other.bottom)};
}

Rectangle Paper::Inside() const {
  return {margins.left, margins.top, std::max(0, width - margins.right - margins.left),
          std::max(0, height - margins.bottom - margins.top)};
}

Paper PaperOf(const PrinterDots& dots) {
  Paper paper;
  paper.margins = {};
  const std::int32_t x = dots.perInchX;
  const std::int32_t y = dots.perInchY;
  if (x <= 0 || y <= 0 || dots.paperWidth <= 0 || dots.paperHeight <= 0) return paper;
  paper.width = Nearest(dots.paperWidth, x);
  paper.height = Nearest(dots.paperHeight, y);
  const auto rest = [](std::int32_t whole, std::int32_t before, std::int32_t inside) {
    return std::int64_t{whole} - before - inside;
  };
  paper.margins = {RoundedUp(dots.offsetX, x), RoundedUp(dots.offsetY, y),
                   RoundedUp(rest(dots.paperWidth, dots.offsetX, dots.printableWidth), x),
                   RoundedUp(rest(dots.paperHeight, dots.offsetY, dots.printableHeight), y)};
  return paper;
}

void PaperChoice::SetPrinter(const Paper& upright, const Paper& turned) {
  const Tenths usual =
      std::min(kDefaultMargin, std::min(upright.width, upright.height) / kMarginShare);
  const Margins margins = marginsChosen_ ? paper_.margins : Margins{usual, usual, usual, usual};
  unprintable_ = Larger(upright.margins, turned.margins);
  paper_ = {upright.width, upright.height, Larger(margins, unprintable_)};
}

void PaperChoice::SetUnknownPrinter() {
  const Margins margins = marginsChosen_ ? paper_.margins : Paper{}.margins;
  paper_ = {};
  paper_.margins = margins;
  unprintable_ = {};
}

void PaperChoice::Choose(const Paper& paper) {
  paper_ = {paper.width, paper.height, Larger(paper.margins, unprintable_)};
  marginsChosen_ = true;
}

}  // namespace pricedown
