// Controls on two threads, each in an apartment of its own, and what the module keeps for a thread.
#include <gtest/gtest.h>
#include <ole2.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "tests/windows/support/run_messages.h"
#include "windows/server/module.h"

namespace pricedown::testing {
namespace {

// The rights object, which belongs to the thread that created it.
constexpr const char* kCreated = "create ZEPEBCGLView.GLData";
constexpr const char* kReleased = "release ZEPEBCGLView.GLData";

std::string ShowWithoutParent(IDispatch* control) {
  return Expression(control, L"Show", {ObjectOf(nullptr)});
}

// Runs it in another apartment, while this thread handles its messages as a host's does.
void RunOnAnotherThread(const std::function<void()>& body) {
  std::atomic<bool> ended = false;
  std::thread thread([&] {
    EXPECT_EQ(OleInitialize(nullptr), S_OK);
    body();
    OleUninitialize();
    ended = true;
  });
  while (!ended) {
    RunMessages();
    Sleep(1);
  }
  thread.join();
}

TEST(TwoThreads, ShareNoObjectOfTheSuite) {
  ControlHost host;
  host.Open();
  const CallLog& log = host.world.log;
  ASSERT_EQ(log.Count(kCreated), 1u);
  RunOnAnotherThread([&] {
    // The suite of this thread.
    const SuiteScope suite(host.world.factory);
    {
      const auto control = host.library.NewPriceDown();
      EXPECT_EQ(ShowWithoutParent(control.get()), "S_OK True");
      EXPECT_EQ(log.Count(kCreated), 2u);
      const auto second = host.library.NewPriceDown();
      EXPECT_EQ(ShowWithoutParent(second.get()), "S_OK True");
      EXPECT_EQ(log.Count(kCreated), 2u);
      EXPECT_EQ(log.Count(kReleased), 0u);
    }
    // With the last control of its thread.
    EXPECT_EQ(log.Count(kReleased), 1u);
  });
  const SuiteScope suite(host.world.factory);
  host.Release();
  EXPECT_EQ(log.Count(kReleased), 2u);
}

// The system gives the ids of ended threads to new ones.
TEST(TwoThreads, OfOneIdShareNothing) {
  windows::Module shared;
  windows::ThreadEntry& ended = shared.ThisThread();
  ended.state.dataScope = 2;
  EXPECT_EQ(&shared.ThisThread(), &ended);
  // As an earlier thread with the id of this one.
  ended.begun = {};
  windows::ThreadEntry& own = shared.ThisThread();
  EXPECT_NE(&own, &ended);
  EXPECT_EQ(own.state.dataScope, 0);
  EXPECT_EQ(&shared.ThisThread(), &own);
  EXPECT_EQ(ended.state.dataScope, 2) << "for a control that was left behind";
}

}  // namespace
}  // namespace pricedown::testing
