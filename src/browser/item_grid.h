// Fills the item grid with the items of a class and locks what may not be edited.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "browser/browser_state.h"
#include "browser/grid.h"
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

// How often a long fill of grid or tree reports.
inline constexpr std::int32_t kRowsBetweenReports = 512;

class ItemGrid {
 public:
  ItemGrid(Environment& environment, BrowserState& state)
      : environment_(environment), state_(state), grid_(grid_columns::kCount) {}

  // Titles and widths; part of the control's creation.
  void Prepare();

  // Lists the items of the class with that number, or all items when provisions are kept by item.
  // A failure is shown to the user in a message and leaves what was filled so far; never throws.
  // Another load that begins inside a call of this one replaces it.
  void LoadItemGrid(std::u16string_view classNumber);

  // Locks all cells when the user's data scope is 0.
  void ApplyScopeLock();

  // Drops the rows and the kept recordset.
  void Release();

  Grid& GetGrid() { return grid_; }
  const Grid& GetGrid() const { return grid_; }

 private:
  // False once the control has ended or another load has begun.
  bool IsCurrent(std::uint32_t load) const {
    return load == lastLoad_ && !environment_.lifetime.HasEnded();
  }
  void Fill(std::u16string_view classNumber, std::uint32_t load);
  // Requires: the recordset is at its first row, or has none.
  void FillRows(const Recordset& items, std::uint32_t load);

  Environment& environment_;
  BrowserState& state_;
  Grid grid_;
  std::uint32_t lastLoad_ = 0;
};

}  // namespace pricedown
