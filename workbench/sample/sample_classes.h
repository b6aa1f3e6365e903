// The 25 item classes of the sample company and their members. Where the table says so, they break
// the rules for classes on purpose.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "workbench/sample/company_rows.h"

namespace workbench {

// What the provision history of a class's members looks like.
enum class ProvisionPattern {
  None,
  EarlierAndCurrent,  // amounts in the months before and in the current period
  EarlierYearOnly,    // amounts in the year before, none since
  SameYearOnly,       // accumulated amounts in an earlier period of the current year
  EarlierZero,        // rows of earlier periods, every amount zero or missing
  CurrentOnly,        // amounts in the current period alone
  CurrentZero,        // rows of the current period, every amount zero
  LaterOnly,          // amounts only after the current period
};

// Which items of its families a class contains.
enum class MemberRule {
  Most,  // about three of four items
  All,
  FirstHalf,   // the first half of each family
  SecondHalf,  // the rest of each family
};

struct SampleClass {
  std::string_view number;
  std::string_view name;
  std::string_view percentage;
  std::string_view lossAccount;
  std::string_view reserveAccount;
  std::string_view families;  // separated by blanks
  MemberRule members;
  ProvisionPattern provisions;
};

// In the order in which their rows are stored.
std::span<const SampleClass> SampleClasses();

// The rows of all classes, class by class. Same seed, same rows.
// Requires: every account that the table of classes names is among `accounts`.
std::vector<ClassRow> MakeClassRows(const std::vector<ItemRow>& items,
                                    const std::vector<AccountRow>& accounts, std::uint64_t seed);

// The class whose rows carry two names, and the second of them.
inline constexpr std::string_view kTwoNamedClass = "16";
inline constexpr std::string_view kSecondName = "停产专用料(待处理)";
// The class that also has members of other classes, and those classes.
inline constexpr std::string_view kSharingClass = "18";
inline constexpr std::string_view kSharedFrom[] = {"03", "09"};

}  // namespace workbench
