// Items from CSV: the columns, the rules of a line and the search for codes that exist. The
// transaction around it is the caller's.
#include "workbench/sample/company_rows.h"
#include "workbench/sample/csv_import.h"
#include "workbench/sample/field_rules.h"

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

constexpr NamedField kCodeField = {kCode, "物料代码", kMostCodeLength};
constexpr NamedField kNameField = {kName, "物料名称", kMostNameLength};
constexpr NamedField kModelField = {kModel, "规格型号", kMostModelLength};
constexpr NamedField kShortCodeField = {kShortCode, "短代码", kMostCodeLength};
constexpr NamedField kCategoryField = {kCategory, "物料属性", 0};
constexpr NamedField kUnitField = {kUnit, "计量单位", kMostNameLength};
constexpr NamedField kPlanField = {kPlan, "计划单价", 0};
constexpr NamedField kSaleField = {kSale, "销售单价", 0};

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

// Asks the database, because only it compares codes as the company does.
class KnownItems {
 public:
  explicit KnownItems(sqlite3* company)
      : find_(company, "SELECT FItemID FROM t_ICItem WHERE FNumber=?"),
        firstNewId_(
            static_cast<int>(QueryInteger(company, "SELECT ifnull(max(FItemID),0) FROM t_ICItem")) +
            1) {}

  int NextId() const { return firstNewId_ + static_cast<int>(lines_.size()); }

  /// True, and reported, when an item of that code is there already.
  bool ReportKnown(CsvTable& table, const std::string& number) {
    find_.Start(number);
    if (!find_.Step()) return false;
    const auto id = static_cast<int>(find_.Integer(0));
    if (id < firstNewId_) {
      table.Report("物料代码已在公司中存在:" + number);
    } else {
      const int line = lines_[static_cast<std::size_t>(id - firstNewId_)];
      table.Report("物料代码与第 " + std::to_string(line) + " 行重复:" + number);
    }
    return true;
  }

  void Remember(int line) { lines_.push_back(line); }

 private:
  Statement find_;
  int firstNewId_;
  std::vector<int> lines_;  // of the items added, by id
};

}  // namespace

int ImportItems(sqlite3* company, const CsvFile& file, std::vector<ImportProblem>* problems) {
  CsvTable table(file, kItemColumns, problems);
  KnownItems known(company);
  CompanyWriter writer(company);
  int added = 0;
  while (table.Next()) {
    ItemRow item = ReadItem(table);
    // A line with another fault still claims its code, so that a later duplicate is seen too.
    if (item.number.empty() || known.ReportKnown(table, item.number)) continue;
    item.id = known.NextId();
    writer.Add(item);
    known.Remember(table.line());
    ++added;
  }
  return added;
}

}  // namespace workbench
