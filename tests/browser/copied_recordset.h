// The log of the recordsets that an edit creates: the working records of a new class, and copies of
// the one row of class 01. Expected values are literals; the code under test builds none of them.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace pricedown::testing {

// A column as the log writes it.
struct LogColumn {
  const char* name;
  int type;
  int size;
  // Of the one row of the class, where it has one.
  const char* value = "";
};

inline constexpr std::array<LogColumn, 15> kWorkingRecord{{
    {"FItemID", 3, 0},
    {"FNumber", 202, 80},
    {"FShortNumber", 202, 80},
    {"FName", 202, 80},
    {"FModel", 202, 255},
    {"FItemClassID", 3, 0},
    {"FItemClassNumber", 202, 80},
    {"FItemClassName", 202, 80},
    {"FAPAccID", 3, 0},
    {"FAPNumber", 202, 80},
    {"FARAccID", 3, 0},
    {"FARNumber", 202, 80},
    {"FPencentPrepare", 5, 0},
    {"FYear", 3, 0},
    {"FPeriod", 3, 0},
}};

inline constexpr std::array<LogColumn, 12> kGridColumns{{
    {"FNumber", 202, 255, "\"01.001\""},
    {"FShortNumber", 202, 255, "\"001\""},
    {"FName", 202, 255, "\"螺栓\""},
    {"FModel", 202, 255, "\"M8\""},
    {"Fitemid", 3, 0, "101"},
    {"FItemClassNumber", 202, 255, "\"01\""},
    {"FItemClassName", 202, 255, "\"原料\""},
    {"FAPAccID", 3, 0, "1051"},
    {"FAPNumber", 202, 255, "\"5711\""},
    {"FARAccID", 3, 0, "1023"},
    {"FARNumber", 202, 255, "\"1281.1\""},
    {"FPencentPrepare", 5, 0, "12.5"},
}};

inline constexpr const char* kCopy = "ADODB.Recordset";

// A new client-side recordset with these fields, not open.
template <typename Columns>
std::string Made(const Columns& columns, int attributes) {
  std::string lines = "create ADODB.Recordset\nput ADODB.Recordset.CursorLocation = 3\n";
  for (const LogColumn& column : columns) {
    lines += "ADODB.Recordset.Fields()\nADODB.Recordset.Fields.Append(\"" +
             std::string(column.name) + "\", " + std::to_string(column.type) + ", " +
             std::to_string(column.size) + ", " + std::to_string(attributes) + ")\n";
  }
  return lines;
}

// The copy of a recordset with the one row. The source's filter is cleared after the copy opens.
inline std::string Copied(const std::string& source) {
  const std::string copy = kCopy;
  std::string lines = source + ".Fields()\n" + source + ".Fields.Count()\n";
  int index = 0;
  for (const LogColumn& column : kGridColumns) {
    const std::string field = source + ".Fields(\"" + column.name + "\")";
    lines += source + ".Fields.Item(" + std::to_string(index++) + ")\n" + field + ".Name()\n" +
             field + ".Type()\n" + field + ".DefinedSize()\n" + field + ".Attributes()\n";
  }
  lines += Made(kGridColumns, 0) + copy + ".Open()\n" + "put " + source + ".Filter = \"\"\n" +
           source + ".MoveFirst()\n";
  std::string names;
  std::string positions;
  std::string values;
  for (std::size_t i = 0; i < kGridColumns.size(); ++i) {
    const std::string comma = i == 0 ? "" : ", ";
    names += comma + "\"" + kGridColumns[i].name + "\"";
    positions += comma + std::to_string(i);
    values += comma + kGridColumns[i].value;
  }
  lines += source + ".EOF()\n" + source + ".GetRows(4096, Missing, [" + names + "])\n";
  lines += copy + ".AddNew([" + positions + "], [" + values + "])\n";
  return lines + copy + ".UpdateBatch()\n" + source + ".EOF()\n" + copy + ".MoveFirst()\n";
}

}  // namespace pricedown::testing
