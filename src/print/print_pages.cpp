// From top to bottom: header, titles, rows, and the footer at the lower margin. All rows have one
// height, so that a page's rows are known without the pages before it.
#include "print/print_pages.h"

#include <algorithm>
#include <utility>

#include "print/fitted_text.h"
#include "print/page_lines.h"

namespace pricedown {
namespace {

constexpr Tenths kBlockGap = 20;     // between table and header or footer
constexpr Tenths kCellPadding = 10;  // beside a text
constexpr Tenths kRowPadding = 5;    // above and below a text

}  // namespace

PrintPages::PrintPages(const PrintDocument& document, const Paper& paper, std::u16string date,
                       TextMeasurer& measurer)
    : document_(document),
      measurer_(measurer),
      paper_(paper),
      date_(std::move(date)),
      fonts_{document.font} {
  ChoosePaper();
  const Rectangle inside = paper_.Inside();
  columns_ = PlaceColumns(document_.table, inside.left, inside.width);
  const Tenths header = PlaceLines(document_.header, inside.top, lines_);
  std::vector<PlacedLine> footerLines;
  const Tenths footer = PlaceLines(document_.footer, 0, footerLines);
  const Tenths footerTop = std::max(inside.Bottom() - footer, inside.top + header);
  for (PlacedLine& line : footerLines) {
    line.box.top += footerTop;
    lines_.push_back(line);
  }
  for (PlacedLine& line : lines_) {
    line.box.height = std::min(line.box.height, inside.Bottom() - line.box.top);
  }
  PlaceRows(inside.top + header + (header > 0 ? kBlockGap : 0),
            footerTop - (footer > 0 ? kBlockGap : 0));
}

void PrintPages::ChoosePaper() {
  const Paper turned = paper_.Turned();
  turned_ = WantedWidth(document_.table) > paper_.Inside().width &&
            turned.Inside().width > paper_.Inside().width;
  if (turned_) paper_ = turned;
}

std::size_t PrintPages::FontIndex(const Font& font) {
  const auto known = std::find(fonts_.begin(), fonts_.end(), font);
  const auto index = static_cast<std::size_t>(known - fonts_.begin());
  if (known == fonts_.end()) fonts_.push_back(font);
  return index;
}

Tenths PrintPages::PlaceLines(const std::vector<PageLine>& lines, Tenths top,
                              std::vector<PlacedLine>& placed) {
  const Rectangle inside = paper_.Inside();
  Tenths bottom = top;
  for (const PageLine& line : lines) {
    const std::size_t font = FontIndex(line.font);
    const Tenths height = measurer_.LineHeight(fonts_[font]);
    placed.push_back({&line, font, {inside.left, bottom, inside.width, height}});
    bottom += height;
  }
  return bottom - top;
}

void PrintPages::PlaceRows(Tenths top, Tenths bottom) {
  lineHeight_ = measurer_.LineHeight(fonts_.front());
  rowHeight_ = std::max({TenthsOfTwips(document_.rowHeight), lineHeight_ + 2 * kRowPadding, 1});
  const Tenths left = paper_.Inside().left;
  table_ = {left, top, columns_.empty() ? 0 : columns_.back().right - left,
            std::max(bottom - top, 0)};
  // One at least, however small the paper: there is always a next page.
  rowsOnPage_ = std::max(table_.height / rowHeight_ - 1, 1);
  const std::int32_t rows = document_.table.RowCount();
  pageCount_ = rows == 0 ? 1 : (rows - 1) / rowsOnPage_ + 1;
}

// The titles have position 0. What does not fit ends at the table's lower edge.
Rectangle PrintPages::RowBox(std::int32_t position) const {
  const std::int64_t top = std::int64_t{rowHeight_} * position;
  const auto clipped = [&](std::int64_t y) {
    return static_cast<Tenths>(std::min<std::int64_t>(y, table_.height));
  };
  return {table_.left, table_.top + clipped(top), table_.width,
          clipped(top + rowHeight_) - clipped(top)};
}

Page PrintPages::PageAt(std::int32_t number) const {
  Page page;
  const PageFields fields{date_, number, pageCount_};
  for (const PlacedLine& line : lines_) {
    PlaceLine(line.line->text, fields, measurer_, fonts_[line.font], line.font, line.box, page);
  }
  AddTable(number, page);
  return page;
}

void PrintPages::AddTable(std::int32_t page, Page& result) const {
  if (table_.IsEmpty()) return;
  const PrintTable& table = document_.table;
  const std::int32_t first = (page - 1) * rowsOnPage_;
  const std::int32_t count = std::min(table.RowCount() - first, rowsOnPage_);
  result.texts.reserve(result.texts.size() +
                       columns_.size() * (static_cast<std::size_t>(count) + 1));
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    AddCell(table.Columns()[column].title, columns_[column], RowBox(0), true, result);
  }
  for (std::int32_t position = 1; position <= count; ++position) {
    const Rectangle row = RowBox(position);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      AddCell(table.Cell(first + position - 1, column), columns_[column], row, false, result);
    }
  }
  AddRules(RowBox(count).Bottom(), count, result);
}

void PrintPages::AddCell(std::u16string_view cell, const PlacedColumn& column, const Rectangle& row,
                         bool isTitle, Page& result) const {
  const Rectangle clip{column.left + kCellPadding, row.top, column.Width() - 2 * kCellPadding,
                       row.height};
  if (cell.empty() || clip.IsEmpty()) return;
  const std::u16string_view fitted =
      FitText(measurer_, fonts_.front(), cell, clip.width, result.made);
  if (fitted.empty()) return;
  PageText& text = result.texts.emplace_back();
  text.text = fitted;
  text.top = row.top + (rowHeight_ - lineHeight_) / 2;
  text.clip = clip;
  if (isTitle) {
    text.alignment = TextAlignment::Centre;
    text.anchor = clip.left + clip.width / 2;
  } else if (column.holdsNumbers) {
    text.alignment = TextAlignment::Right;
    text.anchor = clip.Right();
  } else {
    text.anchor = clip.left;
  }
}

void PrintPages::AddRules(Tenths bottom, std::int32_t rows, Page& result) const {
  const auto across = [&](Tenths y) {
    result.rules.push_back({table_.left, y, table_.Right(), y});
  };
  const auto down = [&](Tenths x) { result.rules.push_back({x, table_.top, x, bottom}); };
  result.rules.reserve(static_cast<std::size_t>(rows) + columns_.size() + 3);
  across(table_.top);
  for (std::int32_t position = 0; position <= rows; ++position) across(RowBox(position).Bottom());
  down(table_.left);
  for (const PlacedColumn& column : columns_) {
    // A column without width has no edge of its own.
    if (column.Width() > 0) down(column.right);
  }
}

}  // namespace pricedown
