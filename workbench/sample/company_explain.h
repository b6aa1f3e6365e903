// Explains why a class cannot be deleted or an item cannot be removed from its class. Reads only.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/company/connection.h"

namespace workbench {

struct Explanation {
  std::string subject;  // code and name
  // Every reason, one Chinese line each, with periods, amounts and vouchers. Empty when the
  // deletion or removal would succeed now.
  std::vector<std::string> reasons;
};

// Nothing if the company has no such class or item. Compares codes by the company's collation.
// Throw SchemaError, DatabaseError.
std::optional<Explanation> ExplainClass(Connection& company, std::string_view number);
std::optional<Explanation> ExplainItem(Connection& company, std::string_view code);

}  // namespace workbench
