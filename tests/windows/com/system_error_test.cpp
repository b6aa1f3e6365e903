// The texts of codes that the system reports.
#include "windows/com/system_error.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

TEST(SystemText, NamesTheNumberOfACodeThatHasNoText) {
  for (const auto& [code, number] : {std::pair{0x89ABCDEF, "0x89ABCDEF"},
                                     {0x80123456, "0x80123456"},
                                     {0x87654321, "0x87654321"}}) {
    EXPECT_EQ(Utf8(windows::SystemText(static_cast<HRESULT>(code))),
              std::string("未知错误 (") + number + ")");
  }
}

}  // namespace
}  // namespace pricedown::testing
