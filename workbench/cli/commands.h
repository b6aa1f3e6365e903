// The commands of the `workbench` program, on the caller's streams.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace workbench {

enum ExitCode : int {
  kDone = 0,
  kBadData = 1,   // bad lines in an import file, of which nothing was added; findings of check or
                  // export, which has written its files
  kBadUsage = 2,  // invalid command line; nothing was done
  kFailed = 3,    // a file or database could not be used; nothing was changed
};

// Runs one command line (UTF-8 words, without the program's name). Results go to `out`,
// errors to `err`, both in UTF-8 and without passwords. Never throws.
ExitCode RunCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

}  // namespace workbench
