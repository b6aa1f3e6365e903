// Creates a company on a server, whole or not at all if the server has transactions.
#pragma once

#include "workbench/company/odbc_connection.h"
#include "workbench/sample/company_file.h"

namespace workbench {

// Makes the tables in the database of the connection and fills them. A database that holds any
// of the tables is refused; where the plan replaces, a company that this function made is
// dropped first, in the same transaction, and any other one is still refused. Throws
// CompanyFileError, DatabaseError.
void CreateServerCompany(OdbcConnection& server, const CompanyFilePlan& plan,
                         CompanyWriter::Progress progress);

}  // namespace workbench
