// Measures the texts of pages, in fonts of a resolution far above any screen's.
// It draws nothing; page_painter places what it draws by the same measures.
#pragma once

#include <windows.h>

#include <span>
#include <string_view>
#include <vector>

#include "print/page_font.h"
#include "windows/base/fonts.h"
#include "windows/base/gdi.h"

namespace pricedown::windows {

// The font of a page for a device of that resolution. Throws AutomationError.
FontHandle MakePageFont(const PageFont& font, double dotsPerInch);

// No screen and no printer takes part: the same pages come out of every system that has the same
// fonts. All members throw AutomationError when the system does not measure.
class DeviceMeasurer final : public TextMeasurer {
 public:
  // TextMeasurer
  Tenths Width(const PageFont& font, std::u16string_view text) override;
  Tenths LineHeight(const PageFont& font) override;

  // Where each character of the text ends, from the text's beginning, in hundredths of a
  // millimetre. The answer is valid until the next call.
  std::span<const int> Ends(const PageFont& font, std::u16string_view text);
  // From the top of a line down to where its characters stand, in hundredths of a millimetre.
  int Ascent(const PageFont& font);

 private:
  struct MeasuredFont {
    PageFont font;
    FontHandle handle;
    TEXTMETRICW metrics;
  };

  const MeasuredFont& Find(const PageFont& font);

  CreatedContext context_;  // made when first needed
  // Few: the table's and those of the page lines.
  std::vector<MeasuredFont> fonts_;
  std::vector<int> ends_;
};

}  // namespace pricedown::windows
