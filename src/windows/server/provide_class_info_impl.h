// What clients ask about the control as a class: type information, error info, events.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "windows/com/com_class.h"

namespace pricedown::windows {

template <>
struct BasesOf<IProvideClassInfo2> : InterfaceList<IProvideClassInfo> {};

class ProvideClassInfoImpl
    : public Implements<IProvideClassInfo2, ISupportErrorInfo, IConnectionPointContainer> {
 public:
  STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) noexcept override;

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) noexcept override;

  // The control fires no events.
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) noexcept override;

 protected:
  ~ProvideClassInfoImpl() = default;
};

}  // namespace pricedown::windows
