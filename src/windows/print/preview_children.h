// The children of the print preview's window.
// Private to its sources.
#pragma once

#include <windows.h>

#include <functional>
#include <span>
#include <utility>

#include "windows/base/frame_windows.h"
#include "windows/base/plain_control.h"
#include "windows/base/tool_strip_events.h"
#include "windows/base/tool_strip_window.h"
#include "windows/base/visual_styles.h"
#include "windows/print/preview_buttons.h"
#include "windows/print/preview_pane.h"

namespace pricedown::windows {

// One of the two rows of buttons; presses are told as commands.
struct PreviewBar final : private ToolStripEvents {
  PreviewBar(std::span<const PreviewButton> theButtons, std::function<void(PreviewCommand)> pressed,
             std::function<void(bool)> tabPressed)
      : buttons(theButtons),
        pressed_(std::move(pressed)),
        tabPressed_(std::move(tabPressed)),
        strip(*this, RowsOf(theButtons)) {}

  const std::span<const PreviewButton> buttons;

 private:
  void CommandChosen(const Command& command) override {
    pressed_(static_cast<const PreviewButton&>(command).command);
  }
  void TabPressed(bool backwards) override { tabPressed_(backwards); }
  void FocusEntered(HWND) override {}

  std::function<void(PreviewCommand)> pressed_;
  std::function<void(bool)> tabPressed_;

 public:
  ToolStripWindow strip;
};

struct PreviewChildren {
  PreviewChildren(HINSTANCE module, const std::function<void(PreviewCommand)>& pressed,
                  const std::function<void(bool)>& tabPressed, PaneEvents& paneEvents,
                  PreviewState& state, PreviewPages& pages)
      : styles(module),
        documentBar(kDocumentButtons, pressed, tabPressed),
        viewBar(kViewButtons, pressed, tabPressed),
        pane(paneEvents, state, pages) {}

  VisualStyles styles;
  PreviewBar documentBar;
  PlainControl pageLabel;
  PlainControl pageField;
  PlainControl pageCount;
  PlainControl zoomLabel;
  PlainControl zoom;
  PreviewBar viewBar;
  LineWindow line;
  PreviewPane pane;
};

}  // namespace pricedown::windows
