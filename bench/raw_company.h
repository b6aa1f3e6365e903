// The raw side of the measurements: steps the queries with SQLite alone and reads every text.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace bench {

class RawCompany {
 public:
  // Throws std::runtime_error.
  explicit RawCompany(const std::string& path);
  ~RawCompany();
  RawCompany(const RawCompany&) = delete;
  RawCompany& operator=(const RawCompany&) = delete;

  // Steps the query and reads each column of each row as UTF-16; `row` sees the first two.
  // The number of rows.
  std::size_t Step(const char* sql,
                   const std::function<void(std::u16string_view, std::u16string_view)>& row);

 private:
  sqlite3* database_ = nullptr;
};

// The library's queries in SQLite's dialect.
inline constexpr const char* kTreeQuery =
    "SELECT t1.FitemClassNumber,t1.FitemClassName FROM icPriceDownClass t1 "
    "ORDER BY t1.FitemClassNumber ASC";
inline constexpr const char* kAllItemsQuery =
    "SELECT ifnull(t1.FNumber,'') AS FNumber,ifnull(t1.FShortNumber,'') AS FShortNumber,"
    "t1.FName,ifnull(t1.FModel,'') AS FModel FROM t_ICItem t1 "
    "WHERE t1.FErpClsID NOT IN(6,8) ORDER BY t1.FNumber ASC";

}  // namespace bench
