// The DLL's own parts of the runtime, and the runtime's as the DLL uses it.
#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

#include "platform/convert.h"
#include "platform/failure.h"
#include "tests/support/utf8.h"
// They take the place of the runtime's in this program, too.
#include "windows/server/dll/runtime.cpp"

namespace pricedown::testing {
namespace {

template <typename Body>
std::string TextOfFailure(Body body) {
  try {
    body();
  } catch (...) {
    const Failure failure = CurrentFailure();
    return Utf8(failure.description) + ": " + Utf8(failure.source);
  }
  return "no failure";
}

TEST(Runtime, SaysThatMemoryIsShortForMoreElementsThanAnyHolds) {
  std::vector<double> numbers;
  EXPECT_EQ(TextOfFailure([&] { numbers.reserve(numbers.max_size() + 1); }), "内存不足: ");
  EXPECT_EQ(TextOfFailure([] { std::string().resize(std::string().max_size() + 1); }),
            "内存不足: ");
}

TEST(Runtime, KeepsWhatAContainerSaysOfAWrongArgument) {
  EXPECT_EQ(TextOfFailure([] { (void)std::string("a").substr(2); }),
            "意外错误: %s: __pos (which is %zu) > this->size() (which is %zu)");
}

TEST(Runtime, ReadsAndWritesNumbersWhateverTheHostsDecimalSeparator) {
  ASSERT_NE(std::setlocale(LC_NUMERIC, "German"), nullptr);
  const char separator = *std::localeconv()->decimal_point;
  const double read = LeadingNumber(u"12.5");
  const std::u16string written = NumberText(1.0 / 3);
  std::setlocale(LC_NUMERIC, "C");
  EXPECT_EQ(separator, ',');
  EXPECT_EQ(read, 12.5);
  EXPECT_EQ(Utf8(written), "0.333333333333333");
}

}  // namespace
}  // namespace pricedown::testing
