// Draws check boxes in the system's style, centred in the row. The list's own check boxes have the
// size of system icons and sit at the top of the row.
#include "workbench/pickers/dialog/row_images.h"

#include <uxtheme.h>
#include <vsstyle.h>
#include <vssym32.h>

#include "windows/base/gdi.h"

namespace workbench {
namespace {

constexpr int kBox = 13;    // pixels at 96 dpi
constexpr int kWidth = 18;  // including the margins

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
  // A visual style without an image for this resolution draws its small one.
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
  const pricedown::windows::CreatedContext memory(CreateCompatibleDC(screen.Get()));
  // Without the window, or its theme would also apply to the list's frame.
  // VSCLASS_BUTTON of mingw-w64 is a C literal that not every compiler accepts.
  const HTHEME theme = OpenThemeData(nullptr, L"BUTTON");
  for (const bool ticked : {false, true}) {
    const GdiObject<HBITMAP> picture(CreateCompatibleBitmap(screen.Get(), width, rowHeight));
    {
      const pricedown::windows::Selected selected(memory.get(), picture.Get());
      const RECT all{0, 0, width, rowHeight};
      FillRect(memory.get(), &all, GetSysColorBrush(COLOR_WINDOW));
      const int left = (width - size) / 2;
      const int top = (rowHeight - size) / 2;
      DrawBox(theme, memory.get(), {left, top, left + size, top + size}, ticked);
    }
    ImageList_Add(images, picture.Get(), nullptr);
  }
  if (theme != nullptr) CloseThemeData(theme);
  return images;
}

HIMAGELIST MakeEmptyImages(int rowHeight) {
  return ImageList_Create(1, rowHeight, ILC_COLOR, 0, 1);
}

}  // namespace workbench
