// What the control's window owns: its children, their fonts and the last layout.
#pragma once

#include <windows.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "control/commands.h"
#include "control/focus.h"
#include "control/layout.h"
#include "windows/base/captioned_form.h"
#include "windows/base/fonts.h"
#include "windows/base/frame_windows.h"
#include "windows/base/plain_control.h"
#include "windows/base/tool_strip_window.h"
#include "windows/base/visual_styles.h"
#include "windows/control/find_bar_window.h"
#include "windows/control/heading_window.h"
#include "windows/control/splitter_window.h"
#include "windows/control/status_window.h"
#include "windows/control/tree_window.h"
#include "windows/grid/grid_window.h"

namespace pricedown::windows {

using Clock = std::chrono::steady_clock;

inline std::vector<const Command*> Buttons() {
  const auto rows = CommandsOn(surface::kToolStrip);
  return {rows.begin(), rows.end()};
}

struct ControlChildren {
  ControlChildren(HINSTANCE theModule, ChildEvents& events, UiAutomation& automation)
      : module(theModule),
        styles(theModule),
        tree(events),
        toolStrip(events, Buttons()),
        splitter(events, automation),
        grid(events, automation),
        findBar(events) {}

  // Creates all windows in `parent`, and `form` over them. Throws AutomationError.
  void Create(HWND parent);
  void MakeTitleFont(Dpi dpi);
  void MakeFonts(Dpi dpi);
  // Updates fonts and images, also after a change of the system's settings.
  void UpdateResolution(Dpi dpi);
  void ShowProgress(bool show);
  LRESULT OnNotify(NMHDR& header);
  // False when there is no further child in that direction and it does not wrap around.
  bool MoveFocus(HWND from, bool backwards, bool wrap) const;
  FocusPlace PlaceOf(HWND focus) const;
  HWND WindowOf(FindPane which) const {
    return which == FindPane::Tree ? tree.Handle() : grid.Handle();
  }
  // The find bar lies over the heading of its pane.
  void MoveFindBar();

  HINSTANCE module;
  VisualStyles styles;
  // Declared before the windows that show them, to outlive those.
  Font titleDescription{u"", kTitlePoints};  // without a name the system's
  FontHandle titleFont;
  FontHandle textFont;
  FontHandle labelFont;
  Font treeFont;

  ParkingWindow parking;
  PlainControl title;
  PlainControl period;
  // Without texts; the form's resources may set some.
  PlainControl firstLabel;
  PlainControl secondLabel;
  LineWindow upperLine;
  LineWindow lowerLine;
  PlainControl progressBar;
  PlainControl fontLabel;
  HeadingWindow classHeading;
  HeadingWindow itemHeading;
  TreeWindow tree;
  ToolStripWindow toolStrip;
  SplitterWindow splitter;
  DragBarWindow dragBar;
  PaneWindow pane;
  GridWindow grid;
  FindBarWindow findBar;
  StatusWindow statusBar;

  std::shared_ptr<CaptionedForm> form;
  HWND lastFocus = nullptr;

 private:
  void ListCaptions();
};

}  // namespace pricedown::windows
