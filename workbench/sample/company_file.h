// Makes a company file on disk, whole or not at all. What goes into the company is decided by
// the generators.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

#include "workbench/sample/large_company.h"

namespace workbench {

/// A file that cannot be made or replaced; the text is Chinese, for the user.
class CompanyFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The name of a file that is made beside `path` and renamed when it is complete; at the end
/// removes what has still that name.
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
  /// Set for a company of chosen size; its seed is the one above.
  std::optional<LargeCompanyPlan> large;
  /// Replace a file that exists instead of refusing.
  bool replaces = false;
};

/// Makes the company beside `path` (UTF-8) and renames it there when it is complete and on
/// disk. A file that exists is refused unless the plan replaces it; one that another program
/// has open is refused in any case. On an exception (CompanyFileError, SchemaError)
/// `path` is as it was and nothing is left beside it.
void CreateCompanyFile(const std::string& path, const CompanyFilePlan& plan);

}  // namespace workbench
