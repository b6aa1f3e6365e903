// The paper of a printer or a page set-up, and how the two are brought together.
#pragma once

#include "platform/geometry.h"
#include "print/page_units.h"

namespace pricedown {

// Distances from the paper's edges.
struct Margins {
  Tenths left = 0;
  Tenths top = 0;
  Tenths right = 0;
  Tenths bottom = 0;
  bool operator==(const Margins&) const = default;
};

// The larger one on each side.
Margins Larger(const Margins& one, const Margins& other);

inline constexpr Tenths kDefaultMargin = 200;

// A4 with the usual margins by default.
struct Paper {
  Tenths width = 2100;
  Tenths height = 2970;
  Margins margins{kDefaultMargin, kDefaultMargin, kDefaultMargin, kDefaultMargin};

  // Swaps width and height; the margins keep their sides.
  Paper Turned() const { return {height, width, margins}; }
  // The area inside the margins; empty when they leave none.
  Rectangle Inside() const;
  bool operator==(const Paper&) const = default;
};

// What a printer reports about its paper, in dots.
struct PrinterDots {
  std::int32_t perInchX = 0;
  std::int32_t perInchY = 0;
  std::int32_t paperWidth = 0;
  std::int32_t paperHeight = 0;
  std::int32_t offsetX = 0;  // of the printable area
  std::int32_t offsetY = 0;
  std::int32_t printableWidth = 0;
  std::int32_t printableHeight = 0;
};

// The paper with its unprintable edges as margins, rounded up. A printer that reports no sizes has
// A4 without unprintable edges.
Paper PaperOf(const PrinterDots& dots);

// The paper of the current printer with the margins in use, which are never less than the
// unprintable edges, whichever way the paper is turned.
class PaperChoice {
 public:
  const Paper& Current() const { return paper_; }

  // Another printer's paper, upright and turned. Margins that the user has set stay; other margins
  // are 2 cm, less on small paper.
  void SetPrinter(const Paper& upright, const Paper& turned);
  // A printer that does not report its paper: A4, with the margins that the user has set.
  void SetUnknownPrinter();
  // No printer: the paper stays, without unprintable edges.
  void SetNoPrinter() { unprintable_ = {}; }
  // Paper and margins set by the user.
  void Choose(const Paper& paper);

 private:
  Paper paper_;
  Margins unprintable_;
  bool marginsChosen_ = false;
};

}  // namespace pricedown
