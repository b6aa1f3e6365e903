// Translates statement texts written for SQL Server into statements that SQLite runs.
// Text outside the dialect is refused with its position.
//
// The dialect, in any case of letters and with any blanks and line breaks:
//   SELECT [DISTINCT] [TOP n] columns [FROM tables and joins] [WHERE …] [ORDER BY …], also joined
//     by UNION [ALL], EXCEPT, INTERSECT; columns may be *, t.*, isnull(a,b), count, min, max, and
//     texts joined with +
//   INSERT [INTO] t(columns) VALUES(literals), INSERT [INTO] t(columns) SELECT …
//   DELETE [FROM] t [WHERE …], DELETE a FROM t a INNER JOIN u b ON … [WHERE …]
//   UPDATE t SET column=value,… [WHERE …]
// Conditions have AND, OR, NOT, parentheses, comparisons, LIKE, IN, BETWEEN, IS NULL, EXISTS.
// A text may hold several statements, with or without semicolons between them. Where text and
// numbers meet, text is converted to a number as the server does it, with its error when it is
// none; comparisons of texts ignore case and trailing blanks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "workbench/company/table_schema.h"

namespace workbench {

// NULL, a whole number, a number or a text in UTF-8.
using SqlValue = std::variant<std::monostate, std::int64_t, double, std::string>;

// One text for SQLite. Inserts of the same columns share one and differ in their values.
struct StatementShape {
  std::string sql;
  bool isQuery = false;
  // Per result column of a query the declared type behind it, as column_type.h reads it; empty
  // where the columns are only known to SQLite (with *).
  std::vector<std::string> columnTypes;
};

struct StatementRun {
  std::size_t shape = 0;       // index into shapes
  std::size_t firstValue = 0;  // into values, for the shape's parameters in order
  std::size_t valueCount = 0;
};

struct TranslatedText {
  std::vector<StatementShape> shapes;
  std::vector<StatementRun> runs;  // in the order of the text
  std::vector<SqlValue> values;
};

// An empty text translates to no statements. Throws DatabaseError at what is not in the dialect
// and at names that the schema does not have; time and memory are linear in the text.
TranslatedText TranslateText(std::u16string_view text, TableSchema& schema);

}  // namespace workbench
