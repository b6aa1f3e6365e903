// The comparison: a common start is skipped, then characters decide.
#include "workbench/company/collation.h"

#include <cstdint>
#include <cstring>

#include "workbench/company/case_folding.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// The length of the common start, rounded down to a character boundary.
std::size_t CommonStart(std::string_view left, std::string_view right) noexcept {
  const std::size_t size = left.size() < right.size() ? left.size() : right.size();
  std::size_t done = 0;
  while (done + 8 <= size) {
    std::uint64_t leftWord = 0;
    std::uint64_t rightWord = 0;
    std::memcpy(&leftWord, left.data() + done, sizeof leftWord);
    std::memcpy(&rightWord, right.data() + done, sizeof rightWord);
    if (leftWord != rightWord) break;
    done += 8;
  }
  while (done < size && left[done] == right[done]) ++done;
  const bool insideCharacter = (done < left.size() && IsContinuation(left[done])) ||
                               (done < right.size() && IsContinuation(right[done]));
  if (insideCharacter) {
    while (done > 0 && IsContinuation(left[done - 1])) --done;
    if (done > 0) --done;
  }
  return done;
}

// The sign of `rest` compared with as many blanks.
int CompareWithBlanks(std::string_view rest) noexcept {
  for (const char character : rest) {
    if (character == ' ') continue;
    return static_cast<unsigned char>(character) < ' ' ? -1 : 1;
  }
  return 0;
}

}  // namespace

int CompareServerText(std::string_view left, std::string_view right) noexcept {
  std::size_t i = CommonStart(left, right);
  std::size_t j = i;
  while (i < left.size() && j < right.size()) {
    char32_t leftPoint = static_cast<unsigned char>(left[i]);
    char32_t rightPoint = static_cast<unsigned char>(right[j]);
    if (leftPoint < 0x80 && rightPoint < 0x80) {
      ++i;
      ++j;
      if (leftPoint == rightPoint) continue;
      leftPoint = static_cast<unsigned char>(FoldAscii(static_cast<char>(leftPoint)));
      rightPoint = static_cast<unsigned char>(FoldAscii(static_cast<char>(rightPoint)));
    } else {
      leftPoint = NextCodePoint(left, i);
      rightPoint = NextCodePoint(right, j);
      if (leftPoint == rightPoint) continue;
      leftPoint = FoldCase(leftPoint);
      rightPoint = FoldCase(rightPoint);
    }
    if (leftPoint != rightPoint) return leftPoint < rightPoint ? -1 : 1;
  }
  return i < left.size() ? CompareWithBlanks(left.substr(i)) : -CompareWithBlanks(right.substr(j));
}

}  // namespace workbench
