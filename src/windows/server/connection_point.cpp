// Connecting sinks, and the lists of connections.
#include "windows/server/connection_point.h"

#include <olectl.h>

#include "windows/com/enumerator.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::windows {
namespace {

struct Connections {
  using Item = EventSource::Sink;
  using Element = CONNECTDATA;
  static CONNECTDATA Copy(const Item& sink) { return {sink.object.Copy().release(), sink.cookie}; }
  static void Free(CONNECTDATA& element) { element.pUnk->Release(); }
};

// As itself for the events, or as a plain automation object.
ComPtr<IDispatch> DispatchOf(IUnknown& sink) {
  ComPtr<IDispatch> events;
  if (SUCCEEDED(sink.QueryInterface(DIID__PriceDownEvents, events.putVoid())) && events) {
    return events;
  }
  return ComPtr<IUnknown>::Share(&sink).As<IDispatch>();
}

}  // namespace

STDMETHODIMP EventConnectionPoint::QueryInterface(REFIID id, void** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = id == IID_IUnknown || id == IID_IConnectionPoint ? this : nullptr;
  if (*result == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP EventConnectionPoint::GetConnectionInterface(IID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = DIID__PriceDownEvents;
  return S_OK;
}

STDMETHODIMP EventConnectionPoint::GetConnectionPointContainer(
    IConnectionPointContainer** container) noexcept {
  if (container == nullptr) return E_POINTER;
  *container = &container_;
  container_.AddRef();
  return S_OK;
}

STDMETHODIMP EventConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
  if (cookie == nullptr) return E_POINTER;
  *cookie = 0;
  if (sink == nullptr) return E_POINTER;
  return control_.Run([&]() -> HRESULT {
    ComPtr<IDispatch> events = DispatchOf(*sink);
    if (!events) return CONNECT_E_CANNOTCONNECT;
    *cookie = control_.Events().Add(std::move(events));
    return S_OK;
  });
}

STDMETHODIMP EventConnectionPoint::Unadvise(DWORD cookie) noexcept {
  return control_.Run(
      [&] { return control_.Events().Remove(cookie) ? S_OK : CONNECT_E_NOCONNECTION; });
}

STDMETHODIMP EventConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return control_.Run([&] {
    auto sinks = std::make_shared<std::vector<EventSource::Sink>>();
    for (const EventSource::Sink& sink : control_.Events().Sinks()) {
      sinks->push_back({sink.cookie, sink.object.Copy()});
    }
    *connections = MakeCom<Enumerator<IEnumConnections, Connections>>(std::move(sinks)).release();
  });
}

}  // namespace pricedown::windows
