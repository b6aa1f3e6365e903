// The columns of each company table and their values, without validation.
#include "workbench/sample/company_rows.h"

namespace workbench {
namespace {

struct TableColumns {
  std::string_view table;
  std::string_view columns;
};

// In the order of CompanyWriter::Table.
constexpr TableColumns kTables[] = {
    {"t_account", "FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC"},
    {"t_ICItem",
     "FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID,FUnitName,FPlanPrice,FSalePrice"},
    {"icPriceDownClass",
     "FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,FARAccID,FARNumber,"
     "FPencentPrepare"},
    {"ICPriceDownPrepare", "FItemID,FYear,FPeriod,FHaveAdd,FCurrentAdd"},
    {"t_voucher", "FYear,FPeriod,FDate,FGroup,FNumber,FTranType,FInternalInd,FExplanation"},
    {"t_systemprofile", "FCategory,FKey,FValue"},
    {"t_user", "FUserID,FName,FDescription"},
    {"t_UserRight", "FUserID,FObjectType,FObjectID,FAccessMask"},
    {"t_UserSetting", "FUserID,FCategory,FKey,FValue"},
};

InsertValue Of(int value) { return std::int64_t{value}; }
InsertValue Of(double value) { return value; }
InsertValue Of(const std::string& value) { return std::string_view(value); }
InsertValue Of(const char* value) { return std::string_view(value); }
template <class Value>
InsertValue Of(const std::optional<Value>& value) {
  return value ? Of(*value) : InsertValue();
}

}  // namespace

CompanyWriter::CompanyWriter(Connection& company, Progress progress)
    : progress_(std::move(progress)) {
  for (const TableColumns& each : kTables) {
    tables_.push_back(company.PrepareInsert(each.table, each.columns));
  }
}

void CompanyWriter::Insert(Table table, std::initializer_list<InsertValue> row) {
  tables_[table]->Insert({row.begin(), row.size()});
  if (++rows_ % kProgressRows == 0 && progress_) progress_(rows_);
}

void CompanyWriter::Finish() {
  for (const auto& table : tables_) table->Finish();
}

void CompanyWriter::Add(const AccountRow& row) {
  Insert(kAccount, {Of(row.id), Of(row.number), Of(row.name), Of(row.level), Of(row.parentId),
                    Of(row.isDetail ? 1 : 0), Of(row.isDebit ? 1 : -1)});
}

void CompanyWriter::Add(const ItemRow& row) {
  Insert(kItem, {Of(row.id), Of(row.number), Of(row.shortNumber), Of(row.name), Of(row.model),
                 Of(row.category), Of(row.unit), Of(row.planPrice), Of(row.salePrice)});
}

void CompanyWriter::Add(const ClassRow& row) {
  Insert(kClass,
         {Of(row.itemId), Of(row.number), Of(row.name), Of(row.lossAccountId), Of(row.lossAccount),
          Of(row.reserveAccountId), Of(row.reserveAccount), Of(row.percentage)});
}

void CompanyWriter::Add(const ProvisionRow& row) {
  Insert(kProvision,
         {Of(row.itemId), Of(row.year), Of(row.period), Of(row.haveAdd), Of(row.currentAdd)});
}

void CompanyWriter::Add(const VoucherRow& row) {
  Insert(kVoucher, {Of(row.year), Of(row.period), Of(row.date), Of("记"), Of(row.number),
                    Of(row.tranType), Of(row.internalInd), Of(row.explanation)});
}

void CompanyWriter::Add(const ProfileRow& row) {
  Insert(kProfile, {Of(row.category), Of(row.key), Of(row.value)});
}

void CompanyWriter::Add(const UserRow& row) {
  Insert(kUser, {Of(row.id), Of(row.name), Of(row.description)});
}

void CompanyWriter::Add(const RightRow& row) {
  Insert(kRight, {Of(row.userId), Of(row.objectType), Of(row.objectNumber), Of(row.mask)});
}

void CompanyWriter::Add(const UserSettingRow& row) {
  Insert(kSetting, {Of(row.userId), Of(row.category), Of(row.key), Of(row.value)});
}

}  // namespace workbench
