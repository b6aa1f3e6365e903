// The commands and their options, and the Chinese error messages.
#include "workbench/cli/arguments.h"

#include <CLI.hpp>

#include <charconv>

#include "workbench/company/location.h"
#include "workbench/sample/large_company.h"

namespace workbench {
namespace {

constexpr const char* kCompany = "公司";
constexpr const char* kCode = "代码";
constexpr const char* kCopy = "副本";
constexpr const char* kCompanyHelp =
    "公司文件,或 ODBC 连接串(\"Driver=...;Server=...;Database=...\")";

// The whole number of an option within its limits.
template <class Number>
CLI::Validator Between(Number low, Number high) {
  return CLI::Validator(
      [low, high](std::string& text) -> std::string {
        Number value = 0;
        const char* end = text.data() + text.size();
        const auto read = std::from_chars(text.data(), end, value);
        const bool isGood =
            read.ec == std::errc() && read.ptr == end && value >= low && value <= high;
        return isGood ? ""
                      : "必须是 " + std::to_string(low) + " 到 " + std::to_string(high) +
                            " 的整数: " + text;
      },
      "");
}

CLI::App* AddCommand(CLI::App& program, Arguments& arguments, CommandKind kind, const char* name,
                     const char* about) {
  CLI::App* command = program.add_subcommand(name, about)->group("命令");
  command->add_option(kCompany, arguments.company, kCompanyHelp)->type_name("")->required();
  command->add_option("--login-timeout", arguments.loginTimeout, "登录服务器最多等几秒,0 不限")
      ->type_name("秒")
      ->check(Between(0, 86400))
      ->capture_default_str();
  command
      ->add_option("--statement-timeout", arguments.statementTimeout,
                   "服务器的一条语句最多等几秒,0 不限")
      ->type_name("秒")
      ->check(Between(0, 86400))
      ->capture_default_str();
  // CLI11 creates the help option before the command inherits the defaults.
  command->get_help_ptr()->group("选项");
  command->set_help_all_flag();
  command->callback([&arguments, kind] { arguments.kind = kind; });
  return command;
}

void AddFiles(CLI::App* command, Arguments& arguments) {
  command->add_option("--items", arguments.itemsFile, "物料的 CSV 文件")->type_name("文件");
  command->add_option("--accounts", arguments.accountsFile, "科目的 CSV 文件")->type_name("文件");
}

void AddCommands(CLI::App& program, Arguments& arguments) {
  CLI::App* create =
      AddCommand(program, arguments, CommandKind::Create, "create",
                 "建立公司。不给 --items 时建立示例公司(3200 个物料,25 个类别)。\n"
                 "同一个 --seed 总是得到同样的内容。巡览和图片用 --seed 1 的示例公司。\n"
                 "已有公司时拒绝,--force 覆盖;服务器上只覆盖由本程序建立的公司");
  create->add_option("--seed", arguments.seed, "内容的种子")
      ->type_name("N")
      ->check(Between<std::uint64_t>(0, UINT64_MAX))
      ->capture_default_str();
  create->add_option("--items", arguments.items, "物料数,最多 1000000")
      ->type_name("N")
      ->check(Between(1, kMaximumItems));
  create->add_option("--classes", arguments.classes, "类别数,最多 20000")
      ->type_name("M")
      ->check(Between(1, kMaximumClasses));
  create->add_flag("--force", arguments.force, "覆盖已有的公司");

  AddFiles(AddCommand(program, arguments, CommandKind::Import, "import",
                      "把自己的物料和科目加入公司。CSV 为 UTF-8 编码,首行是列名:\n"
                      "  物料: 物料代码, 物料名称, 规格型号, 短代码, 物料属性(1-9), 计量单位,\n"
                      "        计划单价, 销售单价(前两列必需)\n"
                      "  科目: 科目代码, 科目名称, 余额方向(借/贷)(前两列必需)\n"
                      "有一行不合格就什么也不导入,并逐行报告\"文件:行号: 原因\"。\n"
                      "公司中已有的代码不更新,按不合格处理"),
           arguments);
  AddFiles(AddCommand(program, arguments, CommandKind::Export, "export",
                      "把物料和科目写成 import 能读的 CSV 文件;文件已存在时拒绝"),
           arguments);
  AddCommand(program, arguments, CommandKind::Info, "info", "显示公司的记录数、当前期间和用户");
  AddCommand(program, arguments, CommandKind::Check, "check", "检查公司的数据,逐行列出问题;只读");
  AddCommand(program, arguments, CommandKind::Explain, "explain",
             "说明类别为什么不能删除、物料为什么不能从类别中删除;只读")
      ->add_option(kCode, arguments.target, "类别代码或物料代码")
      ->type_name("")
      ->required();
  AddCommand(program, arguments, CommandKind::Backup, "backup",
             "把正在使用的公司文件复制到新文件,并打开副本检查")
      ->add_option(kCopy, arguments.target, "副本的文件名")
      ->type_name("")
      ->required();
}

// A word of the command line, without passwords.
std::string Shown(const std::string& word) {
  const std::string shown = ShownLocation(word);
  return shown.empty() ? "…" : shown;
}

// The library's error texts are in English.
[[noreturn]] void ThrowUsage(const CLI::ParseError& error, const std::string& firstWord) {
  const std::string message = error.what();
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    if (message.starts_with(kCompany)) throw UsageError("缺少公司文件名或连接串");
    if (message.starts_with(kCode)) throw UsageError("缺少类别代码或物料代码");
    if (message.starts_with(kCopy)) throw UsageError("缺少副本的文件名");
    throw UsageError("没有这个命令: " + Shown(firstWord));
  }
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    throw UsageError("无法识别的参数: " + Shown(message.substr(message.find(": ") + 2)));
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
    const std::string option = message.substr(0, message.find_first_of(": "));
    throw UsageError(option + " 缺少参数值或给得太多");
  }
  throw UsageError(message);
}

