// Preview and print as hosts and users reach them, on a control with a print control.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "control/price_down.h"
#include "tests/control/dispatch_fixture.h"

namespace pricedown::testing {
namespace {

class Printing : public Dispatch {
 protected:
  // The ledger's calls for the two items of class 01.
  static std::string Filling() {
    return FillingLedger("宋体 134", {"01.001|螺栓|M8||", "01.002|螺母|M10||"});
  }
  static void ClickOnBar(PriceDown& control, std::u16string_view name) {
    const std::shared_ptr<CommandBar> bar = control.Bar();
    bar->Add({std::u16string(name), u"", u"", u""});
    bar->Click(name);
  }
};

TEST_F(Printing, ShowsAPreviewOfTheGrid) {
  Start();
  EXPECT_EQ(Control().PreviewPara(), Value());
  EXPECT_EQ(world_.log.Text(), Filling() + "ledger preview\n");
}

TEST_F(Printing, PrintsTheGrid) {
  Start();
  EXPECT_EQ(Control().PrintPara(), Value());
  EXPECT_EQ(world_.log.Text(), Filling() + "ledger print\n");
}

TEST_F(Printing, RunsFromTheStripAfterTheRightsCheckAndReloads) {
  Start();
  for (const auto& [key, call] :
       {std::pair{u"Print", "ledger print\n"}, std::pair{u"PrintView", "ledger preview\n"}}) {
    world_.log.Clear();
    Control().CommandChosen(Button(key));
    EXPECT_EQ(world_.log.Text(),
              "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 32768)\n" + Filling() + call + Reload());
  }
}

TEST_F(Printing, DoesNotUseTheLedgerWithoutTheRight) {
  Start();
  world_.company.grantedMasks = "none";
  Control().CommandChosen(Button(u"Print"));
  Control().CommandChosen(Button(u"PrintView"));
  EXPECT_EQ(world_.log.Text().find("ledger"), std::string::npos) << world_.log.Text();
}

TEST_F(Printing, AnswersTheBar) {
  Start();
  Click(u"iPrint");
  EXPECT_EQ(world_.log.Text(), "tool.Name()\n" + Filling() + "ledger print\nrelease tool\n");
  world_.log.Clear();
  Click(u"iPrintPreView");
  EXPECT_EQ(world_.log.Text(), "tool.Name()\n" + Filling() + "ledger preview\nrelease tool\n");
}

TEST_F(Printing, WorksWhereTheClassCommandsAreDisabled) {
  world_.company.mode = u"2";
  world_.company.nodeSetting = u"gc0";
  Start();
  ASSERT_FALSE(Control().IsEnabled(Button(u"Add")));
  Control().CommandChosen(Button(u"Print"));
  Control().CommandChosen(Button(u"PrintView"));
  Click(u"iPrint");
  EXPECT_EQ(world_.log.Count("ledger print"), 2u);
  EXPECT_EQ(world_.log.Count("ledger preview"), 1u);
  EXPECT_EQ(world_.log.Count("ledger row 3 \"01.002|螺母|M10||\""), 3u) << world_.log.Text();
}

TEST_F(Printing, ReportsAFailureToTheUserOnly) {
  Start();
  world_.factory.FailCall(11);
  EXPECT_EQ(FailureOf([&] { Control().PrintPara(); }), "");
  const std::string text = world_.log.Text();
  EXPECT_TRUE(text.find("ledger clear fails\ntell information \"岚禾提示\": ") != std::string::npos)
      << text;
  EXPECT_EQ(text.find("ledger rows"), std::string::npos) << text;
}

TEST_F(Printing, RestoresAStoredFontOnTheLedger) {
  world_.company.gridFont = u"FontName=楷体|FontSize=12|FontBold=True|FontItalic=False";
  Start();
  EXPECT_EQ(world_.ledger.appearance.font, (Font{u"楷体", 12, true, false}));
}

TEST_F(Printing, SetsTheReportSizeOfTheLedger) {
  world_.company.reportSize = u"18";
  world_.fontView.labelHeight = 450;
  Start();
  EXPECT_EQ(world_.ledger.appearance.font.size, 18);
  EXPECT_EQ(world_.ledger.appearance.rowHeight, 480);
}

TEST_F(Printing, ShowsAFontChangedInThePreviewAtOnceAndStoresIt) {
  Start();
  world_.ledger.onPreview = [&] { world_.ledger.appearance.font = {u"楷体", 12, true, false}; };
  Control().PreviewPara();
  EXPECT_EQ(Control().ItemCells().CellFont(), (Font{u"楷体", 12, true, false}));
  EXPECT_EQ(world_.log.Count("font tree 楷体 12.0 bold"), 1u);
  EXPECT_EQ(world_.log.Count(R"(put dictionary("GridFont") = )"
                             R"("FontName=楷体|FontSize=12|FontBold=True|FontItalic=False")"),
            1u)
      << world_.log.Text();
}

TEST_F(Printing, LeavesAControlAloneThatEndedDuringThePreview) {
  Start();
  world_.ledger.onPreview = [&] {
    world_.ledger.appearance.font.size = 20;
    Control().ItemCells().Attach(nullptr);
    Control().Terminate();
    world_.log.Clear();
  };
  EXPECT_EQ(Control().PreviewPara(), Value());
  EXPECT_EQ(world_.log.Text(), "");
}

TEST_F(Printing, SurvivesAHostThatReleasesItDuringThePreview) {
  std::shared_ptr<PriceDown> host;
  world_.hold = [&] { return host; };
  Start();
  host = std::move(world_.control);
  PriceDown* const control = host.get();
  world_.ledger.onPreview = [&] {
    control->ItemCells().Attach(nullptr);
    host.reset();
    world_.ledger.appearance.font.size = 20;
  };
  // The last reference goes when the click returns.
  ClickOnBar(*control, u"iPrintPreView");
  EXPECT_EQ(world_.state.controls, 0);
  EXPECT_EQ(world_.log.Count("font tree 宋体 20.0"), 1u);
}

TEST_F(Printing, SurvivesAHostThatReleasesItWhileItPrints) {
  std::shared_ptr<PriceDown> host;
  world_.hold = [&] { return host; };
  Start();
  host = std::move(world_.control);
  PriceDown* const control = host.get();
  const std::weak_ptr<PriceDown> watch = host;
  bool alive = false;
  world_.ledger.onPrint = [&] {
    control->ItemCells().Attach(nullptr);
    host.reset();
    alive = !watch.expired();
  };
  ClickOnBar(*control, u"iPrint");
  EXPECT_TRUE(alive);
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(world_.state.controls, 0);
}

TEST_F(Printing, StopsAtItsEnd) {
  Start();
  Control().ItemCells().Attach(nullptr);
  Control().Terminate();
  world_.log.Clear();
  EXPECT_EQ(Control().PreviewPara(), Value());
  EXPECT_EQ(Control().PrintPara(), Value());
  EXPECT_EQ(world_.log.Text(), "");
}

}  // namespace
}  // namespace pricedown::testing
