// Tests that the library works from its assembly manifest with nothing registered.
// The test program names the assembly in its own manifest; the DLL is found beside it.
#include <gtest/gtest.h>
#include <ole2.h>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/library.h"
#include "tests/windows/server/registry_picture.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

ComPtr<IUnknown> CreateByProgId(const wchar_t* progId) {
  CLSID id{};
  ComPtr<IUnknown> object;
  if (SUCCEEDED(CLSIDFromProgID(progId, &id))) {
    CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.putVoid());
  }
  return object;
}

TEST(SideBySide, NeedsNoRegistration) {
  for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    for (const std::string& line : RegisteredClasses(root, {})) {
      ASSERT_EQ(line.find("ZEPPriceDownPrepare"), std::string::npos) << line;
      ASSERT_EQ(line.find("5CBA2460"), std::string::npos) << line;
    }
  }
  EXPECT_TRUE(CreateByProgId(L"ZEPPriceDownPrepare.PriceDown").As<_PriceDown>());
  EXPECT_TRUE(CreateByProgId(L"ZEPPriceDownPrepare.updatePrice").As<_updatePrice>());
}

TEST(SideBySide, KnowsTheVersionedNamesToo) {
  EXPECT_TRUE(CreateByProgId(L"ZEPPriceDownPrepare.PriceDown.1").As<_PriceDown>());
  EXPECT_TRUE(CreateByProgId(L"ZEPPriceDownPrepare.updatePrice.1").As<_updatePrice>());
}

TEST(SideBySide, CreatesByClassIdToo) {
  ComPtr<IUnknown> object;
  EXPECT_EQ(CoCreateInstance(CLSID_PriceDown, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                             object.putVoid()),
            S_OK);
}

TEST(SideBySide, FindsTheTypeLibrary) {
  ComPtr<ITypeLib> library;
  EXPECT_EQ(
      Hexadecimal(LoadRegTypeLib(LIBID_ZEPPriceDownPrepare, 1, 0, LOCALE_NEUTRAL, library.put())),
      "0");
}

}  // namespace
}  // namespace pricedown::testing
