// The library's guards as queries that return every row instead of the first one.
#include "workbench/sample/company_explain.h"

#include "platform/convert.h"
#include "platform/error.h"
#include "workbench/company/utf.h"
#include "workbench/sample/company_query.h"

namespace workbench {
namespace {

struct Period {
  std::int64_t year = 0;
  std::int64_t period = 0;

  bool operator==(const Period&) const = default;
  bool IsBefore(const Period& other) const {
    return year < other.year || (year == other.year && period < other.period);
  }
  std::string Text() const { return std::to_string(year) + "年第" + std::to_string(period) + "期"; }
};

std::string AmountText(const Cell& cell) { return cell.IsNull() ? "空" : TextOf(cell); }

// As the library reads it. A missing value is 0; nothing for a text that is no number.
std::optional<std::int64_t> NumberOfProfile(Connection& company, const char* key) {
  const ResultSet rows = Ask(
      company, "SELECT FValue FROM t_systemprofile WHERE FCategory='IC' AND FKey=" + Literal(key));
  if (rows.RowCount() == 0 || rows.At(0, 0).IsNull()) return 0;
  try {
    return pricedown::ToInt32(pricedown::Value(Utf16FromUtf8(TextOf(rows.At(0, 0)))));
  } catch (const pricedown::AutomationError&) {
    return std::nullopt;
  }
}

class Explainer {
 public:
  Explainer(Connection& company, std::string subject)
      : company_(company), explanation_{std::move(subject), {}} {
    const auto year = NumberOfProfile(company, "CurrentYear");
    const auto period = NumberOfProfile(company, "CurrentPeriod");
    if (year && period) {
      current_ = Period{*year, *period};
    } else {
      Add("无法读取当前期间(IC 的 CurrentYear 和 CurrentPeriod)");
    }
  }

  void Add(std::string reason) { explanation_.reasons.push_back(std::move(reason)); }

  // Non-zero amounts of the rows that `join` and `condition` select.
  enum class Which { Earlier, Current };
  std::vector<std::string> Amounts(Which which, const std::string& join,
                                   const std::string& condition) {
    std::vector<std::string> lines;
    if (!current_) return lines;
    const ResultSet rows =
        Ask(company_,
            "SELECT a.FItemID,a.FYear,a.FPeriod,a.FHaveAdd,a.FCurrentAdd,i.FNumber "
            "FROM ICPriceDownPrepare a INNER JOIN " +
                join +
                " b ON a.FItemID=b.FItemID LEFT JOIN t_ICItem i ON a.FItemID=i.FItemID WHERE "
                "(a.FHaveAdd<>0 OR a.FCurrentAdd<>0) AND " +
                condition + " ORDER BY a.FYear,a.FPeriod,a.FItemID");
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      const Period period{IntegerOf(rows.At(row, 1)), IntegerOf(rows.At(row, 2))};
      const bool isChosen =
          which == Which::Earlier ? period.IsBefore(*current_) : period == *current_;
      if (!isChosen) continue;
      std::string line = period.Text() + ": 物料 " + CodeOf(rows, row) + ", 累计计提 " +
                         AmountText(rows.At(row, 3)) + ", 本期计提 " + AmountText(rows.At(row, 4));
      // A class may hold an item twice.
      if (lines.empty() || lines.back() != line) lines.push_back(std::move(line));
    }
    return lines;
  }

  // The vouchers of the current period that guard provisions.
  std::vector<std::string> Vouchers() {
    std::vector<std::string> lines;
    if (!current_) return lines;
    const ResultSet rows = Ask(
        company_,
        "SELECT FVoucherID,FDate,FGroup,FNumber,FExplanation FROM t_voucher WHERE "
        "FYear=" +
            std::to_string(current_->year) + " AND FPeriod=" + std::to_string(current_->period) +
            " AND FTranType=820 AND FInternalInd='Industry' ORDER BY FVoucherID");
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      lines.push_back(current_->Text() + ": 凭证 " + TextOf(rows.At(row, 2)) + "-" +
                      std::to_string(IntegerOf(rows.At(row, 3))) + ", 内码 " +
                      std::to_string(IntegerOf(rows.At(row, 0))) + ", " + TextOf(rows.At(row, 1)) +
                      ", " + TextOf(rows.At(row, 4)));
    }
    return lines;
  }

