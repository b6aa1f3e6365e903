// Tests of AtBoundary, which no exception crosses.
#include "windows/com/boundary.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/error.h"
#include "tests/windows/raw_call.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

using windows::AtBoundary;

TEST(Boundary, ReturnsTheBodysCode) {
  EXPECT_EQ(AtBoundary([] { return S_FALSE; }), S_FALSE);
  EXPECT_EQ(AtBoundary([] {}), S_OK);
}

TEST(Boundary, ConvertsTheCoresErrorIntoNumberAndDescription) {
  EXPECT_EQ(Hexadecimal(
                AtBoundary([] { throw AutomationError(ErrorNumber::Overflow, u"溢出", u"来源"); })),
            "8002000A");
  EXPECT_EQ(ConsumeErrorInfo(), "来源: 溢出");
}

TEST(Boundary, NeverReturnsSuccessForAnException) {
  EXPECT_EQ(AtBoundary([] { throw AutomationError(0, u"zero"); }), E_FAIL);
  EXPECT_EQ(AtBoundary([] { throw AutomationError(5, u"positive"); }), E_FAIL);
}

TEST(Boundary, KnowsTheStandardExceptions) {
  EXPECT_EQ(AtBoundary([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_EQ(ConsumeErrorInfo(), ": 内存不足");
  EXPECT_EQ(AtBoundary([] { throw std::runtime_error("甲"); }), E_FAIL);
  EXPECT_EQ(ConsumeErrorInfo(), "甲: 意外错误");
}

TEST(Boundary, CatchesEverythingElse) {
  EXPECT_EQ(AtBoundary([] { throw 5; }), E_UNEXPECTED);
  EXPECT_EQ(ConsumeErrorInfo(), ": 意外错误");
}

TEST(Boundary, LeavesNoStaleDescriptionWithAnotherCode) {
  windows::PublishFailure({E_FAIL, u"earlier", u""}, IID{});
  EXPECT_EQ(AtBoundary([] { return E_NOTIMPL; }), E_NOTIMPL);
  EXPECT_EQ(ConsumeErrorInfo(), "");
}

TEST(WideText, IsTheSameCodeUnits) {
  const std::u16string text = {u'物', 0, 0xD800, 0xFFFF};
  EXPECT_EQ(windows::FromWide(windows::ToWide(text)), text);
  EXPECT_EQ(windows::ToWide(text).size(), 4U);
}

}  // namespace
}  // namespace pricedown::testing
