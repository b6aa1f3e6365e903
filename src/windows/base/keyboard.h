// Key messages as the core's key presses.
#pragma once

#include <windows.h>

#include "platform/key.h"

namespace pricedown::windows {

// The key of a WM_KEYDOWN with the modifiers that are down now.
KeyPress PressOf(WPARAM key);

// Of a WM_KEYDOWN: whether the key was down before.
inline bool IsRepeated(LPARAM keyData) { return (keyData & (1 << 30)) != 0; }

}  // namespace pricedown::windows
