// Requested or narrowed widths, and one pass over the rows to find columns of numbers.
#include "print/column_layout.h"

#include <algorithm>
#include <numeric>

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

// A column that has shown a text is not checked again.
void FindNumbers(const PrintTable& table, std::vector<PlacedColumn>& columns) {
  std::vector<std::size_t> undecided(columns.size());
  std::iota(undecided.begin(), undecided.end(), std::size_t{0});
  for (std::int32_t row = 0; row < table.RowCount() && !undecided.empty(); ++row) {
    std::erase_if(undecided, [&](std::size_t column) {
      const std::u16string_view cell = table.Cell(row, column);
      if (IsPlainNumber(cell)) {
        columns[column].holdsNumbers = true;
      } else if (!Trim(cell).empty()) {
        columns[column].holdsNumbers = false;
        return true;
      }
      return false;
    });
  }
}

}  // namespace

std::int64_t WantedWidth(const PrintTable& table) {
  std::int64_t wanted = 0;
  for (const PrintColumn& column : table.Columns()) wanted += TenthsOfTwips(column.width);
  return wanted;
}

std::vector<PlacedColumn> PlaceColumns(const PrintTable& table, Tenths left, Tenths available) {
  std::vector<Tenths> widths;
  for (const PrintColumn& column : table.Columns()) {
    widths.push_back(TenthsOfTwips(column.width));
  }
  const Tenths limit = CommonLimit(widths, available);
  std::vector<PlacedColumn> columns;
  for (const Tenths width : widths) {
    columns.push_back({left, left + std::min(width, limit), false});
    left = columns.back().right;
  }
  FindNumbers(table, columns);
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
