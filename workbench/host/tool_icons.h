// The pictures of the host's merged toolbar, by the names of the tools.
// A command that the control also has shows the control's picture; the others are drawn here.
#pragma once

#include <optional>
#include <string_view>

#include "windows/base/icon_canvas.h"

namespace workbench {

// `size` pixels wide and high; nothing for a tool without a picture.
std::optional<pricedown::windows::IconCanvas> ToolPicture(std::u16string_view name, int size);

}  // namespace workbench
