// Chooses from the context menu that a test opens, and records its contents.
// One menu per instance; a menu without a choice is closed by Escape.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace pricedown::testing {

class ContextMenus {
 public:
  // `choice` is the position of the line to choose from 1, separators not counted; 0 for none.
  // With a name a picture of the menu is written.
  explicit ContextMenus(int choice = 0, std::string picture = {});
  ~ContextMenus();
  ContextMenus(const ContextMenus&) = delete;
  ContextMenus& operator=(const ContextMenus&) = delete;

  // The texts with a tab before the shortcut, a disabled one in brackets; "-" separates.
  const std::vector<std::string>& Lines() const { return lines_; }
  // Where the menu was on the screen.
  RECT Place() const { return place_; }

 private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
  void Answer(HWND window);

  UINT_PTR timer_;
  int choice_;
  std::string picture_;
  bool answered_ = false;
  std::vector<std::string> lines_;
  RECT place_{};
};

}  // namespace pricedown::testing
