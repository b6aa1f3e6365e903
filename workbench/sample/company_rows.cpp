// The INSERT of each company table. It validates nothing: rows are taken as they are.
#include "workbench/sample/company_rows.h"

namespace workbench {

CompanyWriter::CompanyWriter(sqlite3* database)
    : account_(database,
               "INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)"
               "VALUES(?,?,?,?,?,?,?)"),
      item_(database,
            "INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID,FUnitName,"
            "FPlanPrice,FSalePrice)VALUES(?,?,?,?,?,?,?,?,?)"),
      class_(database,
             "INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,"
             "FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES(?,?,?,?,?,?,?,?)"),
      provision_(database,
                 "INSERT INTO ICPriceDownPrepare(FItemID,FYear,FPeriod,FHaveAdd,FCurrentAdd)"
                 "VALUES(?,?,?,?,?)"),
      voucher_(database,
               "INSERT INTO t_voucher(FVoucherID,FYear,FPeriod,FDate,FGroup,FNumber,FTranType,"
               "FInternalInd,FExplanation)VALUES(?,?,?,?,'记',?,?,?,?)"),
      profile_(database, "INSERT INTO t_systemprofile(FCategory,FKey,FValue)VALUES(?,?,?)"),
      user_(database, "INSERT INTO t_user(FUserID,FName,FDescription)VALUES(?,?,?)"),
      right_(database,
             "INSERT INTO t_UserRight(FUserID,FObjectType,FObjectID,FAccessMask)VALUES(?,?,?,?)"),
      setting_(database,
               "INSERT INTO t_UserSetting(FUserID,FCategory,FKey,FValue)VALUES(?,?,?,?)") {}

void CompanyWriter::Add(const AccountRow& row) {
  account_.Run(row.id, row.number, row.name, row.level, row.parentId, row.isDetail ? 1 : 0,
               row.isDebit ? 1 : -1);
}

void CompanyWriter::Add(const ItemRow& row) {
  item_.Run(row.id, row.number, row.shortNumber, row.name, row.model, row.category, row.unit,
            row.planPrice, row.salePrice);
}

void CompanyWriter::Add(const ClassRow& row) {
  class_.Run(row.itemId, row.number, row.name, row.lossAccountId, row.lossAccount,
             row.reserveAccountId, row.reserveAccount, row.percentage);
}

void CompanyWriter::Add(const ProvisionRow& row) {
  provision_.Run(row.itemId, row.year, row.period, row.haveAdd, row.currentAdd);
}

void CompanyWriter::Add(const VoucherRow& row) {
  voucher_.Run(row.id, row.year, row.period, row.date, row.number, row.tranType, row.internalInd,
               row.explanation);
}

void CompanyWriter::Add(const ProfileRow& row) { profile_.Run(row.category, row.key, row.value); }

void CompanyWriter::Add(const UserRow& row) { user_.Run(row.id, row.name, row.description); }

void CompanyWriter::Add(const RightRow& row) {
  right_.Run(row.userId, row.objectType, row.objectNumber, row.mask);
}

void CompanyWriter::Add(const UserSettingRow& row) {
  setting_.Run(row.userId, row.category, row.key, row.value);
}

}  // namespace workbench
