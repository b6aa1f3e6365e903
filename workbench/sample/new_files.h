// Writes several files, all or none.
#pragma once

#include <span>
#include <string>

namespace workbench {

struct NewFile {
  std::string path;  // in UTF-8
  std::string bytes;
};

// Writes each file beside its name and renames them when all are complete. Replaces no file. On
// CompanyFileError no file is left.
void WriteNewFiles(std::span<const NewFile> files);

}  // namespace workbench
