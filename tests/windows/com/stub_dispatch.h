// A foreign IDispatch for tests of outgoing calls: logs each call and runs the test's function. Its
// only name is "Member", with number 7.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "windows/com/com_class.h"

namespace pricedown::testing {

class StubDispatch final : public windows::ComClass<IDispatch, ISupportErrorInfo> {
 public:
  using Behaviour =
      std::function<HRESULT(DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* record)>;
  // What Invoke does after it has logged the call.
  explicit StubDispatch(Behaviour behaviour = {}) : behaviour_(std::move(behaviour)) {}

  // "7 flags 3 named [-3] arguments [12, "x"] result" for each call, arguments first to last;
  // "find NAME" for each look-up.
  std::vector<std::string> log;

  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* record, UINT* badArgument) noexcept override;
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) noexcept override;

 private:
  Behaviour behaviour_;
};

}  // namespace pricedown::testing
