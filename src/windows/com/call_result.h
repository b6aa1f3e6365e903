// How a call in ends for IDispatch: result, exception record, code.
// The vtable's way of reporting is boundary.h.
#pragma once

#include <oaidl.h>

#include "windows/com/boundary.h"
#include "windows/com/variant.h"

namespace pricedown::windows {

// Fills `record`, when there is one, with the failure and answers DISP_E_EXCEPTION; answers the
// code itself otherwise. The thread's error info is set in both cases.
HRESULT ReportException(const Failure& failure, EXCEPINFO* record) noexcept;

// True for the codes by which IDispatch itself refuses a call: unknown member, arguments.
bool IsDispatchRefusal(HRESULT code);

}  // namespace pricedown::windows
