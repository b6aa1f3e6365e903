// Items from CSV: the columns and the rules of a line.
#include "workbench/sample/added_lines.h"
#include "workbench/sample/company_rows.h"
#include "workbench/sample/csv_import.h"
#include "workbench/sample/field_rules.h"
#include "workbench/sample/import_rows.h"

namespace workbench {
namespace {

enum ItemColumn : std::size_t { kCode, kName, kModel, kShortCode, kCategory, kUnit, kPlan, kSale };

constexpr CsvColumn kItemColumns[] = {
    {"物料代码|代码|fnumber|number|code", true},
    {"物料名称|名称|fname|name", true},
    {"规格型号|规格|型号|fmodel|model|specification", false},
    {"短代码|fshortnumber|shortnumber|shortcode", false},
    {"物料属性|属性|ferpclsid|category", false},
    {"计量单位|单位|funitname|unit", false},
    {"计划单价|fplanprice|planprice", false},
    {"销售单价|fsaleprice|saleprice", false},
};

constexpr NamedField kCodeField = {kCode, "物料代码", kMaximumCodeLength};
constexpr NamedField kNameField = {kName, "物料名称", kMaximumNameLength};
constexpr NamedField kModelField = {kModel, "规格型号", kMaximumModelLength};
constexpr NamedField kShortCodeField = {kShortCode, "短代码", kMaximumCodeLength};
constexpr NamedField kCategoryField = {kCategory, "物料属性", 0};
constexpr NamedField kUnitField = {kUnit, "计量单位", kMaximumNameLength};
constexpr NamedField kPlanField = {kPlan, "计划单价", 0};
constexpr NamedField kSaleField = {kSale, "销售单价", 0};

}  // namespace

CsvTable OpenItemLines(const CsvFile& file, std::vector<ImportProblem>* problems) {
  return {file, kItemColumns, problems};
}

ItemRow ReadItem(CsvTable& table) {
  ItemRow item;
  item.number = ReadCode(table, kCodeField);
  item.name = ReadText(table, kNameField, true).value_or("");
  item.model = ReadText(table, kModelField, false);
  item.shortNumber = ReadOptionalCode(table, kShortCodeField);
  item.category = ReadWholeNumber(table, kCategoryField, 1, 9, 1);
  item.unit = ReadText(table, kUnitField, false).value_or("");
  item.planPrice = ReadPrice(table, kPlanField);
  item.salePrice = ReadPrice(table, kSaleField);
  return item;
}

int ImportItems(Connection& company, const CsvFile& file, std::vector<ImportProblem>* problems) {
  CsvTable table = OpenItemLines(file, problems);
  AddedLines lines(company, {"t_ICItem", "FItemID", "物料代码"});
  CompanyWriter writer(company);
  while (table.Next()) {
    ItemRow item = ReadItem(table);
    // A line with another problem still claims its code, so that a later duplicate is reported,
    // too.
    if (item.number.empty()) continue;
    item.id = lines.NextId();
    writer.Add(item);
    lines.Remember(table.line());
  }
  writer.Finish();
  lines.ReportKnown(table);
  return lines.Count();
}

}  // namespace workbench
