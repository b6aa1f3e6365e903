// IQuickActivate: site, sinks and status in one call, as user forms and browsers load controls.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "windows/com/com_class.h"
#include "windows/server/hosted_control.h"

namespace pricedown::windows {

class QuickActivateImpl : public Implements<IQuickActivate> {
 public:
  STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept override;
  STDMETHODIMP SetContentExtent(LPSIZEL size) noexcept override;
  STDMETHODIMP GetContentExtent(LPSIZEL size) noexcept override;

 protected:
  virtual HostedControl& Hosted() noexcept = 0;
  ~QuickActivateImpl() = default;
};

}  // namespace pricedown::windows
