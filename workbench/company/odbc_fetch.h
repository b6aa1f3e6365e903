// Copies the rows of an open ODBC result into a ResultSet.
#pragma once

#include <atomic>

#include "workbench/company/odbc_handle.h"
#include "workbench/company/result_set.h"

namespace workbench::odbc {

// Date and time columns arrive as text, as the driver writes them. Throws DatabaseError.
// `progress` counts the rows. Requires: a result of `columnCount` columns is open on the statement.
ResultSet FetchAll(SQLHSTMT statement, SQLSMALLINT columnCount, std::atomic<unsigned>& progress);

}  // namespace workbench::odbc
