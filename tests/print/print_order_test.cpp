// The order of the sheets of a job.
#include "print/print_order.h"

#include <gtest/gtest.h>

#include <string>

namespace pricedown::testing {
namespace {

std::string Sheets(const PrintChoice& choice, std::int32_t pageCount) {
  const PrintOrder order(choice, pageCount);
  std::string pages;
  for (std::int64_t sheet = 0; sheet < order.SheetCount(); ++sheet) {
    pages += std::to_string(order.PageOn(sheet)) + " ";
  }
  return pages;
}

TEST(PrintOrder, CollatesCopiesOrRepeatsEachPage) {
  EXPECT_EQ(Sheets({1, 9, 1, true}, 3), "1 2 3 ");
  EXPECT_EQ(Sheets({2, 3, 2, true}, 3), "2 3 2 3 ");
  EXPECT_EQ(Sheets({2, 3, 2, false}, 3), "2 2 3 3 ");
}

TEST(PrintOrder, LeavesOutPagesThatDoNotExist) {
  EXPECT_EQ(Sheets({0, 2, 1, true}, 3), "1 2 ");
  EXPECT_EQ(Sheets({4, 9, 2, true}, 3), "");
}

TEST(PrintOrder, AcceptsTheEndsOfTheRangeInEitherOrder) {
  EXPECT_EQ(Sheets({3, 2, 1, true}, 9), "2 3 ");
  EXPECT_EQ(Sheets({9, 2, 1, true}, 3), "2 3 ");
}

TEST(PrintOrder, MakesOneCopyAtLeast) { EXPECT_EQ(Sheets({1, 1, 0, true}, 3), "1 "); }

TEST(PrintOrder, IncludesAllPagesByDefault) { EXPECT_EQ(Sheets({}, 3), "1 2 3 "); }

}  // namespace
}  // namespace pricedown::testing
