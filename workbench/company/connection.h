// The way to a company database, whichever engine holds it: texts in, whole results out.
// It is not the suite's connection object; that one is an automation object built on this.
#pragma once

#include <memory>
#include <string_view>

#include "workbench/company/database_error.h"
#include "workbench/company/result_set.h"

namespace workbench {

// For one thread. Nothing stays open between calls, so that a result may be read and further
// texts executed in any order.
class Connection {
 public:
  virtual ~Connection() = default;

  // Runs the text, which is written for SQL Server and may hold several statements, and returns
  // the result of its first query; without columns where it holds none. A text that cannot be
  // read changes nothing; a statement that fails while running leaves those before it done.
  // Throws DatabaseError.
  virtual ResultSet Execute(std::u16string_view text) = 0;
};

// `location`, in UTF-8: an ODBC connection string (it begins with "Driver=" or "DSN=", in any
// case) or else the path of an existing company file. Throws DatabaseError.
std::unique_ptr<Connection> OpenConnection(std::string_view location);

}  // namespace workbench
