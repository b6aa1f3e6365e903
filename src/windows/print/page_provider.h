// The UI Automation provider of the preview's page: a document whose children are its lines.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "print/page_reading.h"
#include "windows/base/window_element.h"

namespace pricedown::windows {

// What the providers need from the pane's window.
class PageAccess {
 public:
  virtual HWND Window() const = 0;
  // Of the shown page.
  virtual std::vector<ReadingLine> Lines() const = 0;
  // The part of an area on paper that shows in the window.
  virtual RECT ShownArea(const Rectangle& paper) const = 0;

 protected:
  ~PageAccess() = default;
};
using PageLink = std::shared_ptr<ProviderLink<PageAccess>>;

class PageProvider final : public RootElement<PageAccess, IValueProvider> {
 public:
  // Both must outlive the window.
  PageProvider(PageAccess& access, UiAutomation& automation) : RootElement(access, automation) {}

  // IRawElementProviderFragment
  STDMETHODIMP Navigate(NavigateDirection direction,
                        IRawElementProviderFragment** result) noexcept override;

  // IRawElementProviderFragmentRoot
  STDMETHODIMP GetFocus(IRawElementProviderFragment** result) noexcept override;

  // IValueProvider: the text of the page
  STDMETHODIMP SetValue(LPCWSTR value) noexcept override;
  STDMETHODIMP get_Value(BSTR* result) noexcept override;
  STDMETHODIMP get_IsReadOnly(BOOL* result) noexcept override;

 private:
  IUnknown* FindPattern(PATTERNID pattern) override;
  VARIANT Property(PROPERTYID property, const PageAccess& access) const override;
  IRawElementProviderFragment* ElementAt(POINT point, const PageAccess& access) override;
  IRawElementProviderFragment* Line(std::size_t index);
};

// One line, by its position; UIA_E_ELEMENTNOTAVAILABLE also while the page has no such line.
class PageLineProvider final
    : public ComClass<IRawElementProviderSimple, IRawElementProviderFragment> {
 public:
  PageLineProvider(PageLink link, ComPtr<IRawElementProviderFragmentRoot> page, std::size_t index)
      : link_(std::move(link)), page_(std::move(page)), index_(index) {}

  // IRawElementProviderSimple
  STDMETHODIMP get_ProviderOptions(ProviderOptions* result) noexcept override;
  STDMETHODIMP GetPatternProvider(PATTERNID pattern, IUnknown** result) noexcept override;
  STDMETHODIMP GetPropertyValue(PROPERTYID property, VARIANT* result) noexcept override;
  STDMETHODIMP get_HostRawElementProvider(IRawElementProviderSimple** result) noexcept override;

  // IRawElementProviderFragment
  STDMETHODIMP Navigate(NavigateDirection direction,
                        IRawElementProviderFragment** result) noexcept override;
  STDMETHODIMP GetRuntimeId(SAFEARRAY** result) noexcept override;
  STDMETHODIMP get_BoundingRectangle(UiaRect* result) noexcept override;
  STDMETHODIMP GetEmbeddedFragmentRoots(SAFEARRAY** result) noexcept override;
  STDMETHODIMP SetFocus() noexcept override;
  STDMETHODIMP get_FragmentRoot(IRawElementProviderFragmentRoot** result) noexcept override;

 private:
  using Lines = std::vector<ReadingLine>;

  // Calls `body` with the window and the page's lines, of which this is one.
  template <typename Result, typename Body>
  HRESULT Ask(Result* result, Body&& body) const noexcept;

  PageLink link_;
  ComPtr<IRawElementProviderFragmentRoot> page_;
  std::size_t index_;
};

}  // namespace pricedown::windows
