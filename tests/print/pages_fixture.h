// The item list's document, whose pages are read as text. Tests set its paper, columns and
// rows.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "print/print_pages.h"
#include "tests/print/fake_measurer.h"

namespace pricedown::testing {

// The item list's own header, footer and columns on A4; 45 rows fit on a page.
class Pages : public ::testing::Test {
 protected:
  Pages() {
    const std::u16string blank(30, u' ');
    document_.header = {{u"物料类别维护-明细物料", {u"宋体", 20, true, false, true}},
                        {blank, {}},
                        {u"|打印日期：&[日期]", {}}};
    document_.footer = {{blank, {}}, {u"第 &[页] 页|共 &[总页] 页", {}}};
    Columns({1800, 3000, 2700, 1800});
  }

  // The table has no rows then.
  void Columns(const std::vector<std::int32_t>& twips) {
    const char16_t* const titles[] = {u"物料代码", u"物料名称", u"规格型号", u"标准单价"};
    document_.table.Clear();
    for (std::size_t i = 0; i < twips.size(); ++i) document_.table.AddColumn(titles[i], twips[i]);
  }
  void Rows(const std::vector<std::vector<std::u16string>>& rows) {
    for (const auto& row : rows) {
      for (const std::u16string& cell : row) document_.table.AddCell(cell);
    }
  }
  // Rows R1, R2 and so on, in their first cell.
  void NumberedRows(std::int32_t count) {
    for (std::int32_t row = 1; row <= count; ++row) {
      Rows({{u"R" + FromAscii(std::to_string(row)), u"", u"", u""}});
    }
  }
  static std::u16string FromAscii(const std::string& text) { return {text.begin(), text.end()}; }

  PrintPages Made() { return {document_, paper_, u"2008-03-31", measurer_}; }
  static std::string TextsOf(const PrintPages& pages, std::int32_t number) {
    return ReadableLines(pages.PageAt(number).texts);
  }
  // Of the table's rows alone, without titles, header and footer.
  std::string RowTexts() { return ReadableLines(RowCommands(Made().PageAt(1))); }
  static std::vector<PageText> RowCommands(const Page& page) {
    std::vector<PageText> texts;
    for (const PageText& text : page.texts) {
      if (text.top >= 422 && text.top < 2600) texts.push_back(text);
    }
    return texts;
  }
  // First and last numbered row on a page.
  static std::string RowsOn(const PrintPages& pages, std::int32_t number) {
    std::vector<std::string> rows;
    const Page page = pages.PageAt(number);
    for (const PageText& text : page.texts) {
      if (text.text.starts_with(u'R')) rows.push_back(Utf8(text.text));
    }
    return rows.empty() ? "none" : rows.front() + " to " + rows.back();
  }

  PrintDocument document_;
  Paper paper_;
  FakeMeasurer measurer_;
};

}  // namespace pricedown::testing
