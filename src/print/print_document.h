// What is printed: a table, header and footer lines, their fonts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "env/font.h"
#include "platform/cell_texts.h"

namespace pricedown {

inline constexpr std::int32_t kMinimumRowHeight = 285;  // twips

struct PrintColumn {
  std::u16string title;
  std::int32_t width = 0;  // twips
};

// Rows and columns count from 0.
class PrintTable {
 public:
  // Removes all columns and rows.
  void Clear();
  // A width below 0 is 0. Requires: the table has no cell yet.
  void AddColumn(std::u16string_view title, std::int32_t twips);
  // Appends a cell: row after row, each from left to right. Requires: the table has columns.
  void AddCell(std::u16string_view text) { cells_.Add(text); }

  const std::vector<PrintColumn>& Columns() const { return columns_; }
  // Complete rows, without the titles.
  std::int32_t RowCount() const;
  // Valid until the table changes. Requires: the table has that cell.
  std::u16string_view Cell(std::int32_t row, std::size_t column) const {
    return cells_.At(static_cast<std::size_t>(row) * columns_.size() + column);
  }

 private:
  std::vector<PrintColumn> columns_;
  CellTexts cells_;
};

// "|" separates the sections of a line; page_lines.h says where they are placed.
struct PageLine {
  std::u16string text;
  Font font;
};

struct PrintDocument {
  PrintTable table;
  std::vector<PageLine> header;
  std::vector<PageLine> footer;
  Font font;                                   // of the table
  std::int32_t rowHeight = kMinimumRowHeight;  // twips; rows are never lower than their font
};

}  // namespace pricedown
