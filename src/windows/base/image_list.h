// Image lists of the control's icons in the size that a resolution asks for.
// The pictures themselves are icon_art.h.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <span>

#include "windows/base/dpi.h"
#include "windows/base/icon_art.h"

namespace pricedown::windows {

// Move-only owner; the list may be null.
class ImageList {
 public:
  ImageList() = default;
  explicit ImageList(HIMAGELIST list) : list_(list) {}
  ImageList(ImageList&& other) noexcept;
  ImageList& operator=(ImageList&& other) noexcept;
  ~ImageList();

  HIMAGELIST Get() const { return list_; }

 private:
  HIMAGELIST list_ = nullptr;
};

enum class IconLook { Normal, Disabled };

// Edge of an icon in pixels.
int IconSize(Dpi dpi);

// The icons in their order. Throw AutomationError when the system makes no list.
ImageList MakeImageList(std::span<const Icon> icons, IconLook look, Dpi dpi);
// Requires: all pictures are of that size in pixels.
ImageList MakeImageList(std::span<const IconCanvas> pictures, IconLook look, int size);

}  // namespace pricedown::windows
