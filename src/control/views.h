// What the control needs of its window and of the window that contains it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "control/layout.h"
#include "env/command.h"
#include "env/font.h"

namespace pricedown {

class PriceDownView {
 public:
  virtual ~PriceDownView() = default;
  virtual void SetTitle(std::u16string_view text) = 0;
  // An empty name leaves the font's name and character set as they are.
  virtual void SetTitleFont(const Font& font) = 0;
  virtual void SetPeriod(std::u16string_view text) = 0;
  virtual void DisableButton(const Command& command) = 0;
  // Copies the grid's selected cells to the clipboard.
  virtual void CopyCells() = 0;
  // The inner size of the control in twips.
  virtual Size ControlSize() const = 0;
  virtual void Place(const Layout& layout) = 0;
  // The drag bar at a splitter position, inside the given rectangle; hidden by HideDragBar.
  virtual void ShowDragBar(const Rectangle& bar) = 0;
  virtual void HideDragBar() = 0;
};

class ContainerWindow {
 public:
  virtual ~ContainerWindow() = default;
  // Throws AutomationError when the control has no container.
  virtual std::u16string Caption() const = 0;
  // Sends WM_CLOSE to the window. Throws AutomationError when the control has no container.
  virtual void Close() = 0;
};

}  // namespace pricedown
