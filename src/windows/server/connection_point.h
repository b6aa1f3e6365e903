// The connection point of the control's events; a part of the control, with its references.
#pragma once

#include <ocidl.h>

#include "windows/server/hosted_control.h"

namespace pricedown::windows {

class EventConnectionPoint final : public IConnectionPoint {
 public:
  // Both must outlive the object; adds no reference.
  EventConnectionPoint(IConnectionPointContainer& container, HostedControl& control)
      : container_(container), control_(control) {}

  STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return container_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return container_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* id) noexcept override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
  STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) noexcept override;

 private:
  IConnectionPointContainer& container_;
  HostedControl& control_;
};

}  // namespace pricedown::windows
