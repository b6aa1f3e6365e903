// Owner of many texts in few blocks of memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace pricedown {

class TextArena {
 public:
  TextArena() = default;
  // The arena that is moved from is empty.
  TextArena(TextArena&& other) noexcept
      : blocks_(std::move(other.blocks_)),
        end_(std::exchange(other.end_, nullptr)),
        room_(std::exchange(other.room_, 0)),
        size_(std::exchange(other.size_, 0)) {}
  TextArena& operator=(TextArena other) noexcept {
    blocks_.swap(other.blocks_);
    end_ = other.end_;
    room_ = other.room_;
    size_ = other.size_;
    return *this;
  }

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
