// The base of our COM objects: reference count, interfaces, module count.
// Aggregation is not offered.
#pragma once

#include <windows.h>

#include <atomic>

#include "windows/com/com_ptr.h"
#include "windows/com/module_counts.h"

namespace pricedown::windows {

// The interfaces that an interface inherits from, IUnknown left out; specialise where there are
// any.
template <typename... Interfaces>
struct InterfaceList {
  template <typename Visitor>
  static bool AnyOf(Visitor&& visitor) {
    return (visitor.template operator()<Interfaces>() || ...);
  }
};
template <typename Interface>
struct BasesOf : InterfaceList<> {};

// T derives from ComClass<T, Interfaces...>; the first interface is the object's identity.
// Objects are made by MakeCom and delete themselves with their last reference.
template <typename... Interfaces>
class ComClass : public Interfaces... {
 public:
  ComClass(const ComClass&) = delete;
  ComClass& operator=(const ComClass&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (id == __uuidof(IUnknown)) {
      *result = Identity();
    } else if (!(Answer<Interfaces>(id, result) || ...)) {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }

  STDMETHODIMP_(ULONG) AddRef() noexcept override { return static_cast<ULONG>(++references_); }

  STDMETHODIMP_(ULONG) Release() noexcept override {
    const long left = --references_;
    if (left > 0) return static_cast<ULONG>(left);
    // What the object calls on its way out may take and drop references to it again.
    references_ = kDying;
    FinalRelease();
    delete this;
    return 0;
  }

 protected:
  ComClass() noexcept { ++Counts().objects; }
  virtual ~ComClass() { --Counts().objects; }

  // Runs before the destructor, while the object is still whole.
  virtual void FinalRelease() noexcept {}

  // Adds no reference.
  IUnknown* Identity() noexcept { return IdentityOf<Interfaces...>(); }

 private:
  static constexpr long kDying = 0x40000000;

  template <typename First, typename...>
  First* IdentityOf() noexcept {
    return static_cast<First*>(this);
  }

  template <typename Interface>
  bool Answer(REFIID id, void** result) noexcept {
    const auto matches = [&]<typename Candidate>() { return id == __uuidof(Candidate); };
    if (!matches.template operator()<Interface>() && !BasesOf<Interface>::AnyOf(matches)) {
      return false;
    }
    *result = static_cast<Interface*>(this);
    return true;
  }

  std::atomic<long> references_ = 1;
};

// A new object with one reference, the owner's.
template <typename T, typename... Arguments>
ComPtr<T> MakeCom(Arguments&&... arguments) {
  return ComPtr<T>::Take(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace pricedown::windows
