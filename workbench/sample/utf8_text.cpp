// UTF-8 checking byte by byte, and reading a file whole. What the texts mean is not its concern.
#include "workbench/sample/utf8_text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "workbench/sample/file_path.h"

namespace workbench {
namespace {

unsigned char ByteAt(std::string_view bytes, std::size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// The length of the well-formed sequence at `start`, 0 when there is none. Overlong forms,
// surrogates and values above U+10FFFF are not well formed: the second byte's range tells.
std::size_t SequenceLength(std::string_view bytes, std::size_t start) {
  const unsigned char lead = ByteAt(bytes, start);
  if (lead < 0x80) return 1;
  std::size_t length = 0;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (bytes.size() - start < length) return 0;
  const unsigned char second = ByteAt(bytes, start + 1);
  if (second < low || second > high) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!IsContinuation(ByteAt(bytes, start + i))) return 0;
  }
  return length;
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

std::size_t FindInvalidUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = SequenceLength(bytes, at);
    if (length == 0) return at;
    at += length;
  }
  return std::string_view::npos;
}

std::size_t LengthAsTheSuiteCounts(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned char byte = ByteAt(text, i);
    if (IsContinuation(byte)) continue;
    units += byte >= 0xF0 ? 2 : 1;
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
  // Opening a folder succeeds on some systems and then reads as empty.
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
