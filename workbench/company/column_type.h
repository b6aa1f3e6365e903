// What a column's declared type means to the server and to ADO.
#pragma once

#include <string_view>

#include "workbench/company/result_set.h"

namespace workbench {

enum class ColumnKind { Integer, Decimal, Float, Text, Other };

// From a declared type such as INTEGER, NUMERIC(28,4), FLOAT or VARCHAR(80); the words are those
// that SQLite's own affinity rules look for.
ColumnKind KindOfDeclaredType(std::string_view declaredType);

// Type, defined size, precision and scale for a declared type; the name stays empty. A text type
// without a length is LongVarWChar, an unknown type counts as text.
ResultColumn DescribeDeclaredType(std::string_view declaredType);

}  // namespace workbench
