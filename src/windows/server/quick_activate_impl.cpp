// The steps that a container would otherwise do one by one.
#include "windows/server/quick_activate_impl.h"

#include "windows/com/system_error.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"
#include "windows/server/ole_object_impl.h"

namespace pricedown::windows {

STDMETHODIMP QuickActivateImpl::QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept {
  if (container == nullptr || control == nullptr) return E_POINTER;
  if (container->cbSize < sizeof *container || control->cbSize < sizeof *control) {
    return E_INVALIDARG;
  }
  const ULONG size = control->cbSize;
  *control = {};
  control->cbSize = size;
  return Hosted().Run([&] {
    const auto self = ComPtr<IUnknown>::Share(Identity());
    const auto view = self.As<IViewObjectEx>();
    control->dwMiscStatus = kControlStatus;
    ThrowIfFailed(view->GetViewStatus(&control->dwViewStatus));
    // A container connects no sink to a control that it could not activate, and disconnects none.
    Hosted().SetSite(container->pClientSite,
                     (container->dwAmbientFlags & QACONTAINER_USERMODE) != 0);
    if (container->pUnkEventSink != nullptr) {
      ComPtr<IConnectionPoint> events;
      ThrowIfFailed(self.As<IConnectionPointContainer>()->FindConnectionPoint(DIID__PriceDownEvents,
                                                                              events.put()));
      ThrowIfFailed(events->Advise(container->pUnkEventSink, &control->dwEventCookie));
    }
    if (container->pAdviseSink != nullptr) {
      ThrowIfFailed(view->SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink));
    }
  });
}

STDMETHODIMP QuickActivateImpl::SetContentExtent(LPSIZEL size) noexcept {
  if (size == nullptr) return E_POINTER;
  return Hosted().Run([&] { Hosted().SetExtent(*size); });
}

STDMETHODIMP QuickActivateImpl::GetContentExtent(LPSIZEL size) noexcept {
  if (size == nullptr) return E_POINTER;
  return Hosted().CopyExtent(*size);
}

}  // namespace pricedown::windows
