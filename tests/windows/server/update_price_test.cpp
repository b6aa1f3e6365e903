// Tests of the public class updatePrice, whose one name is an operation and a property.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "tests/control/control_fixture.h"
#include "tests/support/failure.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/library.h"
#include "tests/windows/suite_scope.h"
#include "windows/com/com_object_factory.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::testing {
namespace {

class ThePublicUpdatePrice : public ::testing::Test {
 protected:
  ControlWorld world{Company{.mode = u"1"}};
  const SuiteScope suite{world.factory};
  const Library library;
};

TEST_F(ThePublicUpdatePrice, IsZeroBeforeTheOperation) {
  const auto price = library.NewUpdatePrice();
  EXPECT_EQ(Expression(price.get(), L"ItemClassType"), "S_OK int16 0");
  EXPECT_EQ(world.factory.CallCount(), 0);
}

TEST_F(ThePublicUpdatePrice, IsReadByAStatementAndAnsweredByAnExpression) {
  const auto price = library.NewUpdatePrice();
  EXPECT_EQ(Statement(price.get(), L"itemclasstype"), "S_OK");
  EXPECT_EQ(world.log.Count(ExecuteLine(kModeStatement)), 1U);
  EXPECT_EQ(Expression(price.get(), L"ITEMCLASSTYPE"), "S_OK int16 1");
  EXPECT_EQ(world.log.Count(ExecuteLine(kModeStatement)), 1U);
}

TEST_F(ThePublicUpdatePrice, HasASlotForEachInTheInterface) {
  const auto price = library.Create(CLSID_updatePrice).As<_updatePrice>();
  short type = 9;
  ASSERT_EQ(price->get_ItemClassTypeValue(&type), S_OK);
  EXPECT_EQ(type, 0);
  ASSERT_EQ(price->ItemClassType(), S_OK);
  ASSERT_EQ(price->get_ItemClassTypeValue(&type), S_OK);
  EXPECT_EQ(type, 1);
  EXPECT_EQ(price->get_ItemClassTypeValue(nullptr), E_POINTER);
}

TEST_F(ThePublicUpdatePrice, AnswersLateBoundClientsUnderBothNames) {
  const auto price = library.NewUpdatePrice();
  Statement(price.get(), L"ItemClassType");
  EXPECT_EQ(Expression(price.get(), L"ItemClassTypeValue"), "S_OK int16 1");
}

TEST_F(ThePublicUpdatePrice, RefusesAnotherThreadOnBothInterfaces) {
  const auto early = library.Create(CLSID_updatePrice).As<_updatePrice>();
  std::vector<HRESULT> codes;
  std::thread([&] {
    DISPPARAMS none{};
    short type = 0;
    codes.push_back(early->Invoke(1, IID{}, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr));
    codes.push_back(early->ItemClassType());
    codes.push_back(early->get_ItemClassTypeValue(&type));
  }).join();
  EXPECT_EQ(codes, std::vector<HRESULT>(3, RPC_E_WRONG_THREAD));
  EXPECT_EQ(world.factory.CallCount(), 0);
}

TEST_F(ThePublicUpdatePrice, IsNotPut) {
  const auto price = library.NewUpdatePrice();
  EXPECT_EQ(Assignment(price.get(), L"ItemClassType", Number(1)), "80020003");
  EXPECT_EQ(Statement(price.get(), L"ItemClassType", {Number(1)}).substr(0, 8), "8002000E");
}

TEST_F(ThePublicUpdatePrice, KeepsZeroWithoutASetting) {
  world.factory.FailCall(1);
  const auto price = library.NewUpdatePrice();
  EXPECT_EQ(Statement(price.get(), L"ItemClassType"), "S_OK");
  EXPECT_EQ(Expression(price.get(), L"ItemClassType"), "S_OK int16 0");
}

TEST_F(ThePublicUpdatePrice, IsMadeByItsProgIdWithNothingRegistered) {
  windows::ComObjectFactory factory;
  const ObjectPtr price = factory.Create(u"ZEPPriceDownPrepare.updatePrice");
  EXPECT_EQ(price->Get(u"ItemClassType"), Value(static_cast<std::int16_t>(0)));
}

TEST(CreatingByProgId, NamesAnUnknownProgId) {
  windows::ComObjectFactory factory;
  EXPECT_EQ(FailureOf([&] { factory.Create(u"ZEPNowhere.Nothing"); }).substr(0, 8), "800A01AD");
  EXPECT_NE(FailureOf([&] { factory.Create(u"ZEPNowhere.Nothing"); }).find("ZEPNowhere.Nothing"),
            std::string::npos);
}

}  // namespace
}  // namespace pricedown::testing
