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
  creator->SetSource(Bstr(SourceOf(failure)).get());
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

HRESULT RefuseThread() noexcept {
  SetErrorInfo(0, nullptr);
  return RPC_E_WRONG_THREAD;
}

std::u16string_view& ModuleSource() noexcept {
  static std::u16string_view source;
  return source;
}

std::u16string_view SourceOf(const Failure& failure) noexcept {
  return failure.source.empty() ? ModuleSource() : failure.source;
}

}  // namespace pricedown::windows
