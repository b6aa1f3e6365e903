// Chooses the engine by the location.
#include "workbench/company/connection.h"

#include "workbench/company/location.h"
#include "workbench/company/odbc_connection.h"
#include "workbench/company/sqlite_connection.h"

namespace workbench {

std::unique_ptr<Connection> OpenConnection(std::string_view location, ConnectOptions options) {
  if (IsConnectionString(location)) {
    return std::make_unique<OdbcConnection>(location, std::move(options));
  }
  return std::make_unique<SqliteConnection>(location, options.mode);
}

}  // namespace workbench
