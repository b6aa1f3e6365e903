// The base of our COM objects: reference count, interfaces, module count; no aggregation.
#pragma once

#include <windows.h>

#include <atomic>
#include <utility>

#include "windows/com/com_ptr.h"
#include "windows/com/module_counts.h"

namespace pricedown::windows {

// The interfaces that an interface inherits from, IUnknown left out; specialise where there are
// any.
template <typename... Interfaces>
struct InterfaceList {
  static bool Holds([[maybe_unused]] REFIID id) noexcept {
    return ((id == __uuidof(Interfaces)) || ...);
  }
};
template <typename Interface>
struct BasesOf : InterfaceList<> {};

// Implements QueryInterface for one or more interfaces; the base classes of a ComClassOf.
template <typename... Interfaces>
class Implements : public Interfaces... {
 public:
  // Null when `id` is none of them; adds no reference.
  void* FindInterface(REFIID id) noexcept {
    void* found = nullptr;
    (Answer<Interfaces>(id, found) || ...);
    return found;
  }

  // Adds no reference.
  IUnknown* Identity() noexcept { return IdentityOf<Interfaces...>(); }

 private:
  template <typename First, typename...>
  First* IdentityOf() noexcept {
    return this;
  }

  template <typename Interface>
  bool Answer(REFIID id, void*& found) noexcept {
    if (id != __uuidof(Interface) && !BasesOf<Interface>::Holds(id)) return false;
    found = static_cast<Interface*>(this);
    return true;
  }
};

// An object made of such bases; the first one is its identity. A class derives from it or from
// ComClass, is created by MakeCom and deletes itself with its last reference.
template <typename First, typename... Others>
class ComClassOf : public First, public Others... {
 public:
  ComClassOf(const ComClassOf&) = delete;
  ComClassOf& operator=(const ComClassOf&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
    if (result == nullptr) return E_POINTER;
    *result = id == __uuidof(IUnknown) ? Identity() : First::FindInterface(id);
    if (*result == nullptr && !(Ask<Others>(id, result) || ...)) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

  STDMETHODIMP_(ULONG) AddRef() noexcept override { return static_cast<ULONG>(++references_); }

  STDMETHODIMP_(ULONG) Release() noexcept override {
    const long left = --references_;
    if (left > 0) return static_cast<ULONG>(left);
    // Calls during destruction may add and release references to the object again.
    references_ = kDying;
    FinalRelease();
    delete this;
    return 0;
  }

  // Adds no reference.
  IUnknown* Identity() noexcept { return First::Identity(); }

 protected:
  ComClassOf() noexcept { ++Counts().objects; }
  virtual ~ComClassOf() { --Counts().objects; }

  // Runs before the destructor, while the object is still whole.
  virtual void FinalRelease() noexcept {}

 private:
  static constexpr long kDying = 0x40000000;

  template <typename Base>
  bool Ask(REFIID id, void** result) noexcept {
    *result = Base::FindInterface(id);
    return *result != nullptr;
  }

  std::atomic<long> references_ = 1;
};

// The usual object: all interfaces in one base.
template <typename... Interfaces>
using ComClass = ComClassOf<Implements<Interfaces...>>;

// A new object with one reference, the owner's.
template <typename T, typename... Arguments>
ComPtr<T> MakeCom(Arguments&&... arguments) {
  return ComPtr<T>::Adopt(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace pricedown::windows
