// What a ledger prints: row texts, columns, header and footer lines.
// Where it lands on paper is decided by ledger_pages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "print/page_font.h"

namespace pricedown {

// Ends a cell of a row text, and separates the sections of a page line.
inline constexpr char16_t kCellSeparator = u'|';

struct PageLine {
  std::u16string text;
  LineFont font;
};

struct LedgerColumn {
  std::int32_t width = 1200;  // twips
  // 0: texts left, a column of numbers right. Nothing else is told apart.
  std::int32_t format = 0;
};

// Rows and columns count from 1; row 1 holds the titles. A number outside the table throws
// AutomationError (InvalidArgument), too many rows std::bad_alloc or std::length_error, and then
// nothing changes.
class LedgerContent {
 public:
  // Leaves no row and no column. Header and footer stay.
  void Clear();
  // Counts below 0 are 0. What is left keeps its texts.
  void SetRowCount(std::int32_t count);
  void SetColumnCount(std::int32_t count);
  void SetColumnFormat(std::int32_t column, std::int32_t format);
  void SetColumnWidth(std::int32_t column, std::int32_t twips);
  void SetRow(std::int32_t row, std::u16string_view text);
  void SetLineTypeface(LineTypeface typeface) { lineTypeface_ = std::move(typeface); }
  // Lines before it that were never set are empty. Requires: `line` is at least 1.
  void SetHeaderLine(std::int32_t line, std::u16string_view text, const LineFont& font);
  void SetFooterLine(std::int32_t line, std::u16string_view text, const LineFont& font);

  std::int32_t RowCount() const { return static_cast<std::int32_t>(rows_.size()); }
  // Valid until the next change of a row. Requires: there is such a row.
  std::u16string_view Row(std::int32_t row) const;
  const std::vector<LedgerColumn>& Columns() const { return columns_; }
  const LineTypeface& LinesTypeface() const { return lineTypeface_; }
  const std::vector<PageLine>& Header() const { return header_; }
  const std::vector<PageLine>& Footer() const { return footer_; }

 private:
  struct TextSpan {
    std::size_t offset = 0;
    std::size_t length = 0;
  };

  std::u16string texts_;  // of all rows, one behind the other
  std::vector<TextSpan> rows_;
  std::vector<LedgerColumn> columns_;
  LineTypeface lineTypeface_;
  std::vector<PageLine> header_;
  std::vector<PageLine> footer_;
};

// Takes the next cell off the front of a row text; empty when there is none left.
std::u16string_view TakeCell(std::u16string_view& rest);

}  // namespace pricedown
