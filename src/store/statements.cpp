// The texts of the statements. Odd and missing blanks are intentional: tests pin each text.
#include "store/statements.h"

#include "platform/convert.h"
#include "platform/text.h"

namespace pricedown::statements {
namespace {

constexpr std::u16string_view kJoinItem = u"inner join t_ICItem b on a.FItemID=b.FItemID \r\n";
constexpr std::u16string_view kJoinClass =
    u"inner join ICPriceDownClass b on a.FItemID=b.FItemID \r\n";
constexpr std::u16string_view kByItemCode = u"and b.FNumber='";
constexpr std::u16string_view kByClassNumber = u"and b.FItemClassNumber='";

std::u16string History(std::int32_t year, std::int32_t period, std::u16string_view join,
                       std::u16string_view condition, std::u16string_view key) {
  const std::u16string y = NumberText(year);
  return Concatenate({u"select top 1 a.FItemID from ICPriceDownPrepare a \r\n", join,
                      u"where ((a.FYear='", y, u"' and a.FPeriod<'", NumberText(period),
                      u"') \r\nor (a.FYear<'", y, u"')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) ",
                      condition, key, u"'\r\n"});
}

std::u16string DeleteProvision(std::u16string_view beginning, std::u16string_view join,
                               std::int32_t year, std::int32_t period,
                               std::u16string_view condition, std::u16string_view key) {
  return Concatenate({beginning, u" from ICPriceDownPrepare a \r\n", join, u"where (a.FYear='",
                      NumberText(year), u"' and a.FPeriod='", NumberText(period), u"') \r\n",
                      condition, key, u"'\r\n"});
}

}  // namespace

std::u16string ProvisionMode() {
  return u"Select FValue From t_systemprofile where Fkey like 'PriceDownPrepare'";
}

std::u16string UserSetting(std::int32_t userNumber, std::u16string_view quotedKey) {
  return Concatenate({u"Select FValue From t_UserSetting Where FUserID=", NumberText(userNumber),
                      u" And FCategory='ZEP_APFC' And FKey =", quotedKey});
}

std::u16string ClassTree() {
  return u"Select t1.FitemClassNumber,t1.FitemClassName \r\n"
         u" FROM icPriceDownClass t1 order by t1.FitemClassNumber asc";
}

std::u16string ItemsOfClass(std::u16string_view classNumber) {
  return Concatenate(
      {u"SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as FShortNumber,"
       u"t1.FName,isnull(t1.FModel,'') as FModel,"
       u"t2.Fitemid,t2.FItemClassNumber,t2.FItemClassName,t2.FAPAccID,t2.FAPNumber,t2.FARAccID,"
       u"t2.FARNumber,t2.FPencentPrepare"
       u" FROM t_ICItem t1,icPriceDownClass t2"
       u" Where t1.Fitemid=t2.Fitemid and t1.FErpClsID not in(6,8) "
       u" and t2.FItemClassNumber='",
       classNumber, u"' Order by t1.FNumber asc"});
}

std::u16string AllItems() {
  return u"SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as FShortNumber,"
         u"t1.FName,isnull(t1.FModel,'') as FModel"
         u" FROM t_ICItem t1"
         u" Where t1.FErpClsID not in(6,8) order by t1.FNumber asc";
}

std::u16string ProvisionVoucher(std::int32_t year, std::int32_t period) {
  return Concatenate({u"select top 1 FVoucherID from t_voucher where FYear='", NumberText(year),
                      u"'and FPeriod='", NumberText(period),
                      u"'and FTranType=820 and FInternalInd='Industry'\r\n"});
}

std::u16string ClassHistory(std::int32_t year, std::int32_t period,
                            std::u16string_view classNumber) {
  return History(year, period, kJoinClass, kByClassNumber, classNumber);
}

std::u16string ItemHistory(std::int32_t year, std::int32_t period, std::u16string_view itemCode) {
  return History(year, period, kJoinItem, kByItemCode, itemCode);
}

std::u16string ItemCurrentAmounts(std::int32_t year, std::int32_t period,
                                  std::u16string_view itemCode) {
  return Concatenate({u"select top 1 a.FItemID from ICPriceDownPrepare a \r\n", kJoinItem,
                      u"where a.FYear='", NumberText(year), u"' and a.FPeriod='",
                      NumberText(period), u"'\r\n and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) ",
                      kByItemCode, itemCode, u"'\r\n"});
}

std::u16string DeleteClassProvision(std::int32_t year, std::int32_t period,
                                    std::u16string_view classNumber) {
  return DeleteProvision(u"delete a", kJoinClass, year, period, kByClassNumber, classNumber);
}

std::u16string DeleteItemProvision(std::int32_t year, std::int32_t period,
                                   std::u16string_view itemCode, DeleteForm form) {
  return DeleteProvision(form == DeleteForm::NoAlias ? u"delete" : u"delete  a", kJoinItem, year,
                         period, kByItemCode, itemCode);
}

std::u16string DeleteClass(std::u16string_view classNumber) {
  return Concatenate({u"delete from icPriceDownClass where FItemClassNumber='", classNumber, u"'"});
}

std::u16string AccountNumbers() { return u"select FNumber from t_account"; }

std::u16string ClassNumbers() { return u"select FItemClassNumber from icPriceDownClass"; }

std::u16string OtherClassNumbers(std::u16string_view classNumber) {
  return Concatenate({u"select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'",
                      classNumber, u"'"});
}

std::u16string AccountId(std::u16string_view accountNumber) {
  return Concatenate({u"SELECT FAccountID FROM t_account WHERE FNumber='", accountNumber, u"'"});
}

std::u16string ItemsOfOtherClasses(std::u16string_view classNumber) {
  return Concatenate(
      {u"SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>'", classNumber, u"'"});
}

std::u16string SaveDelete(std::u16string_view openingNumber) {
  return Concatenate(
      {u"delete from icPriceDownClass where  FItemClassNumber='", openingNumber, u"'"});
}

std::u16string SaveInsertEnd(const ClassColumns& columns) {
  return Concatenate({u",'", columns.classNumber, u"','", columns.className, u"',\r\n",
                      columns.lossAccountId, u",'", columns.lossAccountNumber, u"',",
                      columns.reserveAccountId, u",'", columns.reserveAccountNumber, u"',",
                      columns.percentage, u")\r\n"});
}

void AppendSaveInsert(std::u16string& text, std::u16string_view itemId, std::u16string_view end) {
  constexpr std::u16string_view kBegin =
      u" INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,"
      u"FAPAccID,FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES\r\n( ";
  text.append(kBegin).append(itemId).append(end);
}

}  // namespace pricedown::statements
