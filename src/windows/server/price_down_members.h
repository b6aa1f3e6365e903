// The public members of `PriceDown` as a table: names, ids, parameters, functions. A test compares
// it with the type library.
#pragma once

#include "windows/com/dispatch_table.h"
#include "windows/server/hosted_control.h"

namespace pricedown::windows {

// The ids of the members, as in the interface definition.
namespace member_ids {
inline constexpr DISPID kNotifyMessage = 1;
inline constexpr DISPID kRefreshToolbar = 2;
inline constexpr DISPID kShow = 3;
inline constexpr DISPID kShowMode = 4;
inline constexpr DISPID kToolBarClick = 5;
inline constexpr DISPID kSelBlock = 6;
inline constexpr DISPID kPreviewPara = 7;
inline constexpr DISPID kPrintPara = 8;
inline constexpr DISPID kModelCurrent = 9;
inline constexpr DISPID kAddRecord = 10;
inline constexpr DISPID kEditRecord = 11;
inline constexpr DISPID kDelRecord = 12;
inline constexpr DISPID kReady = 101;
inline constexpr DISPID kCreationError = 102;
inline constexpr DISPID kListener = 103;
}  // namespace member_ids

std::span<const DispatchRow<HostedControl>> PriceDownMembers();

}  // namespace pricedown::windows
