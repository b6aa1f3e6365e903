// The standard chart as a table and its conversion to rows.
#include "workbench/sample/standard_accounts.h"

#include <algorithm>
#include <iterator>

namespace workbench {
namespace {

constexpr bool kDebit = true;
constexpr bool kCredit = false;

struct StandardAccount {
  std::string_view number;
  std::string_view name;
  bool isDebit;
};

constexpr StandardAccount kAssets[] = {
    {"1001", "库存现金", kDebit},
    {"1002", "银行存款", kDebit},
    {"1003", "存放中央银行款项", kDebit},
    {"1011", "存放同业", kDebit},
    {"1012", "其他货币资金", kDebit},
    {"1021", "结算备付金", kDebit},
    {"1031", "存出保证金", kDebit},
    {"1101", "交易性金融资产", kDebit},
    {"1111", "买入返售金融资产", kDebit},
    {"1121", "应收票据", kDebit},
    {"1122", "应收账款", kDebit},
    {"1123", "预付账款", kDebit},
    {"1131", "应收股利", kDebit},
    {"1132", "应收利息", kDebit},
    {"1201", "应收代位追偿款", kDebit},
    {"1211", "应收分保账款", kDebit},
    {"1212", "应收分保合同准备金", kDebit},
    {"1221", "其他应收款", kDebit},
    {"1231", "坏账准备", kCredit},
    {"1301", "贴现资产", kDebit},
    {"1302", "拆出资金", kDebit},
    {"1303", "贷款", kDebit},
    {"1304", "贷款损失准备", kCredit},
    {"1311", "代理兑付证券", kDebit},
    {"1321", "代理业务资产", kDebit},
    {"1401", "材料采购", kDebit},
    {"1402", "在途物资", kDebit},
    {"1403", "原材料", kDebit},
    {"1404", "材料成本差异", kDebit},
    {"1405", "库存商品", kDebit},
    {"1406", "发出商品", kDebit},
    {"1407", "商品进销差价", kCredit},
    {"1408", "委托加工物资", kDebit},
    {"1411", "周转材料", kDebit},
    {"1421", "消耗性生物资产", kDebit},
    {"1431", "贵金属", kDebit},
    {"1441", "抵债资产", kDebit},
    {"1451", "损余物资", kDebit},
    {"1461", "融资租赁资产", kDebit},
    {"1471", "存货跌价准备", kCredit},
    {"1501", "持有至到期投资", kDebit},
    {"1502", "持有至到期投资减值准备", kCredit},
    {"1503", "可供出售金融资产", kDebit},
    {"1511", "长期股权投资", kDebit},
    {"1512", "长期股权投资减值准备", kCredit},
    {"1521", "投资性房地产", kDebit},
    {"1531", "长期应收款", kDebit},
    {"1532", "未实现融资收益", kCredit},
    {"1541", "存出资本保证金", kDebit},
    {"1601", "固定资产", kDebit},
    {"1602", "累计折旧", kCredit},
    {"1603", "固定资产减值准备", kCredit},
    {"1604", "在建工程", kDebit},
    {"1605", "工程物资", kDebit},
    {"1606", "固定资产清理", kDebit},
    {"1611", "未担保余值", kDebit},
    {"1621", "生产性生物资产", kDebit},
    {"1622", "生产性生物资产累计折旧", kCredit},
    {"1623", "公益性生物资产", kDebit},
    {"1631", "油气资产", kDebit},
    {"1632", "累计折耗", kCredit},
    {"1701", "无形资产", kDebit},
    {"1702", "累计摊销", kCredit},
    {"1703", "无形资产减值准备", kCredit},
    {"1711", "商誉", kDebit},
    {"1801", "长期待摊费用", kDebit},
    {"1811", "递延所得税资产", kDebit},
    {"1821", "独立账户资产", kDebit},
    {"1901", "待处理财产损溢", kDebit},
};

constexpr StandardAccount kLiabilitiesAndEquity[] = {
    {"2001", "短期借款", kCredit},
    {"2002", "存入保证金", kCredit},
    {"2003", "拆入资金", kCredit},
    {"2004", "向中央银行借款", kCredit},
    {"2011", "吸收存款", kCredit},
    {"2012", "同业存放", kCredit},
    {"2021", "贴现负债", kCredit},
    {"2101", "交易性金融负债", kCredit},
    {"2111", "卖出回购金融资产款", kCredit},
    {"2201", "应付票据", kCredit},
    {"2202", "应付账款", kCredit},
    {"2203", "预收账款", kCredit},
    {"2211", "应付职工薪酬", kCredit},
    {"2221", "应交税费", kCredit},
    {"2231", "应付利息", kCredit},
    {"2232", "应付股利", kCredit},
    {"2241", "其他应付款", kCredit},
    {"2251", "应付保单红利", kCredit},
    {"2261", "应付分保账款", kCredit},
    {"2311", "代理买卖证券款", kCredit},
    {"2312", "代理承销证券款", kCredit},
    {"2313", "代理兑付证券款", kCredit},
    {"2314", "代理业务负债", kCredit},
    {"2401", "递延收益", kCredit},
    {"2501", "长期借款", kCredit},
    {"2502", "应付债券", kCredit},
    {"2601", "未到期责任准备金", kCredit},
    {"2602", "保险责任准备金", kCredit},
    {"2611", "保户储金", kCredit},
    {"2621", "独立账户负债", kCredit},
    {"2701", "长期应付款", kCredit},
    {"2702", "未确认融资费用", kDebit},
    {"2711", "专项应付款", kCredit},
    {"2801", "预计负债", kCredit},
    {"2901", "递延所得税负债", kCredit},
    {"3001", "清算资金往来", kDebit},
    {"3002", "货币兑换", kDebit},
    {"3101", "衍生工具", kDebit},
    {"3201", "套期工具", kDebit},
    {"3202", "被套期项目", kDebit},
    {"4001", "实收资本", kCredit},
    {"4002", "资本公积", kCredit},
    {"4101", "盈余公积", kCredit},
    {"4102", "一般风险准备", kCredit},
    {"4103", "本年利润", kCredit},
    {"4104", "利润分配", kCredit},
    {"4201", "库存股", kDebit},
};

constexpr StandardAccount kCostsAndResults[] = {
    {"5001", "生产成本", kDebit},
    {"5101", "制造费用", kDebit},
    {"5201", "劳务成本", kDebit},
    {"5301", "研发支出", kDebit},
    {"5401", "工程施工", kDebit},
    {"5402", "工程结算", kCredit},
    {"5403", "机械作业", kDebit},
    {"6001", "主营业务收入", kCredit},
    {"6011", "利息收入", kCredit},
    {"6021", "手续费及佣金收入", kCredit},
    {"6031", "保费收入", kCredit},
    {"6041", "租赁收入", kCredit},
    {"6051", "其他业务收入", kCredit},
    {"6061", "汇兑损益", kCredit},
    {"6101", "公允价值变动损益", kCredit},
    {"6111", "投资收益", kCredit},
    {"6201", "摊回保险责任准备金", kCredit},
    {"6202", "摊回赔付支出", kCredit},
    {"6203", "摊回分保费用", kCredit},
    {"6301", "营业外收入", kCredit},
    {"6401", "主营业务成本", kDebit},
    {"6402", "其他业务成本", kDebit},
    {"6403", "营业税金及附加", kDebit},
    {"6411", "利息支出", kDebit},
    {"6421", "手续费及佣金支出", kDebit},
    {"6501", "提取未到期责任准备金", kDebit},
    {"6502", "提取保险责任准备金", kDebit},
    {"6511", "赔付支出", kDebit},
    {"6521", "保单红利支出", kDebit},
    {"6531", "退保金", kDebit},
    {"6541", "分出保费", kDebit},
    {"6542", "分保费用", kDebit},
    {"6601", "销售费用", kDebit},
    {"6602", "管理费用", kDebit},
    {"6603", "财务费用", kDebit},
    {"6604", "勘探费用", kDebit},
    {"6701", "资产减值损失", kDebit},
    {"6711", "营业外支出", kDebit},
    {"6801", "所得税费用", kDebit},
    {"6901", "以前年度损益调整", kCredit},
};

// Includes numbers that must not be read as decimals: 1231.10 beside 1231.1, 1471.20 without a
// 1471.2, two dots, and a very long one.
constexpr StandardAccount kSubAccounts[] = {
    {"1002.01", "基本存款账户", kDebit},
    {"1002.02", "一般存款账户", kDebit},
    {"1231.1", "应收账款坏账准备", kCredit},
    {"1231.10", "其他应收款坏账准备", kCredit},
    {"1403.01", "主要材料", kDebit},
    {"1403.02", "辅助材料", kDebit},
    {"1403.03", "外购半成品", kDebit},
    {"1405.01", "自制产成品", kDebit},
    {"1405.02", "外购商品", kDebit},
    {"1471.01", "原材料跌价准备", kCredit},
    {"1471.01.01", "黑色金属跌价准备", kCredit},
    {"1471.01.02", "有色金属跌价准备", kCredit},
    {"1471.02", "半成品跌价准备", kCredit},
    {"1471.03", "库存商品跌价准备", kCredit},
    {"1471.04", "周转材料跌价准备", kCredit},
    {"1471.20", "委托加工物资跌价准备", kCredit},
    {"1471.99", "其他存货跌价准备", kCredit},
    {"1471.99.0001", "长期积压存货跌价准备", kCredit},
    {"1471.99.0001.ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789", "长期积压存货跌价准备—异地仓库", kCredit},
    {"5101.01", "车间管理人员薪酬", kDebit},
    {"5101.02", "机物料消耗", kDebit},
    {"6602.01", "办公费", kDebit},
    {"6602.02", "存货盘亏", kDebit},
    {"6701.01", "存货跌价损失", kDebit},
    {"6701.01.01", "原材料跌价损失", kDebit},
    {"6701.01.02", "库存商品跌价损失", kDebit},
    {"6701.02", "坏账损失", kDebit},
    {"6701.03", "固定资产减值损失", kDebit},
    {"6701.20", "委托加工物资跌价损失", kDebit},
};

AccountRow* FindParent(std::vector<AccountRow>& rows, std::string_view number) {
  const std::size_t dot = number.rfind('.');
  if (dot == std::string_view::npos) return nullptr;
  const auto parent = std::find_if(rows.begin(), rows.end(), [&](const AccountRow& row) {
    return row.number == number.substr(0, dot);
  });
  return parent == rows.end() ? nullptr : &*parent;
}

}  // namespace

std::vector<AccountRow> MakeAccounts() {
  std::vector<StandardAccount> chart(std::begin(kAssets), std::end(kAssets));
  chart.insert(chart.end(), std::begin(kLiabilitiesAndEquity), std::end(kLiabilitiesAndEquity));
  chart.insert(chart.end(), std::begin(kCostsAndResults), std::end(kCostsAndResults));
  chart.insert(chart.end(), std::begin(kSubAccounts), std::end(kSubAccounts));
  std::sort(chart.begin(), chart.end(),
            [](const auto& left, const auto& right) { return left.number < right.number; });

  std::vector<AccountRow> rows;
  for (const StandardAccount& account : chart) {
    AccountRow row;
    row.id = static_cast<int>(rows.size()) + 1;
    row.number = account.number;
    row.name = account.name;
    row.isDebit = account.isDebit;
    if (AccountRow* parent = FindParent(rows, account.number)) {
      parent->isDetail = false;
      row.parentId = parent->id;
      row.level = parent->level + 1;
    }
    rows.push_back(row);
  }
  return rows;
}

int FindAccountId(const std::vector<AccountRow>& accounts, std::string_view number) {
  const auto found = std::find_if(accounts.begin(), accounts.end(),
                                  [&](const AccountRow& row) { return row.number == number; });
  return found == accounts.end() ? 0 : found->id;
}

}  // namespace workbench
