// The fonts that are requested from the system.
#include "windows/base/fonts.h"

#include <gtest/gtest.h>

#include <ostream>

namespace pricedown::testing {
namespace {

struct CharsetCase {
  const char* name;
  std::u16string_view font;
  std::int32_t charset;
  int expected;
};
void PrintTo(const CharsetCase& given, std::ostream* out) { *out << given.name; }

class CharacterSet : public ::testing::TestWithParam<CharsetCase> {};

TEST_P(CharacterSet, FollowsFromTheNameOnlyWhenUnset) {
  Font font;
  font.name = GetParam().font;
  font.charset = GetParam().charset;
  EXPECT_EQ(windows::DescribeFont(font, 96).lfCharSet, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Fonts, CharacterSet,
    ::testing::Values(CharsetCase{"ChineseNameAlone", u"宋体", kAnyCharset, GB2312_CHARSET},
                      CharsetCase{"LatinNameAlone", u"Tahoma", kAnyCharset, DEFAULT_CHARSET},
                      CharsetCase{"ChineseNameWithTheDefaultSet", u"新細明體", 1, DEFAULT_CHARSET},
                      CharsetCase{"LatinNameWithTheDefaultSet", u"Tahoma", 1, DEFAULT_CHARSET},
                      CharsetCase{"ChineseNameWithItsSet", u"宋体", 134, GB2312_CHARSET},
                      CharsetCase{"LatinNameWithASet", u"Tahoma", 134, GB2312_CHARSET},
                      CharsetCase{"ChineseNameWithAnotherSet", u"新細明體", 136,
                                  CHINESEBIG5_CHARSET},
                      CharsetCase{"LatinNameWithAnotherSet", u"Tahoma", 136, CHINESEBIG5_CHARSET}),
    ::testing::PrintToStringParamName());

}  // namespace
}  // namespace pricedown::testing
