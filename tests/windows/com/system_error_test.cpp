// The texts of the system's codes, and the exceptions made from codes.
#include "windows/com/system_error.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

#include "tests/support/failure.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

TEST(SystemText, NamesTheNumberWhereTheSystemHasNoText) {
  for (const auto& [code, number] : {std::pair{0x89ABCDEF, "0x89ABCDEF"},
                                     {0x80123456, "0x80123456"},
                                     {0xA7654321, "0xA7654321"}}) {
    EXPECT_EQ(Utf8(windows::SystemText(static_cast<HRESULT>(code))),
              std::string("未知错误 (") + number + ")");
  }
}

std::int32_t NumberOfLastError(DWORD error) {
  return ErrorOf([error] {
           SetLastError(error);
           windows::ThrowLastError();
         })
      .value_or(0);
}

TEST(LastError, IsThrownWithItsCodeOrAsAFailureWithoutOne) {
  EXPECT_EQ(NumberOfLastError(ERROR_ACCESS_DENIED), E_ACCESSDENIED);
  EXPECT_EQ(NumberOfLastError(ERROR_SUCCESS), E_FAIL);
}

}  // namespace
}  // namespace pricedown::testing
