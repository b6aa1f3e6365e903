// The core's exception: a failed late-bound call, with the callee's own description.
// User errors are messages instead.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace pricedown {

// Error numbers as automation reports them (HRESULT, 32 bits, written as signed).
enum class ErrorNumber : std::int32_t {
  Unspecified = static_cast<std::int32_t>(0x80004005),
  Unexpected = static_cast<std::int32_t>(0x8000FFFF),
  NotImplemented = static_cast<std::int32_t>(0x80004001),
  OutOfMemory = static_cast<std::int32_t>(0x8007000E),
  InvalidArgument = static_cast<std::int32_t>(0x80070057),
  UnknownName = static_cast<std::int32_t>(0x80020006),
  MemberNotFound = static_cast<std::int32_t>(0x80020003),
  BadParameterCount = static_cast<std::int32_t>(0x8002000E),
  TypeMismatch = static_cast<std::int32_t>(0x80020005),
  Overflow = static_cast<std::int32_t>(0x8002000A),
  ObjectNotSet = static_cast<std::int32_t>(0x800A005B),
  CannotCreateObject = static_cast<std::int32_t>(0x800A01AD),
  // ADO: no current record, the recordset is at its beginning or end.
  NoCurrentRecord = static_cast<std::int32_t>(0x800A0BCD),
  // ADO: no field of that name in the recordset.
  ItemNotFound = static_cast<std::int32_t>(0x800A0CC1),
  // ADO: the operation is not allowed while the recordset is closed.
  ObjectClosed = static_cast<std::int32_t>(0x800A0E78),
};

class AutomationError : public std::exception {
 public:
  // `source` names the object or member that failed; it may be empty.
  AutomationError(ErrorNumber number, std::u16string description, std::u16string source = {});
  AutomationError(std::int32_t number, std::u16string description, std::u16string source = {});

  std::int32_t Number() const { return number_; }
  const std::u16string& Description() const { return description_; }
  const std::u16string& Source() const { return source_; }
  // The description in UTF-8, for logs of tests and tools.
  const char* what() const noexcept override { return utf8_.c_str(); }

 private:
  std::int32_t number_;
  std::u16string description_;
  std::u16string source_;
  std::string utf8_;
};

}  // namespace pricedown
