// The class object: creates objects and keeps the module loaded.
#include "windows/com/class_factory.h"

#include <algorithm>

#include "windows/com/boundary.h"
#include "windows/com/com_class.h"

namespace pricedown::windows {
namespace {

class ClassFactory final : public ComClass<IClassFactory> {
 public:
  explicit ClassFactory(ComPtr<IUnknown> (*create)()) : create_(create) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) noexcept override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return AtBoundary([&] { return create_()->QueryInterface(id, result); });
  }

  STDMETHODIMP LockServer(BOOL lock) noexcept override {
    Counts().locks += lock != FALSE ? 1 : -1;
    return S_OK;
  }

 private:
  ComPtr<IUnknown> (*create_)();
};

}  // namespace

HRESULT GetClassObject(std::span<const PublicClass> classes, REFCLSID classId, REFIID interfaceId,
                       void** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  const auto found = std::find_if(classes.begin(), classes.end(), [&](const PublicClass& one) {
    return IsEqualGUID(one.id, classId);
  });
  if (found == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
  return AtBoundary(
      [&] { return MakeCom<ClassFactory>(found->create)->QueryInterface(interfaceId, result); });
}

}  // namespace pricedown::windows
