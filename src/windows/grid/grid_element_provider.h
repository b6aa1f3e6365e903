// The UI Automation provider of one element of the grid: a cell, a title, a row, or all titles.
#pragma once

#include <windows.h>

#include <memory>
#include <utility>

#include "windows/base/provider_values.h"
#include "windows/com/com_class.h"
#include "windows/grid/grid_access.h"

namespace pricedown::windows {

// All members return UIA_E_ELEMENTNOTAVAILABLE after the window's end, and while the grid has no
// such element.
class GridElementProvider final
    : public ComClass<IRawElementProviderSimple, IRawElementProviderFragment, IGridItemProvider,
                      ITableItemProvider, ISelectionItemProvider, IValueProvider,
                      IScrollItemProvider, IVirtualizedItemProvider> {
 public:
  GridElementProvider(std::shared_ptr<GridLink> link, ComPtr<IRawElementProviderSimple> grid,
                      GridElement element)
      : link_(std::move(link)), grid_(std::move(grid)), element_(element) {}

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
  // Also makes a cell the current one.
  STDMETHODIMP SetFocus() noexcept override;
  STDMETHODIMP get_FragmentRoot(IRawElementProviderFragmentRoot** result) noexcept override;

  // IGridItemProvider: rows and columns from 0, titles not counted
  STDMETHODIMP get_Row(int* result) noexcept override;
  STDMETHODIMP get_Column(int* result) noexcept override;
  STDMETHODIMP get_RowSpan(int* result) noexcept override;
  STDMETHODIMP get_ColumnSpan(int* result) noexcept override;
  STDMETHODIMP get_ContainingGrid(IRawElementProviderSimple** result) noexcept override;

  // ITableItemProvider
  STDMETHODIMP GetRowHeaderItems(SAFEARRAY** result) noexcept override;
  STDMETHODIMP GetColumnHeaderItems(SAFEARRAY** result) noexcept override;

  // ISelectionItemProvider. AddToSelection extends the selected block as Shift and a click do;
  // nothing can be removed from it.
  STDMETHODIMP Select() noexcept override;
  STDMETHODIMP AddToSelection() noexcept override;
  STDMETHODIMP RemoveFromSelection() noexcept override;
  STDMETHODIMP get_IsSelected(BOOL* result) noexcept override;
  STDMETHODIMP get_SelectionContainer(IRawElementProviderSimple** result) noexcept override;

  // IValueProvider
  STDMETHODIMP SetValue(LPCWSTR value) noexcept override;
  STDMETHODIMP get_Value(BSTR* result) noexcept override;
  STDMETHODIMP get_IsReadOnly(BOOL* result) noexcept override;

  STDMETHODIMP ScrollIntoView() noexcept override;  // IScrollItemProvider
  STDMETHODIMP Realize() noexcept override;         // IVirtualizedItemProvider

 private:
  // Runs `body` with the grid's window.
  template <typename Body>
  HRESULT Ask(Body&& body) const noexcept;
  template <typename Result, typename Body>
  HRESULT Ask(Result* result, Body&& body) const noexcept;

  HRESULT SelectIn(GridAccess& access, bool extend) const;
  void ReportValue();
  IUnknown* FindPattern(PATTERNID pattern, const GridElements& elements);
  VARIANT Property(PROPERTYID property, const GridAccess& access) const;
  int ControlType() const;
  ComPtr<GridElementProvider> Other(GridElement element) const;

  std::shared_ptr<GridLink> link_;
  ComPtr<IRawElementProviderSimple> grid_;
  GridElement element_;
};

}  // namespace pricedown::windows
