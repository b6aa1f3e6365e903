// The error info of a failure.
#include "windows/com/boundary.h"

#include <oleauto.h>

#include "windows/com/bstr.h"
#include "windows/com/com_ptr.h"

namespace pricedown::windows {
namespace {

ComPtr<IErrorInfo> ErrorInfo(const Failure& failure, const IID& interfaceId) {
  ComPtr<ICreateErrorInfo> creator;
  if (FAILED(CreateErrorInfo(creator.put()))) return {};
  creator->SetGUID(interfaceId);
  creator->SetDescription(Bstr(failure.description).get());
  creator->SetSource(Bstr(failure.source).get());
  return creator.As<IErrorInfo>();
}

}  // namespace

HRESULT PublishFailure(const Failure& failure, const IID& interfaceId) noexcept {
  try {
    SetErrorInfo(0, ErrorInfo(failure, interfaceId).get());
  } catch (...) {
    SetErrorInfo(0, nullptr);
  }
  return failure.code;
}

}  // namespace pricedown::windows
