// The commands create, import and info, and what they tell the user. The work is done in
// workbench/sample.
#include "workbench/cli/commands.h"

#include <chrono>
#include <exception>
#include <ostream>

#include "workbench/cli/arguments.h"
#include "workbench/company/schema.h"
#include "workbench/sample/company_file.h"
#include "workbench/sample/company_info.h"
#include "workbench/sample/csv_import.h"
#include "workbench/sample/file_path.h"
#include "workbench/sample/sqlite_handle.h"
#include "workbench/sample/utf8_text.h"

namespace workbench {
namespace {

constexpr const char* kHelp =
    R"(workbench — 物料类别维护工作台的公司文件工具

用法:
  workbench create 文件 [--seed N] [--items N --classes M] [--force]
      建立公司文件。不给 --items 时建立示例公司(3200 个物料,25 个类别);
      给出 --items(最多 1000000)和 --classes(最多 20000)时建立指定规模的公司。
      同一个 --seed(默认 1)总是得到同样的内容。文件已存在时拒绝,--force 覆盖。

  workbench import 文件 [--items 物料.csv] [--accounts 科目.csv]
      把自己的物料和科目加入公司。CSV 为 UTF-8 编码,首行是列名:
        物料: 物料代码, 物料名称, 规格型号, 短代码, 物料属性(1-9), 计量单位,
              计划单价, 销售单价(前两列必需)
        科目: 科目代码, 科目名称, 余额方向(借/贷)(前两列必需)
      有一行不合格就什么也不导入,并逐行报告"文件:行号: 原因"。
      公司中已有的代码不更新,按不合格处理。

  workbench info 文件
      显示公司的记录数、当前期间和用户。

  workbench --help
      显示本说明。

退出码: 0 成功, 1 导入文件有不合格的行, 2 命令行有误, 3 失败
)";

void Create(const Arguments& arguments, std::ostream& out) {
  CompanyFilePlan plan;
  plan.seed = arguments.seed;
  plan.replaces = arguments.force;
  if (arguments.items) {
    plan.large.emplace();
    plan.large->items = *arguments.items;
    plan.large->classes = *arguments.classes;
  }
  const auto start = std::chrono::steady_clock::now();
  CreateCompanyFile(arguments.file, plan);
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  out << "已建立 " << arguments.file << ",用时 " << static_cast<int>(seconds.count() * 10) / 10.0
      << " 秒\n";
}

std::optional<CsvFile> ReadCsv(const std::optional<std::string>& path) {
  if (!path) return std::nullopt;
  return CsvFile{*path, ReadFileBytes(*path)};
}

Database OpenCompany(const std::string& path, Database::Mode mode) {
  std::error_code ignored;
  if (!std::filesystem::exists(PathFromUtf8(path), ignored)) {
    throw CompanyFileError("文件不存在: " + path);
  }
  return Database(path, mode);
}

ExitCode Import(const Arguments& arguments, std::ostream& out, std::ostream& err) {
  const auto items = ReadCsv(arguments.itemsFile);
  const auto accounts = ReadCsv(arguments.accountsFile);
  const Database company = OpenCompany(arguments.file, Database::Mode::ReadWrite);
  const ImportResult result = ImportCsv(company.get(), items, accounts);
  if (!result.problems.empty()) {
    for (const ImportProblem& problem : result.problems) err << ToText(problem) << '\n';
    err << "共 " << result.problems.size() << " 处不合格,没有导入任何数据\n";
    return kBadData;
  }
  out << "已导入物料 " << result.items << " 个,科目 " << result.accounts << " 个\n";
  return kDone;
}

void Info(const Arguments& arguments, std::ostream& out) {
  const Database company = OpenCompany(arguments.file, Database::Mode::ReadOnly);
  const CompanyInfo info = ReadCompanyInfo(company.get());
  out << "公司文件: " << arguments.file << "(结构版本 " << info.schemaVersion << ")\n"
      << "公司名称: " << info.companyName << '\n'
      << "当前期间: " << info.currentYear << "年第" << info.currentPeriod << "期\n"
      << "跌价准备: " << (info.itemClassType == "1" ? "按物料类别" : "按物料") << "("
      << info.itemClassType << ")\n"
      << "物料: " << info.items << '\n'
      << "科目: " << info.accounts << '\n'
      << "物料类别: " << info.classes << "(明细 " << info.classRows << " 行)\n"
      << "跌价准备记录: " << info.provisions << '\n'
      << "凭证: " << info.vouchers << '\n'
      << "用户:\n";
  for (const CompanyUser& user : info.users) {
    out << "  " << user.id << ' ' << user.name << "(" << user.description << ")\n";
  }
}

ExitCode Run(const Arguments& arguments, std::ostream& out, std::ostream& err) {
  switch (arguments.kind) {
    case CommandKind::Create:
      Create(arguments, out);
      break;
    case CommandKind::Import:
      return Import(arguments, out, err);
    case CommandKind::Info:
      Info(arguments, out);
      break;
    case CommandKind::Help:
      out << kHelp;
      break;
  }
  return kDone;
}

}  // namespace

ExitCode RunCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  try {
    return Run(ParseArguments(words), out, err);
  } catch (const UsageError& error) {
    err << "workbench: " << error.what() << "\n用 workbench --help 查看用法\n";
    return kBadUsage;
  } catch (const SqliteError& error) {
    err << "workbench: " << (error.IsBusy() ? "公司文件正被其他程序使用" : "公司文件出错") << "("
        << error.what() << ")\n";
  } catch (const std::exception& error) {
    err << "workbench: " << error.what() << '\n';
  }
  return kFailed;
}

}  // namespace workbench
