// The ledger's rows in one text, so that filling it copies each text once.
// A row that is set again leaves its former text behind until the table is cleared.
#include "print/ledger_content.h"

#include <algorithm>

#include "platform/error.h"

namespace pricedown {
namespace {

// The element with that number, counted from 1.
template <typename T>
T& Numbered(std::vector<T>& elements, std::int32_t number) {
  if (number < 1 || static_cast<std::size_t>(number) > elements.size()) {
    throw AutomationError(ErrorNumber::InvalidArgument, u"打印表没有这一行或列", u"ldgPara");
  }
  return elements[static_cast<std::size_t>(number - 1)];
}

std::size_t Count(std::int32_t count) { return static_cast<std::size_t>(std::max(count, 0)); }

void SetLine(std::vector<PageLine>& lines, std::int32_t line, std::u16string_view text,
             const LineFont& font) {
  if (lines.size() < Count(line)) lines.resize(Count(line));
  Numbered(lines, line) = {std::u16string(text), font};
}

}  // namespace

void LedgerContent::Clear() {
  texts_.clear();
  rows_.clear();
  columns_.clear();
}

void LedgerContent::SetRowCount(std::int32_t count) { rows_.resize(Count(count)); }

void LedgerContent::SetColumnCount(std::int32_t count) { columns_.resize(Count(count)); }

void LedgerContent::SetColumnFormat(std::int32_t column, std::int32_t format) {
  Numbered(columns_, column).format = format;
}

void LedgerContent::SetColumnWidth(std::int32_t column, std::int32_t twips) {
  Numbered(columns_, column).width = std::max(twips, 0);
}

void LedgerContent::SetRow(std::int32_t row, std::u16string_view text) {
  TextSpan& span = Numbered(rows_, row);
  const std::size_t offset = texts_.size();
  texts_.append(text);
  span = {offset, text.size()};
}

void LedgerContent::SetHeaderLine(std::int32_t line, std::u16string_view text,
                                  const LineFont& font) {
  SetLine(header_, line, text, font);
}

void LedgerContent::SetFooterLine(std::int32_t line, std::u16string_view text,
                                  const LineFont& font) {
  SetLine(footer_, line, text, font);
}

std::u16string_view LedgerContent::Row(std::int32_t row) const {
  const TextSpan& span = rows_[static_cast<std::size_t>(row - 1)];
  return std::u16string_view(texts_).substr(span.offset, span.length);
}

std::u16string_view TakeCell(std::u16string_view& rest) {
  const std::size_t end = rest.find(kCellSeparator);
  const std::u16string_view cell = rest.substr(0, end);
  rest.remove_prefix(end == std::u16string_view::npos ? rest.size() : end + 1);
  return cell;
}

}  // namespace pricedown
