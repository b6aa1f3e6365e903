// An empty folder for one test, removed with its contents. Its name is Chinese, so that every path
// in a test has Chinese characters.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>

#include "workbench/sample/file_path.h"

namespace workbench::testing {

class TemporaryFolder {
 public:
  TemporaryFolder()
      : path_(std::filesystem::temp_directory_path() /
              PathFromUtf8("公司-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directory(path_);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // The UTF-8 path of a file in the folder.
  std::string PathOf(const std::string& name) const {
    const std::u8string path = (path_ / PathFromUtf8(name)).u8string();
    return {path.begin(), path.end()};
  }

  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      const std::u8string name = entry.path().filename().u8string();
      names.emplace(name.begin(), name.end());
    }
    return names;
  }

  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(PathFromUtf8(PathOf(name)), std::ios::binary) << bytes;
  }

  std::string Read(const std::string& name) const {
    std::ifstream file(PathFromUtf8(PathOf(name)), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace workbench::testing
