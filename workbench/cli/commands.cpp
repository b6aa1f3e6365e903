// The commands and their output.
#include "workbench/cli/commands.h"

#include <chrono>
#include <exception>
#include <ostream>

#include "workbench/cli/arguments.h"
#include "workbench/company/location.h"
#include "workbench/sample/company_backup.h"
#include "workbench/sample/company_check.h"
#include "workbench/sample/company_explain.h"
#include "workbench/sample/company_file.h"
#include "workbench/sample/company_info.h"
#include "workbench/sample/csv_export.h"
#include "workbench/sample/csv_import.h"
#include "workbench/sample/file_path.h"
#include "workbench/sample/new_files.h"
#include "workbench/sample/server_company.h"
#include "workbench/sample/sqlite_handle.h"
#include "workbench/sample/utf8_text.h"

namespace workbench {
namespace {

ConnectOptions OptionsOf(const Arguments& arguments, OpenMode mode) {
  ConnectOptions options;
  options.mode = mode;
  options.loginTimeout = std::chrono::seconds(arguments.loginTimeout);
  options.statementTimeout = std::chrono::seconds(arguments.statementTimeout);
  return options;
}

bool Exists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(PathFromUtf8(path), ignored);
}

void RequireFileName(const std::string& path) {
  if (IsConnectionString(path)) throw CompanyFileError("这里需要文件名,不能用连接串");
}

std::unique_ptr<Connection> OpenCompany(const Arguments& arguments, OpenMode mode) {
  if (!IsConnectionString(arguments.company) && !Exists(arguments.company)) {
    throw CompanyFileError("文件不存在: " + arguments.company);
  }
  return OpenConnection(arguments.company, OptionsOf(arguments, mode));
}

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
  if (IsConnectionString(arguments.company)) {
    OdbcConnection server(arguments.company, OptionsOf(arguments, OpenMode::ReadWrite));
    CreateServerCompany(server, plan, [&out](std::int64_t rows) {
      out << "已写入 " << rows << " 行\n" << std::flush;
    });
  } else {
    CreateCompanyFile(arguments.company, plan);
  }
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  out << "已建立 " << ShownLocation(arguments.company) << ",用时 "
      << static_cast<int>(seconds.count() * 10) / 10.0 << " 秒\n";
}

std::optional<CsvFile> ReadCsv(const std::optional<std::string>& path) {
  if (!path) return std::nullopt;
  return CsvFile{*path, ReadFileBytes(*path)};
}

ExitCode Import(const Arguments& arguments, std::ostream& out, std::ostream& err) {
  const auto items = ReadCsv(arguments.itemsFile);
  const auto accounts = ReadCsv(arguments.accountsFile);
  const auto company = OpenCompany(arguments, OpenMode::ReadWrite);
  const ImportResult result = ImportCsv(*company, items, accounts);
  if (!result.problems.empty()) {
    for (const ImportProblem& problem : result.problems) err << ToText(problem) << '\n';
    err << "共 " << result.problems.size() << " 处不合格,没有导入任何数据\n";
    return kBadData;
  }
  for (const std::string& file : result.emptyFiles) out << file << ": 只有标题行,没有数据\n";
  out << "已导入物料 " << result.items << " 个,科目 " << result.accounts << " 个\n";
  return kDone;
}

ExitCode Export(const Arguments& arguments, std::ostream& out, std::ostream& err) {
  for (const auto& path : {arguments.itemsFile, arguments.accountsFile}) {
    if (path) RequireFileName(*path);
    if (path && Exists(*path)) throw CompanyFileError("文件已存在: " + *path);
  }
  const auto company = OpenCompany(arguments, OpenMode::ReadOnly);
  company->RequireCompany();
  std::vector<NewFile> files;
  std::vector<ImportProblem> problems;
  const auto add = [&](CsvExport exported) {
    files.push_back({std::move(exported.file.name), std::move(exported.file.bytes)});
    problems.insert(problems.end(), exported.problems.begin(), exported.problems.end());
  };
  if (arguments.itemsFile) add(ExportItems(*company, *arguments.itemsFile));
  if (arguments.accountsFile) add(ExportAccounts(*company, *arguments.accountsFile));
  WriteNewFiles(files);
  for (const NewFile& file : files) out << "已写入 " << file.path << '\n';
  if (problems.empty()) return kDone;
  for (const ImportProblem& problem : problems) err << ToText(problem) << '\n';
  err << "共 " << problems.size() << " 处不能原样导入\n";
  return kBadData;
}

void Info(const Arguments& arguments, std::ostream& out) {
  const auto company = OpenCompany(arguments, OpenMode::ReadOnly);
  const CompanyInfo info = ReadCompanyInfo(*company);
  out << "公司: " << ShownLocation(arguments.company) << '\n'
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

ExitCode Check(const Arguments& arguments, std::ostream& out) {
  const auto company = OpenCompany(arguments, OpenMode::ReadOnly);
  const std::vector<std::string> findings = CheckCompany(*company);
  for (const std::string& finding : findings) out << finding << '\n';
  if (findings.empty()) {
    out << "没有发现问题\n";
    return kDone;
  }
  out << "共 " << findings.size() << " 个问题\n";
  return kBadData;
}

void PrintExplanation(const char* kind, const char* free,
                      const std::optional<Explanation>& explanation, std::ostream& out) {
  if (!explanation) return;
  out << kind << " " << explanation->subject << ": "
      << (explanation->reasons.empty() ? free : "不能删除") << '\n';
  for (const std::string& reason : explanation->reasons) out << "  " << reason << '\n';
}

void Explain(const Arguments& arguments, std::ostream& out) {
  const auto company = OpenCompany(arguments, OpenMode::ReadOnly);
  const auto itemClass = ExplainClass(*company, arguments.target);
  const auto item = ExplainItem(*company, arguments.target);
  if (!itemClass && !item) {
    throw CompanyFileError("公司中没有这个类别或物料: " + arguments.target);
  }
  PrintExplanation("类别", "可以删除", itemClass, out);
  PrintExplanation("物料", "可以从类别中删除", item, out);
}

void Backup(const Arguments& arguments, std::ostream& out) {
  if (IsConnectionString(arguments.company)) {
    throw CompanyFileError("backup 只用于公司文件;服务器用它自己的备份");
  }
  if (!Exists(arguments.company)) throw CompanyFileError("文件不存在: " + arguments.company);
  RequireFileName(arguments.target);
  BackUpCompanyFile(arguments.company, arguments.target);
  out << "已备份到 " << arguments.target << ",副本检查无误\n";
}

ExitCode Run(const Arguments& arguments, std::ostream& out, std::ostream& err) {
  switch (arguments.kind) {
    case CommandKind::Create:
      Create(arguments, out);
      break;
    case CommandKind::Import:
      return Import(arguments, out, err);
    case CommandKind::Export:
      return Export(arguments, out, err);
    case CommandKind::Info:
      Info(arguments, out);
      break;
    case CommandKind::Check:
      return Check(arguments, out);
    case CommandKind::Explain:
      Explain(arguments, out);
      break;
    case CommandKind::Backup:
      Backup(arguments, out);
      break;
    case CommandKind::Help:
      out << arguments.help;
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
