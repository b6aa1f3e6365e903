#include "platform/copied_cells.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

using ::testing::HasSubstr;

// The section of the data between two offsets that its header names.
std::string SectionOf(const std::string& html, const std::string& start, const std::string& end) {
  const auto offset = [&](const std::string& name) {
    return std::stoul(html.substr(html.find(name) + name.size()));
  };
  return html.substr(offset(start), offset(end) - offset(start));
}

TEST(CopiedCells, HaveTabsBetweenColumnsAndALineBreakBehindEachRow) {
  CellCopier copier;
  copier.Add(u"001000", CellKind::Text);
  copier.Add(u"", CellKind::Text);
  copier.EndRow();
  copier.Add(u"螺栓", CellKind::Text);
  copier.Add(u"2.00", CellKind::Number);
  copier.EndRow();
  EXPECT_EQ(Utf8(copier.Finish().text), "001000\t\r\n螺栓\t2.00\r\n");
}

TEST(CopiedCells, AreTheTextAloneForASingleCell) {
  CellCopier copier;
  copier.Add(u"螺栓", CellKind::Text);
  copier.EndRow();
  EXPECT_EQ(Utf8(copier.Finish(true).text), "螺栓");
}

TEST(CopiedCells, AreATableWhosePlaceTheHeaderNamesInBytes) {
  CellCopier copier;
  copier.Add(u"螺栓", CellKind::Text);
  copier.Add(u"2.00", CellKind::Number);
  copier.EndRow();
  const std::string html = copier.Finish().html;
  EXPECT_EQ(html.substr(0, 13), "Version:0.9\r\n");
  EXPECT_EQ(SectionOf(html, "StartFragment:", "EndFragment:"),
            "<table><tr><td class=t>螺栓</td><td>2.00</td></tr>\r\n</table>");
  const std::string document = SectionOf(html, "StartHTML:", "EndHTML:");
  EXPECT_EQ(document.substr(0, 6), "<html>");
  EXPECT_EQ(document.substr(document.size() - 7), "</html>");
}

TEST(CopiedCells, HaveABlankForATabOrALineBreakInsideACellInTheTextOnly) {
  CellCopier copier;
  copier.Add(u"螺栓\tM8", CellKind::Text);
  copier.Add(u"A\r\nB\nC", CellKind::Text);
  copier.EndRow();
  const CopiedCells cells = copier.Finish();
  EXPECT_EQ(Utf8(cells.text), "螺栓 M8\tA  B C\r\n");
  EXPECT_THAT(cells.html, HasSubstr("<td class=t>螺栓\tM8</td><td class=t>A\r\nB\nC</td>"));
}

TEST(CopiedCells, AreTextForASpreadsheetUnlessTheyAreNumbers) {
  CellCopier copier;
  copier.Add(u"1281.10", CellKind::Text);
  copier.EndRow();
  const std::string html = copier.Finish().html;
  EXPECT_THAT(html, HasSubstr("td.t{mso-number-format:\"\\@\"}"));
  EXPECT_THAT(html, HasSubstr("<td class=t>1281.10</td>"));
}

TEST(CopiedCells, KeepTheirBlanksInATable) {
  CellCopier copier;
  copier.Add(u"  A  1 ", CellKind::Text);
  copier.EndRow();
  const std::string html = copier.Finish().html;
  EXPECT_THAT(html, HasSubstr("td{white-space:pre}"));
  EXPECT_THAT(html, HasSubstr("<td class=t>  A  1 </td>"));
}

TEST(CopiedCells, KeepTheCharactersThatHtmlReserves) {
  CellCopier copier;
  copier.Add(u"φ<5 & >3", CellKind::Text);
  copier.EndRow();
  const CopiedCells cells = copier.Finish(true);
  EXPECT_EQ(Utf8(cells.text), "φ<5 & >3");
  EXPECT_THAT(cells.html, HasSubstr("<td class=t>φ&lt;5 &amp; &gt;3</td>"));
}

}  // namespace
}  // namespace pricedown::testing
