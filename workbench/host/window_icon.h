// The icon of the host's windows.
#pragma once

#include <windows.h>

#include "platform/icon_ids.h"

namespace workbench {

// In the size of the metric, SM_CXICON or SM_CXSMICON; the system owns it.
inline HICON WindowIcon(int metric) {
  const int size = GetSystemMetrics(metric);
  return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr),
                                       MAKEINTRESOURCEW(PRICEDOWN_ICON_FOLDER), IMAGE_ICON, size,
                                       size, LR_SHARED));
}

}  // namespace workbench
