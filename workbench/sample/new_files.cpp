// Writing to temporary names first, then renaming.
#include "workbench/sample/new_files.h"

#include <filesystem>
#include <fstream>
#include <list>

#include "workbench/sample/company_file.h"
#include "workbench/sample/file_path.h"

namespace workbench {
namespace {

namespace fs = std::filesystem;

// The files that have their names; the destructor removes them unless all have.
class RenamedFiles {
 public:
  RenamedFiles() = default;
  ~RenamedFiles() {
    std::error_code ignored;
    for (const fs::path& path : paths_) fs::remove(path, ignored);
  }
  RenamedFiles(const RenamedFiles&) = delete;
  RenamedFiles& operator=(const RenamedFiles&) = delete;

  void Add(const UnfinishedFile& unfinished, const std::string& path) {
    const fs::path target = PathFromUtf8(path);
    std::error_code error;
    if (fs::exists(target, error)) throw CompanyFileError("文件已存在: " + path);
    fs::rename(PathFromUtf8(unfinished.path()), target, error);
    if (error) throw CompanyFileError("无法写入文件 " + path);
    paths_.push_back(target);
  }
  void Keep() { paths_.clear(); }

 private:
  std::list<fs::path> paths_;
};

}  // namespace

void WriteNewFiles(std::span<const NewFile> files) {
  std::list<UnfinishedFile> unfinished;
  for (const NewFile& file : files) {
    std::ofstream stream(PathFromUtf8(unfinished.emplace_back(file.path).path()), std::ios::binary);
    stream << file.bytes;
    stream.close();
    if (!stream) throw CompanyFileError("无法写入文件 " + file.path);
  }
  RenamedFiles renamed;
  auto next = unfinished.begin();
  for (const NewFile& file : files) renamed.Add(*next++, file.path);
  renamed.Keep();
}

}  // namespace workbench
