// Measures the texts of pages, in fonts of a resolution far above any screen's.
#pragma once

#include <windows.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "print/text_measurer.h"
#include "windows/base/fonts.h"
#include "windows/base/gdi.h"

namespace pricedown::windows {

// Independent of screen and printer: systems with the same fonts make the same pages. All members
// throw AutomationError.
class DeviceMeasurer final : public TextMeasurer {
 public:
  // TextMeasurer
  Tenths Width(const Font& font, std::u16string_view text) override;
  std::size_t FittingLength(const Font& font, std::u16string_view text, Tenths available) override;
  Tenths LineHeight(const Font& font) override;

  // Where each character ends, from the text's beginning, in hundredths of a millimetre. Valid
  // until the next call.
  std::span<const int> Ends(const Font& font, std::u16string_view text);
  // From the top of a line to its baseline, in hundredths of a millimetre.
  int Ascent(const Font& font);

 private:
  struct MeasuredFont {
    Font font;
    FontHandle handle;
    TEXTMETRICW metrics;
  };

  const MeasuredFont& Find(const Font& font);

  CreatedContext context_;  // made when first needed
  // Few: the table's and those of the page lines.
  std::vector<MeasuredFont> fonts_;
  std::vector<int> ends_;
};

}  // namespace pricedown::windows
