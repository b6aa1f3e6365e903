// The values that UI Automation providers return: options, properties, arrays, places.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>
#include <vector>

#include "windows/base/uia_provider.h"
#include "windows/com/com_ptr.h"

namespace pricedown::windows {

// Calls arrive on the thread of the window.
inline constexpr ProviderOptions kProviderOptions = static_cast<ProviderOptions>(
    ProviderOptions_ServerSideProvider | ProviderOptions_UseComThreading);

// The values of properties. The caller owns the text; throws std::bad_alloc.
VARIANT PropertyText(std::u16string_view text);
VARIANT PropertyNumber(int number);
VARIANT PropertyNumber(double number);
VARIANT PropertyFlag(bool flag);

// New arrays of the caller; throw std::bad_alloc. The elements' references are shared.
SAFEARRAY* ElementArray(const std::vector<ComPtr<IRawElementProviderSimple>>& elements);
// The id of an element of a window: the system puts the window's own in front.
SAFEARRAY* RuntimeIdArray(std::initializer_list<int> id);

// An area of the window on the screen; an empty one stays empty.
UiaRect ScreenArea(HWND window, const RECT& area);

// Whether the user can use the window: neither it nor a window around it is disabled.
bool AcceptsInput(HWND window);

}  // namespace pricedown::windows
