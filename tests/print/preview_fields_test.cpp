// The texts of the preview's fields, and the numbers typed in them.
#include "print/preview_fields.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

TEST(PreviewFields, ShowPageCountAndZoom) {
  EXPECT_EQ(Utf8(PageCountText(15)), "共 15 页");
  EXPECT_EQ(Utf8(ZoomText(66.6)), "67%");
  EXPECT_EQ(Utf8(ZoomText(500)), "500%");
}

TEST(PreviewFields, OfferFittingAndTheListedSizes) {
  std::string choices;
  for (const std::u16string& choice : ZoomChoices()) choices += Utf8(choice) + " ";
  EXPECT_EQ(choices, "整页 页宽 25% 50% 75% 100% 125% 150% 200% 300% 400% 500% ");
  EXPECT_EQ(ZoomCommandOf(0), PreviewCommand::FitPage);
  EXPECT_EQ(ZoomCommandOf(1), PreviewCommand::FitWidth);
  EXPECT_EQ(ZoomCommandOf(2), std::nullopt);
}

TEST(PreviewFields, ReadAPageNumberInDigitsOfEitherWidth) {
  EXPECT_EQ(TypedPage(u"3"), 3);
  EXPECT_EQ(TypedPage(u" ２ "), 2);
  EXPECT_EQ(TypedPage(u"0"), 0);
  EXPECT_EQ(TypedPage(u"007"), 7);
}

TEST(PreviewFields, CapANumberThatIsTooLarge) {
  EXPECT_EQ(TypedPage(u"99999999999999999999"), 10'000'000);
}

TEST(PreviewFields, ReadNothingElseAsAPageNumber) {
  for (const char16_t* typed :
       {u"", u"  ", u"第三页", u"-2", u"2.5", u"1 2", u"0x3", u"5%", u"5:", u"５："}) {
    EXPECT_EQ(TypedPage(typed), std::nullopt) << Utf8(typed);
  }
}

TEST(PreviewFields, ReadAPercentageWithOrWithoutItsSign) {
  EXPECT_EQ(TypedPercent(u"80"), 80);
  EXPECT_EQ(TypedPercent(u"80 %"), 80);
  EXPECT_EQ(TypedPercent(u"９０％"), 90);
  for (const char16_t* typed : {u"", u"%", u"0", u"0%", u"大", u"5%%", u"-5"}) {
    EXPECT_EQ(TypedPercent(typed), std::nullopt) << Utf8(typed);
  }
}

TEST(PreviewFields, SayHowFarAJobIs) {
  EXPECT_EQ(Utf8(PrintProgressText(21, 3'000'000'000)), "正在打印第 21 页，共 3000000000 页…");
}

}  // namespace
}  // namespace pricedown::testing
