// Tab and F6 between the parts, and the keys that each part keeps from the host.
#include "control/focus.h"

#include <gtest/gtest.h>

#include <array>

namespace pricedown::testing {
namespace {

constexpr std::array<bool, 3> kAllOpen{true, true, true};
constexpr std::array<bool, 3> kLastClosed{true, true, false};

TEST(FocusOrder, GoesFromStopToStopAndOut) {
  EXPECT_EQ(NextStop(kAllOpen, std::nullopt, false, false), 0u);
  EXPECT_EQ(NextStop(kAllOpen, 0, false, false), 1u);
  EXPECT_EQ(NextStop(kAllOpen, 2, false, false), std::nullopt);
  EXPECT_EQ(NextStop(kAllOpen, std::nullopt, true, false), 2u);
  EXPECT_EQ(NextStop(kAllOpen, 1, true, false), 0u);
  EXPECT_EQ(NextStop(kAllOpen, 0, true, false), std::nullopt);
}

TEST(FocusOrder, WrapsAroundWhereTheHostAcceptsNoKeys) {
  EXPECT_EQ(NextStop(kAllOpen, 2, false, true), 0u);
  EXPECT_EQ(NextStop(kAllOpen, 0, true, true), 2u);
}

TEST(FocusOrder, SkipsClosedStops) {
  EXPECT_EQ(NextStop(kLastClosed, 1, false, false), std::nullopt);
  EXPECT_EQ(NextStop(kLastClosed, 1, false, true), 0u);
  EXPECT_EQ(NextStop(kLastClosed, 0, true, true), 1u);
  EXPECT_EQ(NextStop(kLastClosed, std::nullopt, true, false), 1u);
  constexpr std::array<bool, 3> none{};
  EXPECT_EQ(NextStop(none, 1, false, true), std::nullopt);
}

struct KeptKey {
  KeyPress press;
  bool tree, grid, editor, strip, splitter;
};

TEST(KeptKeys, AreThoseThatThePartNeeds) {
  for (const KeptKey& kept :
       {KeptKey{{Key::Down}, true, true, true, true, true},
        {{.key = Key::Home, .control = true}, true, true, true, true, true},
        {{Key::Enter}, false, false, true, true, true},
        {{Key::Space}, false, false, false, true, false},
        {{Key::Escape}, false, false, true, false, true},
        {{Key::F5}, false, false, true, false, false},
        {{.key = Key::F5, .shift = true}, false, false, false, false, false},
        {{Key::Delete}, false, false, true, false, false},
        {{.key = Key::Insert, .control = true}, false, false, true, false, false},
        {{.key = Key::A, .control = true}, false, true, true, false, false},
        {{.key = Key::V, .control = true}, false, false, true, false, false},
        {{Key::A}, false, false, false, false, false},
        {{Key::F4}, false, false, false, false, false}}) {
    SCOPED_TRACE(static_cast<int>(kept.press.key));
    EXPECT_EQ(KeepsKey(FocusPlace::Tree, kept.press), kept.tree);
    EXPECT_EQ(KeepsKey(FocusPlace::Grid, kept.press), kept.grid);
    EXPECT_EQ(KeepsKey(FocusPlace::CellEditor, kept.press), kept.editor);
    EXPECT_EQ(KeepsKey(FocusPlace::ToolStrip, kept.press), kept.strip);
    EXPECT_EQ(KeepsKey(FocusPlace::Splitter, kept.press), kept.splitter);
    EXPECT_EQ(KeepsKey(FocusPlace::Other, kept.press), kept.tree);
  }
}

TEST(KeptKeys, OfTheFindBarAreThoseOfAFieldAndItsOwn) {
  for (const KeyPress& press : {KeyPress{Key::Enter},
                                {.key = Key::Enter, .shift = true},
                                {Key::Escape},
                                {Key::F3},
                                {Key::Delete},
                                {Key::Insert},
                                {Key::Home},
                                {.key = Key::A, .control = true},
                                {.key = Key::F, .control = true},
                                {.key = Key::V, .control = true}}) {
    EXPECT_TRUE(KeepsKey(FocusPlace::FindField, press)) << static_cast<int>(press.key);
  }
  for (const KeyPress& press :
       {KeyPress{Key::F5}, {.key = Key::P, .control = true}, {Key::A}, {Key::F2}}) {
    EXPECT_FALSE(KeepsKey(FocusPlace::FindField, press)) << static_cast<int>(press.key);
  }
}

}  // namespace
}  // namespace pricedown::testing
