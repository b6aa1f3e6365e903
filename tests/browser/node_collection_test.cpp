#include "browser/node_collection.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text.h"
#include "tests/support/utf8.h"

namespace pricedown {
namespace {

using testing::Utf8;

NodeCollection RootAndClasses(std::initializer_list<std::u16string_view> numbers) {
  NodeCollection nodes;
  nodes.Add({}, u"物料");
  for (const std::u16string_view number : numbers) nodes.Add(NodeId::OfClass(number), number);
  return nodes;
}

TEST(NodeCollection, NumbersNodesFromOneInTheOrderOfAdding) {
  NodeCollection nodes;
  EXPECT_EQ(nodes.Add({}, u"物料"), kRootNode);
  EXPECT_EQ(nodes.Add(NodeId::OfClass(u"01"), u"01(原料)"), 2);
  EXPECT_EQ(nodes.Count(), 2u);
  EXPECT_TRUE(nodes.IdOf(1).isRoot);
  EXPECT_EQ(Utf8(nodes.TextOf(1)), "物料");
  EXPECT_EQ(Utf8(nodes.IdOf(2).classNumber), "01");
  EXPECT_EQ(Utf8(nodes.TextOf(2)), "01(原料)");
}

TEST(NodeCollection, FindsAClassWhoseTextDoesNotBeginWithItsNumber) {
  NodeCollection nodes = RootAndClasses({});
  for (const std::u16string_view text : {u"", u"(原料)", u"1(原料)"}) {
    EXPECT_EQ(nodes.Add(NodeId::OfClass(u"01"), text), 2);
    EXPECT_EQ(nodes.Find(NodeId::OfClass(u"01")), 2);
    EXPECT_EQ(Utf8(nodes.IdOf(2).classNumber), "01");
    EXPECT_EQ(Utf8(nodes.TextOf(2)), Utf8(text));
    nodes.RemoveLast();
  }
}

TEST(NodeCollection, ContainsItsIndexesOnly) {
  const NodeCollection nodes = RootAndClasses({u"01"});
  EXPECT_TRUE(nodes.Contains(1));
  EXPECT_TRUE(nodes.Contains(2));
  for (const NodeIndex index : {kNoNode, -1, 3}) EXPECT_FALSE(nodes.Contains(index)) << index;
}

TEST(NodeCollection, RefusesANumberInUseAndKeepsTheFirstNode) {
  NodeCollection nodes;
  nodes.Add({}, u"物料");
  nodes.Add(NodeId::OfClass(u"01"), u"01(甲)");
  EXPECT_EQ(nodes.Add(NodeId::OfClass(u"01"), u"01(乙)"), kNoNode);
  EXPECT_EQ(nodes.Count(), 2u);
  EXPECT_EQ(Utf8(nodes.TextOf(nodes.Find(NodeId::OfClass(u"01")))), "01(甲)");
}

TEST(NodeCollection, RefusesASecondRoot) {
  NodeCollection nodes = RootAndClasses({u"01"});
  EXPECT_EQ(nodes.Add({}, u"again"), kNoNode);
  EXPECT_EQ(nodes.Count(), 2u);
}

TEST(NodeCollection, DistinguishesNumbersByCaseAndBlanks) {
  const NodeCollection nodes = RootAndClasses({u"a", u"A", u"a "});
  EXPECT_EQ(nodes.Count(), 4u);
  EXPECT_EQ(nodes.Find(NodeId::OfClass(u"A")), 3);
  EXPECT_EQ(nodes.Find(NodeId::OfClass(u"b")), kNoNode);
}

TEST(NodeCollection, DistinguishesTheRootFromTheClassNumberedZero) {
  NodeCollection nodes;
  EXPECT_EQ(nodes.Find({}), kNoNode);
  nodes.Add({}, u"物料");
  EXPECT_EQ(nodes.Find(NodeId::OfClass(u"0")), kNoNode);
  EXPECT_EQ(nodes.Add(NodeId::OfClass(u"0"), u"0(零)"), 2);
  EXPECT_EQ(nodes.Find({}), kRootNode);
  EXPECT_EQ(nodes.Find(NodeId::OfClass(u"0")), 2);
}

TEST(NodeCollection, FindsEachOfManyClassesThoughTheLastOneWasOftenRemoved) {
  constexpr NodeIndex kClasses = 1000;
  const auto number = [](NodeIndex node) { return FromUtf8(std::to_string(node)); };
  NodeCollection nodes = RootAndClasses({});
  for (NodeIndex node = 2; node < kClasses + 2; ++node) {
    EXPECT_EQ(nodes.Add(NodeId::OfClass(u"another"), u"another"), node);
    nodes.RemoveLast();
    EXPECT_EQ(nodes.Add(NodeId::OfClass(number(node)), u"(原料)"), node);
  }
  for (NodeIndex node = 2; node < kClasses + 2; ++node) {
    EXPECT_EQ(nodes.Find(NodeId::OfClass(number(node))), node);
  }
  EXPECT_EQ(nodes.Find(NodeId::OfClass(u"another")), kNoNode);
}

TEST(NodeCollection, FindsTheOthersAfterManyWereRemoved) {
  constexpr NodeIndex kClasses = 1000;
  const auto number = [](NodeIndex node) { return FromUtf8(std::to_string(node)); };
  NodeCollection nodes = RootAndClasses({});
  for (NodeIndex node = 2; node < kClasses + 2; ++node)
    nodes.Add(NodeId::OfClass(number(node)), u"");
  for (NodeIndex last = kClasses + 1; last > 1; --last) {
    nodes.RemoveLast();
    EXPECT_EQ(nodes.Find(NodeId::OfClass(number(last))), kNoNode);
    if (last > 2) {
      EXPECT_EQ(nodes.Find(NodeId::OfClass(number(last - 1))), last - 1);
    }
    EXPECT_EQ(nodes.Find(NodeId::OfClass(number(2))), last > 2 ? 2 : kNoNode);
  }
}

TEST(NodeCollection, RemovesTheLastNode) {
  NodeCollection nodes = RootAndClasses({u"01"});
  nodes.RemoveLast();
  EXPECT_EQ(nodes.Count(), 1u);
  EXPECT_EQ(nodes.Find(NodeId::OfClass(u"01")), kNoNode);
  EXPECT_EQ(nodes.Add(NodeId::OfClass(u"01"), u""), 2);
  nodes.RemoveLast();
  nodes.RemoveLast();
  EXPECT_EQ(nodes.Find({}), kNoNode);
}

TEST(NodeCollection, IsEmptyAfterClear) {
  NodeCollection nodes = RootAndClasses({u"01"});
  nodes.Clear();
  EXPECT_EQ(nodes.Count(), 0u);
  EXPECT_EQ(nodes.Find(NodeId::OfClass(u"01")), kNoNode);
  EXPECT_EQ(nodes.Add({}, u""), kRootNode);
}

TEST(NodeCollection, FindsNodesByTheirKeys) {
  const NodeCollection nodes = RootAndClasses({u"01", u""});
  EXPECT_EQ(nodes.FindKey(u"gc0"), kRootNode);
  EXPECT_EQ(nodes.FindKey(u"gi01"), 2);
  EXPECT_EQ(nodes.FindKey(u"gi"), 3);
  for (const std::u16string_view key : {u"", u"g", u"01", u"GI01", u"gc01", u"gi02", u"gc"}) {
    EXPECT_EQ(nodes.FindKey(key), kNoNode) << Utf8(key);
  }
}

TEST(NodeId, HasTheKeyOfTheRootOrOfItsClass) {
  EXPECT_EQ(Utf8(NodeId{}.Key()), "gc0");
  EXPECT_EQ(Utf8(NodeId::OfClass(u"01").Key()), "gi01");
  EXPECT_EQ(Utf8(NodeId::OfClass(u"").Key()), "gi");
}

TEST(NodeId, ListsTheClassNumberedZeroAtTheRoot) { EXPECT_EQ(Utf8(NodeId{}.classNumber), "0"); }

}  // namespace
}  // namespace pricedown
