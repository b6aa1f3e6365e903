// Names of the instances of table tests, taken from the rows themselves.
// A row type is a struct with a `name` of letters and digits and its own PrintTo.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace pricedown::testing {

// For INSTANTIATE_TEST_SUITE_P, so that inserting a row renames no other test.
template <typename Case>
std::string CaseName(const ::testing::TestParamInfo<Case>& info) {
  return info.param.name;
}

}  // namespace pricedown::testing
