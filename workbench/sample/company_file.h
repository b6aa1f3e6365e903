// Creates a company file on disk, whole or not at all.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

#include "workbench/sample/large_company.h"

namespace workbench {

// A file that cannot be created or replaced; the text is Chinese, for the user.
class CompanyFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws CompanyFileError, with `advice` in its text, if `path` (UTF-8) exists, or a log of SQLite
// beside it, which would be replayed into a new file of that name.
void RequireFreeName(const std::string& path, const std::string& advice = {});

// The temporary file beside `path` that is renamed when it is complete; the destructor removes
// what remains.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const std::string& path);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

struct CompanyFilePlan {
  std::uint64_t seed = 1;
  // Set for a company of a chosen size, with the seed above.
  std::optional<LargeCompanyPlan> large;
  // Replace a file that exists instead of refusing.
  bool replaces = false;
};

// Creates the company in a temporary file beside `path` (UTF-8) and renames it when it is complete
// and on disk. Refuses an existing file, or a log beside a missing one, unless the plan replaces
// them, and always a file that another program has open. On an exception (CompanyFileError,
// SchemaError) `path` is unchanged and the temporary file is removed.
void CreateCompanyFile(const std::string& path, const CompanyFilePlan& plan);

}  // namespace workbench
