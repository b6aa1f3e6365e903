// The hourglass, restored on every path. The pointer is a line of the log.
#include "env/wait_cursor.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/env/recording_screen.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

class WaitCursorTest : public ::testing::Test {
 protected:
  int LeaveEarly(bool early) {
    WaitCursor wait(screen);
    if (early) return 1;
    log.Add("work");
    return 2;
  }

  CallLog log;
  RecordingScreen screen{std::make_shared<Recorder>(log)};
};

TEST_F(WaitCursorTest, ShowsTheHourglassForItsLifetime) {
  EXPECT_EQ(LeaveEarly(false), 2);
  EXPECT_EQ(log.Text(), Lines(R"(
      screen pointer 11
      work
      screen pointer 0
      )"));
}

TEST_F(WaitCursorTest, RestoresThePointerOnAnEarlyReturn) {
  EXPECT_EQ(LeaveEarly(true), 1);
  EXPECT_EQ(log.Text(), Lines(R"(
      screen pointer 11
      screen pointer 0
      )"));
}

TEST_F(WaitCursorTest, RestoresThePointerWhenAnErrorIsThrown) {
  EXPECT_THROW(
      {
        WaitCursor wait(screen);
        throw std::runtime_error("lost");
      },
      std::runtime_error);
  EXPECT_EQ(log.Text(), Lines(R"(
      screen pointer 11
      screen pointer 0
      )"));
}

TEST_F(WaitCursorTest, DoesNotNest) {
  WaitCursor outer(screen);
  { WaitCursor inner(screen); }
  EXPECT_EQ(log.Text(), Lines(R"(
      screen pointer 11
      screen pointer 11
      screen pointer 0
      )"));
}

}  // namespace
}  // namespace pricedown
