#include "workbench/company/connection.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "workbench/company/case_folding.h"
#include "workbench/company/odbc_connection.h"
#include "workbench/company/sqlite_connection.h"

namespace workbench {
namespace {

bool BeginsWith(std::string_view text, std::string_view lowerCasePrefix) {
  return text.size() >= lowerCasePrefix.size() &&
         std::equal(lowerCasePrefix.begin(), lowerCasePrefix.end(), text.begin(),
                    [](char prefix, char character) { return prefix == FoldAscii(character); });
}

}  // namespace

std::unique_ptr<Connection> OpenConnection(std::string_view location) {
  constexpr std::string_view kOdbcPrefixes[] = {"driver=", "dsn="};
  const bool isOdbc =
      std::any_of(std::begin(kOdbcPrefixes), std::end(kOdbcPrefixes),
                  [location](std::string_view prefix) { return BeginsWith(location, prefix); });
  if (isOdbc) return std::make_unique<OdbcConnection>(location);
  return std::make_unique<SqliteConnection>(location);
}

}  // namespace workbench
