// An object of the suite as its callers see it while they are recorded.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <string>
#include <utility>
#include <vector>

#include "windows/com/com_ptr.h"
#include "workbench/recording/value_json.h"

namespace workbench {

// Forwards IDispatch with the caller's own arguments, answers and exception record; objects that
// the suite returns are recorded as well, and those that come back to it are the suite's own again.
// One recorded object per object while it lives, so that identity holds. Other interfaces are those
// of the object itself: calls through them are not recorded. May be used from any thread that may
// use the object.
class RecordedObject final : public IDispatch {
 public:
  // The recorded object for `object`, or `object` itself if it has no IDispatch or is recorded
  // already. Requires: `object` is not null. Throws std::bad_alloc.
  static pricedown::windows::ComPtr<IUnknown> Wrap(IUnknown* object, const std::string& name);
  // Replaces the reference in `slot`, which may be null, by one to the recorded object; leaves it
  // when there is no memory.
  static void WrapInPlace(IUnknown*& slot, const std::string& name) noexcept;
  // Borrowed from `object`; null when it is not recorded.
  static RecordedObject* Of(IUnknown* object) noexcept;
  static ObjectNumber NumberOf(IUnknown* object) noexcept;

  // Borrowed.
  IDispatch* Real() const { return real_.get(); }

  STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override;
  STDMETHODIMP_(ULONG) Release() noexcept override;
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* record, UINT* badArgument) noexcept override;

 private:
  struct Living;
  static Living& AllLiving();

  RecordedObject(IUnknown* identity, pricedown::windows::ComPtr<IDispatch> real, std::string name);
  ~RecordedObject();

  void RememberName(DISPID id, std::string text) noexcept;
  std::string MemberName(DISPID id);
  // The parts of a line that name this object.
  void Describe(Json& line) const;
  void CountRows(const std::string& member, long rows);

  IUnknown* const identity_;  // of real_, which keeps it
  const pricedown::windows::ComPtr<IDispatch> real_;
  const std::string name_;
  const ObjectNumber number_;
  std::atomic<ULONG> references_ = 1;
  std::atomic<long long> rows_ = 0;  // read by GetRows and MoveNext
  std::vector<std::pair<DISPID, std::string>> members_;
};

}  // namespace workbench
