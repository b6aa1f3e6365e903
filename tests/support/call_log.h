// One log of all calls that the code under test makes, in call order.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pricedown::testing {

// Copies share their lines, so that an object that dies late can still log its release.
class CallLog {
 public:
  // Requires: the line holds no line break.
  void Add(std::string line) { lines_->push_back(std::move(line)); }
  void Clear() { lines_->clear(); }

  std::size_t Size() const { return lines_->size(); }
  const std::vector<std::string>& Lines() const { return *lines_; }
  // How many lines are exactly this one.
  std::size_t Count(std::string_view line) const;

  // Every line followed by a line break. Compared by EXPECT_EQ with Lines(...), a difference is
  // shown line by line.
  std::string Text() const;

 private:
  std::shared_ptr<std::vector<std::string>> lines_ = std::make_shared<std::vector<std::string>>();
};

// The lines of a raw string as a log's Text() has them: the line break after the opening
// delimiter, the last line's blanks and the indentation that all lines share are left out.
//   EXPECT_EQ(log.Text(), Lines(R"(
//       create ZEPEBSBase.SystemProfile
//       release ZEPEBSBase.SystemProfile
//       )"));
std::string Lines(std::string_view text);

}  // namespace pricedown::testing
