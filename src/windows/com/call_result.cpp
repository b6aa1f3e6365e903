// The exception record of a failed call.
#include "windows/com/call_result.h"

#include "windows/com/boundary.h"
#include "windows/com/bstr.h"

namespace pricedown::windows {

HRESULT ReportException(const Failure& failure, EXCEPINFO* record) noexcept {
  PublishFailure(failure, IID_IDispatch);
  if (record == nullptr) return failure.code;
  *record = {};
  record->scode = failure.code;
  try {
    Bstr source(SourceOf(failure));
    record->bstrDescription = Bstr(failure.description).release();
    record->bstrSource = source.release();
  } catch (...) {
    // No memory for the texts; the code suffices.
  }
  return DISP_E_EXCEPTION;
}

bool IsDispatchRefusal(HRESULT code) {
  switch (code) {
    case DISP_E_MEMBERNOTFOUND:
    case DISP_E_PARAMNOTFOUND:
    case DISP_E_TYPEMISMATCH:
    case DISP_E_UNKNOWNNAME:
    case DISP_E_NONAMEDARGS:
    case DISP_E_OVERFLOW:
    case DISP_E_BADPARAMCOUNT:
    case DISP_E_PARAMNOTOPTIONAL:
      return true;
    default:
      return false;
  }
}

}  // namespace pricedown::windows
