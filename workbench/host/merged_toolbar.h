// The host's toolbar with the tools of the active child's command bar merged into it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "platform/automation.h"
#include "windows/base/image_list.h"

namespace workbench {

// Adds the host's standard tools that a command bar expects after merging ("iPrint",
// "iPrintPreView", "iRefresh", "iToolBar", "mnuViewStatusBar", "iExit"); existing ones are kept.
void AddStandardTools(const pricedown::ObjectPtr& bar);

class MergedToolbar {
 public:
  // Makes the toolbar at the top of `frame`. Throws AutomationError.
  MergedToolbar(HINSTANCE module, HWND frame);

  HWND Handle() const { return window_; }

  // Shows the tools of `bar` instead of the previous ones; none for null.
  void Merge(const pricedown::ObjectPtr& bar);
  // Sets the width, in pixels, and breaks the buttons into as many rows as they need.
  void FitInto(int width);
  // Updates the buttons to the tools' enabled, checked and visible states.
  void RefreshStates();
  // The tool of a command id, or null.
  pricedown::ObjectPtr ToolOf(int commandId) const;
  // The tool of that name, or null.
  pricedown::ObjectPtr ToolNamed(std::u16string_view name) const;
  // Appends the tools as a menu.
  void AppendTo(HMENU menu) const;
  // The tip text of a tool.
  std::wstring TipOf(int commandId) const;

 private:
  struct Tool {
    pricedown::ObjectPtr object;
    std::u16string name;
    std::wstring caption;
    std::wstring description;
    int picture = I_IMAGENONE;
  };

  void UpdatePictures();
  void AddButtons();

  HWND window_ = nullptr;
  std::vector<Tool> tools_;
  pricedown::windows::ImageList pictures_;
  pricedown::windows::ImageList disabledPictures_;
};

}  // namespace workbench
