// Draws check boxes as the system does, in the middle of a row's height.
// The control's own ones are made for the screen's size of icons and stay at the row's top.
#include "workbench/pickers/dialog/row_images.h"

#include <uxtheme.h>
#include <vsstyle.h>
#include <vssym32.h>

#include "windows/base/gdi.h"

namespace workbench {
namespace {

constexpr int kBox = 13;    // pixels at 96 dpi
constexpr int kWidth = 18;  // with the room on both sides

void DrawBox(HTHEME theme, HDC context, const RECT& box, bool ticked) {
  RECT area = box;
  if (theme == nullptr) {
    DrawFrameControl(context, &area, DFC_BUTTON,
                     DFCS_BUTTONCHECK | DFCS_FLAT | (ticked ? DFCS_CHECKED : 0U));
    return;
  }
  const int state = ticked ? CBS_CHECKEDNORMAL : CBS_UNCHECKEDNORMAL;
  SIZE own{};
  if (FAILED(GetThemePartSize(theme, context, BP_CHECKBOX, state, nullptr, TS_TRUE, &own))) {
    own = {box.right - box.left, box.bottom - box.top};
  }
  // A style that has no picture for the resolution draws its small one.
  const RECT drawn{box.left, box.top, box.left + own.cx, box.top + own.cy};
  DrawThemeBackground(theme, context, BP_CHECKBOX, state, &drawn, nullptr);
  const int width = box.right - box.left;
  if (own.cx >= width) return;
  SetStretchBltMode(context, HALFTONE);
  StretchBlt(context, box.left, box.top, width, box.bottom - box.top, context, box.left, box.top,
             own.cx, own.cy, SRCCOPY);
}

}  // namespace

HIMAGELIST MakeTickImages(HWND window, pricedown::windows::Dpi dpi, int rowHeight) {
  using pricedown::windows::GdiObject;
  const int width = dpi.Scale(kWidth);
  const int size = dpi.Scale(kBox);
  const HIMAGELIST images = ImageList_Create(width, rowHeight, ILC_COLOR32, 2, 0);
  if (images == nullptr) return nullptr;

  const pricedown::windows::WindowContext screen(window);
  const HDC memory = CreateCompatibleDC(screen.Get());
  // Not for the window: the list's own frame would be drawn by it.
  const HTHEME theme = OpenThemeData(nullptr, VSCLASS_BUTTON);
  for (const bool ticked : {false, true}) {
    const GdiObject<HBITMAP> picture(CreateCompatibleBitmap(screen.Get(), width, rowHeight));
    const HGDIOBJ before = SelectObject(memory, picture.Get());
    const RECT all{0, 0, width, rowHeight};
    FillRect(memory, &all, GetSysColorBrush(COLOR_WINDOW));
    const int left = (width - size) / 2;
    const int top = (rowHeight - size) / 2;
    DrawBox(theme, memory, {left, top, left + size, top + size}, ticked);
    SelectObject(memory, before);
    ImageList_Add(images, picture.Get(), nullptr);
  }
  if (theme != nullptr) CloseThemeData(theme);
  DeleteDC(memory);
  return images;
}

HIMAGELIST MakeEmptyImages(int rowHeight) {
  return ImageList_Create(1, rowHeight, ILC_COLOR, 0, 1);
}

}  // namespace workbench
