// Centring inside a screen's work area.
#include "windows/base/centring.h"

#include "windows/base/rectangles.h"

namespace pricedown::windows {

std::optional<RECT> AreaOfOwner(HWND owner) {
  RECT area{};
  if (owner == nullptr || IsIconic(owner) != FALSE || GetWindowRect(owner, &area) == FALSE) {
    return std::nullopt;
  }
  return area;
}

void CentreOver(HWND window, HWND owner, SIZE size) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : window, MONITOR_DEFAULTTONEAREST),
                  &monitor);
  const RECT& work = monitor.rcWork;
  const Rectangle place =
      CentredOver({size.cx, size.cy}, FromRect(AreaOfOwner(owner).value_or(work)), FromRect(work));
  SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace pricedown::windows
