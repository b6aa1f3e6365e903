// Filling the document from the grid, counting its pages, and making them all.
// The raw side copies the texts of all rows once, row by row: into one text, and for drawing into a
// separate text per cell.
#include "bench/print_measure.h"

#include <cstdio>
#include <string>
#include <vector>

#include "browser/item_grid.h"
#include "browser/print_list.h"
#include "platform/convert.h"
#include "platform/text.h"
#include "print/print_pages.h"

namespace bench {
namespace {

using namespace pricedown;

constexpr int kRepetitions = 9;

// A font's typical widths; measuring on a device is not the library's work.
class EvenMeasurer final : public TextMeasurer {
 public:
  Tenths Width(const Font&, std::u16string_view text) override {
    Tenths width = 0;
    for (const char16_t unit : text) width += unit < 0x80 ? 16 : 32;
    return width;
  }
  std::size_t FittingLength(const Font&, std::u16string_view text, Tenths available) override {
    std::size_t length = 0;
    for (Tenths width = 0; length < text.size(); ++length) {
      width += text[length] < 0x80 ? 16 : 32;
      if (width > available) break;
    }
    return length;
  }
  Tenths LineHeight(const Font&) override { return 36; }
};

void FillGrid(Grid& grid, std::int32_t rows) {
  grid.SetMaxRows(rows);
  for (std::int32_t row = 1; row <= rows; ++row) {
    const std::u16string number = NumberText(row);
    grid.SetText(grid_columns::kCode, row, Concatenate({u"01.01.", number}));
    grid.SetText(grid_columns::kName, row, Concatenate({u"六角头螺栓（镀锌）", number}));
    grid.SetText(grid_columns::kModel, row, u"GB5782 M8x30");
    grid.SetText(grid_columns::kPrice, row, NumberText(row / 4.0));
  }
}

// Into a text with enough capacity, as the document's has from the second time on.
std::size_t CopyTexts(const Grid& grid, std::u16string& texts) {
  texts.clear();
  for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
    for (std::int32_t column = 1; column <= grid.MaxColumns(); ++column) {
      texts.append(grid.Text(column, row));
    }
  }
  return texts.size();
}

// Into one text per cell, a page's worth at a time.
std::size_t CopyCells(const Grid& grid) {
  constexpr std::int32_t kRowsPerPage = 50;
  std::vector<std::u16string> page;
  std::size_t texts = 0;
  for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
    if (row % kRowsPerPage == 0) page.clear();
    for (std::int32_t column = 1; column <= grid.MaxColumns(); ++column) {
      page.emplace_back(grid.Text(column, row));
      ++texts;
    }
  }
  return texts;
}

std::size_t DrawAll(const PrintPages& pages) {
  std::size_t texts = 0;
  for (std::int32_t page = 1; page <= pages.PageCount(); ++page) {
    texts += pages.PageAt(page).texts.size();
  }
  return texts;
}

struct Measured {
  Timing fill;
  Timing paginate;
  Timing draw;
};

Measured Measure(std::int32_t rows) {
  Grid grid(grid_columns::kCount);
  FillGrid(grid, rows);
  std::size_t kept = 0;
  std::u16string copy;
  const auto raw = [&] { kept += CopyTexts(grid, copy); };
  PrintDocument document;
  SetPageLines({}, document);
  EvenMeasurer measurer;
  const auto pages = [&] { return PrintPages(document, {}, u"2008-03-31", measurer); };
  Measured measured;
  measured.fill = Compare([&] { FillPrintTable(grid, document.table); }, raw, kRepetitions);
  measured.paginate =
      Compare([&] { kept += static_cast<std::size_t>(pages().PageCount()); }, raw, kRepetitions);
  measured.draw =
      Compare([&] { kept += DrawAll(pages()); }, [&] { kept += CopyCells(grid); }, kRepetitions);
  if (kept == 0) std::printf("nothing was printed\n");
  return measured;
}

}  // namespace

void MeasurePrinting(const std::string&, Figures& figures) {
  for (const std::int32_t rows : {50000, 100000, 200000}) {
    const Measured measured = Measure(rows);
    const auto amount = static_cast<std::size_t>(rows);
    figures.Add("print fill", amount, measured.fill);
    figures.Add("paginate", amount, measured.paginate);
    figures.Add("all pages", amount, measured.draw);
  }
}

}  // namespace bench
