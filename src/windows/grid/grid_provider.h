// The UI Automation provider of the grid's window, the root of its elements.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <utility>

#include "windows/grid/grid_element_provider.h"

namespace pricedown::windows {

// All members return UIA_E_ELEMENTNOTAVAILABLE after the window's end.
class GridProvider final
    : public ComClass<IRawElementProviderSimple, IRawElementProviderFragment,
                      IRawElementProviderFragmentRoot, IGridProvider, ITableProvider,
                      ISelectionProvider, IScrollProvider, IItemContainerProvider> {
 public:
  explicit GridProvider(std::shared_ptr<GridLink> link) : link_(std::move(link)) {}

  void End() noexcept { link_->access = nullptr; }
  // A new provider of the element; throws std::bad_alloc.
  ComPtr<GridElementProvider> Element(GridElement element);

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

  // IRawElementProviderFragmentRoot
  STDMETHODIMP ElementProviderFromPoint(double x, double y,
                                        IRawElementProviderFragment** result) noexcept override;
  STDMETHODIMP GetFocus(IRawElementProviderFragment** result) noexcept override;

  // IGridProvider: rows and columns from 0, titles not counted
  STDMETHODIMP GetItem(int row, int column, IRawElementProviderSimple** result) noexcept override;
  STDMETHODIMP get_RowCount(int* result) noexcept override;
  STDMETHODIMP get_ColumnCount(int* result) noexcept override;

  // ITableProvider
  STDMETHODIMP GetRowHeaders(SAFEARRAY** result) noexcept override;
  STDMETHODIMP GetColumnHeaders(SAFEARRAY** result) noexcept override;
  STDMETHODIMP get_RowOrColumnMajor(RowOrColumnMajor* result) noexcept override;

  // ISelectionProvider: the cells of rows in the window, and the current cell
  STDMETHODIMP GetSelection(SAFEARRAY** result) noexcept override;
  STDMETHODIMP get_CanSelectMultiple(BOOL* result) noexcept override;
  STDMETHODIMP get_IsSelectionRequired(BOOL* result) noexcept override;

  // IScrollProvider
  STDMETHODIMP Scroll(ScrollAmount horizontal, ScrollAmount vertical) noexcept override;
  STDMETHODIMP SetScrollPercent(double horizontal, double vertical) noexcept override;
  STDMETHODIMP get_HorizontalScrollPercent(double* result) noexcept override;
  STDMETHODIMP get_VerticalScrollPercent(double* result) noexcept override;
  STDMETHODIMP get_HorizontalViewSize(double* result) noexcept override;
  STDMETHODIMP get_VerticalViewSize(double* result) noexcept override;
  STDMETHODIMP get_HorizontallyScrollable(BOOL* result) noexcept override;
  STDMETHODIMP get_VerticallyScrollable(BOOL* result) noexcept override;

  // IItemContainerProvider: rows by name, id, selection, or by the text of a cell (the property
  // ValueValue); all rows without a property
  STDMETHODIMP FindItemByProperty(IRawElementProviderSimple* startAfter, PROPERTYID property,
                                  VARIANT value,
                                  IRawElementProviderSimple** result) noexcept override;

 private:
  IUnknown* FindPattern(PATTERNID pattern);
  VARIANT Property(PROPERTYID property, const GridAccess& access) const;
  IRawElementProviderFragment* Fragment(std::optional<GridElement> element);
  IRawElementProviderSimple* Item(GridElement element);

  std::shared_ptr<GridLink> link_;
};

}  // namespace pricedown::windows
