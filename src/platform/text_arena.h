// Owner of many texts in few blocks of memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace pricedown {

class TextArena {
 public:
  // A copy that stays where it is until Clear, also when the arena moves. Throws std::bad_alloc.
  std::u16string_view Keep(std::u16string_view text);
  // Frees all texts.
  void Clear();

 private:
  void AddBlock(std::size_t least);

  std::vector<std::unique_ptr<char16_t[]>> blocks_;
  char16_t* end_ = nullptr;  // of what is used of the last block
  std::size_t room_ = 0;     // UTF-16 units after it
  std::size_t size_ = 0;     // of the last block
};

}  // namespace pricedown
