// The public members of `PriceDown` as a table: names, ids, parameters, functions. A test compares
// it with the type library.
#pragma once

#include "windows/com/dispatch_table.h"
#include "windows/server/hosted_control.h"

namespace pricedown::windows {

std::span<const DispatchRow<HostedControl>> PriceDownMembers();

}  // namespace pricedown::windows
