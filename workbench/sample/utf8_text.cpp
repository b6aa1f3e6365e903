// UTF-8 checking by utf8cpp, and reading a file whole.
#include "workbench/sample/utf8_text.h"

#include <utf8.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "workbench/sample/file_path.h"

namespace workbench {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

std::size_t FindInvalidUtf8(std::string_view bytes) {
  const auto* const found = utf8::find_invalid(bytes.data(), bytes.data() + bytes.size());
  const auto at = static_cast<std::size_t>(found - bytes.data());
  return at == bytes.size() ? std::string_view::npos : at;
}

std::size_t LengthAsTheSuiteCounts(std::string_view text) {
  std::size_t units = 0;
  for (const char each : text) {
    const auto byte = static_cast<unsigned char>(each);
    const bool isContinuation = (byte & 0xC0) == 0x80;
    if (!isContinuation) units += byte >= 0xF0 ? 2 : 1;
  }
  return units;
}

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool HasControlCharacter(std::string_view text, std::string_view allowed) {
  return std::any_of(text.begin(), text.end(), [&](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x20 || byte == 0x7F) && allowed.find(c) == std::string_view::npos;
  });
}

std::string ReadFileBytes(const std::string& path) {
  // On some systems a folder opens and reads as empty.
  std::error_code ignored;
  if (std::filesystem::is_directory(PathFromUtf8(path), ignored)) {
    throw std::runtime_error("是文件夹而不是文件: " + path);
  }
  std::ifstream file(PathFromUtf8(path), std::ios::binary);
  if (!file) throw std::runtime_error("无法打开文件: " + path);
  std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (file.bad()) throw std::runtime_error("读取文件失败: " + path);
  return bytes;
}

}  // namespace workbench
