// OLE for the life of a stage or host.
#pragma once

#include <ole2.h>

#include "windows/com/system_error.h"

namespace bench {

struct Ole {
  Ole() { pricedown::windows::ThrowIfFailed(OleInitialize(nullptr)); }
  ~Ole() { OleUninitialize(); }
  Ole(const Ole&) = delete;
  Ole& operator=(const Ole&) = delete;
};

}  // namespace bench
