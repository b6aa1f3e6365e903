// UTF-8 texts as file paths on both systems.
#pragma once

#include <filesystem>
#include <string>

namespace workbench {

inline std::filesystem::path PathFromUtf8(const std::string& path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

}  // namespace workbench
