// Patterns of the whole grid: table, selection, scrolling, search for a row.
#include "windows/grid/grid_provider.h"

#include "windows/com/bstr.h"
#include "windows/com/safe_array.h"

namespace pricedown::windows {
namespace {

std::optional<ScrollStep> StepOf(ScrollAmount amount) {
  switch (amount) {
    case ScrollAmount_LargeDecrement:
      return ScrollStep::PageBack;
    case ScrollAmount_SmallDecrement:
      return ScrollStep::LineBack;
    case ScrollAmount_LargeIncrement:
      return ScrollStep::PageForward;
    case ScrollAmount_SmallIncrement:
      return ScrollStep::LineForward;
    default:
      return std::nullopt;
  }
}

double PercentOf(const ScrollExtent& extent) {
  return extent.scrollable ? extent.percent : UIA_ScrollPatternNoScroll;
}

// Whether a client may ask for that position: none, or one that the bar has.
bool IsPosition(double percent, const ScrollExtent& extent) {
  if (percent == UIA_ScrollPatternNoScroll) return true;
  return extent.scrollable && percent >= 0 && percent <= 100;
}

// How a property and its value look up a row; nothing when rows cannot be found by it.
struct RowQuery {
  RowKey key;
  std::u16string text;
};
std::optional<RowQuery> RowQueryOf(PROPERTYID property, const VARIANT& value) {
  const auto byText = [&](RowKey key) -> std::optional<RowQuery> {
    if (value.vt != VT_BSTR) return std::nullopt;
    return RowQuery{key, FromBstr(value.bstrVal)};
  };
  switch (property) {
    case 0:
      return RowQuery{RowKey::Any, {}};
    case UIA_NamePropertyId:
      return byText(RowKey::Name);
    case UIA_AutomationIdPropertyId:
      return byText(RowKey::Id);
    case UIA_ValueValuePropertyId:
      return byText(RowKey::Text);
    case UIA_SelectionItemIsSelectedPropertyId:
      if (value.vt != VT_BOOL) return std::nullopt;
      return RowQuery{value.boolVal == VARIANT_FALSE ? RowKey::NotSelected : RowKey::Selected, {}};
    default:
      return std::nullopt;
  }
}

// The row of an element of ours, by its runtime id; nothing for anything else.
std::optional<std::int32_t> RowOf(IRawElementProviderSimple* element) {
  const auto fragment =
      ComPtr<IRawElementProviderSimple>::Share(element).As<IRawElementProviderFragment>();
  SafeArray id;
  LONG last = -1;
  LONG position = 1;
  int row = 0;
  if (!fragment || FAILED(fragment->GetRuntimeId(id.put())) || !id ||
      FAILED(SafeArrayGetUBound(id.get(), 1, &last)) || last != 2 ||
      FAILED(SafeArrayGetElement(id.get(), &position, &row))) {
    return std::nullopt;
  }
  return row;
}

}  // namespace

ComPtr<GridElementProvider> GridProvider::Element(GridElement element) {
  return MakeCom<GridElementProvider>(link_, ComPtr<IRawElementProviderSimple>::Share(this),
                                      element);
}

IRawElementProviderFragment* GridProvider::Fragment(std::optional<GridElement> element) {
  return element ? Element(*element).release() : nullptr;
}

IRawElementProviderSimple* GridProvider::Item(GridElement element) {
  return Element(element).release();
}

IUnknown* GridProvider::FindPattern(PATTERNID pattern) {
  switch (pattern) {
    case UIA_GridPatternId:
      return static_cast<IGridProvider*>(this);
    case UIA_TablePatternId:
      return static_cast<ITableProvider*>(this);
    case UIA_SelectionPatternId:
      return static_cast<ISelectionProvider*>(this);
    case UIA_ScrollPatternId:
      return static_cast<IScrollProvider*>(this);
    case UIA_ItemContainerPatternId:
      return static_cast<IItemContainerProvider*>(this);
    default:
      return nullptr;
  }
}

VARIANT GridProvider::Property(PROPERTYID property, const GridAccess& access) const {
  switch (property) {
    case UIA_ControlTypePropertyId:
      return PropertyNumber(UIA_DataGridControlTypeId);
    case UIA_IsKeyboardFocusablePropertyId:
      return PropertyFlag(true);
    case UIA_HasKeyboardFocusPropertyId:
      return PropertyFlag(::GetFocus() == access.Window() && !access.Elements().Current());
    default:
      return {};
  }
}

STDMETHODIMP GridProvider::Navigate(NavigateDirection direction,
                                    IRawElementProviderFragment** result) noexcept {
  return link_->Answer(result, [&](GridAccess& access) -> IRawElementProviderFragment* {
    if (direction == NavigateDirection_FirstChild) {
      return Fragment(access.Elements().FirstChild(std::nullopt));
    }
    if (direction == NavigateDirection_LastChild) {
      return Fragment(access.Elements().LastChild(std::nullopt));
    }
    return nullptr;
  });
}

IRawElementProviderFragment* GridProvider::ElementAt(POINT point, const GridAccess& access) {
  return Fragment(access.Elements().At(point.x, point.y));
}

STDMETHODIMP GridProvider::GetFocus(IRawElementProviderFragment** result) noexcept {
  return link_->Answer(result, [&](GridAccess& access) -> IRawElementProviderFragment* {
    if (::GetFocus() != access.Window()) return nullptr;
    return Fragment(access.Elements().Current());
  });
}

STDMETHODIMP GridProvider::GetItem(int row, int column,
                                   IRawElementProviderSimple** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return link_->Run([&](GridAccess& access) -> HRESULT {
    const GridElements elements = access.Elements();
    if (row < 0 || row >= elements.Rows() || column < 0 || column >= elements.Columns()) {
      return E_INVALIDARG;
    }
    *result = Item({column + 1, row + 1});
    return S_OK;
  });
}

STDMETHODIMP GridProvider::get_RowCount(int* result) noexcept {
  return link_->Answer(result, [](GridAccess& access) { return access.Elements().Rows(); });
}

STDMETHODIMP GridProvider::get_ColumnCount(int* result) noexcept {
  return link_->Answer(result, [](GridAccess& access) { return access.Elements().Columns(); });
}

STDMETHODIMP GridProvider::GetRowHeaders(SAFEARRAY** result) noexcept {
  return link_->Answer(result, [](GridAccess&) { return ElementArray({}); });
}

STDMETHODIMP GridProvider::GetColumnHeaders(SAFEARRAY** result) noexcept {
  return link_->Answer(result, [&](GridAccess& access) {
    std::vector<ComPtr<IRawElementProviderSimple>> titles;
    for (std::int32_t column = 1; column <= access.Elements().Columns(); ++column) {
      titles.push_back(ComPtr<IRawElementProviderSimple>::Adopt(Item({column, kTitleRow})));
    }
    return ElementArray(titles);
  });
}

STDMETHODIMP GridProvider::get_RowOrColumnMajor(enum RowOrColumnMajor* result) noexcept {
  return link_->Answer(result, [](GridAccess&) { return RowOrColumnMajor_RowMajor; });
}

STDMETHODIMP GridProvider::GetSelection(SAFEARRAY** result) noexcept {
  return link_->Answer(result, [&](GridAccess& access) {
    std::vector<ComPtr<IRawElementProviderSimple>> cells;
    for (const GridElement& cell : access.Elements().SelectedCells()) {
      cells.push_back(ComPtr<IRawElementProviderSimple>::Adopt(Item(cell)));
    }
    return ElementArray(cells);
  });
}

STDMETHODIMP GridProvider::get_CanSelectMultiple(BOOL* result) noexcept {
  return link_->Answer(result, [](GridAccess&) { return TRUE; });
}

STDMETHODIMP GridProvider::get_IsSelectionRequired(BOOL* result) noexcept {
  return link_->Answer(result, [](GridAccess&) { return TRUE; });
}

STDMETHODIMP GridProvider::Scroll(ScrollAmount horizontal, ScrollAmount vertical) noexcept {
  return link_->Run([&](GridAccess& access) -> HRESULT {
    GridViewport target = access.Viewport();
    if ((StepOf(horizontal) && !HorizontalExtent(target).scrollable) ||
        (StepOf(vertical) && !VerticalExtent(target).scrollable)) {
      return UIA_E_INVALIDOPERATION;
    }
    if (const auto step = StepOf(horizontal)) target.ScrollColumns(*step, 0);
    if (const auto step = StepOf(vertical)) target.ScrollRows(*step, 0);
    access.ScrollTo(target.TopRow(), target.Left());
    return S_OK;
  });
}

STDMETHODIMP GridProvider::SetScrollPercent(double horizontal, double vertical) noexcept {
  return link_->Run([&](GridAccess& access) -> HRESULT {
    const GridViewport& now = access.Viewport();
    if (!IsPosition(horizontal, HorizontalExtent(now)) ||
        !IsPosition(vertical, VerticalExtent(now))) {
      return E_INVALIDARG;
    }
    access.ScrollTo(vertical == UIA_ScrollPatternNoScroll ? now.TopRow() : TopRowAt(now, vertical),
                    horizontal == UIA_ScrollPatternNoScroll ? now.Left() : LeftAt(now, horizontal));
    return S_OK;
  });
}

STDMETHODIMP GridProvider::get_HorizontalScrollPercent(double* result) noexcept {
  return link_->Answer(
      result, [](GridAccess& access) { return PercentOf(HorizontalExtent(access.Viewport())); });
}

STDMETHODIMP GridProvider::get_VerticalScrollPercent(double* result) noexcept {
  return link_->Answer(
      result, [](GridAccess& access) { return PercentOf(VerticalExtent(access.Viewport())); });
}

STDMETHODIMP GridProvider::get_HorizontalViewSize(double* result) noexcept {
  return link_->Answer(result, [](GridAccess& access) {
    return HorizontalExtent(access.Viewport()).visiblePercent;
  });
}

STDMETHODIMP GridProvider::get_VerticalViewSize(double* result) noexcept {
  return link_->Answer(
      result, [](GridAccess& access) { return VerticalExtent(access.Viewport()).visiblePercent; });
}

STDMETHODIMP GridProvider::get_HorizontallyScrollable(BOOL* result) noexcept {
  return link_->Answer(
      result, [](GridAccess& access) { return HorizontalExtent(access.Viewport()).scrollable; });
}

STDMETHODIMP GridProvider::get_VerticallyScrollable(BOOL* result) noexcept {
  return link_->Answer(
      result, [](GridAccess& access) { return VerticalExtent(access.Viewport()).scrollable; });
}

STDMETHODIMP GridProvider::FindItemByProperty(IRawElementProviderSimple* startAfter,
                                              PROPERTYID property, VARIANT value,
                                              IRawElementProviderSimple** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return link_->Run([&](GridAccess& access) -> HRESULT {
    const auto query = RowQueryOf(property, value);
    const auto after = startAfter == nullptr ? std::optional(kTitleRow) : RowOf(startAfter);
    if (!query || !after) return E_INVALIDARG;
    const auto row = access.Elements().FindRow(*after, query->key, query->text);
    if (row) *result = Item(*row);
    return S_OK;
  });
}

}  // namespace pricedown::windows
