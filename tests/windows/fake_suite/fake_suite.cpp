// FakeSuite.dll: class objects of the suite's classes; the test program creates each object.
#include <windows.h>

#include <algorithm>
#include <iterator>

#include "platform/error.h"
#include "tests/windows/fake_suite/class_ids.h"
#include "windows/com/boundary.h"
#include "windows/com/com_class.h"
#include "windows/com/com_object.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::AtBoundary;
using windows::ComClass;
using windows::ComPtr;

ComPtr<IDispatch>& Creator() {
  static ComPtr<IDispatch> creator;
  return creator;
}

class FakeClassFactory final : public ComClass<IClassFactory> {
 public:
  explicit FakeClassFactory(std::u16string_view progId) : progId_(progId) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) noexcept override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return AtBoundary([&] {
      if (!Creator()) throw AutomationError(ErrorNumber::CannotCreateObject, u"no suite");
      windows::ComObject creator(Creator().Copy());
      const Value made = creator.Call(u"Create", {progId_});
      return windows::ToDispatch(made.Object())->QueryInterface(id, result);
    });
  }

  STDMETHODIMP LockServer(BOOL) noexcept override { return S_OK; }

 private:
  std::u16string_view progId_;
};

}  // namespace
}  // namespace pricedown::testing

// Adds a reference; null removes the suite.
extern "C" void STDMETHODCALLTYPE SetCreator(IDispatch* creator) {
  pricedown::testing::Creator() = pricedown::windows::ComPtr<IDispatch>::Share(creator);
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
  using namespace pricedown::testing;
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  const auto found =
      std::find_if(std::begin(kFakeClasses), std::end(kFakeClasses),
                   [&](const FakeClass& one) { return IsEqualGUID(one.id, classId); });
  if (found == std::end(kFakeClasses)) return CLASS_E_CLASSNOTAVAILABLE;
  return pricedown::windows::AtBoundary([&] {
    return pricedown::windows::MakeCom<FakeClassFactory>(found->progId)->QueryInterface(id, result);
  });
}

STDAPI DllCanUnloadNow() { return S_FALSE; }
