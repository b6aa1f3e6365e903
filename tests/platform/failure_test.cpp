// Tests of the exception being handled as number, description and source.
#include "platform/failure.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "platform/error.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

Failure Handled(const std::function<void()>& body) {
  try {
    body();
  } catch (...) {
    return CurrentFailure();
  }
  return {};
}

std::int32_t Code(ErrorNumber number) { return static_cast<std::int32_t>(number); }

TEST(CurrentFailure, IsTheCoresErrorWithItsSource) {
  const Failure failure =
      Handled([] { throw AutomationError(ErrorNumber::Overflow, u"溢出", u"来源"); });
  EXPECT_EQ(failure.code, Code(ErrorNumber::Overflow));
  EXPECT_EQ(Utf8(failure.description), "溢出");
  EXPECT_EQ(Utf8(failure.source), "来源");
}

TEST(CurrentFailure, IsAFailureAlsoForANumberThatSaysSuccess) {
  for (const std::int32_t number : {0, 5}) {
    const Failure failure = Handled([&] { throw AutomationError(number, u"odd"); });
    EXPECT_EQ(failure.code, Code(ErrorNumber::Unspecified)) << number;
  }
}

TEST(CurrentFailure, SaysInChineseThatMemoryIsShort) {
  const Failure failure = Handled([] { throw std::bad_alloc(); });
  EXPECT_EQ(failure.code, Code(ErrorNumber::OutOfMemory));
  EXPECT_EQ(Utf8(failure.description), "内存不足");
  EXPECT_EQ(Utf8(failure.source), "");
}

TEST(CurrentFailure, KeepsAStandardExceptionsTextOutOfTheDescription) {
  const Failure failure = Handled([] { throw std::runtime_error("out of handles"); });
  EXPECT_EQ(failure.code, Code(ErrorNumber::Unspecified));
  EXPECT_EQ(Utf8(failure.description), "意外错误");
  EXPECT_EQ(Utf8(failure.source), "out of handles");
}

TEST(CurrentFailure, KnowsForeignExceptions) {
  const Failure failure = Handled([] { throw 5; });
  EXPECT_EQ(failure.code, Code(ErrorNumber::Unexpected));
  EXPECT_EQ(Utf8(failure.description), "意外错误");
}

}  // namespace
}  // namespace pricedown::testing
