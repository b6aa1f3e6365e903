// Tests of the shared state that a control or form has ended.
#include "platform/lifetime.h"

#include <gtest/gtest.h>

#include <optional>

namespace pricedown::testing {
namespace {

TEST(Lifetime, EndsForEveryCopyAndOnce) {
  Lifetime control;
  const Lifetime part = control;
  EXPECT_FALSE(part.HasEnded());
  EXPECT_TRUE(control.End());
  EXPECT_TRUE(part.HasEnded());
  EXPECT_FALSE(control.End());
}

TEST(Lifetime, OutlivesTheOneThatEndedIt) {
  std::optional<Lifetime> control(std::in_place);
  const Lifetime part = *control;
  control->End();
  control.reset();
  EXPECT_TRUE(part.HasEnded());
  EXPECT_FALSE(Lifetime().HasEnded());
}

}  // namespace
}  // namespace pricedown::testing
