// Sizes and rectangles of the system and of the core. The unit is the caller's.
#pragma once

#include <windows.h>

#include "platform/geometry.h"

namespace pricedown::windows {

inline SIZE ToSize(const Size& size) { return {size.width, size.height}; }
inline RECT ToRect(const Rectangle& area) {
  return {area.left, area.top, area.Right(), area.Bottom()};
}
inline Rectangle FromRect(const RECT& area) {
  return {area.left, area.top, area.right - area.left, area.bottom - area.top};
}
inline int WidthOf(const RECT& area) { return area.right - area.left; }
inline int HeightOf(const RECT& area) { return area.bottom - area.top; }

}  // namespace pricedown::windows
