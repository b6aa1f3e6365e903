// The UI Automation provider of the splitter. Its range value is the splitter's position, which is
// the width of the tree's pane, in pixels.
#pragma once

#include <windows.h>

#include "windows/base/window_element.h"

namespace pricedown::windows {

// What the provider needs from the splitter's window.
class SplitterAccess {
 public:
  virtual HWND Window() const = 0;
  // As a drag does; returns false while the mouse drags. May end the control.
  virtual bool MoveBy(int pixels) = 0;

 protected:
  ~SplitterAccess() = default;
};

class SplitterProvider final : public WindowElement<SplitterAccess, IRangeValueProvider> {
 public:
  // Both must outlive the window.
  SplitterProvider(SplitterAccess& access, UiAutomation& automation)
      : WindowElement(access, automation) {}

  // IRangeValueProvider
  STDMETHODIMP SetValue(double value) noexcept override;
  STDMETHODIMP get_Value(double* result) noexcept override;
  STDMETHODIMP get_IsReadOnly(BOOL* result) noexcept override;
  STDMETHODIMP get_Maximum(double* result) noexcept override;
  STDMETHODIMP get_Minimum(double* result) noexcept override;
  STDMETHODIMP get_LargeChange(double* result) noexcept override;
  STDMETHODIMP get_SmallChange(double* result) noexcept override;

 private:
  IUnknown* FindPattern(PATTERNID pattern) override;
  VARIANT Property(PROPERTYID property, const SplitterAccess& access) const override;
};

// Where a splitter's window is, in pixels of its parent.
int SplitterPosition(HWND splitter);

}  // namespace pricedown::windows
