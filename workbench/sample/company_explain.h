// Says why a class cannot be deleted or an item not be taken out of its class. Reads only.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/company/connection.h"

namespace workbench {

struct Explanation {
  std::string subject;  ///< code and name
  /// Every reason, one Chinese line each, with periods, amounts and vouchers. Empty when the
  /// deletion or removal would succeed now.
  std::vector<std::string> reasons;
};

/// Nothing when the company has no such class or item. Codes are compared as the company does.
/// Throw SchemaError, DatabaseError.
std::optional<Explanation> ExplainClass(Connection& company, std::string_view number);
std::optional<Explanation> ExplainItem(Connection& company, std::string_view code);

}  // namespace workbench