void RequireSense(const Arguments& arguments) {
  if (arguments.kind == CommandKind::Create) {
    if (arguments.items.has_value() != arguments.classes.has_value()) {
      throw UsageError("--items 和 --classes 必须同时给出");
    }
    if (arguments.items && *arguments.classes > *arguments.items) {
      throw UsageError("--classes 不能大于 --items:每个类别至少有一个物料");
    }
  }
  const bool movesFiles =
      arguments.kind == CommandKind::Import || arguments.kind == CommandKind::Export;
  if (movesFiles && !arguments.itemsFile && !arguments.accountsFile) {
    throw UsageError("需要 --items 或 --accounts");
  }
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  CLI::App program("物料类别维护工作台的公司工具", "workbench");
  program.option_defaults()->group("选项");
  program.set_help_flag("-h,--help", "显示本说明");
  program.set_help_all_flag("--help-all", "显示所有命令的说明");
  program.footer(
      "workbench 命令 --help 显示命令的选项。\n"
      "退出码: 0 成功, 1 导入文件或公司数据有问题, 2 命令行有误, 3 失败");
  program.require_subcommand(1);
  program.allow_windows_style_options(false);  // "/data/a.db" is a path
  const auto formatter = std::make_shared<CLI::Formatter>();
  for (const auto& [label, text] : {std::pair{"Usage", "用法"},
                                    {"OPTIONS", "选项"},
                                    {"SUBCOMMAND", "命令"},
                                    {"Positionals", "参数"},
                                    {"REQUIRED", "(必需)"}}) {
    formatter->label(label, text);
  }
  program.formatter(formatter);
  AddCommands(program, arguments);
  if (words.empty()) throw UsageError("缺少命令");
  std::vector<std::string> reversed(words.rbegin(), words.rend());
  if (words.front() == "help") reversed = {"--help"};
  try {
    program.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    const auto chosen = program.get_subcommands();
    arguments.kind = CommandKind::Help;
    arguments.help = chosen.empty() ? program.help() : chosen.front()->help("workbench");
    return arguments;
  } catch (const CLI::CallForAllHelp&) {
    arguments.kind = CommandKind::Help;
    arguments.help = program.help("", CLI::AppFormatMode::All);
    return arguments;
  } catch (const CLI::ParseError& error) {
    ThrowUsage(error, words.front());
  }
  RequireSense(arguments);
  return arguments;
}

}  // namespace workbench
