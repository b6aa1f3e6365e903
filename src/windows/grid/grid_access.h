// What the providers of the grid need from its window.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string_view>

#include "browser/grid_elements.h"
#include "windows/base/provider_link.h"

namespace pricedown::windows {

class GridAccess {
 public:
  virtual HWND Window() const = 0;
  // Valid until the next change.
  virtual GridElements Elements() const = 0;
  virtual const GridViewport& Viewport() const = 0;
  // Selects and scrolls there. Requires: a selection inside the grid.
  virtual void SetSelection(const GridSelection& selection) = 0;
  virtual void ScrollTo(std::int32_t topRow, int left) = 0;
  // As if typed: returns false for a text that the cell does not accept. Requires: an editable
  // cell.
  virtual bool SetNumber(GridElement cell, std::u16string_view text) = 0;

 protected:
  ~GridAccess() = default;
};

using GridLink = ProviderLink<GridAccess>;

}  // namespace pricedown::windows
