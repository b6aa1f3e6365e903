// Cells on their way to the clipboard: as text with tabs, and as a table in HTML that a spreadsheet
// reads with its codes unchanged.
#pragma once

#include <string>
#include <string_view>

namespace pricedown {

struct CopiedCells {
  // Tabs between the columns, a line break after each row; a cell alone is its text. Each tab or
  // line-break character inside a cell is a blank.
  std::u16string text;
  // The same as the data of the clipboard's format "HTML Format", in UTF-8.
  std::string html;
};

// A spreadsheet would read the code 001000 or the account 1281.10 as a number.
enum class CellKind { Text, Number };

class CellCopier {
 public:
  void Add(std::u16string_view cell, CellKind kind);
  void EndRow();
  // Without the line break after a single cell.
  CopiedCells Finish(bool isSingleCell = false);

 private:
  CopiedCells copied_;
  bool rowIsOpen_ = false;
};

}  // namespace pricedown
