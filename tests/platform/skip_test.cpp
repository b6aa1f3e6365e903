// Tests of SkipFailing.
#include "platform/skip.h"

#include <gtest/gtest.h>

#include "platform/error.h"

namespace pricedown::testing {
namespace {

TEST(SkipFailing, RunsAStepThatSucceeds) {
  int steps = 0;
  EXPECT_TRUE(SkipFailing([&] { ++steps; }));
  EXPECT_EQ(steps, 1);
}

TEST(SkipFailing, ContinuesAfterAStepThatFails) {
  int steps = 0;
  const bool done = SkipFailing([&] {
    ++steps;
    if (steps > 0) throw AutomationError(ErrorNumber::Unspecified, u"失败");
    ++steps;
  });
  EXPECT_FALSE(done);
  EXPECT_EQ(steps, 1);
}

}  // namespace
}  // namespace pricedown::testing
