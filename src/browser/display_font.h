// The one font that tree, grid, measuring label and print control share, and how it is kept.
// The print control's font is the master copy; printing itself is not here.
#pragma once

#include <string_view>

#include "browser/grid.h"
#include "browser/print_ledger.h"
#include "env/environment.h"
#include "env/font.h"

namespace pricedown {

inline constexpr std::u16string_view kGridFontKey = u"GridFont";
inline constexpr std::u16string_view kReportFontSizeKey = u"RptFontSize";

// What the display font needs of the window.
class FontView {
 public:
  virtual ~FontView() = default;
  virtual void SetTreeFont(const Font& font) = 0;
  // Gives the measuring label the font and answers the label's height in twips.
  virtual std::int32_t MeasureLabel(const Font& font) = 0;
};

class DisplayFont {
 public:
  DisplayFont(Environment& environment, LedgerAppearance& ledger, Grid& sheet, FontView& view)
      : environment_(environment), ledger_(ledger), sheet_(sheet), view_(view) {}

  // Applies the size of "RptFontSize" unless the user has chosen a font or the size is the one
  // applied last or outside 9 to 18. Errors end it silently.
  void Refresh();

  // Takes the font from a kept "GridFont" text and applies it; entries that are absent or bad
  // leave that part of the font as it is.
  void Restore(std::u16string_view settings);

  // Copies the print control's font to tree, label and grid and sets the grid's row heights.
  // Errors end it silently.
  void Apply();

  // Keeps the print control's font under "GridFont". Errors end it silently.
  void Save();

 private:
  Environment& environment_;
  LedgerAppearance& ledger_;
  Grid& sheet_;
  FontView& view_;
  double lastAppliedSize_ = 0;
};

}  // namespace pricedown
