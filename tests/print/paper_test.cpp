// The paper of printers and page set-ups.
#include "print/paper.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/case_name.h"

namespace pricedown::testing {
namespace {

constexpr int kLargest = std::numeric_limits<int>::max();

struct PaperCase {
  const char* name;
  PrinterDots dots;
  Paper expected;
};

void PrintTo(const PaperCase& paper, std::ostream* stream) { *stream << paper.name; }

class PaperOfAPrinter : public ::testing::TestWithParam<PaperCase> {};

TEST_P(PaperOfAPrinter, FollowsFromItsDots) {
  EXPECT_EQ(PaperOf(GetParam().dots), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    , PaperOfAPrinter,
    ::testing::Values(
        PaperCase{
            "A4ToTheEdge", {300, 300, 2480, 3508, 0, 0, 2480, 3508}, {2100, 2970, {0, 0, 0, 0}}},
        // A quarter of an inch is 63.5 tenths of a millimetre.
        PaperCase{"StripsAreRoundedUp",
                  {600, 600, 5100, 6600, 150, 150, 4800, 6300},
                  {2159, 2794, {64, 64, 64, 64}}},
        PaperCase{"DifferentStrips",
                  {254, 254, 2100, 2970, 30, 40, 2020, 2870},
                  {2100, 2970, {30, 40, 50, 60}}},
        PaperCase{"DifferentResolutions",
                  {254, 508, 1000, 4000, 10, 40, 980, 3920},
                  {1000, 2000, {10, 20, 10, 20}}},
        PaperCase{"MorePrintableThanPaper",
                  {254, 254, 1000, 1000, 0, 0, 1100, 1100},
                  {1000, 1000, {0, 0, 0, 0}}},
        PaperCase{"AbsurdlyLarge",
                  {1, 1, kLargest, kLargest, kLargest, 0, -kLargest, kLargest},
                  {100'000, 100'000, {100'000, 0, 100'000, 0}}},
        PaperCase{"OneDot", {254, 254, 1, 1, 0, 0, 1, 1}, {1, 1, {0, 0, 0, 0}}},
        // 2.54 tenths of a millimetre.
        PaperCase{"NearestTenth", {300, 300, 3, 3, 0, 0, 3, 3}, {3, 3, {0, 0, 0, 0}}},
        PaperCase{"NoResolution", {0, 0, 2480, 3508, 9, 9, 1, 1}, {2100, 2970, {0, 0, 0, 0}}},
        PaperCase{
            "NoResolutionAcross", {0, 300, 2000, 3000, 9, 9, 1, 1}, {2100, 2970, {0, 0, 0, 0}}},
        PaperCase{"NoResolutionDown", {300, 0, 2000, 3000, 9, 9, 1, 1}, {2100, 2970, {0, 0, 0, 0}}},
        PaperCase{"NoWidth", {254, 254, 0, 2970, 0, 0, 0, 2970}, {2100, 2970, {0, 0, 0, 0}}},
        PaperCase{"NoHeight", {254, 254, 2000, 0, 0, 0, 2000, 0}, {2100, 2970, {0, 0, 0, 0}}},
        PaperCase{"NoPaper", {96, 96, 0, 0, 0, 0, 1280, 800}, {2100, 2970, {0, 0, 0, 0}}}),
    CaseName<PaperCase>);

TEST(Paper, KeepsEachMarginOnItsSideWhenItIsTurned) {
  const Paper paper{2100, 2970, {10, 20, 30, 40}};
  EXPECT_EQ(paper.Turned(), (Paper{2970, 2100, {10, 20, 30, 40}}));
  EXPECT_EQ(paper.Inside(), (Rectangle{10, 20, 2060, 2910}));
}

TEST(Paper, HasNothingInsideMarginsThatMeet) {
  EXPECT_EQ((Paper{300, 300, {200, 200, 200, 200}}.Inside()), (Rectangle{200, 200, 0, 0}));
}

const Paper kEdgeless{2100, 2970, {}};
constexpr Margins kUsual{200, 200, 200, 200};

TEST(PaperChoice, IsA4WithTwoCentimetresUntilSomethingElseIsKnown) {
  EXPECT_EQ(PaperChoice().Current(), (Paper{2100, 2970, kUsual}));
}

TEST(PaperChoice, HasDefaultMarginsOnAPrintersPaper) {
  PaperChoice choice;
  choice.SetPrinter({1480, 2100, {}}, {2100, 1480, {}});
  EXPECT_EQ(choice.Current(), (Paper{1480, 2100, kUsual}));
}

TEST(PaperChoice, HasSmallerMarginsOnALabel) {
  PaperChoice choice;
  choice.SetPrinter({600, 300, {}}, {300, 600, {}});
  EXPECT_EQ(choice.Current(), (Paper{600, 300, {50, 50, 50, 50}}));
}

TEST(PaperChoice, NeverHasMarginsBelowTheUnprintableEdgesOfEitherDirection) {
  PaperChoice choice;
  choice.SetPrinter({2100, 2970, {250, 10, 10, 10}}, {2970, 2100, {10, 300, 10, 10}});
  EXPECT_EQ(choice.Current().margins, (Margins{250, 300, 200, 200}));
  choice.Choose({2100, 2970, {0, 310, 0, 5}});
  EXPECT_EQ(choice.Current().margins, (Margins{250, 310, 10, 10}));
}

TEST(PaperChoice, KeepsChosenMarginsOnAnotherPrinter) {
  PaperChoice choice;
  choice.SetPrinter(kEdgeless, kEdgeless.Turned());
  choice.Choose({2100, 2970, {100, 110, 120, 130}});
  choice.SetPrinter({1480, 2100, {}}, {2100, 1480, {}});
  EXPECT_EQ(choice.Current(), (Paper{1480, 2100, {100, 110, 120, 130}}));
  choice.SetUnknownPrinter();
  EXPECT_EQ(choice.Current(), (Paper{2100, 2970, {100, 110, 120, 130}}));
}

TEST(PaperChoice, IsA4AgainOnAPrinterThatDoesNotReportItsPaper) {
  PaperChoice choice;
  choice.SetPrinter({1480, 2100, {90, 90, 90, 90}}, {2100, 1480, {}});
  choice.SetUnknownPrinter();
  EXPECT_EQ(choice.Current(), Paper());
  choice.Choose({2100, 2970, {0, 0, 0, 0}});
  EXPECT_EQ(choice.Current().margins, Margins());
}

TEST(PaperChoice, KeepsItsPaperWithoutAPrinter) {
  PaperChoice choice;
  choice.SetPrinter({1480, 2100, {90, 90, 90, 90}}, {2100, 1480, {}});
  choice.SetNoPrinter();
  EXPECT_EQ(choice.Current(), (Paper{1480, 2100, kUsual}));
  choice.Choose({1480, 2100, {5, 5, 5, 5}});
  EXPECT_EQ(choice.Current().margins, (Margins{5, 5, 5, 5}));
}

}  // namespace
}  // namespace pricedown::testing
