// The rows of the documents. How many fill a page is found by trying, so that no measure is
// duplicated.
#include "tests/windows/print/print_pages/documents.h"

#include "browser/print_table.h"
#include "platform/text.h"

namespace pricedown::testing {
namespace {

constexpr std::int32_t kUsualNameWidth = 3000;
constexpr std::int32_t kWideNameWidth = 9000;

}  // namespace

bool KnownDocument::Fill(std::string_view name, const Paper& paper, TextMeasurer& measurer) {
  SetPageHeader(*this, u"");
  SetPageFooter(*this);
  if (name == "empty") return FillRows(0, kUsualNameWidth), true;
  if (name == "one") return FillRows(1, kUsualNameWidth), true;
  if (name == "many") return FillRows(200, kUsualNameWidth), true;
  if (name == "wide") return FillRows(3, kWideNameWidth), true;
  if (name != "full" && name != "more") return false;
  std::int32_t rows = 1;
  do {
    FillRows(++rows, kUsualNameWidth);
  } while (Pages(paper, kKnownDate, measurer).PageCount() == 1);
  if (name == "full") FillRows(rows - 1, kUsualNameWidth);
  return true;
}

void KnownDocument::FillRows(std::int32_t rows, std::int32_t nameWidth) {
  PrintTable& table = Table();
  table.Clear();
  table.SetRowCount(rows + 1);
  table.SetColumnCount(4);
  table.SetColumnWidth(1, 1800);
  table.SetColumnWidth(2, nameWidth);
  table.SetColumnWidth(3, 2700);
  table.SetColumnWidth(4, 1800);
  table.SetRow(1, u"物料代码|物料名称|规格型号|标准单价|");
  for (std::int32_t row = 1; row <= rows; ++row) {
    const std::u16string number = FromUtf8(std::to_string(row));
    table.SetRow(row + 1, Concatenate({u"01.", number, u"|物料", number, u"号|M", number, u"x8|",
                                       number, u".25|"}));
  }
}

}  // namespace pricedown::testing
