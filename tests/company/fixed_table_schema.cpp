#include "tests/company/fixed_table_schema.h"

#include "workbench/company/name_scope.h"

namespace workbench::testing {
namespace {

struct Column {
  const char* table;
  const char* name;
  const char* type;
};

constexpr Column kColumns[] = {
    {"icPriceDownClass", "FItemID", "INTEGER"},
    {"icPriceDownClass", "FItemClassNumber", "NVARCHAR(80)"},
    {"icPriceDownClass", "FItemClassName", "NVARCHAR(80)"},
    {"icPriceDownClass", "FAPAccID", "INTEGER"},
    {"icPriceDownClass", "FAPNumber", "NVARCHAR(80)"},
    {"icPriceDownClass", "FARAccID", "INTEGER"},
    {"icPriceDownClass", "FARNumber", "NVARCHAR(80)"},
    {"icPriceDownClass", "FPencentPrepare", "DECIMAL(28,10)"},
    {"ICPriceDownPrepare", "FItemID", "INTEGER"},
    {"ICPriceDownPrepare", "FYear", "INTEGER"},
    {"ICPriceDownPrepare", "FPeriod", "INTEGER"},
    {"ICPriceDownPrepare", "FHaveAdd", "FLOAT"},
    {"ICPriceDownPrepare", "FCurrentAdd", "FLOAT"},
    {"t_voucher", "FVoucherID", "INTEGER"},
    {"t_voucher", "FYear", "INTEGER"},
    {"t_voucher", "FPeriod", "INTEGER"},
    {"t_voucher", "FTranType", "INTEGER"},
    {"t_voucher", "FInternalInd", "NVARCHAR(20)"},
    {"t_ICItem", "FItemID", "INTEGER"},
    {"t_ICItem", "FNumber", "NVARCHAR(80)"},
    {"t_ICItem", "FShortNumber", "NVARCHAR(80)"},
    {"t_ICItem", "FName", "NVARCHAR(80)"},
    {"t_ICItem", "FModel", "NVARCHAR(255)"},
    {"t_ICItem", "FErpClsID", "INTEGER"},
    {"t_account", "FAccountID", "INTEGER"},
    {"t_account", "FNumber", "NVARCHAR(80)"},
    {"t_systemprofile", "FCategory", "NVARCHAR(80)"},
    {"t_systemprofile", "FKey", "NVARCHAR(80)"},
    {"t_systemprofile", "FValue", "NVARCHAR(255)"},
    {"t_UserSetting", "FUserID", "INTEGER"},
    {"t_UserSetting", "FCategory", "NVARCHAR(80)"},
    {"t_UserSetting", "FKey", "NVARCHAR(80)"},
    {"t_UserSetting", "FValue", "NVARCHAR(255)"},
};

}  // namespace

bool FixedTableSchema::HasTable(std::string_view table) {
  for (const Column& column : kColumns) {
    if (SameName(column.table, table)) return true;
  }
  return false;
}

std::optional<std::string> FixedTableSchema::DeclaredType(std::string_view table,
                                                          std::string_view column) {
  for (const Column& known : kColumns) {
    if (SameName(known.table, table) && SameName(known.name, column)) return known.type;
  }
  return std::nullopt;
}

}  // namespace workbench::testing
