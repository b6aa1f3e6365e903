// What the UI Automation providers of windows have in common: the element of a whole window, and
// the root of the elements inside one.
#pragma once

#include <windows.h>

#include <cmath>
#include <memory>

#include "platform/convert.h"
#include "windows/base/plain_control.h"
#include "windows/base/provider_link.h"
#include "windows/base/provider_values.h"
#include "windows/com/com_class.h"

namespace pricedown::windows {

// `Access` is what the provider needs from the window; it has HWND Window() const. Members return
// UIA_E_ELEMENTNOTAVAILABLE after the window's end.
template <typename Access, typename... Interfaces>
class WindowElement : public ComClass<IRawElementProviderSimple, Interfaces...> {
 public:
  void End() noexcept { link_->access = nullptr; }

  // IRawElementProviderSimple
  STDMETHODIMP get_ProviderOptions(ProviderOptions* result) noexcept final {
    return link_->Answer(result, [](Access&) { return kProviderOptions; });
  }
  STDMETHODIMP GetPatternProvider(PATTERNID pattern, IUnknown** result) noexcept final {
    return link_->Answer(
        result, [&](Access&) { return ComPtr<IUnknown>::Share(FindPattern(pattern)).release(); });
  }
  STDMETHODIMP GetPropertyValue(PROPERTYID property, VARIANT* result) noexcept final {
    return link_->Answer(result, [&](Access& access) -> VARIANT {
      switch (property) {
        case UIA_NamePropertyId:
          return PropertyText(TextOf(access.Window()));
        case UIA_AutomationIdPropertyId:
          return PropertyText(NumberText(GetDlgCtrlID(access.Window())));
        default:
          return Property(property, access);
      }
    });
  }
  // The system adds what it knows of the window, such as its state and place.
  STDMETHODIMP get_HostRawElementProvider(IRawElementProviderSimple** result) noexcept final {
    return link_->Answer(result, [&](Access& access) {
      return link_->automation.HostProvider(access.Window()).release();
    });
  }

 protected:
  // Both must outlive the window.
  WindowElement(Access& access, UiAutomation& automation)
      : link_(std::make_shared<ProviderLink<Access>>(ProviderLink<Access>{&access, automation})) {}

  // Null for a pattern that the window lacks; adds no reference.
  virtual IUnknown* FindPattern(PATTERNID pattern) = 0;
  // A property other than name and id; empty for one that the window lacks.
  virtual VARIANT Property(PROPERTYID property, const Access& access) const = 0;

  // Shared with the elements inside the window.
  const std::shared_ptr<ProviderLink<Access>> link_;
};

// The parent and the neighbours of the root are the window's.
template <typename Access, typename... Patterns>
class RootElement : public WindowElement<Access, IRawElementProviderFragment,
                                         IRawElementProviderFragmentRoot, Patterns...> {
 public:
  // IRawElementProviderFragment; the runtime id is the window's own
  STDMETHODIMP GetRuntimeId(SAFEARRAY** result) noexcept final {
    return this->link_->Answer(result, [](Access&) { return nullptr; });
  }
  STDMETHODIMP get_BoundingRectangle(UiaRect* result) noexcept final {
    return this->link_->Answer(result, [](Access& access) {
      RECT area{};
      GetClientRect(access.Window(), &area);
      return ScreenArea(access.Window(), area);
    });
  }
  STDMETHODIMP GetEmbeddedFragmentRoots(SAFEARRAY** result) noexcept final {
    return this->link_->Answer(result, [](Access&) { return nullptr; });
  }
  STDMETHODIMP SetFocus() noexcept final {
    return this->link_->Run([](Access& access) -> HRESULT {
      if (!AcceptsInput(access.Window())) return UIA_E_ELEMENTNOTENABLED;
      ::SetFocus(access.Window());
      return S_OK;
    });
  }
  STDMETHODIMP get_FragmentRoot(IRawElementProviderFragmentRoot** result) noexcept final {
    return this->link_->Answer(result, [&](Access&) {
      return ComPtr<IRawElementProviderFragmentRoot>::Share(this).release();
    });
  }

  // IRawElementProviderFragmentRoot
  STDMETHODIMP ElementProviderFromPoint(double x, double y,
                                        IRawElementProviderFragment** result) noexcept final {
    return this->link_->Answer(result, [&](Access& access) -> IRawElementProviderFragment* {
      POINT point{static_cast<LONG>(std::floor(x)), static_cast<LONG>(std::floor(y))};
      ScreenToClient(access.Window(), &point);
      if (IRawElementProviderFragment* element = ElementAt(point, access)) return element;
      return ComPtr<IRawElementProviderFragment>::Share(this).release();
    });
  }

 protected:
  using WindowElement<Access, IRawElementProviderFragment, IRawElementProviderFragmentRoot,
                      Patterns...>::WindowElement;

  // A new reference to the element at a point of the window; null where only the window is.
  virtual IRawElementProviderFragment* ElementAt(POINT point, const Access& access) = 0;
};

}  // namespace pricedown::windows
