// What clients ask about the control as a class: type information, error info, events.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include <optional>

#include "windows/com/com_class.h"
#include "windows/server/connection_point.h"

namespace pricedown::windows {

template <>
struct BasesOf<IProvideClassInfo2> : InterfaceList<IProvideClassInfo> {};

class ProvideClassInfoImpl
    : public Implements<IProvideClassInfo2, ISupportErrorInfo, IConnectionPointContainer> {
 public:
  STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) noexcept override;

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) noexcept override;

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) noexcept override;

 protected:
  virtual HostedControl& Hosted() noexcept = 0;
  ~ProvideClassInfoImpl() = default;

 private:
  // The only one.
  EventConnectionPoint& Point();

  std::optional<EventConnectionPoint> point_;
};

}  // namespace pricedown::windows
