// The look of the tree's nodes.
#include "browser/node_look.h"

#include <gtest/gtest.h>

namespace pricedown::testing {
namespace {

constexpr NodeIndex kNode = 4;
constexpr NodeIndex kOther = 5;

TEST(NodeLook, MarksTheSelectedNodeOnlyWithoutTheFocus) {
  EXPECT_EQ(LookOf(kNode, {.selected = kNode, .focused = false}), NodeLook::Current);
  EXPECT_EQ(LookOf(kNode, {.selected = kNode, .focused = true}), NodeLook::Plain);
  EXPECT_EQ(LookOf(kOther, {.selected = kNode, .focused = false}), NodeLook::Plain);
}

TEST(NodeLook, MarksTheNodeClickedLastWhileNoneIsSelected) {
  for (const bool focused : {false, true}) {
    EXPECT_EQ(LookOf(kNode, {.marked = kNode, .focused = focused}), NodeLook::Current);
    EXPECT_EQ(LookOf(kOther, {.marked = kNode, .focused = focused}), NodeLook::Plain);
    EXPECT_EQ(LookOf(kNode, {.selected = kOther, .marked = kNode, .focused = focused}),
              NodeLook::Plain);
  }
}

TEST(NodeLook, ShowsTheFoundNodeBeforeAllElse) {
  EXPECT_EQ(LookOf(kNode, {.selected = kNode, .found = kNode}), NodeLook::Found);
  EXPECT_EQ(LookOf(kNode, {.marked = kNode, .found = kNode}), NodeLook::Found);
  EXPECT_EQ(LookOf(kOther, {.selected = kOther, .found = kNode}), NodeLook::Current);
}

}  // namespace
}  // namespace pricedown::testing
