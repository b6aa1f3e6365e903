// Tests of the DLL's class objects and of unloading it.
#include <gtest/gtest.h>
#include <ole2.h>

#include "tests/windows/conformance/process_resources.h"
#include "tests/windows/server/library.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

TEST(ClassObjects, ExistForBothClasses) {
  const Library library;
  EXPECT_TRUE(library.ClassObject(CLSID_PriceDown));
  EXPECT_TRUE(library.ClassObject(CLSID_updatePrice));
}

TEST(ClassObjects, DoNotExistForOtherClasses) {
  const Library library;
  void* result = &result;
  EXPECT_EQ(library.GetClassObject(GUID{}, IID_IClassFactory, &result), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(library.GetClassObject(CLSID_PriceDown, IID_IClassFactory, nullptr), E_POINTER);
  EXPECT_EQ(library.GetClassObject(CLSID_PriceDown, IID_IDispatch, &result), E_NOINTERFACE);
}

TEST(ClassObjects, MakeObjectsOfTheirInterfaces) {
  const Library library;
  const auto control = library.Create(CLSID_PriceDown);
  ASSERT_TRUE(control);
  EXPECT_TRUE(control.As<_PriceDown>());
  EXPECT_TRUE(control.As<IOleObject>());
  EXPECT_FALSE(control.As<_updatePrice>());
  const auto price = library.Create(CLSID_updatePrice);
  ASSERT_TRUE(price);
  EXPECT_TRUE(price.As<_updatePrice>());
  EXPECT_FALSE(price.As<IOleObject>());
}

TEST(ClassObjects, RefuseAggregation) {
  const Library library;
  const auto factory = library.ClassObject(CLSID_PriceDown);
  void* result = &result;
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &result), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

TEST(ClassObjects, LeaveNothingBehindForAnUnknownInterface) {
  const Library library;
  void* result = &result;
  EXPECT_EQ(library.ClassObject(CLSID_PriceDown)->CreateInstance(nullptr, IID_IStorage, &result),
            E_NOINTERFACE);
  EXPECT_EQ(result, nullptr);
  EXPECT_TRUE(library.CanUnload());
}

TEST(Unloading, IsPossibleWithoutLiveObjects) {
  const Library library;
  EXPECT_TRUE(library.CanUnload());
}

TEST(Unloading, WaitsForClassObjectsAndObjects) {
  const Library library;
  auto factory = library.ClassObject(CLSID_updatePrice);
  EXPECT_FALSE(library.CanUnload());
  ComPtr<IUnknown> object;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, object.putVoid()), S_OK);
  factory.attach(nullptr);
  EXPECT_FALSE(library.CanUnload());
  object.attach(nullptr);
  EXPECT_TRUE(library.CanUnload());
}

TEST(Unloading, WaitsForServerLocks) {
  const Library library;
  library.ClassObject(CLSID_PriceDown)->LockServer(TRUE);
  library.ClassObject(CLSID_PriceDown)->LockServer(TRUE);
  library.ClassObject(CLSID_PriceDown)->LockServer(FALSE);
  EXPECT_FALSE(library.CanUnload());
  library.ClassObject(CLSID_PriceDown)->LockServer(FALSE);
  EXPECT_TRUE(library.CanUnload());
}

TEST(Unloading, MayBeFollowedByLoadingAgain) {
  for (int round = 0; round < 20; ++round) {
    const Library library;
    EXPECT_TRUE(library.NewPriceDown());
    EXPECT_TRUE(library.CanUnload());
  }
}

TEST(Unloading, LeavesNoMemoryBehind) {
  // The system's own libraries stay loaded after the first time.
  { const Library library; }
  const long before = ResourcesNow().memory;
  for (int round = 0; round < 50; ++round) {
    const Library library;
  }
  EXPECT_LT(ResourcesNow().memory - before, 50 * 1000);
}

}  // namespace
}  // namespace pricedown::testing
