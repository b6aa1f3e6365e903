// Tests of the core's exception.
#include "platform/error.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

TEST(AutomationError, CarriesNumberDescriptionAndSource) {
  const AutomationError error(ErrorNumber::ObjectNotSet, u"未设置对象", u"ZEPEBCGLView.GLView");
  EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x800A005B));
  EXPECT_EQ(Utf8(error.Description()), "未设置对象");
  EXPECT_EQ(Utf8(error.Source()), "ZEPEBCGLView.GLView");
}

TEST(AutomationError, KeepsForeignErrorNumbers) {
  const AutomationError error(-2147217900, u"");
  EXPECT_EQ(error.Number(), -2147217900);
  EXPECT_TRUE(error.Source().empty());
}

TEST(AutomationError, ReturnsItsDescriptionInUtf8) {
  try {
    throw AutomationError(ErrorNumber::Unspecified, u"语法错误 \U0001F4A5");
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "语法错误 \xF0\x9F\x92\xA5");
  }
}

TEST(AutomationError, HasTheNumbersThatAutomationReports) {
  // From the platform's documentation, independent of the header.
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::Unspecified), -2147467259);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::NotImplemented), -2147467263);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::OutOfMemory), -2147024882);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::InvalidArgument), -2147024809);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::UnknownName), -2147352570);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::MemberNotFound), -2147352573);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::BadParameterCount), -2147352562);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::TypeMismatch), -2147352571);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::Overflow), -2147352566);
  // The low words are the classic numbers 91, 429, 3021, 3265 and 3704.
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::ObjectNotSet) & 0xFFFF, 91);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::CannotCreateObject) & 0xFFFF, 429);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::NoCurrentRecord) & 0xFFFF, 3021);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::ItemNotFound) & 0xFFFF, 3265);
  EXPECT_EQ(static_cast<std::int32_t>(ErrorNumber::ObjectClosed) & 0xFFFF, 3704);
}

TEST(AutomationError, MovesWithoutThrowing) {
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<AutomationError>);
}

}  // namespace
}  // namespace pricedown::testing
