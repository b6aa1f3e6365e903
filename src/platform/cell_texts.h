// The texts of many cells, concatenated in one text: adding copies each once.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pricedown {

class CellTexts {
 public:
  void Clear() {
    texts_.clear();
    ends_.clear();
  }
  void Add(std::u16string_view text) {
    texts_.append(text);
    ends_.push_back(texts_.size());
  }

  std::size_t Count() const { return ends_.size(); }
  // Valid until the next change. Requires: `cell` is below the count.
  std::u16string_view At(std::size_t cell) const {
    const std::size_t begin = cell == 0 ? 0 : ends_[cell - 1];
    return {texts_.data() + begin, ends_[cell] - begin};
  }

 private:
  std::u16string texts_;
  std::vector<std::size_t> ends_;  // of each cell in `texts_`
};

}  // namespace pricedown
