// The children of the print preview's window; private to its sources.
#pragma once

#include <windows.h>

#include <functional>
#include <span>
#include <utility>

#include "print/preview_commands.h"
#include "windows/base/frame_windows.h"
#include "windows/base/plain_control.h"
#include "windows/base/tool_strip_events.h"
#include "windows/base/tool_strip_window.h"
#include "windows/base/visual_styles.h"
#include "windows/print/preview_pane.h"

namespace pricedown::windows {

// One of the two tool strips; reports what was pressed as commands.
class PreviewBar final : private ToolStripEvents {
 public:
  PreviewBar(std::span<const PreviewButton> buttons, std::function<void(PreviewCommand)> pressed,
             std::function<void(bool)> tabPressed)
      : buttons_(buttons),
        pressed_(std::move(pressed)),
        tabPressed_(std::move(tabPressed)),
        toolStrip(*this, RowsOf(buttons)) {}

  void ShowEnabled(const PreviewState& state) {
    for (const PreviewButton& button : buttons_) {
      if (!button.separator) toolStrip.SetEnabled(button, state.IsEnabled(button.command));
    }
  }

 private:
  void CommandChosen(const Command& command) override {
    pressed_(static_cast<const PreviewButton&>(command).command);
  }
  void TabPressed(bool backwards) override { tabPressed_(backwards); }
  void FocusEntered() override {}

  std::span<const PreviewButton> buttons_;
  std::function<void(PreviewCommand)> pressed_;
  std::function<void(bool)> tabPressed_;

 public:
  ToolStripWindow toolStrip;
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
