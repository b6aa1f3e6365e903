// A row of buttons as a tool bar of the system, with image lists for enabled and disabled ones:
// the control's tool strip `tbToolBar` and the form's `tlbSPCA`. It knows positions, captions and
// tips; what a button does is the core's.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "control/tool_strip.h"
#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"
#include "windows/base/image_list.h"
#include "windows/base/tool_strip_events.h"

namespace pricedown::windows {

class ToolStripWindow final : public BoundWindow {
 public:
  // `buttons` must outlive the window.
  ToolStripWindow(ToolStripEvents& events, std::span<const ToolStripButton> buttons)
      : events_(events), buttons_(buttons) {}
  // `id` is the window's; the buttons' command ids follow from their positions. Throws
  // AutomationError.
  void Create(HWND parent, HINSTANCE module, int id, Dpi dpi, std::u16string_view name);

  // Positions are from 1; others are ignored.
  void SetEnabled(std::size_t position, bool enabled);
  bool IsEnabled(std::size_t position) const;
  std::u16string Caption(std::size_t position) const;
  void SetCaption(std::size_t position, std::u16string_view caption);
  // An empty tip is none.
  void SetTooltip(std::size_t position, std::u16string_view tooltip);

  void SetFont(HFONT font);
  // What the window should be high; tool bars draw pictures in the middle only then. Pixels.
  int ButtonHeight() const;
  // From the window's left edge to the right one of the last button. Pixels.
  int ButtonsWidth() const;
  void TakeAppearance(Dpi dpi);

  // What the strip told its parent: a button was pressed; a tooltip is needed.
  void OnCommand(int id);
  void OnTooltip(NMTTDISPINFOW& info) const;

  // The first button that can be pressed is marked for the keyboard.
  bool CanTakeFocus() const;

 private:
  // As in tree_window.h.
  struct Pending {
    int depth = 0;
    std::size_t pressed = 0;
  };

  bool IsPosition(std::size_t position) const {
    return position >= 1 && position <= buttons_.size();
  }
  std::vector<int> Icons() const;

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnSystemPart(UINT message, WPARAM wParam, LPARAM lParam);
  bool OnKeyDown(WPARAM key, bool repeated);
  int NextButton(int from, int step) const;
  int HotButton() const;
  void SetHot(int index);
  void AddButtons();
  void SizeButtons();

  ToolStripEvents& events_;
  std::span<const ToolStripButton> buttons_;
  std::vector<std::u16string> tooltips_;  // by position from 0
  Dpi dpi_;
  HFONT font_ = nullptr;  // the control's
  ImageList images_;
  ImageList disabledImages_;
  std::shared_ptr<Pending> pending_ = std::make_shared<Pending>();
};

}  // namespace pricedown::windows
