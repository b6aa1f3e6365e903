// The document of the item list. Its built-in texts pass the translation hook piece by piece.
#include "browser/print_list.h"

#include <string>

#include "browser/item_grid.h"
#include "env/translation.h"
#include "platform/convert.h"

namespace pricedown {

void FillPrintTable(const Grid& grid, PrintTable& table) {
  table.Clear();
  for (std::int32_t column = 1; column <= grid_columns::kCount; ++column) {
    table.AddColumn(Translate(kItemColumnTitles[static_cast<std::size_t>(column - 1)]),
                    RoundToInt32(grid.ColumnWidth(column) * kTwipsPerWidthUnit));
  }
  for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
    for (std::int32_t column = 1; column <= grid_columns::kCount; ++column) {
      table.AddCell(grid.Text(column, row));
    }
  }
}

void SetPageLines(const Font& titleFont, PrintDocument& document) {
  Font font;
  if (!titleFont.name.empty()) font.name = titleFont.name;
  font.charset = titleFont.charset;
  Font headline = font;
  headline.size = 20;
  headline.bold = headline.underlined = true;
  const std::u16string blank(30, u' ');
  document.header = {{Translate(u"物料类别维护-明细物料"), headline},
                     {blank, font},
                     {Translate(u"|打印日期：&[日期]"), font}};
  document.footer = {{blank, font},
                     {Translate(u"第 &[页] 页") + Translate(u"|共 &[总页] 页"), font}};
}

}  // namespace pricedown
