// The public members of `PriceDown` as a table: names, numbers, arguments, what runs.
// The type library says the same to early-bound clients; a test holds the two together.
#pragma once

#include "windows/com/dispatch_table.h"
#include "windows/server/hosted_control.h"

namespace pricedown::windows {

std::span<const DispatchRow<HostedControl>> PriceDownMembers();

}  // namespace pricedown::windows
