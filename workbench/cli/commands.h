// The commands of the `workbench` program, on the caller's streams.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace workbench {

enum ExitCode : int {
  kDone = 0,
  kBadData = 1,   // an import file has bad lines and nothing was added, or check found something
  kBadUsage = 2,  // invalid command line; nothing was done
  kFailed = 3,    // a file or database could not be used; nothing was changed
};

// Runs one command line (UTF-8 words, without the program's name). Results go to `out`,
// errors to `err`, both in UTF-8 and without passwords. Never throws.
ExitCode RunCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

}  // namespace workbench
