// Replays a page's draw commands on a device, screen and printer alike.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "env/font.h"
#include "print/page.h"
#include "windows/base/fonts.h"
#include "windows/print/device_measurer.h"

namespace pricedown::windows {

// Where on the device the paper is, in pixels that need not be whole.
struct PageScale {
  double left = 0;  // of the paper's top left corner; negative where that lies off the device
  double top = 0;
  double across = 1;  // pixels to a tenth of a millimetre
  double down = 1;
};

class PagePainter {
 public:
  // The measurer that the pages were made with, or one like it; it must outlive the painter.
  explicit PagePainter(DeviceMeasurer& measurer) : measurer_(measurer) {}

  // In black, over what is there; the context keeps its state. `fonts` are those of the
  // PrintPages. Texts keep the widths that they were measured with, even if the device's own
  // differ. Throws AutomationError, with part of the page drawn.
  void Paint(HDC context, const Page& page, std::span<const Font> fonts, const PageScale& scale);

 private:
  struct ScaledFont {
    Font font;
    FontHandle handle;
  };

  HFONT FontOf(const Font& font, double down);
  static void PaintRule(HDC context, HBRUSH brush, const PageRule& rule, const PageScale& scale);
  void PaintText(HDC context, const PageText& text, const Font& font, const PageScale& scale);

  DeviceMeasurer& measurer_;
  std::vector<ScaledFont> fonts_;  // for a device of `down_`
  double down_ = 0;
  std::vector<int> steps_;
};

}  // namespace pricedown::windows
