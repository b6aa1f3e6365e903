// The words of a command line, option by option. What the commands do is elsewhere.
#include "workbench/cli/arguments.h"

#include <charconv>

#include "workbench/sample/large_company.h"

namespace workbench {
namespace {

class WordReader {
 public:
  explicit WordReader(const std::vector<std::string>& words) : words_(words) {}

  bool AtEnd() const { return at_ == words_.size(); }
  const std::string& Take() { return words_[at_++]; }

  const std::string& TakeValue(const std::string& option) {
    if (AtEnd()) throw UsageError(option + " 缺少参数值");
    return Take();
  }

  template <class Number>
  Number TakeNumber(const std::string& option, Number low, Number high) {
    const std::string& text = TakeValue(option);
    Number value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || value < low || value > high) {
      throw UsageError(option + " 必须是 " + std::to_string(low) + " 到 " + std::to_string(high) +
                       " 的整数: " + text);
    }
    return value;
  }

 private:
  const std::vector<std::string>& words_;
  std::size_t at_ = 0;
};

CommandKind KindOf(const std::string& word) {
  if (word == "create") return CommandKind::Create;
  if (word == "import") return CommandKind::Import;
  if (word == "info") return CommandKind::Info;
  throw UsageError("没有这个命令: " + word);
}

bool IsHelp(const std::string& word) { return word == "--help" || word == "-h" || word == "help"; }

void ReadCreateOption(const std::string& option, WordReader& words, Arguments* arguments) {
  if (option == "--seed") {
    arguments->seed = words.TakeNumber<std::uint64_t>(option, 0, UINT64_MAX);
  } else if (option == "--items") {
    arguments->items = words.TakeNumber(option, 1, kMostItems);
  } else if (option == "--classes") {
    arguments->classes = words.TakeNumber(option, 1, kMostClasses);
  } else if (option == "--force") {
    arguments->force = true;
  } else {
    throw UsageError("create 没有这个选项: " + option);
  }
}

void ReadImportOption(const std::string& option, WordReader& words, Arguments* arguments) {
  if (option == "--items") {
    arguments->itemsFile = words.TakeValue(option);
  } else if (option == "--accounts") {
    arguments->accountsFile = words.TakeValue(option);
  } else {
    throw UsageError("import 没有这个选项: " + option);
  }
}

void ReadOption(const std::string& option, WordReader& words, Arguments* arguments) {
  switch (arguments->kind) {
    case CommandKind::Create:
      ReadCreateOption(option, words, arguments);
      break;
    case CommandKind::Import:
      ReadImportOption(option, words, arguments);
      break;
    default:
      throw UsageError("没有这个选项: " + option);
  }
}

void RequireSense(const Arguments& arguments) {
  if (arguments.file.empty()) throw UsageError("缺少公司文件名");
  if (arguments.kind == CommandKind::Create) {
    if (arguments.items.has_value() != arguments.classes.has_value()) {
      throw UsageError("--items 和 --classes 必须同时给出");
    }
    if (arguments.items && *arguments.classes > *arguments.items) {
      throw UsageError("--classes 不能大于 --items:每个类别至少有一个物料");
    }
  }
  if (arguments.kind == CommandKind::Import && !arguments.itemsFile && !arguments.accountsFile) {
    throw UsageError("import 需要 --items 或 --accounts");
  }
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  if (words.empty()) throw UsageError("缺少命令");
  for (const std::string& word : words) {
    if (IsHelp(word)) return arguments;
  }
  WordReader reader(words);
  arguments.kind = KindOf(reader.Take());
  while (!reader.AtEnd()) {
    const std::string& word = reader.Take();
    if (word.size() > 1 && word.front() == '-') {
      ReadOption(word, reader, &arguments);
    } else if (arguments.file.empty()) {
      arguments.file = word;
    } else {
      throw UsageError("多余的参数: " + word);
    }
  }
  RequireSense(arguments);
  return arguments;
}

}  // namespace workbench
