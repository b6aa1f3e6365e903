// What the control needs of its window and of the window that contains it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "control/layout.h"
#include "env/command.h"
#include "env/font.h"

namespace pricedown {

enum class FindPane { Tree, Grid };

// The find bar, and what it shows in the panes.
class FindView {
 public:
  virtual ~FindView() = default;
  // Shows the bar over the pane with that text selected, and the keyboard in it.
  virtual void OpenFind(FindPane pane, std::u16string_view text) = 0;
  // Hides the bar; the keyboard goes to the pane.
  virtual void CloseFind(FindPane pane) = 0;
  // The count of the hits. While `counting` the bar requests more when the thread is idle.
  virtual void ShowFindCount(std::u16string_view text, bool counting) = 0;
  // Makes the cell the current one.
  virtual void ShowFoundCell(std::int32_t column, std::int32_t row) = 0;
  // Makes the node visible and shows it as found, and no other; selects nothing. kNoNode for none.
  virtual void ShowFoundNode(std::int32_t node) = 0;
  // Of the grid.
  virtual std::int32_t CurrentRow() const = 0;
  // The pane with the keyboard, or that of the bar.
  virtual FindPane FocusedPane() const = 0;
};

class PriceDownView : public FindView {
 public:
  virtual void SetTitle(std::u16string_view text) = 0;
  // An empty name leaves the font's name as it is.
  virtual void SetTitleFont(const Font& font) = 0;
  virtual void SetPeriod(std::u16string_view text) = 0;
  virtual void DisableButton(const Command& command) = 0;
  // Copies the grid's selected cells to the clipboard, `titled` below the titles of their columns.
  virtual void CopyCells(bool titled) = 0;
  // False once the parent has destroyed the window.
  virtual bool HasWindow() const = 0;
  // The inner size of the control in twips.
  virtual Size ControlSize() const = 0;
  virtual void Place(const Layout& layout) = 0;
  // The drag bar at a splitter position, inside the rectangle; hidden by HideDragBar.
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
