// The pages of a document: how many there are, and the draw commands of each one on demand.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "print/column_layout.h"
#include "print/page.h"
#include "print/paper.h"
#include "print/print_document.h"
#include "print/text_measurer.h"

namespace pricedown {

class PrintPages {
 public:
  // Scans every row once and measures only the fonts. The paper is turned when the columns do
  // not fit between its margins and would have more room on it turned. `date` is the value of the
  // field "&[日期]". Throws what the measurer throws. Requires: document and measurer outlive the
  // pages, and the document's table and lines do not change.
  PrintPages(const PrintDocument& document, const Paper& paper, std::u16string date,
             TextMeasurer& measurer);

  // At least 1: a table without rows has its titles.
  std::int32_t PageCount() const { return pageCount_; }
  // As it is printed on: turned or not.
  const Paper& PrintedPaper() const { return paper_; }
  bool IsTurned() const { return turned_; }
  // The fonts that the texts of all pages refer to; the first is the table's.
  const std::vector<Font>& Fonts() const { return fonts_; }

  // Costs what the rows on the page cost. Throws what the measurer throws.
  // Requires: `number` is from 1 to PageCount().
  Page PageAt(std::int32_t number) const;

 private:
  struct PlacedLine {
    const PageLine* line = nullptr;
    std::size_t font = 0;
    Rectangle box;
  };

  void ChoosePaper();
  std::size_t FontIndex(const Font& font);
  // Places the lines from `top` on and returns their height.
  Tenths PlaceLines(const std::vector<PageLine>& lines, Tenths top,
                    std::vector<PlacedLine>& placed);
  void PlaceRows(Tenths top, Tenths bottom);
  Rectangle RowBox(std::int32_t position) const;
  void AddTable(std::int32_t page, Page& result) const;
  void AddCell(std::u16string_view cell, const PlacedColumn& column, const Rectangle& row,
               bool isTitle, Page& result) const;
  void AddRules(Tenths bottom, std::int32_t rows, Page& result) const;

  const PrintDocument& document_;
  TextMeasurer& measurer_;
  Paper paper_;
  bool turned_ = false;
  std::u16string date_;
  std::vector<Font> fonts_;
  std::vector<PlacedLine> lines_;
  std::vector<PlacedColumn> columns_;
  Rectangle table_;  // where rows may be
  Tenths lineHeight_ = 0;
  Tenths rowHeight_ = 0;
  std::int32_t rowsOnPage_ = 1;  // without the titles
  std::int32_t pageCount_ = 1;
};

}  // namespace pricedown
