// Arguments, results and failures of calls as parts of a line.
#pragma once

#include <oaidl.h>

#include "workbench/recording/value_json.h"

namespace workbench {

// Array of {"type", "value"} in the order of the parameters; "value" only with values, and "object"
// for objects without. Throws std::bad_alloc.
Json ArgumentsOf(const DISPPARAMS& parameters);
// Adds "after" to those that the call has changed, with values only.
void AddAnswers(Json& arguments, const DISPPARAMS& parameters);
// {"type", "value"} of a result.
Json ContentOf(const VARIANT& variant);

// Rows of a two-dimensional array, such as GetRows answers; 0 for anything else.
long RowsIn(const VARIANT& variant);

// {"code", "number", "source"}, with values "description" as well. `record` may be null, and is
// used only for a DISP_E_EXCEPTION; `info` may be null.
Json FailureOf(HRESULT code, const EXCEPINFO* record, IErrorInfo* info);

}  // namespace workbench
