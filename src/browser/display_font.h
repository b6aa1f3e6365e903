// The one font that tree, grid, measuring label and printed list share, and how it is saved. The
// printed list's font is the master copy.
#pragma once

#include <string_view>

#include "browser/grid.h"
#include "env/environment.h"
#include "env/font.h"
#include "print/print_document.h"

namespace pricedown {

inline constexpr std::u16string_view kGridFontKey = u"GridFont";
inline constexpr std::u16string_view kReportFontSizeKey = u"RptFontSize";

// What the display font needs of the window.
class FontView {
 public:
  virtual ~FontView() = default;
  virtual void SetTreeFont(const Font& font) = 0;
  // Sets the measuring label's font and returns the label's height in twips.
  virtual std::int32_t MeasureLabel(const Font& font) = 0;
};

class DisplayFont {
 public:
  // All must outlive the object.
  DisplayFont(Environment& environment, PrintDocument& document, Grid& grid, FontView& view)
      : environment_(environment), document_(document), grid_(grid), view_(view) {}

  // Each ends silently at the first failing step.

  // Applies the size of "RptFontSize" unless the user has chosen a font, or the size is the one
  // applied last or outside 9 to 18.
  void Refresh();

  // Sets the font of a saved "GridFont" text and applies it; entries that are missing or invalid
  // leave that part of the font as it is.
  void Restore(std::u16string_view settings);

  // Copies the document's font to tree, label and grid and sets the grid's row heights.
  void Apply();

  // Applies the font again once it has been applied: the grid's heights are in pixels.
  void ResolutionChanged();

  // Saves the document's font under "GridFont".
  void Save();

 private:
  Environment& environment_;
  PrintDocument& document_;
  Grid& grid_;
  FontView& view_;
  double lastAppliedSize_ = 0;
  bool applied_ = false;
};

}  // namespace pricedown
