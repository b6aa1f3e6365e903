// The tool strip `tbToolBar` as a tool bar of the system, with its image lists `imlHot` and
// `imlDis`. It knows positions and captions; what a button does is the core's.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "windows/ui/bound_window.h"
#include "windows/ui/child_events.h"
#include "windows/ui/dpi.h"
#include "windows/ui/image_list.h"

namespace pricedown::windows {

class StripWindow final : public BoundWindow {
 public:
  explicit StripWindow(ChildEvents& events) : events_(events) {}
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, Dpi dpi, std::u16string_view name);

  // Positions are from 1; others are ignored.
  void SetEnabled(std::size_t position, bool enabled);
  bool IsEnabled(std::size_t position) const;
  std::u16string Caption(std::size_t position) const;
  void SetCaption(std::size_t position, std::u16string_view caption);

  void SetFont(HFONT font);
  // What the window should be high; tool bars draw pictures in the middle only then. Pixels.
  int ButtonHeight() const;
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

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnSystemPart(UINT message, WPARAM wParam, LPARAM lParam);
  bool OnKeyDown(WPARAM key);
  int NextButton(int from, int step) const;
  int HotButton() const;
  void SetHot(int index);
  void AddButtons();
  void SizeButtons();

  ChildEvents& events_;
  Dpi dpi_;
  HFONT font_ = nullptr;  // the control's
  ImageList images_;
  ImageList disabledImages_;
  std::shared_ptr<Pending> pending_ = std::make_shared<Pending>();
};

}  // namespace pricedown::windows
