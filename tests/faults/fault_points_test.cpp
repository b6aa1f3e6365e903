// What must hold when any call fails during any operation: see README.md.
#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <new>
#include <sstream>

#include "platform/error.h"
#include "tests/control/button.h"
#include "tests/faults/allocations.h"
#include "tests/faults/operations.h"
#include "tests/support/number_from_environment.h"

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::testing::AllocationCount;
using pricedown::testing::FailAllocation;

// One kind of thing that can fail.
struct Kind {
  const char* name;
  void (*fail)(FaultWorld& world, int n);  // 0: none; also begins to count
  int (*count)(FaultWorld& world);
  // Samples that many points, because every run costs a whole operation; PRICEDOWN_FAULT_POINTS in
  // the environment sets a larger number.
  int most;
};

int counted = 0;

const Kind kKinds[] = {
    {"suite calls",
     [](FaultWorld& world, int n) {
       counted = world.recorder->CallCount();
       world.recorder->FailCall(n);
     },
     [](FaultWorld& world) { return world.recorder->CallCount() - counted; }, 1'000},
    {"calls to windows, user and print output",
     [](FaultWorld& world, int n) {
       counted = world.windows->CallCount();
       world.windows->FailCall(n);
     },
     [](FaultWorld& world) { return world.windows->CallCount() - counted; }, 1'000},
    {"allocations", [](FaultWorld&, int n) { FailAllocation(n); },
     [](FaultWorld&) { return AllocationCount(); }, 120},
};

class FaultPoints : public ::testing::TestWithParam<Operation> {
 protected:
  // Runs the operation once; returns how many points of the kind it passed.
  int RunOnce(const Kind& kind, int failing) {
    FaultWorld& world = world_;
    const Operation& operation = GetParam();
    world.ResetCompany();
    if (operation.prepare) operation.prepare(world);
    world.OpenControl();
    world.Select(u"A1");
    const std::string before = world.Rows();

    kind.fail(world, failing);
    try {
      operation.run(world);
    } catch (const AutomationError&) {
    } catch (const std::bad_alloc&) {
    }
    const int count = kind.count(world);
    kind.fail(world, 0);

    const std::string rows = world.Rows();
    if (failing == 0) {
      after_ = rows;
    } else {
      EXPECT_TRUE(rows == before || rows == after_ ||
                  std::count(operation.halfway.begin(), operation.halfway.end(), rows) == 1 ||
                  (operation.copiesRows && HasOnlyRowsOf(before + after_, rows)))
          << rows;
    }
    StillWorks(world);
    return count;
  }

  static bool HasOnlyRowsOf(const std::string& allowed, const std::string& rows) {
    std::istringstream lines(rows);
    for (std::string line; std::getline(lines, line);) {
      if (("\n" + allowed).find("\n" + line + "\n") == std::string::npos) return false;
    }
    return true;
  }

  // A control that was created and has not ended.
  static void StillPrints(FaultWorld& world) {
    const std::string operation = GetParam().name;
    world.paper->onPreview = {};
    world.paper->pageCount = 0;
    world.control->PrintPara();
    if (operation != "Start" && operation != "End") {
      EXPECT_EQ(world.paper->pageCount, 1) << "nothing is printed";
    }
  }

  static void StillWorks(FaultWorld& world) {
    world.questions.ForgetAnswers();
    world.editor.whileShown = {};
    EXPECT_FALSE(world.editor.Shown().IsLoaded());
    StillPrints(world);
    world.control->CommandChosen(pricedown::testing::Button(u"sp2"));
    world.control->Terminate();
    world.control.reset();
    world.state = {};
    EXPECT_EQ(world.recorder->LiveObjects(), 0) << "objects of the suite are left";
  }

  static void TearDownTestSuite() { std::cout << "    " << covered_ << " fault points in all\n"; }

  FaultWorld world_;
  std::string after_;
  static inline int covered_ = 0;
};

TEST_P(FaultPoints, LeaveNothingBroken) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    const int count = RunOnce(kind, 0);
    const int most = pricedown::testing::NumberFromEnvironment("PRICEDOWN_FAULT_POINTS", kind.most);
    const int step = std::max(1, (count + most - 1) / most);
    int covered = 0;
    for (int point = 1; point <= count; point += step) {
      SCOPED_TRACE("number " + std::to_string(point) + " of " + std::to_string(count));
      RunOnce(kind, point);
      ++covered;
    }
    covered_ += covered;
    std::cout << "    " << covered << " of " << count << " " << kind.name << "\n";
  }
}

INSTANTIATE_TEST_SUITE_P(Operations, FaultPoints, ::testing::ValuesIn(Operations()),
                         [](const auto& test) { return test.param.name; });

// Two failures at once: no memory to keep the message.
TEST(PrintFailure, ThatCannotBeCopiedLeavesPrintingAlive) {
  FaultWorld world;
  world.ResetCompany();
  world.OpenControl();
  world.Select(u"A1");
  const auto failure = std::make_exception_ptr(
      AutomationError(pricedown::ErrorNumber::Unspecified, std::u16string(200, u'纸')));
  world.paper->onPreview = [&](pricedown::PrintDocument&) {
    FailAllocation(1);
    std::rethrow_exception(failure);
  };
  EXPECT_NO_THROW(world.control->PreviewPara());
  FailAllocation(0);
  EXPECT_EQ(world.log.Lines().back(), "message information \"岚禾提示\": \"内存不足\"");
  world.paper->pageCount = 0;
  world.control->PrintPara();
  EXPECT_EQ(world.paper->pageCount, 1);
  world.control->Terminate();
}

}  // namespace
}  // namespace workbench
