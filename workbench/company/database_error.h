// The one exception of the company database, with what an ADO error object shows.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace workbench {

class DatabaseError : public std::runtime_error {
 public:
  // nativeNumber: the server's own error number, or SQLite's extended result code where the
  // server has no number for the failure.
  DatabaseError(std::u16string_view message, int nativeNumber);

  const std::u16string& Message() const noexcept { return message_; }
  int NativeNumber() const noexcept { return nativeNumber_; }

 private:
  std::u16string message_;
  int nativeNumber_;
};

}  // namespace workbench
