// Widths as asked or narrowed, and one look at every row for columns of numbers.
// A column that has shown a text is not looked at again.
#include "print/column_layout.h"

#include <algorithm>

#include "platform/text.h"

namespace pricedown {
namespace {

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// The widest that a column may be so that all fit.
Tenths CommonLimit(std::vector<Tenths> widths, Tenths available) {
  std::sort(widths.begin(), widths.end());
  std::int64_t rest = available;
  std::int64_t sharing = static_cast<std::int64_t>(widths.size());
  for (const Tenths width : widths) {
    if (width * sharing > rest) return static_cast<Tenths>(rest / sharing);
    rest -= width;
    --sharing;
  }
  return available;
}

void FindNumbers(const LedgerContent& content, std::vector<PlacedColumn>& columns) {
  struct Seen {
    bool number = false;
    bool text = false;
  };
  std::vector<Seen> seen(columns.size());
  std::size_t undecided = columns.size();
  for (std::int32_t row = 2; row <= content.RowCount() && undecided > 0; ++row) {
    std::u16string_view rest = content.Row(row);
    for (std::size_t column = 0; column < seen.size() && !rest.empty(); ++column) {
      const std::u16string_view cell = TakeCell(rest);
      if (seen[column].text || cell.empty()) continue;
      if (IsPlainNumber(cell)) {
        seen[column].number = true;
      } else if (!Trim(cell).empty()) {
        seen[column].text = true;
        --undecided;
      }
    }
  }
  for (std::size_t column = 0; column < seen.size(); ++column) {
    columns[column].holdsNumbers = seen[column].number && !seen[column].text;
  }
}

}  // namespace

std::int64_t WantedWidth(const LedgerContent& content) {
  std::int64_t wanted = 0;
  for (const LedgerColumn& column : content.Columns()) wanted += TenthsOfTwips(column.width);
  return wanted;
}

std::vector<PlacedColumn> PlaceColumns(const LedgerContent& content, Tenths left,
                                       Tenths available) {
  std::vector<Tenths> widths;
  for (const LedgerColumn& column : content.Columns()) {
    widths.push_back(TenthsOfTwips(column.width));
  }
  const Tenths limit = CommonLimit(widths, available);
  std::vector<PlacedColumn> columns;
  for (const Tenths width : widths) {
    columns.push_back({left, left + std::min(width, limit), false});
    left = columns.back().right;
  }
  FindNumbers(content, columns);
  return columns;
}

bool IsPlainNumber(std::u16string_view text) {
  text = Trim(text);
  if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) text.remove_prefix(1);
  if (text.size() > 1 && text[0] == u'0' && (IsDigit(text[1]) || text[1] == u',')) return false;
  bool digit = false;
  bool fraction = false;
  char16_t last = 0;
  for (const char16_t unit : text) {
    if (unit == u'.' ? fraction : unit == u',' ? fraction || !IsDigit(last) : !IsDigit(unit)) {
      return false;
    }
    if (unit == u'.' && last == u',') return false;
    fraction |= unit == u'.';
    digit |= IsDigit(unit);
    last = unit;
  }
  return digit && last != u',';
}

}  // namespace pricedown
