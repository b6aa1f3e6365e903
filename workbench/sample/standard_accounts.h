// The chart of accounts of the sample company: the public standard chart of the Accounting
// Standards for Business Enterprises, with sub accounts.
#pragma once

#include <string_view>
#include <vector>

#include "workbench/sample/company_rows.h"

namespace workbench {

// All accounts in number order with ids from 1, levels, parents, detail marks and balance
// directions. Always the same.
std::vector<AccountRow> MakeAccounts();

// The id of the account of exactly that number, 0 when there is none.
int FindAccountId(const std::vector<AccountRow>& accounts, std::string_view number);

}  // namespace workbench
