// From top to bottom: header, titles, rows, and the footer at the lower margin.
// All rows have one height, so that a page's rows are known without the pages before it.
#include "print/ledger_pages.h"

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

LedgerPages::LedgerPages(const LedgerContent& content, PrintSetup setup, TextMeasurer& measurer)
    : content_(content), measurer_(measurer), setup_(std::move(setup)) {
  fonts_.push_back(setup_.tableFont);
  ChoosePaper();
  const PageBox inside = paper_.Inside();
  columns_ = PlaceColumns(content_, inside.left, inside.Width());
  const Tenths header = PlaceLines(content_.Header(), inside.top, lines_);
  std::vector<PlacedLine> footerLines;
  const Tenths footer = PlaceLines(content_.Footer(), 0, footerLines);
  const Tenths footerTop = std::max(inside.bottom - footer, inside.top + header);
  for (PlacedLine& line : footerLines) {
    line.box.top += footerTop;
    line.box.bottom += footerTop;
    lines_.push_back(line);
  }
  for (PlacedLine& line : lines_) line.box.bottom = std::min(line.box.bottom, inside.bottom);
  PlaceRows(inside.top + header + (header > 0 ? kBlockGap : 0),
            footerTop - (footer > 0 ? kBlockGap : 0));
}

void LedgerPages::ChoosePaper() {
  paper_ = setup_.paper;
  const Paper turned = paper_.Turned();
  turned_ = WantedWidth(content_) > paper_.Inside().Width() &&
            turned.Inside().Width() > paper_.Inside().Width();
  if (turned_) paper_ = turned;
}

std::size_t LedgerPages::FontIndex(const LineFont& font) {
  const LineTypeface& face = content_.LinesTypeface();
  PageFont wanted{setup_.tableFont.name, font.size, font.bold, false, font.underlined};
  if (!face.name.empty()) {
    wanted.name = face.name;
    wanted.charset = face.charset;
  }
  const auto known = std::find(fonts_.begin(), fonts_.end(), wanted);
  const auto index = static_cast<std::size_t>(known - fonts_.begin());
  if (known == fonts_.end()) fonts_.push_back(wanted);
  return index;
}

Tenths LedgerPages::PlaceLines(const std::vector<PageLine>& lines, Tenths top,
                               std::vector<PlacedLine>& placed) {
  const PageBox inside = paper_.Inside();
  Tenths bottom = top;
  for (const PageLine& line : lines) {
    const std::size_t font = FontIndex(line.font);
    const Tenths height = measurer_.LineHeight(fonts_[font]);
    placed.push_back({&line, font, {inside.left, bottom, inside.right, bottom + height}});
    bottom += height;
  }
  return bottom - top;
}

void LedgerPages::PlaceRows(Tenths top, Tenths bottom) {
  lineHeight_ = measurer_.LineHeight(setup_.tableFont);
  rowHeight_ = std::max({TenthsOfTwips(setup_.rowHeight), lineHeight_ + 2 * kRowPadding, 1});
  table_ = {paper_.Inside().left, top, columns_.empty() ? top : columns_.back().right,
            std::max(top, bottom)};
  if (columns_.empty()) table_.right = table_.left;
  // One at least, however small the paper: there is always a next page.
  rowsOnPage_ = std::max(table_.Height() / rowHeight_ - 1, 1);
  const std::int32_t rows = std::max(content_.RowCount() - 1, 0);
  pageCount_ = rows == 0 ? 1 : (rows - 1) / rowsOnPage_ + 1;
}

// The titles have position 0. What does not fit ends at the table's lower edge.
PageBox LedgerPages::RowBox(std::int32_t position) const {
  const std::int64_t top = table_.top + std::int64_t{rowHeight_} * position;
  const auto clipped = [&](std::int64_t y) {
    return static_cast<Tenths>(std::min<std::int64_t>(y, table_.bottom));
  };
  return {table_.left, clipped(top), table_.right, clipped(top + rowHeight_)};
}

Page LedgerPages::PageAt(std::int32_t number) const {
  Page page;
  const PageFields fields{setup_.date, number, pageCount_};
  for (const PlacedLine& line : lines_) {
    PlaceLine(line.line->text, fields, measurer_, fonts_[line.font], line.font, line.box,
              page.texts);
  }
  AddTable(number, page);
  return page;
}

void LedgerPages::AddTable(std::int32_t page, Page& result) const {
  if (content_.RowCount() == 0 || table_.IsEmpty()) return;
  AddRow({content_.Row(1), RowBox(0), true}, result);
  // Row 1 holds the titles.
  const std::int32_t first = 2 + (page - 1) * rowsOnPage_;
  const std::int32_t count = std::min(content_.RowCount() - first + 1, rowsOnPage_);
  for (std::int32_t position = 1; position <= count; ++position) {
    AddRow({content_.Row(first + position - 1), RowBox(position), false}, result);
  }
  AddRules(RowBox(count).bottom, count, result);
}

void LedgerPages::AddRow(const TextRow& row, Page& result) const {
  std::u16string_view rest = row.text;
  for (const PlacedColumn& column : columns_) {
    const std::u16string_view cell = TakeCell(rest);
    const PageBox clip{column.left + kCellPadding, row.box.top, column.right - kCellPadding,
                       row.box.bottom};
    if (cell.empty() || clip.IsEmpty()) continue;
    std::u16string fitted = FitText(measurer_, setup_.tableFont, cell, clip.Width());
    if (fitted.empty()) continue;
    PageText& text = result.texts.emplace_back();
    text.text = std::move(fitted);
    text.top = row.box.top + (rowHeight_ - lineHeight_) / 2;
    text.clip = clip;
    if (row.isTitle) {
      text.alignment = TextAlignment::Centre;
      text.anchor = clip.left + clip.Width() / 2;
    } else if (column.holdsNumbers) {
      text.alignment = TextAlignment::Right;
      text.anchor = clip.right;
    } else {
      text.anchor = clip.left;
    }
  }
}

void LedgerPages::AddRules(Tenths bottom, std::int32_t rows, Page& result) const {
  const auto across = [&](Tenths y) { result.rules.push_back({table_.left, y, table_.right, y}); };
  const auto down = [&](Tenths x) { result.rules.push_back({x, table_.top, x, bottom}); };
  across(table_.top);
  for (std::int32_t position = 0; position <= rows; ++position) across(RowBox(position).bottom);
  down(table_.left);
  for (const PlacedColumn& column : columns_) {
    // A column without width has no edge of its own.
    if (column.Width() > 0) down(column.right);
  }
}

}  // namespace pricedown
