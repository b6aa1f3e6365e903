// Tests of the rules of QueryInterface on the control, which has many interfaces in one object.
#include <gtest/gtest.h>
#include <ocidl.h>
#include <ole2.h>

#include <objsafe.h>

#include <iterator>

#include "tests/windows/server/library.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

const IID* const kInterfaces[] = {&IID_IUnknown,
                                  &IID_IDispatch,
                                  &IID__PriceDown,
                                  &IID__PriceDownState,
                                  &IID_IOleObject,
                                  &IID_IOleControl,
                                  &IID_IOleWindow,
                                  &IID_IOleInPlaceObject,
                                  &IID_IOleInPlaceActiveObject,
                                  &IID_IViewObject,
                                  &IID_IViewObject2,
                                  &IID_IViewObjectEx,
                                  &IID_IDataObject,
                                  &IID_IQuickActivate,
                                  &IID_IPersist,
                                  &IID_IPersistStreamInit,
                                  &IID_IPersistPropertyBag,
                                  &IID_IPersistStorage,
                                  &IID_IProvideClassInfo,
                                  &IID_IProvideClassInfo2,
                                  &IID_ISupportErrorInfo,
                                  &IID_IConnectionPointContainer};

TEST(Identity, IsTheSameFromEveryInterface) {
  const Library library;
  const auto control = library.Create(CLSID_PriceDown);
  for (const IID* id : kInterfaces) {
    ComPtr<IUnknown> one;
    ASSERT_EQ(control->QueryInterface(*id, one.putVoid()), S_OK);
    ComPtr<IUnknown> identity;
    ASSERT_EQ(one->QueryInterface(IID_IUnknown, identity.putVoid()), S_OK);
    EXPECT_EQ(identity.get(), control.get());
  }
}

TEST(Identity, ReachesEveryInterfaceFromEveryOther) {
  const Library library;
  const auto control = library.Create(CLSID_PriceDown);
  for (const IID* from : kInterfaces) {
    ComPtr<IUnknown> one;
    ASSERT_EQ(control->QueryInterface(*from, one.putVoid()), S_OK);
    for (const IID* to : kInterfaces) {
      ComPtr<IUnknown> other;
      EXPECT_EQ(one->QueryInterface(*to, other.putVoid()), S_OK);
    }
  }
}

TEST(Identity, HasNoInterfacesThatPromiseSafetyOrALicence) {
  const Library library;
  ComPtr<IUnknown> safety;
  EXPECT_EQ(library.Create(CLSID_PriceDown)
                ->QueryInterface(IID_IObjectSafety, reinterpret_cast<void**>(safety.put())),
            E_NOINTERFACE);
  EXPECT_FALSE(library.ClassObject(CLSID_PriceDown).As<IClassFactory2>());
}

TEST(Identity, CountsOneReferencePerInterface) {
  const Library library;
  auto control = library.Create(CLSID_PriceDown);
  EXPECT_EQ(control->AddRef(), 2U);
  EXPECT_EQ(control->Release(), 1U);
  EXPECT_EQ(control->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
  void* none = &none;
  EXPECT_EQ(control->QueryInterface(IID_IStorage, &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(control.release()->Release(), 0U);
  EXPECT_TRUE(library.CanUnload());
}

}  // namespace
}  // namespace pricedown::testing
