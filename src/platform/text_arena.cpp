// Blocks double up to a limit, so that few texts need little room and many waste little.
#include "platform/text_arena.h"

#include <algorithm>

namespace pricedown {
namespace {

// UTF-16 units.
constexpr std::size_t kFirstBlock = 256;
constexpr std::size_t kLargestBlock = 0x8000;

}  // namespace

std::u16string_view TextArena::Keep(std::u16string_view text) {
  if (room_ < text.size()) AddBlock(text.size());
  char16_t* const kept = end_;
  std::copy(text.begin(), text.end(), kept);
  end_ += text.size();
  room_ -= text.size();
  return {kept, text.size()};
}

void TextArena::AddBlock(std::size_t least) {
  const std::size_t usual = blocks_.empty() ? kFirstBlock : std::min(2 * size_, kLargestBlock);
  const std::size_t size = std::max(usual, least);
  blocks_.push_back(std::make_unique_for_overwrite<char16_t[]>(size));
  end_ = blocks_.back().get();
  room_ = size_ = size;
}

void TextArena::Clear() { *this = TextArena(); }

}  // namespace pricedown
