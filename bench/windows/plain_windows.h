// The windows of a control without the control: the same number of system windows at the same
// places, with the same tool strip texts and fonts.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "windows/base/gdi.h"

namespace bench {

class PlainWindows {
 public:
  // Hidden when there is no parent. Throws AutomationError.
  explicit PlainWindows(HWND parent);
  ~PlainWindows();
  PlainWindows(const PlainWindows&) = delete;
  PlainWindows& operator=(const PlainWindows&) = delete;

  // Under one root, which is then expanded.
  void FillTree(const std::vector<std::u16string>& nodes);
  HWND Frame() const { return frame_; }

 private:
  HWND Child(const wchar_t* className, DWORD style, const RECT& area);
  void FillToolBar(HWND bar);

  HWND frame_ = nullptr;
  HWND tree_ = nullptr;
  pricedown::windows::GdiObject<HFONT> font_;
  pricedown::windows::GdiObject<HFONT> titleFont_;
};

}  // namespace bench
