// A company on a real server, reached through ODBC: the texts go to it untouched.
// What the texts mean is the server's business; nothing is translated here.
#pragma once

#include <memory>
#include <string_view>

#include "workbench/company/connection.h"

namespace workbench {

// The text of a DatabaseError begins with the SQLSTATE in brackets. Date and time columns arrive
// as text, as the driver writes them.
class OdbcConnection final : public Connection {
 public:
  // `connectionString` in UTF-8. Throws DatabaseError.
  explicit OdbcConnection(std::string_view connectionString);
  ~OdbcConnection() override;

  ResultSet Execute(std::u16string_view text) override;

 private:
  class Session;  // keeps ODBC's headers out of this one
  std::unique_ptr<Session> session_;
};

}  // namespace workbench
