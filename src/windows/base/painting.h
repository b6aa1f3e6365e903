// Off-screen painting, fills, frames and colours.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "windows/base/gdi.h"

namespace pricedown::windows {

// Painting off screen: everything drawn into Context() appears at once at the end.
class BufferedPaint {
 public:
  BufferedPaint(HDC target, const RECT& area);
  ~BufferedPaint();
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;

  // In the coordinates of the target; the target itself without memory for a bitmap.
  HDC Context() const { return memory_.Get() != nullptr ? memory_.Get() : target_; }

 private:
  HDC target_;
  RECT area_;
  MemoryDc memory_;
};

// Fills with a solid colour.
void FillArea(HDC context, const RECT& area, COLORREF colour);
// The colour of a button's face, the ground of frames and bars.
void FillButtonFace(HDC context, const RECT& area);
// Answers WM_ERASEBKGND: fills the client area with that colour.
LRESULT OnEraseButtonFace(HWND window, WPARAM context);
// The frame of a tree view: that of the visual style, or a sunken one.
void PaintFrame(HDC context, HWND window, const RECT& frame);
// `share` of 255 of the way from one colour to another.
COLORREF Blend(COLORREF from, COLORREF to, int share);
// Answers WM_CTLCOLORSTATIC and WM_CTLCOLORBTN: text on the colour of a button's face.
LRESULT OnButtonFace(WPARAM context);
// Answers NM_CUSTOMDRAW of a toolbar: in high contrast the texts of checked and disabled buttons
// stay readable.
LRESULT OnToolbarDraw(NMTBCUSTOMDRAW& drawing);

}  // namespace pricedown::windows
