// Errors of the in-memory recordset, with ADO's numbers and texts.
#pragma once

#include <string_view>

namespace workbench {

inline constexpr std::u16string_view kRecordsetSource = u"ADODB.Recordset";

[[noreturn]] void ThrowNoCurrentRecord();
[[noreturn]] void ThrowInvalidArgument();

}  // namespace workbench
