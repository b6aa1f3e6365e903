// The item grid `vaList` as data: texts, locks, colours, widths, heights, the selected block.
// It draws nothing and queries nothing; grid_object.h offers it to automation clients.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "env/font.h"

namespace pricedown {

// System colour "tooltip background" as an automation colour.
inline constexpr std::uint32_t kTooltipBackground = 0x80000018;
// All rows or all columns, where a row or column number is asked for.
inline constexpr std::int32_t kAll = -1;
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

// What the window is told. Nothing is told while redrawing is off; switching it on tells all.
class GridView {
 public:
  virtual ~GridView() = default;
  // Rows, texts, locks or colours changed: repaint, and take over the row count.
  virtual void GridChanged() = 0;
  // Font, row heights or column widths changed: lay out again.
  virtual void GridMetricsChanged() = 0;
  // Rows are being filled in while nothing is drawn; told now and then, so that a long fill can be
  // shown as one.
  virtual void GridFilling() {}
};

class Grid {
 public:
  explicit Grid(std::int32_t columns);

  // The view may be null and must be detached before it dies.
  void Attach(GridView* view) { view_ = view; }
  void NotifyFilling() {
    if (view_ != nullptr) view_->GridFilling();
  }

  std::int32_t MaxRows() const { return maxRows_; }
  std::int32_t MaxColumns() const { return maxColumns_; }
  // Rows taken away lose their contents; 0 and less empties the grid. Throws std::length_error or
  // std::bad_alloc when there is no memory for so many, and then nothing changes.
  void SetMaxRows(std::int32_t rows);

  // Cells outside the grid have no text, and setting them is ignored. Row 0 holds the titles.
  // A view of a text is valid until the next change of the grid.
  std::u16string_view Text(std::int32_t column, std::int32_t row) const;
  void SetText(std::int32_t column, std::int32_t row, std::u16string_view text);

  // The largest number that may be typed into a cell, if it takes numbers.
  std::optional<double> UpperBound(std::int32_t column, std::int32_t row) const;
  void SetUpperBound(std::int32_t column, std::int32_t row, double bound);

  // The selected block. Without block mode, attributes go to its first cell only.
  const CellRange& Block() const { return block_; }
  void SetBlock(const CellRange& block) { block_ = block; }
  bool BlockMode() const { return blockMode_; }
  void SetBlockMode(bool on) { blockMode_ = on; }
  void LockBlock(bool locked);
  void ColourBlock(std::uint32_t colour);

  bool IsLocked(std::int32_t column, std::int32_t row) const;
  // The colour given to a cell, if any.
  std::optional<std::uint32_t> Colour(std::int32_t column, std::int32_t row) const;

  bool Redraw() const { return redraw_; }
  void SetRedraw(bool redraw);
  // Tells the view that the cells are to be painted again, although none has changed.
  void Repaint() { NotifyChanged(); }

  // In width units.
  double ColumnWidth(std::int32_t column) const;
  void SetColumnWidth(std::int32_t column, double width);
  // In pixels; `row` is kTitleRow or kAll.
  double TitleHeight() const { return titleHeight_; }
  double RowHeight() const { return rowHeight_; }
  void SetRowHeight(std::int32_t row, double pixels);
  const Font& CellFont() const { return font_; }
  void SetFont(const Font& font);

 private:
  struct TextSpan {
    std::size_t offset = 0;
    std::size_t length = 0;
  };
  struct Attribute {
    CellRange range;
    std::optional<bool> locked;
    std::optional<std::uint32_t> colour;
  };
  struct Bound {
    std::int32_t column;
    std::int32_t firstRow;
    std::int32_t lastRow;
    double bound;
  };

  bool Inside(std::int32_t column, std::int32_t row) const;
  // Requires: the cell is inside.
  std::size_t CellIndex(std::int32_t column, std::int32_t row) const;
  // The cells that attributes go to; empty when the block holds none of the grid.
  CellRange Target() const;
  void AddAttribute(Attribute attribute);
  void NotifyChanged();
  void NotifyMetricsChanged();
  void NotifyPending();

  GridView* view_ = nullptr;
  std::int32_t maxColumns_;
  std::int32_t maxRows_ = 0;
  std::vector<std::u16string> titles_;
  std::vector<double> widths_;
  std::u16string texts_;  // all cell texts, one behind the other
  std::vector<TextSpan> cells_;
  std::vector<Attribute> attributes_;  // the last one that holds a cell wins
  std::vector<Bound> bounds_;
  CellRange block_;
  bool blockMode_ = false;
  bool redraw_ = true;
  bool changed_ = false;
  bool metricsChanged_ = false;
  double titleHeight_ = 24;
  double rowHeight_ = 19;
  Font font_;
};

}  // namespace pricedown
