// Printing from the company's database to pages: only windows, user and device are fakes.
#include <gtest/gtest.h>

#include "env/user_settings.h"
#include "tests/integration/control_fixture.h"
#include "tests/support/call_log.h"

namespace workbench {
namespace {

using PrintingOnCompany = ControlOnCompany;

TEST_F(PrintingOnCompany, PutsTheItemsOfTheSelectedClassOnPaper) {
  Open();
  Select(u"A1");
  control->PrintPara();
  EXPECT_EQ(output->pageCount, 1);
  EXPECT_EQ(output->Texts(), pricedown::testing::Lines(R"(
      物料类别维护-明细物料
      打印日期：2008-03-31
      第 1 页
      共 1 页
      物料代码
      物料名称
      规格型号
      标准单价
      01.1
      物料1
      M1
      01.2
      物料2
      M2
      01.3
      物料3
      M3
      )"));
}

TEST_F(PrintingOnCompany, PrintsAPriceThatWasTypedIntoTheGrid) {
  Open();
  Select(u"B1");
  control->GetGrid().SetText(4, 2, u"12.5");
  control->PrintPara();
  const pricedown::PageText& last = output->firstPage.texts.back();
  EXPECT_EQ(pricedown::ToUtf8(last.text), "12.5");
  EXPECT_EQ(last.alignment, pricedown::TextAlignment::Right);
}

TEST_F(PrintingOnCompany, PrintsOnlyTheTitlesForTheRoot) {
  Open();
  treeView.selected = 1;
  control->NodeClicked(1);
  control->PrintPara();
  EXPECT_EQ(output->firstPage.texts.size(), 8u) << output->Texts();
}

TEST_F(PrintingOnCompany, RemembersTheFontOfThePreviewInTheNextControl) {
  Open();
  const pricedown::Font chosen{u"楷体", 12, true, false};
  output->onPreview = [&](pricedown::PrintDocument& document) { document.font = chosen; };
  control->PreviewPara();
  EXPECT_EQ(output->fonts[0].size, 9);
  Open();
  EXPECT_EQ(control->GetGrid().CellFont(), chosen);
  control->PreviewPara();
  EXPECT_EQ(output->fonts[0], chosen);
  // A chosen font takes precedence over the report size.
  pricedown::SaveUserSetting(factory, u"Host", pricedown::kReportFontSizeKey, u"18");
  control->NotifyMessage(u"Activate");
  control->PreviewPara();
  EXPECT_EQ(output->fonts[0], chosen);
}

}  // namespace
}  // namespace workbench