  void AddAll(const std::string& title, const std::vector<std::string>& lines) {
    for (const std::string& line : lines) Add(title + " " + line);
  }

  Explanation Release() { return std::move(explanation_); }

 private:
  // An item's code, or its id where the item is gone.
  static std::string CodeOf(const ResultSet& amounts, std::size_t row) {
    const Cell& code = amounts.At(row, 5);
    return code.IsNull() ? "编号 " + TextOf(amounts.At(row, 0)) : TextOf(code);
  }

  Connection& company_;
  Explanation explanation_;
  std::optional<Period> current_;
};

constexpr const char* kQuoted = "代码含单引号,命令的语句会出错";

}  // namespace

std::optional<Explanation> ExplainClass(Connection& company, std::string_view number) {
  company.RequireCompany();
  const std::string condition = "FItemClassNumber=" + Literal(number);
  const ResultSet members = Ask(
      company, "SELECT FItemClassNumber,FItemClassName FROM icPriceDownClass WHERE " + condition);
  if (members.RowCount() == 0) return std::nullopt;
  Explainer explainer(company, TextOf(members.At(0, 0)) + " " + TextOf(members.At(0, 1)));
  if (number.find('\'') != std::string_view::npos) explainer.Add(kQuoted);
  const std::int64_t listed = QueryInteger(
      company,
      "SELECT count(*) FROM t_ICItem a INNER JOIN icPriceDownClass b ON a.FItemID=b.FItemID "
      "WHERE a.FErpClsID NOT IN(6,8) AND b." +
          condition);
  if (listed == 0) explainer.Add("没有可列出的物料,选不中这个类别");
  explainer.AddAll("本期已生成跌价准备凭证,", explainer.Vouchers());
  explainer.AddAll("以前期间已有业务,", explainer.Amounts(Explainer::Which::Earlier,
                                                          "icPriceDownClass", "b." + condition));
  return explainer.Release();
}

std::optional<Explanation> ExplainItem(Connection& company, std::string_view code) {
  company.RequireCompany();
  const std::string condition = "FNumber=" + Literal(code);
  const ResultSet items =
      Ask(company, "SELECT FItemID,FNumber,FName,FErpClsID FROM t_ICItem WHERE " + condition);
  if (items.RowCount() == 0) return std::nullopt;
  Explainer explainer(company, TextOf(items.At(0, 1)) + " " + TextOf(items.At(0, 2)));
  if (code.find('\'') != std::string_view::npos) explainer.Add(kQuoted);
  // Several items may have the code; the commands do not distinguish them either.
  const std::int64_t listed = QueryInteger(
      company,
      "SELECT count(*) FROM t_ICItem a INNER JOIN icPriceDownClass b ON a.FItemID=b.FItemID "
      "WHERE a.FErpClsID NOT IN(6,8) AND a." +
          condition);
  for (std::size_t row = 0; listed == 0 && row < items.RowCount(); ++row) {
    const std::int64_t kind = IntegerOf(items.At(row, 3));
    if (kind == 6 || kind == 8) {
      explainer.Add("物料属性为 " + std::to_string(kind) + ",不在类别的明细中列出");
    }
    const std::int64_t classes =
        QueryInteger(company, "SELECT count(*) FROM icPriceDownClass WHERE FItemID=" +
                                  std::to_string(IntegerOf(items.At(row, 0))));
    if (classes == 0) explainer.Add("不属于任何类别");
  }
  explainer.AddAll("以前期间已有业务,",
                   explainer.Amounts(Explainer::Which::Earlier, "t_ICItem", "b." + condition));
  const std::vector<std::string> vouchers = explainer.Vouchers();
  const std::vector<std::string> amounts =
      explainer.Amounts(Explainer::Which::Current, "t_ICItem", "b." + condition);
  if (!vouchers.empty() && !amounts.empty()) {
    explainer.AddAll("本期已生成跌价准备凭证,", vouchers);
    explainer.AddAll("本期已有跌价准备,", amounts);
  }
  return explainer.Release();
}

}  // namespace workbench
