// Ambient properties: what a container says about the surroundings of its controls.
// A container may have none of them.
#pragma once

#include <ole2.h>

namespace pricedown::windows {

// `fallback` when the container does not offer the property or answers no boolean.
bool AmbientFlag(IOleClientSite* site, DISPID property, bool fallback) noexcept;

}  // namespace pricedown::windows
