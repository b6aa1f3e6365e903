// Image lists of this module's icons, in the size for a resolution.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <type_traits>
#include <vector>

#include "windows/base/dpi.h"

namespace pricedown::windows {

using ImageList = std::shared_ptr<std::remove_pointer_t<HIMAGELIST>>;

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

// The icons with these resource ids (platform/icon_ids.h), in that order; never null, and
// shared by all its users on this thread. Throws AutomationError if the module has no such icon or
// the list cannot be created.
ImageList ImageListOf(std::vector<int> icons, IconLook look, Dpi dpi);

}  // namespace pricedown::windows
