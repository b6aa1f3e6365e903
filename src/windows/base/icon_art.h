// The icons of the control, drawn for it.
// Turning them into image lists is image_list.h.
#pragma once

#include <cstddef>
#include <string_view>

#include "windows/base/icon_canvas.h"

namespace pricedown::windows {

enum class Icon {
  Add,
  Edit,
  Delete,
  Print,
  Preview,
  Exit,
  Folder,
  OpenFolder,
  Save,
  AddItem,
  RemoveItem,
  PageSetup,
  Font,
  First,
  Previous,
  Next,
  Last,
  ZoomIn,
  ZoomOut,
  FitPage,
  FitWidth
};

// The icon of a button of the tool strip, of the form or of the print preview, by the button's key;
// null when it has none.
const Icon* IconOfButton(std::u16string_view key);

// The icon, `size` pixels wide and high.
IconCanvas DrawIcon(Icon icon, int size);

}  // namespace pricedown::windows
