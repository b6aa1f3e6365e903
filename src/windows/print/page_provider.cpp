// The page's and its lines' patterns and properties.
#include "windows/print/page_provider.h"

#include "platform/convert.h"
#include "platform/text.h"
#include "windows/com/bstr.h"

namespace pricedown::windows {

IRawElementProviderFragment* PageProvider::Line(std::size_t index) {
  return MakeCom<PageLineProvider>(link_, ComPtr<IRawElementProviderFragmentRoot>::Share(this),
                                   index)
      .release();
}

IUnknown* PageProvider::FindPattern(PATTERNID pattern) {
  return pattern == UIA_ValuePatternId ? static_cast<IValueProvider*>(this) : nullptr;
}

VARIANT PageProvider::Property(PROPERTYID property, const PageAccess& access) const {
  switch (property) {
    case UIA_ControlTypePropertyId:
      return PropertyNumber(UIA_DocumentControlTypeId);
    case UIA_IsKeyboardFocusablePropertyId:
      return PropertyFlag(true);
    case UIA_HasKeyboardFocusPropertyId:
      return PropertyFlag(::GetFocus() == access.Window());
    default:
      return {};
  }
}

STDMETHODIMP PageProvider::Navigate(NavigateDirection direction,
                                    IRawElementProviderFragment** result) noexcept {
  return link_->Answer(result, [&](PageAccess& access) -> IRawElementProviderFragment* {
    const std::size_t lines = access.Lines().size();
    if (lines == 0) return nullptr;
    if (direction == NavigateDirection_FirstChild) return Line(0);
    return direction == NavigateDirection_LastChild ? Line(lines - 1) : nullptr;
  });
}

IRawElementProviderFragment* PageProvider::ElementAt(POINT point, const PageAccess& access) {
  const std::vector<ReadingLine> lines = access.Lines();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const RECT area = access.ShownArea(lines[i].area);
    if (PtInRect(&area, point) != FALSE) return Line(i);
  }
  return nullptr;
}

// No line has the focus.
STDMETHODIMP PageProvider::GetFocus(IRawElementProviderFragment** result) noexcept {
  return link_->Answer(result, [](PageAccess&) { return nullptr; });
}

STDMETHODIMP PageProvider::SetValue(LPCWSTR) noexcept {
  return link_->Run([](PageAccess&) { return UIA_E_INVALIDOPERATION; });
}

STDMETHODIMP PageProvider::get_Value(BSTR* result) noexcept {
  return link_->Answer(
      result, [](PageAccess& access) { return Bstr(ReadingText(access.Lines())).release(); });
}

STDMETHODIMP PageProvider::get_IsReadOnly(BOOL* result) noexcept {
  return link_->Answer(result, [](PageAccess&) { return TRUE; });
}

template <typename Result, typename Body>
HRESULT PageLineProvider::Ask(Result* result, Body&& body) const noexcept {
  if (result == nullptr) return E_POINTER;
  *result = Result{};
  return link_->Run([&](PageAccess& access) -> HRESULT {
    const std::vector<ReadingLine> lines = access.Lines();
    if (index_ >= lines.size()) return UIA_E_ELEMENTNOTAVAILABLE;
    *result = body(access, lines);
    return S_OK;
  });
}

STDMETHODIMP PageLineProvider::get_ProviderOptions(enum ProviderOptions* result) noexcept {
  return Ask(result, [](PageAccess&, const Lines&) { return kProviderOptions; });
}

STDMETHODIMP PageLineProvider::GetPatternProvider(PATTERNID, IUnknown** result) noexcept {
  return Ask(result, [](PageAccess&, const Lines&) { return nullptr; });
}

STDMETHODIMP PageLineProvider::GetPropertyValue(PROPERTYID property, VARIANT* result) noexcept {
  return Ask(result, [&](PageAccess& access, const Lines& lines) -> VARIANT {
    switch (property) {
      case UIA_ControlTypePropertyId:
        return PropertyNumber(UIA_TextControlTypeId);
      case UIA_NamePropertyId:
        return PropertyText(lines[index_].text);
      case UIA_AutomationIdPropertyId:
        return PropertyText(
            Concatenate({u"line", NumberText(static_cast<std::int32_t>(index_) + 1)}));
      case UIA_IsOffscreenPropertyId: {
        const RECT area = access.ShownArea(lines[index_].area);
        return PropertyFlag(IsRectEmpty(&area) != FALSE);
      }
      default:
        return {};
    }
  });
}

STDMETHODIMP PageLineProvider::get_HostRawElementProvider(
    IRawElementProviderSimple** result) noexcept {
  return Ask(result, [](PageAccess&, const Lines&) { return nullptr; });
}

STDMETHODIMP PageLineProvider::Navigate(NavigateDirection direction,
                                        IRawElementProviderFragment** result) noexcept {
  return Ask(result, [&](PageAccess&, const Lines& lines) -> IRawElementProviderFragment* {
    const auto line = [&](std::size_t index) {
      return MakeCom<PageLineProvider>(link_, page_.Copy(), index).release();
    };
    switch (direction) {
      case NavigateDirection_Parent:
        return page_.As<IRawElementProviderFragment>().release();
      case NavigateDirection_NextSibling:
        return index_ + 1 < lines.size() ? line(index_ + 1) : nullptr;
      case NavigateDirection_PreviousSibling:
        return index_ > 0 ? line(index_ - 1) : nullptr;
      default:
        return nullptr;
    }
  });
}

STDMETHODIMP PageLineProvider::GetRuntimeId(SAFEARRAY** result) noexcept {
  return Ask(result, [&](PageAccess&, const Lines&) {
    return RuntimeIdArray({static_cast<int>(index_) + 1});
  });
}

STDMETHODIMP PageLineProvider::get_BoundingRectangle(UiaRect* result) noexcept {
  return Ask(result, [&](PageAccess& access, const Lines& lines) {
    return ScreenArea(access.Window(), access.ShownArea(lines[index_].area));
  });
}

STDMETHODIMP PageLineProvider::GetEmbeddedFragmentRoots(SAFEARRAY** result) noexcept {
  return Ask(result, [](PageAccess&, const Lines&) { return nullptr; });
}

// Lines accept no focus.
STDMETHODIMP PageLineProvider::SetFocus() noexcept {
  return link_->Run([](PageAccess&) { return UIA_E_INVALIDOPERATION; });
}

STDMETHODIMP PageLineProvider::get_FragmentRoot(IRawElementProviderFragmentRoot** result) noexcept {
  return Ask(result, [&](PageAccess&, const Lines&) { return page_.Copy().release(); });
}

}  // namespace pricedown::windows
