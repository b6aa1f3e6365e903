// A grid's window as a client of UI Automation in this process sees it.
#pragma once

#include <string>
#include <vector>

#include "tests/windows/grid/grid_world.h"
#include "windows/com/module_counts.h"
#include "windows/com/safe_array.h"

namespace pricedown::testing {

using windows::ComPtr;
using Element = ComPtr<IRawElementProviderSimple>;

class GridProviderTest : public GridWindow {
 protected:
  GridProviderTest() : root_(automation_.ProviderOf(Handle())) { automation_.log.clear(); }

  template <typename Pattern>
  static ComPtr<Pattern> PatternOf(const Element& element, PATTERNID id) {
    ComPtr<IUnknown> pattern;
    EXPECT_EQ(element->GetPatternProvider(id, pattern.put()), S_OK);
    return pattern.As<Pattern>();
  }
  template <typename Pattern>
  ComPtr<Pattern> RootPattern(PATTERNID id) const {
    return PatternOf<Pattern>(root_, id);
  }

  // Row and column as in the core, from 1.
  Element Cell(std::int32_t column, std::int32_t row) const {
    Element cell;
    EXPECT_EQ(
        RootPattern<IGridProvider>(UIA_GridPatternId)->GetItem(row - 1, column - 1, cell.put()),
        S_OK);
    return cell;
  }
  // The row's element, found by its id.
  Element Row(std::int32_t row) const;

  static std::string Id(const Element& element) {
    return PropertyOf(element.get(), UIA_AutomationIdPropertyId);
  }
  static std::string Name(const Element& element) {
    return PropertyOf(element.get(), UIA_NamePropertyId);
  }
  // Null when there is none.
  static Element Neighbour(const Element& element, NavigateDirection direction);
  // "root" for the grid itself.
  std::string IdOfNeighbour(const Element& element, NavigateDirection direction) const;
  static std::vector<std::string> IdsIn(const windows::SafeArray& array);
  static std::string ValueOf(const Element& cell);

  // The events since the last call.
  std::vector<std::string> Events() { return std::exchange(automation_.log, {}); }

  Element root_;
};

}  // namespace pricedown::testing
