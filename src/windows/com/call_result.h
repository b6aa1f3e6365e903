// Reports the failure of an incoming call as IDispatch does: exception record or code.
#pragma once

#include <oaidl.h>

#include "windows/com/boundary.h"
#include "windows/com/variant.h"

namespace pricedown::windows {

// Fills `record`, when there is one, with the failure and returns DISP_E_EXCEPTION; returns the
// code itself otherwise. The thread's error info is set in both cases.
HRESULT ReportException(const Failure& failure, EXCEPINFO* record) noexcept;

// True for the codes by which IDispatch itself refuses a call: unknown member, arguments.
bool IsDispatchRefusal(HRESULT code);

}  // namespace pricedown::windows
