// The provision history and the vouchers of the sample company, as period-end runs would have left
// them.
#pragma once

#include <cstdint>
#include <vector>

#include "workbench/sample/company_rows.h"

namespace workbench {

// The inventory module's current period in every generated company.
inline constexpr int kCurrentYear = 2008;
inline constexpr int kCurrentPeriod = 3;
inline constexpr int kPeriodsPerYear = 12;

// The history of each class's members by the class's pattern, and of two items of no class.
// Same seed, same rows.
std::vector<ProvisionRow> MakeProvisionRows(const std::vector<ItemRow>& items,
                                            const std::vector<ClassRow>& classRows,
                                            std::uint64_t seed);

// Vouchers from 2007/1 to the current period. The provision voucher (type 820, "Industry")
// is in the periods from 2007/10 up to the one before the current; in the current one
// only vouchers that resemble it. Same seed, same rows.
std::vector<VoucherRow> MakeVouchers(std::uint64_t seed);

}  // namespace workbench
