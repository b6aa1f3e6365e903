// The texts of refusals, with the place in the statement.
#include "workbench/company/dialect_error.h"

#include <string>

#include "workbench/company/utf.h"

namespace workbench {
namespace {

constexpr std::size_t kLongestNearText = 40;

std::u16string Decimal(std::size_t number) { return Utf16FromUtf8(std::to_string(number)); }

std::u16string Shortened(std::u16string_view text) {
  if (text.size() <= kLongestNearText) return std::u16string(text);
  return std::u16string(text.substr(0, kLongestNearText)) + u"…";
}

std::u16string PlaceOf(std::u16string_view source, std::size_t offset) {
  std::size_t line = 1;
  std::size_t lineStart = 0;
  for (std::size_t i = 0; i < offset && i < source.size(); ++i) {
    const bool crBeforeLf = source[i] == u'\r' && i + 1 < source.size() && source[i + 1] == u'\n';
    if ((source[i] == u'\r' && !crBeforeLf) || source[i] == u'\n') {
      ++line;
      lineStart = i + 1;
    }
  }
  return u"第 " + Decimal(line) + u" 行第 " + Decimal(offset - lineStart + 1) + u" 列：";
}

}  // namespace

void ThrowAt(std::u16string_view source, std::size_t offset, std::u16string_view message,
             int nativeNumber) {
  throw DatabaseError(PlaceOf(source, offset).append(message), nativeNumber);
}

void ThrowSyntaxError(std::u16string_view source, std::size_t offset,
                      std::u16string_view nearText) {
  ThrowAt(source, offset, u"'" + Shortened(nearText) + u"' 附近有语法错误。",
          server_error::kSyntax);
}

void ThrowNotSupported(std::u16string_view source, std::size_t offset, std::u16string_view what) {
  ThrowAt(source, offset, u"此数据库不支持 '" + Shortened(what) + u"'。",
          server_error::kNotSupported);
}

void ThrowUnclosedQuote(std::u16string_view source, std::size_t quote) {
  ThrowAt(source, quote, u"字符串 '" + Shortened(source.substr(quote + 1)) + u"' 后的引号不完整。",
          server_error::kUnclosedQuote);
}

}  // namespace workbench
