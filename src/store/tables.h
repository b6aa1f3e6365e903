// Names of the company tables' columns that the library reads and writes, and of their fields in
// results. The statements that use them are in statements.h; storage types are the suite's.
#pragma once

#include <string_view>

namespace pricedown::columns {

inline constexpr std::u16string_view kItemId = u"FItemID";
inline constexpr std::u16string_view kNumber = u"FNumber";
inline constexpr std::u16string_view kShortNumber = u"FShortNumber";
inline constexpr std::u16string_view kName = u"FName";
inline constexpr std::u16string_view kModel = u"FModel";
inline constexpr std::u16string_view kItemClassId = u"FItemClassID";
inline constexpr std::u16string_view kItemClassNumber = u"FItemClassNumber";
inline constexpr std::u16string_view kItemClassName = u"FItemClassName";
inline constexpr std::u16string_view kLossAccountId = u"FAPAccID";
inline constexpr std::u16string_view kLossAccountNumber = u"FAPNumber";
inline constexpr std::u16string_view kReserveAccountId = u"FARAccID";
inline constexpr std::u16string_view kReserveAccountNumber = u"FARNumber";
inline constexpr std::u16string_view kPercentage = u"FPencentPrepare";
inline constexpr std::u16string_view kYear = u"FYear";
inline constexpr std::u16string_view kPeriod = u"FPeriod";
inline constexpr std::u16string_view kAccountId = u"FAccountID";
inline constexpr std::u16string_view kValue = u"FValue";

}  // namespace pricedown::columns
