// The view's hidden ledger control `ldgPara` as printing uses it.
// How it draws, previews and prints is its own; who fills it is print_commands.
#pragma once

#include <cstdint>
#include <string_view>

#include "env/font.h"
#include "print/page_font.h"

namespace pricedown {

// Font and row height of the print control.
struct LedgerAppearance {
  Font font;
  std::int32_t rowHeight = 285;  // twips
};

// The ledger's table. Rows and columns count from 1; row 1 holds the titles. A row is one text in
// which "|" stands behind every cell. All members throw AutomationError.
class PrintTable {
 public:
  virtual ~PrintTable() = default;
  virtual void Clear() = 0;
  virtual void SetRowCount(std::int32_t count) = 0;
  virtual void SetColumnCount(std::int32_t count) = 0;
  virtual void SetColumnFormat(std::int32_t column, std::int32_t format) = 0;
  virtual void SetColumnWidth(std::int32_t column, std::int32_t twips) = 0;
  virtual void SetRow(std::int32_t row, std::u16string_view text) = 0;
  virtual void Refresh() = 0;
};

// Header and footer lines count from 1; "|" separates their sections. All members but the
// appearance throw AutomationError.
class PrintLedger {
 public:
  virtual ~PrintLedger() = default;
  virtual PrintTable& Table() = 0;
  // Of all header and footer lines, until another one is set.
  virtual void SetLineTypeface(const LineTypeface& typeface) = 0;
  virtual void SetHeaderLine(std::int32_t line, std::u16string_view text, const LineFont& font) = 0;
  virtual void SetFooterLine(std::int32_t line, std::u16string_view text, const LineFont& font) = 0;
  // The master copy of the display font. A preview may change its font.
  virtual LedgerAppearance& Appearance() = 0;
  // Shows the pages and returns when the user has closed them.
  virtual void Preview() = 0;
  // Returns when the pages are with the printer, or when the user has called it off.
  virtual void Print() = 0;
};

}  // namespace pricedown
