// Patterns, properties and neighbours of an element, answered by the core's grid elements.
#include "windows/grid/grid_element_provider.h"

#include <optional>

#include "windows/base/rectangles.h"
#include "windows/com/bstr.h"
#include "windows/com/variant.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

template <typename Body>
HRESULT GridElementProvider::Ask(Body&& body) const noexcept {
  return link_->Run([&](GridAccess& access) -> HRESULT {
    return access.Elements().Exists(element_) ? body(access) : UIA_E_ELEMENTNOTAVAILABLE;
  });
}

template <typename Result, typename Body>
HRESULT GridElementProvider::Ask(Result* result, Body&& body) const noexcept {
  if (result == nullptr) return E_POINTER;
  *result = Result{};
  return Ask([&](GridAccess& access) -> HRESULT {
    *result = body(access);
    return S_OK;
  });
}

ComPtr<GridElementProvider> GridElementProvider::Other(GridElement element) const {
  return MakeCom<GridElementProvider>(link_, grid_.Copy(), element);
}

STDMETHODIMP GridElementProvider::get_ProviderOptions(enum ProviderOptions* result) noexcept {
  return Ask(result, [](GridAccess&) { return kProviderOptions; });
}

IUnknown* GridElementProvider::FindPattern(PATTERNID pattern, const GridElements& elements) {
  if (element_.row == kTitleRow) return nullptr;
  switch (pattern) {
    case UIA_SelectionItemPatternId:
      return static_cast<ISelectionItemProvider*>(this);
    case UIA_ScrollItemPatternId:
      return static_cast<IScrollItemProvider*>(this);
    case UIA_VirtualizedItemPatternId:
      if (elements.IsShown(element_.row)) return nullptr;
      return static_cast<IVirtualizedItemProvider*>(this);
    default:
      break;
  }
  if (!element_.IsCell()) return nullptr;
  switch (pattern) {
    case UIA_GridItemPatternId:
      return static_cast<IGridItemProvider*>(this);
    case UIA_TableItemPatternId:
      return static_cast<ITableItemProvider*>(this);
    case UIA_ValuePatternId:
      return static_cast<IValueProvider*>(this);
    default:
      return nullptr;
  }
}

STDMETHODIMP GridElementProvider::GetPatternProvider(PATTERNID pattern,
                                                     IUnknown** result) noexcept {
  return Ask(result, [&](GridAccess& access) {
    return ComPtr<IUnknown>::Share(FindPattern(pattern, access.Elements())).release();
  });
}

int GridElementProvider::ControlType() const {
  if (element_.row != kTitleRow) return UIA_DataItemControlTypeId;
  return element_.column == 0 ? UIA_HeaderControlTypeId : UIA_HeaderItemControlTypeId;
}

VARIANT GridElementProvider::Property(PROPERTYID property, const GridAccess& access) const {
  const GridElements elements = access.Elements();
  switch (property) {
    case UIA_ControlTypePropertyId:
      return PropertyNumber(ControlType());
    case UIA_NamePropertyId:
      return PropertyText(elements.Name(element_));
    case UIA_AutomationIdPropertyId:
      return PropertyText(elements.Id(element_));
    case UIA_IsEnabledPropertyId:
      return PropertyFlag(AcceptsInput(access.Window()));
    case UIA_IsKeyboardFocusablePropertyId:
      return PropertyFlag(element_.IsCell());
    case UIA_HasKeyboardFocusPropertyId:
      return PropertyFlag(element_ == elements.Current() && ::GetFocus() == access.Window());
    case UIA_IsOffscreenPropertyId:
      return PropertyFlag(elements.Area(element_).IsEmpty());
    case UIA_IsContentElementPropertyId:
      return PropertyFlag(element_.row != kTitleRow);
    default:
      return {};
  }
}

STDMETHODIMP GridElementProvider::GetPropertyValue(PROPERTYID property, VARIANT* result) noexcept {
  return Ask(result, [&](GridAccess& access) { return Property(property, access); });
}

STDMETHODIMP GridElementProvider::get_HostRawElementProvider(
    IRawElementProviderSimple** result) noexcept {
  return Ask(result, [](GridAccess&) { return nullptr; });
}

STDMETHODIMP GridElementProvider::Navigate(NavigateDirection direction,
                                           IRawElementProviderFragment** result) noexcept {
  return Ask(result, [&](GridAccess& access) -> IRawElementProviderFragment* {
    const GridElements elements = access.Elements();
    std::optional<GridElement> target;
    switch (direction) {
      case NavigateDirection_Parent:
        target = elements.Parent(element_);
        if (!target) return grid_.As<IRawElementProviderFragment>().release();
        break;
      case NavigateDirection_NextSibling:
        target = elements.Next(element_);
        break;
      case NavigateDirection_PreviousSibling:
        target = elements.Previous(element_);
        break;
      case NavigateDirection_FirstChild:
        target = elements.FirstChild(element_);
        break;
      case NavigateDirection_LastChild:
        target = elements.LastChild(element_);
        break;
    }
    return target ? Other(*target).release() : nullptr;
  });
}

STDMETHODIMP GridElementProvider::GetRuntimeId(SAFEARRAY** result) noexcept {
  return Ask(result, [&](GridAccess&) { return RuntimeIdArray({element_.row, element_.column}); });
}

STDMETHODIMP GridElementProvider::get_BoundingRectangle(UiaRect* result) noexcept {
  return Ask(result, [&](GridAccess& access) {
    return ScreenArea(access.Window(), ToRect(access.Elements().Area(element_)));
  });
}

