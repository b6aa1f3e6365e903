// An item list's ledger whose pages are read as text.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "print/ledger_pages.h"
#include "tests/print/fake_measurer.h"

namespace pricedown::testing {

inline constexpr LineFont kPlain{9, false, false};

// The item list's own header, footer and columns on A4; 45 rows fit on a page.
class Pages : public ::testing::Test {
 protected:
  Pages() {
    content_.SetHeaderLine(1, u"物料类别维护-明细物料", {20, true, true});
    content_.SetHeaderLine(2, std::u16string(30, u' '), kPlain);
    content_.SetHeaderLine(3, u"|打印日期：&[日期]", kPlain);
    content_.SetFooterLine(1, std::u16string(30, u' '), kPlain);
    content_.SetFooterLine(2, u"第 &[页] 页|共 &[总页] 页", kPlain);
    Columns({1800, 3000, 2700, 1800});
  }

  void Columns(const std::vector<std::int32_t>& twips) {
    content_.SetColumnCount(static_cast<std::int32_t>(twips.size()));
    for (std::size_t i = 0; i < twips.size(); ++i) {
      content_.SetColumnWidth(static_cast<std::int32_t>(i + 1), twips[i]);
    }
  }
  void Rows(const std::vector<std::u16string>& rows) {
    content_.SetRowCount(static_cast<std::int32_t>(rows.size()) + 1);
    content_.SetRow(1, u"物料代码|物料名称|规格型号|标准单价|");
    std::int32_t number = 1;
    for (const std::u16string& row : rows) content_.SetRow(++number, row);
  }
  // Rows R1, R2 and so on, in their first cell.
  void NumberedRows(std::int32_t count) {
    Rows(std::vector<std::u16string>(static_cast<std::size_t>(count)));
    for (std::int32_t row = 1; row <= count; ++row) {
      content_.SetRow(row + 1, u"R" + FromAscii(std::to_string(row)) + u"||||");
    }
  }
  static std::u16string FromAscii(const std::string& text) { return {text.begin(), text.end()}; }

  LedgerPages Made() { return {content_, setup_, measurer_}; }
  static std::string TextsOf(const LedgerPages& pages, std::int32_t number) {
    return ReadableLines(pages.PageAt(number).texts);
  }
  // Of the table's rows alone, without titles, header and footer.
  std::string RowTexts() { return ReadableLines(RowCommands(Made())); }
  static std::vector<PageText> RowCommands(const LedgerPages& pages) {
    std::vector<PageText> texts;
    for (const PageText& text : pages.PageAt(1).texts) {
      if (text.top >= 422 && text.top < 2600) texts.push_back(text);
    }
    return texts;
  }
  // First and last numbered row on a page.
  static std::string RowsOn(const LedgerPages& pages, std::int32_t number) {
    std::vector<std::string> rows;
    for (const PageText& text : pages.PageAt(number).texts) {
      if (text.text.starts_with(u'R')) rows.push_back(Utf8(text.text));
    }
    return rows.empty() ? "none" : rows.front() + " to " + rows.back();
  }

  LedgerContent content_;
  PrintSetup setup_{{u"宋体", 9, false, false, false}, 285, {}, u"2008-03-31"};
  FakeMeasurer measurer_;
};

}  // namespace pricedown::testing
