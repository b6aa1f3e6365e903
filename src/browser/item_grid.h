// Fills the item grid for a node of the class tree and locks what may not be edited.
// The cells are in grid.h; which node is meant is decided by the class tree.
#pragma once

#include <array>
#include <memory>
#include <string_view>

#include "browser/browser_state.h"
#include "browser/grid.h"
#include "browser/grid_object.h"
#include "env/environment.h"

namespace pricedown {

// Columns of the item grid.
namespace grid_columns {
inline constexpr std::int32_t kCode = 1;
inline constexpr std::int32_t kName = 2;
inline constexpr std::int32_t kModel = 3;
inline constexpr std::int32_t kPrice = 4;
inline constexpr std::int32_t kCount = 4;
}  // namespace grid_columns

// Built-in titles of the columns, on screen and on paper.
inline constexpr std::array<std::u16string_view, grid_columns::kCount> kItemColumnTitles{
    u"物料代码", u"物料名称", u"规格型号", u"标准单价"};

inline constexpr double kPriceUpperBound = 99999999999.99;

class ItemGrid {
 public:
  ItemGrid(Environment& environment, BrowserState& state);
  ~ItemGrid();

  // Titles, widths and the first block; part of the control's creation.
  void Prepare();

  // Lists the items of the node with that key. A failure is shown to the user in a message and
  // leaves what was filled so far; it is not thrown.
  void LoadItemGrid(std::u16string_view nodeKey);

  // Locks all cells when the user's data scope is 0. Throws nothing of its own.
  void ApplyScopeLock();

  // Drops rows and the kept recordset, and detaches the object that hosts may still hold. The grid
  // cannot be filled afterwards.
  void Release();

  Grid& Cells() { return grid_; }
  // The grid as hosts see it.
  ObjectPtr Object() const { return object_; }

 private:
  void Fill(std::u16string_view nodeKey);
  // Requires: the recordset stands on its first row, or has none.
  void FillRows(const Recordset& items);
  // Locks columns 1 to `lastColumn` of all rows and gives them the tooltip colour.
  void LockRange(std::int32_t lastColumn);

  Environment& environment_;
  BrowserState& state_;
  Grid grid_;
  std::shared_ptr<GridObject> object_;
};

}  // namespace pricedown
