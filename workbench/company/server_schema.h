// The company's tables as statements for a server, in the types that its product has.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

// One statement per table, in UTF-8. `product` as SQL_DBMS_NAME; an unknown one gets standard SQL.
std::vector<std::string> ServerTables(std::string_view product);

// One statement per index, the same for every product.
std::vector<std::string> ServerIndexes();

}  // namespace workbench
