// A ledger's pages: how many there are, and the draw commands of each one when it is asked for.
// It keeps no page; a preview of any number of rows holds the one that it shows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "print/column_layout.h"
#include "print/ledger_content.h"
#include "print/page.h"
#include "print/page_font.h"
#include "print/paper.h"

namespace pricedown {

struct PrintSetup {
  PageFont tableFont;
  std::int32_t rowHeight = 285;  // twips; rows are never lower than their font
  Paper paper;
  std::u16string date;  // what "&[日期]" stands for
};

class LedgerPages {
 public:
  // Looks once at every row and measures only the fonts. The paper is turned when the columns do
  // not fit between its margins and would have more room on it turned. Throws what the measurer
  // throws. Requires: content and measurer outlive the pages, and the content does not change.
  LedgerPages(const LedgerContent& content, PrintSetup setup, TextMeasurer& measurer);

  // At least 1: a table without rows has its titles.
  std::int32_t PageCount() const { return pageCount_; }
  // As it is printed on: turned to landscape or not.
  const Paper& PrintedPaper() const { return paper_; }
  bool IsTurned() const { return turned_; }
  // What the commands of all pages name; the first is the table's.
  const std::vector<PageFont>& Fonts() const { return fonts_; }

  // Costs what the rows on it cost. Throws what the measurer throws.
  // Requires: `number` is from 1 to PageCount().
  Page PageAt(std::int32_t number) const;

 private:
  struct PlacedLine {
    const PageLine* line = nullptr;
    std::size_t font = 0;
    PageBox box;
  };
  struct TextRow {
    std::u16string_view text;
    PageBox box;
    bool isTitle = false;
  };

  void ChoosePaper();
  std::size_t FontIndex(const LineFont& font);
  // Places the lines from `top` on and answers the height that they take.
  Tenths PlaceLines(const std::vector<PageLine>& lines, Tenths top,
                    std::vector<PlacedLine>& placed);
  void PlaceRows(Tenths top, Tenths bottom);
  PageBox RowBox(std::int32_t position) const;
  void AddTable(std::int32_t page, Page& result) const;
  void AddRow(const TextRow& row, Page& result) const;
  void AddRules(Tenths bottom, std::int32_t rows, Page& result) const;

  const LedgerContent& content_;
  TextMeasurer& measurer_;
  PrintSetup setup_;
  Paper paper_;
  bool turned_ = false;
  std::vector<PageFont> fonts_;
  std::vector<PlacedLine> lines_;
  std::vector<PlacedColumn> columns_;
  PageBox table_;  // where rows may stand
  Tenths lineHeight_ = 0;
  Tenths rowHeight_ = 0;
  std::int32_t rowsOnPage_ = 1;  // titles not counted
  std::int32_t pageCount_ = 1;
};

}  // namespace pricedown
