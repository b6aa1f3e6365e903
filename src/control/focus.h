// Keyboard navigation between the control's parts: where Tab and F6 go, and the keys that a host
// must not handle.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/key.h"

namespace pricedown {

// The next open tab stop; empty when there is none in that direction and the focus does not wrap
// around. `current` is empty when the focus comes from outside.
std::optional<std::size_t> NextStop(std::span<const bool> open, std::optional<std::size_t> current,
                                    bool backwards, bool wrap);

enum class FocusPlace { Tree, Grid, CellEditor, FindField, ToolStrip, Splitter, Other };

// Whether the part needs the key itself. Keys of commands are in commands.h.
bool KeepsKey(FocusPlace place, const KeyPress& press);

}  // namespace pricedown