STDMETHODIMP GridElementProvider::GetEmbeddedFragmentRoots(SAFEARRAY** result) noexcept {
  return Ask(result, [](GridAccess&) { return nullptr; });
}

STDMETHODIMP GridElementProvider::SetFocus() noexcept {
  return Ask([&](GridAccess& access) -> HRESULT {
    if (!AcceptsInput(access.Window())) return UIA_E_ELEMENTNOTENABLED;
    // First, so that the focus is raised once, on this cell.
    if (element_.IsCell()) SelectIn(access, false);
    // A client may have ended the window, or the host the control.
    return Ask([](GridAccess& after) {
      ::SetFocus(after.Window());
      return S_OK;
    });
  });
}

STDMETHODIMP GridElementProvider::get_FragmentRoot(
    IRawElementProviderFragmentRoot** result) noexcept {
  return Ask(result,
             [&](GridAccess&) { return grid_.As<IRawElementProviderFragmentRoot>().release(); });
}

STDMETHODIMP GridElementProvider::get_Row(int* result) noexcept {
  return Ask(result, [&](GridAccess&) { return element_.row - 1; });
}

STDMETHODIMP GridElementProvider::get_Column(int* result) noexcept {
  return Ask(result, [&](GridAccess&) { return element_.column - 1; });
}

STDMETHODIMP GridElementProvider::get_RowSpan(int* result) noexcept {
  return Ask(result, [](GridAccess&) { return 1; });
}

STDMETHODIMP GridElementProvider::get_ColumnSpan(int* result) noexcept {
  return Ask(result, [](GridAccess&) { return 1; });
}

STDMETHODIMP GridElementProvider::get_ContainingGrid(IRawElementProviderSimple** result) noexcept {
  return Ask(result, [&](GridAccess&) { return grid_.Copy().release(); });
}

STDMETHODIMP GridElementProvider::GetRowHeaderItems(SAFEARRAY** result) noexcept {
  return Ask(result, [](GridAccess&) { return ElementArray({}); });
}

STDMETHODIMP GridElementProvider::GetColumnHeaderItems(SAFEARRAY** result) noexcept {
  return Ask(result, [&](GridAccess&) {
    std::vector<ComPtr<IRawElementProviderSimple>> titles;
    titles.push_back(
        ComPtr<IRawElementProviderSimple>::Adopt(Other({element_.column, kTitleRow}).release()));
    return ElementArray(titles);
  });
}

HRESULT GridElementProvider::SelectIn(GridAccess& access, bool extend) const {
  if (element_.row == kTitleRow) return UIA_E_INVALIDOPERATION;
  if (!AcceptsInput(access.Window())) return UIA_E_ELEMENTNOTENABLED;
  access.SetSelection(access.Elements().Select(element_, extend));
  return S_OK;
}

STDMETHODIMP GridElementProvider::Select() noexcept {
  return Ask([&](GridAccess& access) { return SelectIn(access, false); });
}

STDMETHODIMP GridElementProvider::AddToSelection() noexcept {
  return Ask([&](GridAccess& access) {
    return access.Elements().IsSelected(element_) ? S_OK : SelectIn(access, true);
  });
}

STDMETHODIMP GridElementProvider::RemoveFromSelection() noexcept {
  return Ask([&](GridAccess& access) {
    return access.Elements().IsSelected(element_) ? UIA_E_INVALIDOPERATION : S_OK;
  });
}

STDMETHODIMP GridElementProvider::get_IsSelected(BOOL* result) noexcept {
  return Ask(result, [&](GridAccess& access) { return access.Elements().IsSelected(element_); });
}

STDMETHODIMP GridElementProvider::get_SelectionContainer(
    IRawElementProviderSimple** result) noexcept {
  return Ask(result, [&](GridAccess&) { return grid_.Copy().release(); });
}

STDMETHODIMP GridElementProvider::SetValue(LPCWSTR value) noexcept {
  if (value == nullptr) return E_INVALIDARG;
  return Ask([&](GridAccess& access) -> HRESULT {
    if (!AcceptsInput(access.Window())) return UIA_E_ELEMENTNOTENABLED;
    if (!access.Elements().IsEditable(element_)) return UIA_E_INVALIDOPERATION;
    const bool isCurrent = element_ == access.Elements().Current();
    if (!access.SetNumber(element_, FromWide(value))) return E_INVALIDARG;
    // The window reports its current cell by itself.
    if (!isCurrent) ReportValue();
    return S_OK;
  });
}

void GridElementProvider::ReportValue() {
  if (link_->access == nullptr || !link_->automation.ClientsAreListening()) return;
  Variant text;
  text.attach(PropertyText(link_->access->Elements().Text(element_)));
  link_->automation.RaisePropertyChanged(this, UIA_ValueValuePropertyId, text.get());
}

STDMETHODIMP GridElementProvider::get_Value(BSTR* result) noexcept {
  return Ask(result,
             [&](GridAccess& access) { return Bstr(access.Elements().Text(element_)).release(); });
}

STDMETHODIMP GridElementProvider::get_IsReadOnly(BOOL* result) noexcept {
  return Ask(result, [&](GridAccess& access) { return !access.Elements().IsEditable(element_); });
}

STDMETHODIMP GridElementProvider::ScrollIntoView() noexcept {
  return Ask([&](GridAccess& access) {
    if (element_.row == kTitleRow) return UIA_E_INVALIDOPERATION;
    GridViewport target = access.Viewport();
    if (target.Reveal(element_.column, element_.row)) {
      access.ScrollTo(target.TopRow(), target.Left());
    }
    return S_OK;
  });
}

STDMETHODIMP GridElementProvider::Realize() noexcept { return ScrollIntoView(); }

}  // namespace pricedown::windows
