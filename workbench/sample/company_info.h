// What a company holds, in figures.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "workbench/company/connection.h"

namespace workbench {

struct CompanyUser {
  std::int64_t id = 0;
  std::string name;
  std::string description;
};

struct CompanyInfo {
  std::string companyName;
  std::int64_t items = 0;
  std::int64_t accounts = 0;
  std::int64_t classes = 0;     // class numbers, letter case included
  std::int64_t classRows = 0;   // member items of all classes
  std::int64_t provisions = 0;  // provision rows of all periods
  std::int64_t vouchers = 0;
  std::string currentYear;    // as stored; empty when missing
  std::string currentPeriod;  // as stored; empty when missing
  std::string itemClassType;  // as stored; "1" keeps provisions by item class
  std::vector<CompanyUser> users;
};

// Throws SchemaError when `company` is no company, DatabaseError when it cannot be read.
CompanyInfo ReadCompanyInfo(Connection& company);

}  // namespace workbench
