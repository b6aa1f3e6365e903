// The steps that a container would otherwise do one by one.
#include "windows/server/quick_activate_impl.h"

#include "platform/first_failure.h"
#include "windows/com/failure.h"
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
    FirstFailure steps;
    // Its creation may fail; the control can be used anyway.
    steps.Run([&] { Hosted().SetSite(container->pClientSite); });
    if (container->pAdviseSink != nullptr) {
      ThrowIfFailed(view->SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink));
    }
    if (container->pUnkEventSink != nullptr) {
      ComPtr<IConnectionPoint> events;
      ThrowIfFailed(self.As<IConnectionPointContainer>()->FindConnectionPoint(DIID__PriceDownEvents,
                                                                              events.put()));
      ThrowIfFailed(events->Advise(container->pUnkEventSink, &control->dwEventCookie));
    }
    steps.Rethrow();
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
