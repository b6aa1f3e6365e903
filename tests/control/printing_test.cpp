// Preview and print as hosts and users reach them.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "control/price_down.h"
#include "tests/control/dispatch_fixture.h"

namespace pricedown::testing {
namespace {

class Printing : public Dispatch {
 protected:
  // The two items of class 01.
  static std::string List() {
    return PrintedList("宋体 134", Lines(R"(
        row "01.001" "螺栓" "M8" ""
        row "01.002" "螺母" "M10" ""
        )"));
  }
  static void ClickOnBar(PriceDown& control, std::u16string_view name) {
    const std::shared_ptr<CommandBar> bar = control.BarList();
    bar->Add({std::u16string(name), u"", u"", u""});
    bar->Click(name);
  }
};

TEST_F(Printing, ShowsAPreviewOfTheGrid) {
  Start();
  EXPECT_EQ(Control().PreviewPara(), Value());
  EXPECT_EQ(world_.log.Text(), ReadingTitleFont() + "output preview\n");
  EXPECT_EQ(world_.output.printed, List());
}

TEST_F(Printing, PrintsTheGrid) {
  Start();
  EXPECT_EQ(Control().PrintPara(), Value());
  EXPECT_EQ(world_.log.Text(), ReadingTitleFont() + "output print\n");
  EXPECT_EQ(world_.output.printed, List());
}

TEST_F(Printing, RunsFromTheStripAfterTheRightsCheckAndReloads) {
  Start();
  for (const auto& [key, call] :
       {std::pair{u"Print", "output print\n"}, std::pair{u"PrintView", "output preview\n"}}) {
    world_.log.Clear();
    Control().CommandChosen(Button(key));
    EXPECT_EQ(world_.log.Text(), "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 32768)\n" +
                                     ReadingTitleFont() + call + Reload());
  }
}

TEST_F(Printing, PrintsNothingWithoutTheRight) {
  Start();
  world_.company.grantedMasks = "none";
  Control().CommandChosen(Button(u"Print"));
  Control().CommandChosen(Button(u"PrintView"));
  EXPECT_EQ(world_.log.Text().find("output"), std::string::npos) << world_.log.Text();
}

TEST_F(Printing, RunsFromTheHostsTools) {
  Start();
  Click(u"iPrint");
  EXPECT_EQ(world_.log.Text(),
            "tool.Name()\n" + ReadingTitleFont() + "output print\nrelease tool\n");
  world_.log.Clear();
  Click(u"iPrintPreView");
  EXPECT_EQ(world_.log.Text(),
            "tool.Name()\n" + ReadingTitleFont() + "output preview\nrelease tool\n");
}

TEST_F(Printing, WorksWhereTheClassCommandsAreDisabled) {
  world_.company.mode = u"2";
  world_.company.nodeSetting = u"gc0";
  Start();
  ASSERT_FALSE(Control().IsEnabled(Button(u"Add")));
  Control().CommandChosen(Button(u"Print"));
  Control().CommandChosen(Button(u"PrintView"));
  Click(u"iPrint");
  EXPECT_EQ(world_.log.Count("output print"), 2u);
  EXPECT_EQ(world_.log.Count("output preview"), 1u);
  EXPECT_EQ(world_.output.printed, List());
}

TEST_F(Printing, ReportsAFailureToTheUserOnly) {
  Start();
  world_.output.onPrint = [] { throw AutomationError(kInjectedFailure, u"卡纸"); };
  EXPECT_EQ(FailureOf([&] { Control().PrintPara(); }), "");
  EXPECT_EQ(world_.log.Lines().back(), "message information \"岚禾提示\": \"卡纸\"");
}

TEST_F(Printing, PrintsInAKeptFont) {
  world_.company.gridFont = u"FontName=楷体|FontSize=12|FontBold=True|FontItalic=False";
  Start();
  Control().PrintPara();
  EXPECT_EQ(world_.output.font, (Font{u"楷体", 12, true, false}));
}

TEST_F(Printing, PrintsInTheReportSize) {
  world_.company.reportSize = u"18";
  world_.fontView.labelHeight = 450;
  Start();
  Control().PrintPara();
  EXPECT_EQ(world_.output.font.size, 18);
  EXPECT_EQ(world_.output.rowHeight, 480);
}

TEST_F(Printing, ShowsAFontChangedInThePreviewAtOnceAndStoresIt) {
  Start();
  world_.output.onPreview = [](PrintDocument& document) { document.font = {u"楷体", 12, true}; };
  Control().PreviewPara();
  EXPECT_EQ(Control().GetGrid().CellFont(), (Font{u"楷体", 12, true, false}));
  EXPECT_EQ(world_.log.Count("font tree 楷体 12.0 bold"), 1u);
  EXPECT_EQ(world_.log.Count(R"(put dictionary("GridFont") = )"
                             R"("FontName=楷体|FontSize=12|FontBold=True|FontItalic=False")"),
            1u)
      << world_.log.Text();
}

TEST_F(Printing, LeavesAControlAloneThatEndedDuringThePreview) {
  Start();
  world_.output.onPreview = [&](PrintDocument& document) {
    document.font.size = 20;
    Control().GetGrid().Attach(nullptr);
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
  world_.output.onPreview = [&](PrintDocument& document) {
    control->GetGrid().Attach(nullptr);
    host.reset();
    document.font.size = 20;
  };
  // The last reference is released when the click returns.
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
  world_.output.onPrint = [&] {
    control->GetGrid().Attach(nullptr);
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
  Control().GetGrid().Attach(nullptr);
  Control().Terminate();
  world_.log.Clear();
  EXPECT_EQ(Control().PreviewPara(), Value());
  EXPECT_EQ(Control().PrintPara(), Value());
  EXPECT_EQ(world_.log.Text(), "");
}

}  // namespace
}  // namespace pricedown::testing
