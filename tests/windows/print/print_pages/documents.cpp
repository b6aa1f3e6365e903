// The rows of the documents. The number that fills a page is found by trial, so that no measure is
// repeated here.
#include "tests/windows/print/print_pages/documents.h"

#include "browser/print_list.h"
#include "platform/text.h"
#include "print/print_pages.h"

namespace pricedown::testing {
namespace {

constexpr std::int32_t kDefaultNameWidth = 3000;
constexpr std::int32_t kWideNameWidth = 9000;

void FillRows(PrintTable& table, std::int32_t rows, std::int32_t nameWidth = kDefaultNameWidth) {
  table.Clear();
  table.AddColumn(u"物料代码", 1800);
  table.AddColumn(u"物料名称", nameWidth);
  table.AddColumn(u"规格型号", 2700);
  table.AddColumn(u"标准单价", 1800);
  for (std::int32_t row = 1; row <= rows; ++row) {
    const std::u16string number = FromUtf8(std::to_string(row));
    table.AddCell(u"01." + number);
    table.AddCell(u"物料" + number + u"号");
    table.AddCell(u"M" + number + u"x8");
    table.AddCell(number + u".25");
  }
}

}  // namespace

bool FillKnownDocument(std::string_view name, const Paper& paper, TextMeasurer& measurer,
                       PrintDocument& document) {
  SetPageLines({}, document);
  PrintTable& table = document.table;
  if (name == "empty") return FillRows(table, 0), true;
  if (name == "one") return FillRows(table, 1), true;
  if (name == "many") return FillRows(table, 200), true;
  if (name == "wide") return FillRows(table, 3, kWideNameWidth), true;
  if (name != "full" && name != "more") return false;
  std::int32_t rows = 1;
  do {
    FillRows(table, ++rows);
  } while (PrintPages(document, paper, kKnownDate, measurer).PageCount() == 1);
  if (name == "full") FillRows(table, rows - 1);
  return true;
}

}  // namespace pricedown::testing
