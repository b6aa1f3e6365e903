// Texts that stay where they are.
#include "platform/text_arena.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

TEST(TextArena, KeepsTextsOfAnyLengthWhereTheyAre) {
  TextArena arena;
  std::vector<std::u16string_view> kept;
  std::vector<std::u16string> texts;
  for (std::size_t i = 0; i < 300; ++i) {
    texts.emplace_back(i % 7 == 0 ? 40000 + i : i, static_cast<char16_t>(u'a' + i % 26));
    kept.push_back(arena.Keep(texts.back()));
  }
  const TextArena moved = std::move(arena);
  for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_TRUE(kept[i] == texts[i]) << i;
}

TEST(TextArena, SharesNoMemoryWithTheOneThatItsTextsMovedTo) {
  TextArena arena;
  arena.Keep(u"01.001");
  TextArena moved = std::move(arena);
  const std::u16string_view kept = arena.Keep(u"甲");
  const std::u16string_view keptThere = moved.Keep(u"乙");
  EXPECT_EQ(Utf8(kept), "甲");
  EXPECT_EQ(Utf8(keptThere), "乙");
}

TEST(TextArena, KeepsTextsAfterItWasCleared) {
  TextArena arena;
  arena.Keep(u"before");
  arena.Clear();
  EXPECT_EQ(Utf8(arena.Keep(u"物料")), "物料");
  EXPECT_EQ(Utf8(arena.Keep(u"")), "");
}

}  // namespace
}  // namespace pricedown::testing
