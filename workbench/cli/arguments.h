// The command line of `workbench` as values. It runs nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace workbench {

/// A command line that says nothing sensible; the text is Chinese, for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class CommandKind { Help, Create, Import, Info };

struct Arguments {
  CommandKind kind = CommandKind::Help;
  std::string file;
  std::uint64_t seed = 1;
  std::optional<int> items;  ///< create: number of items
  std::optional<int> classes;
  bool force = false;
  std::optional<std::string> itemsFile;  ///< import: CSV of items
  std::optional<std::string> accountsFile;
};

/// `words` are UTF-8, without the program's name. Throws UsageError.
Arguments ParseArguments(const std::vector<std::string>& words);

}  // namespace workbench
