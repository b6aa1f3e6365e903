// A small company with two classes of items, on the stand-in suite and its database.
// Tests change it directly and compare its rows before and after a command.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/convert.h"
#include "store/connection.h"
#include "store/statements.h"
#include "tests/suite/suite_fixture.h"

namespace workbench {

// The company's two classes as Classes() lists them.
inline constexpr const char* kA1 =
    "A1|原材料|1|1051|5711|1023|1281.1|12.5\n"
    "A1|原材料|2|1051|5711|1023|1281.1|12.5\n"
    "A1|原材料|3|1051|5711|1023|1281.1|12.5\n";
inline constexpr const char* kB1 =
    "B1|成品|4|1051|5711|1023|1281.1|12.5\n"
    "B1|成品|5|1051|5711|1023|1281.1|12.5\n";

class ClassCompany : public SuiteFixture {
 protected:
  ClassCompany() {
    auto queue = std::make_unique<QueuedPickers>();
    pickers = queue.get();
    suite_->pickers = std::move(queue);
    suite_->SetProfile(u"IC", u"CurrentYear", u"2008");
    suite_->SetProfile(u"IC", u"CurrentPeriod", u"3");
    Run(u"INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)VALUES"
        u"(1023,'1281.1','存货跌价准备',1,0,1,1)");
    Run(u"INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)VALUES"
        u"(1051,'5711','存货跌价损失',1,0,1,1)");
    for (std::int32_t id = 1; id <= 12; ++id) AddItem(id);
    InsertClass(u"A1", u"原材料", {1, 2, 3});
    InsertClass(u"B1", u"成品", {4, 5});
  }

  // Directly into the company, bypassing the library.
  void Run(std::u16string_view statement) { suite_->Execute(statement); }
  void AddItem(std::int32_t id) {
    const std::u16string number = pricedown::NumberText(id);
    Run(pricedown::Concatenate(
        {u"INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)VALUES(",
         number, u",'01.", number, u"','", number, u"','物料", number, u"','M", number, u"',1)"}));
  }
  void InsertClass(std::u16string_view number, std::u16string_view name,
                   const std::vector<std::int32_t>& items) {
    for (const std::int32_t id : items) {
      std::u16string text;
      pricedown::statements::AppendSaveInsert(
          text, pricedown::NumberText(id),
          pricedown::statements::SaveInsertEnd(
              {number, name, u"1051", u"5711", u"1023", u"1281.1", u"12.5"}));
      Run(text);
    }
  }
  void AddProvision(std::int32_t id, std::int32_t year, std::int32_t period, double amount) {
    Run(pricedown::Concatenate(
        {u"INSERT INTO ICPriceDownPrepare(FItemID,FYear,FPeriod,FHaveAdd,FCurrentAdd)VALUES(",
         pricedown::NumberText(id), u",", pricedown::NumberText(year), u",",
         pricedown::NumberText(period), u",0,", pricedown::NumberText(amount), u")"}));
  }
  void AddVoucher() {
    Run(u"INSERT INTO t_voucher(FVoucherID,FYear,FPeriod,FTranType,FInternalInd)VALUES"
        u"(1,2008,3,820,'Industry')");
  }

  // The whole class table, one row a line, in number and item order.
  std::string Classes() {
    return Table(
        u"select FItemClassNumber,FItemClassName,FItemID,FAPAccID,FAPNumber,FARAccID,FARNumber,"
        u"FPencentPrepare from icPriceDownClass order by FItemClassNumber asc",
        {u"FItemClassNumber", u"FItemClassName", u"FItemID", u"FAPAccID", u"FAPNumber", u"FARAccID",
         u"FARNumber", u"FPencentPrepare"});
  }
  std::string Provisions() {
    return Table(u"select FItemID,FYear,FPeriod,FCurrentAdd from ICPriceDownPrepare",
                 {u"FItemID", u"FYear", u"FPeriod", u"FCurrentAdd"});
  }

  QueuedPickers* pickers = nullptr;

 private:
  std::string Table(std::u16string_view statement, const std::vector<std::u16string>& columns) {
    const pricedown::Recordset rows = pricedown::Connection(factory_).Execute(statement);
    std::vector<std::string> lines;
    for (; !rows.AtEnd(); rows.MoveNext()) {
      std::string& line = lines.emplace_back();
      for (const std::u16string& column : columns) {
        if (!line.empty()) line += '|';
        line += pricedown::ToUtf8(pricedown::ToText(rows.Field(column)));
      }
    }
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
  }
};

}  // namespace workbench
