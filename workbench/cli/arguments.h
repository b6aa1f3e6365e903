// The command line of `workbench` as values.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace workbench {

// An invalid command line; the text is Chinese, for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class CommandKind { Help, Create, Import, Export, Info, Check, Explain, Backup };

struct Arguments {
  CommandKind kind = CommandKind::Help;
  std::string help;     // Help: what to show
  std::string company;  // path or connection string
  int loginTimeout = 15;
  int statementTimeout = 60;
  std::uint64_t seed = 1;
  std::optional<int> items;  // create: number of items
  std::optional<int> classes;
  bool force = false;
  std::optional<std::string> itemsFile;  // import, export: CSV of items
  std::optional<std::string> accountsFile;
  std::string target;  // explain: class or item; backup: the copy
};

// `words` are UTF-8, without the program's name. Throws UsageError.
Arguments ParseArguments(const std::vector<std::string>& words);

}  // namespace workbench
