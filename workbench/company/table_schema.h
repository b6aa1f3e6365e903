// What the dialect layer asks about the company's tables: which columns they have, of which type.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace workbench {

// Names are compared without regard to case, as the server does.
class TableSchema {
 public:
  virtual ~TableSchema() = default;

  virtual bool HasTable(std::string_view table) = 0;

  // The type as declared, nothing where the table has no such column.
  virtual std::optional<std::string> DeclaredType(std::string_view table,
                                                  std::string_view column) = 0;
};

}  // namespace workbench
