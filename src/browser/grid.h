// The item grid `vaList` as data: texts, locks, number cells, widths, heights.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "env/font.h"
#include "platform/text_arena.h"

namespace pricedown {

// The row of the column titles.
inline constexpr std::int32_t kTitleRow = 0;
// A column width of 1 in twips, on screen and on paper.
inline constexpr std::int32_t kTwipsPerWidthUnit = 150;
inline constexpr double kDefaultColumnWidth = 8;

// Rows and columns from 1, both ends included.
struct CellRange {
  std::int32_t column = 1;
  std::int32_t row = 1;
  std::int32_t column2 = 1;
  std::int32_t row2 = 1;
  bool Contains(std::int32_t c, std::int32_t r) const {
    return c >= column && c <= column2 && r >= row && r <= row2;
  }
  bool operator==(const CellRange&) const = default;
};

// The window that shows a grid. While redrawing is off it is not notified of changes; switching
// redrawing on reports them all at once.
class GridView {
 public:
  virtual ~GridView() = default;
  // Rows, texts or locks changed: repaint with the new row count.
  virtual void GridChanged() = 0;
  // Font, row heights or column widths changed: lay out again.
  virtual void GridMetricsChanged() = 0;
  // Progress callback during a long fill, also while redrawing is off.
  virtual void GridFilling() {}
  // Puts what is being typed into its cell. The host hears that the focus moves, and may end the
  // control.
  virtual void AcceptTyping() {}
};

class Grid {
 public:
  explicit Grid(std::int32_t columns);

  // The view may be null and must be detached before it is destroyed.
  void Attach(GridView* view) { view_ = view; }
  void NotifyFilling() {
    if (view_ != nullptr) view_->GridFilling();
  }
  void AcceptTyping() {
    if (view_ != nullptr) view_->AcceptTyping();
  }

  std::int32_t MaxRows() const { return maxRows_; }
  std::int32_t MaxColumns() const { return maxColumns_; }
  // Removed rows lose their contents; 0 and less empties and unlocks the grid. Throws
  // std::bad_alloc when there is no memory for so many; nothing changes then.
  void SetMaxRows(std::int32_t rows);

  // Cells outside the grid have no text, and setting them is ignored. Row 0 holds the titles.
  // A view of a text is valid until the next change of the grid.
  std::u16string_view Text(std::int32_t column, std::int32_t row) const;
  void SetText(std::int32_t column, std::int32_t row, std::u16string_view text);
  // Sets the texts of a row from its first column on. Ignored outside rows 1 to MaxRows() and for
  // more texts than columns.
  void SetRowTexts(std::int32_t row, std::span<const std::u16string_view> texts);

  // The largest number that may be typed into a cell, if it accepts numbers.
  std::optional<double> UpperBound(std::int32_t column, std::int32_t row) const;
  // Rows 1 to `lastRow` of the column accept numbers up to `bound`, its other rows none.
  void SetUpperBound(std::int32_t column, std::int32_t lastRow, double bound);

  // Locks columns 1 to `lastColumn` until the grid is emptied. No-op without rows.
  void LockColumns(std::int32_t lastColumn);
  bool IsLocked(std::int32_t column, std::int32_t row) const;
  // Whether a number may be typed into the cell.
  bool IsEditable(std::int32_t column, std::int32_t row) const {
    return UpperBound(column, row).has_value() && !IsLocked(column, row);
  }

  // Empties the cells of the range into which numbers may be typed.
  void ClearNumbers(const CellRange& range);

  bool Redraw() const { return redraw_; }
  void SetRedraw(bool redraw);
  // Reports a change to the view although none was made.
  void Repaint() { NotifyChanged(); }

  // In width units.
  double ColumnWidth(std::int32_t column) const;
  void SetColumnWidth(std::int32_t column, double width);
  // In pixels.
  double TitleHeight() const { return titleHeight_; }
  double RowHeight() const { return rowHeight_; }
  void SetTitleHeight(double pixels);
  void SetRowHeight(double pixels);
  const Font& CellFont() const { return font_; }
  void SetFont(const Font& font);

 private:
  struct NumberCells {
    std::int32_t rows = 0;  // from the first one
    double bound = 0;
  };

  bool Inside(std::int32_t column, std::int32_t row) const;
  // Requires: the cell is inside.
  std::size_t CellIndex(std::int32_t column, std::int32_t row) const;
  void SetHeight(double& height, double pixels);
  void NotifyChanged();
  void NotifyMetricsChanged();
  void NotifyPending();

  GridView* view_ = nullptr;
  std::int32_t maxColumns_;
  std::int32_t maxRows_ = 0;
  std::vector<std::u16string> titles_;
  std::vector<double> widths_;
  TextArena texts_;                         // of all cells, replaced ones too
  std::vector<std::u16string_view> cells_;  // row by row
  std::vector<NumberCells> numbers_;        // by column
  std::int32_t lockedColumns_ = 0;
  bool redraw_ = true;
  bool changed_ = false;
  bool metricsChanged_ = false;
  double titleHeight_ = 24;
  double rowHeight_ = 19;
  Font font_;
};

}  // namespace pricedown
