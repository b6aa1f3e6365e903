// The tables that the library's statements name, with a text and a number of each kind.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/company/table_schema.h"

namespace workbench::testing {

class FixedTableSchema final : public TableSchema {
 public:
  bool HasTable(std::string_view table) override;
  std::optional<std::string> DeclaredType(std::string_view table, std::string_view column) override;
};

}  // namespace workbench::testing
