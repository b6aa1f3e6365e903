// The ledger's table, header and footer, call by call in the order that the ledger is used to.
// Built-in texts pass the translation hook piece by piece.
#include "browser/print_table.h"

#include <string>

#include "browser/item_grid.h"
#include "env/translation.h"
#include "platform/convert.h"
#include "platform/text.h"

namespace pricedown {
namespace {

constexpr std::int32_t kGeneralFormat = 0;
constexpr LineFont kTitleFont{20, true, true};
constexpr LineFont kLineFont{9, false, false};
constexpr std::u16string_view kThirtyBlanks = u"                              ";
static_assert(kThirtyBlanks.size() == 30);

std::u16string HeaderRow() {
  std::u16string row;
  for (const std::u16string_view title : kItemColumnTitles) row += Translate(title) + u"|";
  return row;
}

}  // namespace

void FillPrintTable(const Grid& sheet, PrintTable& table) {
  const std::int32_t rows = sheet.MaxRows();
  table.Clear();
  table.SetRowCount(rows + 1);
  table.SetColumnCount(grid_columns::kCount);
  for (std::int32_t column = 1; column <= grid_columns::kCount; ++column) {
    table.SetColumnFormat(column, kGeneralFormat);
  }
  for (std::int32_t column = 1; column <= grid_columns::kCount; ++column) {
    table.SetColumnWidth(column, RoundToInt32(sheet.ColumnWidth(column) * kTwipsPerWidthUnit));
  }
  table.Refresh();
  std::u16string text;
  for (std::int32_t row = 1; row <= rows; ++row) {
    text.clear();
    for (std::int32_t column = 1; column <= grid_columns::kCount; ++column) {
      text.append(sheet.Text(column, row)).push_back(u'|');
    }
    table.SetRow(row + 1, text);
    table.Refresh();
  }
  table.SetRow(1, HeaderRow());
  table.Refresh();
}

void SetPageTypeface(PrintLedger& ledger, const FontProperties& font) {
  // A character set belongs to the font that it came with.
  if (font.name.empty()) {
    ledger.SetLineTypeface({u"宋体", kAnyCharset});
  } else {
    ledger.SetLineTypeface({font.name, font.charset});
  }
}

void SetPageHeader(PrintLedger& ledger, std::u16string_view subTitle) {
  ledger.SetHeaderLine(1, Translate(u"物料类别维护-明细物料"), kTitleFont);
  ledger.SetHeaderLine(2, kThirtyBlanks, kLineFont);
  ledger.SetHeaderLine(3, Concatenate({subTitle, Translate(u"|打印日期：&[日期]")}), kLineFont);
}

void SetPageFooter(PrintLedger& ledger) {
  ledger.SetFooterLine(1, kThirtyBlanks, kLineFont);
  ledger.SetFooterLine(2, Translate(u"第 &[页] 页") + Translate(u"|共 &[总页] 页"), kLineFont);
}

}  // namespace pricedown
