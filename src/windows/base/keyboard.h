// Key messages as the core's key presses.
#pragma once

#include <windows.h>

#include "platform/key.h"

namespace pricedown::windows {

// The key of a WM_KEYDOWN with the modifiers that are down now.
KeyPress PressOf(WPARAM key);

}  // namespace pricedown::windows
