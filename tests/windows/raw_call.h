// A plain late-bound client: the test passes the exact arguments, and the whole result is shown in
// one line.
#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

#include "platform/value.h"
#include "windows/com/variant.h"

namespace pricedown::testing {

// Arguments in the order of the parameters. The variants are borrowed and sent as they are.
struct RawCall {
  WORD flags = DISPATCH_METHOD;
  std::vector<VARIANT> arguments = {};
  std::vector<DISPID> namedIds = {};  // of the last arguments, the very last one first
  bool wantsResult = true;
};

// "S_OK Empty" or "S_OK 12"; without a requested result "S_OK"; "80020005 argument 1"; for an
// exception record "exception 80004005 source: description". The thread's error info is
// "info: ..." after it if there is one.
std::string Send(IDispatch* object, DISPID id, const RawCall& call);
std::string SendTo(IDispatch* object, const wchar_t* name, const RawCall& call);

// The usual calls of a script: a statement, an expression, an assignment.
std::string Statement(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments = {});
std::string Expression(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments = {});
std::string Assignment(IDispatch* object, const wchar_t* name, VARIANT value);

// "80020006" for an unknown name, else the number in decimal.
std::string IdOf(IDispatch* object, const wchar_t* name);

std::string Hexadecimal(HRESULT code);
// Clears the thread's error info and returns it as "source: description"; "" if there is none.
std::string ConsumeErrorInfo();

// Variants that own nothing.
VARIANT Number(LONG number);
VARIANT Truth(bool truth);
VARIANT Text(BSTR text);
VARIANT Nothing(VARTYPE type);
VARIANT Omitted();
VARIANT ObjectOf(IDispatch* object);
// VT_BYREF | type, pointing to `target`.
VARIANT Reference(VARTYPE type, void* target);

}  // namespace pricedown::testing
