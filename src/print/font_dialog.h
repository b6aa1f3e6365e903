// The port of the standard font dialog.
#pragma once

#include <cstdint>

#include "env/font.h"

namespace pricedown {

// Fonts of screen and printer, and a button that applies the choice.
inline constexpr std::uint32_t kFontDialogFlags = 515;
// The sizes in points that the dialog takes, besides the one that it begins with. A mistyped 161281
// would need a page for each row, and a system that keeps pictures of characters gigabytes for
// them.
inline constexpr int kSmallestFontSize = 5;
inline constexpr int kLargestFontSize = 72;
// The number of the error that a cancelled dialog reports.
inline constexpr std::int32_t kDialogCancelled = static_cast<std::int32_t>(0x800A7FF3);

class FontDialog {
 public:
  virtual ~FontDialog() = default;
  // Shows the dialog with `font` selected and returns the chosen font, whose size is between the
  // bounds above unless it stayed. Throws AutomationError, with kDialogCancelled when the user has
  // cancelled.
  virtual Font Show(const Font& font, std::uint32_t flags) = 0;
};

}  // namespace pricedown
