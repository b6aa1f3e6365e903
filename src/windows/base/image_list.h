// Image lists of this module's icons, in the size for a resolution.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <span>

#include "windows/base/dpi.h"

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

// The icons with these resource ids (platform/icon_ids.h), in that order. Throws AutomationError
// if the module has no such icon or the system makes no list.
ImageList MakeImageList(std::span<const int> icons, IconLook look, Dpi dpi);

}  // namespace pricedown::windows
