// The built DLL under test, loaded by its file and used through its entry points.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "windows/com/com_ptr.h"

namespace pricedown::testing {

class Library {
 public:
  // Loads the DLL from the program's folder; the destructor unloads it.
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  HRESULT GetClassObject(REFCLSID classId, REFIID interfaceId, void** result) const;
  bool CanUnload() const;
  HRESULT RegisterServer() const;
  HRESULT UnregisterServer() const;
  HRESULT Install(bool install, const wchar_t* commandLine) const;

  windows::ComPtr<IClassFactory> ClassObject(REFCLSID classId) const;
  // Null if it cannot be created.
  windows::ComPtr<IUnknown> Create(REFCLSID classId) const;
  // The control, as the interface that most tests use first.
  windows::ComPtr<IDispatch> NewPriceDown() const;
  windows::ComPtr<IDispatch> NewUpdatePrice() const;

 private:
  HMODULE module_;
};

}  // namespace pricedown::testing
