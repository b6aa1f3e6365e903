// Ambient properties: what a container says about the surroundings of its controls.
#pragma once

#include <ole2.h>

namespace pricedown::windows {

// `fallback` when the container has no such property or its value is no boolean.
bool AmbientFlag(IOleClientSite* site, DISPID property, bool fallback) noexcept;

}  // namespace pricedown::windows
