// Image lists of this module's icons, in the size for a resolution.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <span>
#include <type_traits>

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

struct DestroyIconHandle {
  void operator()(HICON icon) const { DestroyIcon(icon); }
};
using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIconHandle>;

// The icon with that resource id (platform/icon_ids.h), `size` pixels wide and high. Throws
// AutomationError if the module has no such icon.
IconHandle LoadIconResource(int id, int size);

enum class IconLook { Normal, Disabled };

// Edge of an icon in pixels.
int IconSize(Dpi dpi);

// The icons with these resource ids (platform/icon_ids.h), in that order. Throws AutomationError
// if the module has no such icon or the system makes no list.
ImageList MakeImageList(std::span<const int> icons, IconLook look, Dpi dpi);

}  // namespace pricedown::windows
