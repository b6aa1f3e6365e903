// Expected calls of deleting class 01 in the third period of 2008.
// Expected values are literals; the code under test builds none of them.
#pragma once

#include <string>
#include <string_view>

namespace pricedown::testing {

inline constexpr std::u16string_view kVoucher =
    u"select top 1 FVoucherID from t_voucher where FYear='2008'and FPeriod='3'and "
    u"FTranType=820 and FInternalInd='Industry'\r\n";
inline constexpr std::u16string_view kHistory =
    u"select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
    u"inner join ICPriceDownClass b on a.FItemID=b.FItemID \r\n"
    u"where ((a.FYear='2008' and a.FPeriod<'3') \r\n"
    u"or (a.FYear<'2008')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FItemClassNumber='01'\r\n";
inline constexpr std::u16string_view kDeleteProvision =
    u"delete a from ICPriceDownPrepare a \r\n"
    u"inner join ICPriceDownClass b on a.FItemID=b.FItemID \r\n"
    u"where (a.FYear='2008' and a.FPeriod='3') \r\n"
    u"and b.FItemClassNumber='01'\r\n";
inline constexpr std::u16string_view kDeleteClass =
    u"delete from icPriceDownClass where FItemClassNumber='01'";

inline constexpr const char* kQuestion =
    "ask question \"岚禾提示\": \"确定要删除当前记录? 当前的物料类别代码为:01  "
    "物料类别名称为:原料\" -> ";

// From the answer Yes up to the voucher guard.
inline std::string ReadingThePeriod(const std::string& properties) {
  std::string lines = "screen pointer 11\ncreate ZEPEBSBase.SystemProfile\n";
  for (const char* key : {"CurrentYear", "CurrentPeriod"}) {
    lines +=
        "create ZEPPropsMgr.ShareProps\n"
        "ZEPPropsMgr.ShareProps.GetProperty(\"PropsString\", ref Empty)\n"
        "release ZEPPropsMgr.ShareProps\n"
        "ZEPEBSBase.SystemProfile.GetProfile(\"" +
        properties + "\", \"IC\", \"" + key + "\")\n";
  }
  return lines +
         "release ZEPEBSBase.SystemProfile\n"
         "create ZEPConnection.AppConnection\n";
}

}  // namespace pricedown::testing
