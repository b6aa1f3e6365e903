// The UI Automation provider of the grid's window, the root of its elements.
#pragma once

#include <windows.h>

#include <optional>

#include "windows/base/window_element.h"
#include "windows/grid/grid_element_provider.h"

namespace pricedown::windows {

class GridProvider final
    : public RootElement<GridAccess, IGridProvider, ITableProvider, ISelectionProvider,
                         IScrollProvider, IItemContainerProvider> {
 public:
  // Both must outlive the window.
  GridProvider(GridAccess& access, UiAutomation& automation) : RootElement(access, automation) {}

  // A new provider of the element; throws std::bad_alloc.
  ComPtr<GridElementProvider> Element(GridElement element);

  // IRawElementProviderFragment
  STDMETHODIMP Navigate(NavigateDirection direction,
                        IRawElementProviderFragment** result) noexcept override;

  // IRawElementProviderFragmentRoot
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
  IUnknown* FindPattern(PATTERNID pattern) override;
  VARIANT Property(PROPERTYID property, const GridAccess& access) const override;
  IRawElementProviderFragment* ElementAt(POINT point, const GridAccess& access) override;
  IRawElementProviderFragment* Fragment(std::optional<GridElement> element);
  IRawElementProviderSimple* Item(GridElement element);
};

}  // namespace pricedown::windows
