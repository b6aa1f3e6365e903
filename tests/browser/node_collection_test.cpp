// The collection of tree nodes.
#include "browser/node_collection.h"

#include <gtest/gtest.h>

#include "tests/support/utf8.h"

namespace pricedown {
namespace {

using testing::Utf8;

TEST(NodeCollection, NumbersNodesFromOneInTheOrderOfAdding) {
  NodeCollection nodes;
  EXPECT_EQ(nodes.Add(kNoNode, u"gc0", u"物料"), 1);
  EXPECT_EQ(nodes.Add(1, u"gi01", u"01(原料)"), 2);
  EXPECT_EQ(nodes.Count(), 2u);
  EXPECT_EQ(Utf8(nodes.At(2).key), "gi01");
  EXPECT_EQ(Utf8(nodes.At(2).text), "01(原料)");
  EXPECT_EQ(nodes.At(2).parent, 1);
  EXPECT_EQ(nodes.At(1).parent, kNoNode);
}

TEST(NodeCollection, RefusesADuplicateKeyAndKeepsTheFirstNode) {
  NodeCollection nodes;
  nodes.Add(kNoNode, u"gc0", u"物料");
  nodes.Add(1, u"gi01", u"01(甲)");
  EXPECT_EQ(nodes.Add(1, u"gi01", u"01(乙)"), kNoNode);
  EXPECT_EQ(nodes.Count(), 2u);
  EXPECT_EQ(Utf8(nodes.At(nodes.Find(u"gi01")).text), "01(甲)");
}

TEST(NodeCollection, DistinguishesKeysByCaseAndBlanks) {
  NodeCollection nodes;
  EXPECT_EQ(nodes.Add(kNoNode, u"gia", u""), 1);
  EXPECT_EQ(nodes.Add(kNoNode, u"giA", u""), 2);
  EXPECT_EQ(nodes.Add(kNoNode, u"gia ", u""), 3);
  EXPECT_EQ(nodes.Find(u"giA"), 2);
  EXPECT_EQ(nodes.Find(u"gib"), kNoNode);
}

TEST(NodeCollection, RemovesTheLastNodeWithItsKey) {
  NodeCollection nodes;
  nodes.Add(kNoNode, u"gc0", u"");
  nodes.Add(1, u"gi01", u"");
  nodes.RemoveLast();
  EXPECT_EQ(nodes.Count(), 1u);
  EXPECT_EQ(nodes.Find(u"gi01"), kNoNode);
  EXPECT_EQ(nodes.Add(1, u"gi01", u""), 2);
}

TEST(NodeCollection, IsEmptyAfterClear) {
  NodeCollection nodes;
  nodes.Add(kNoNode, u"gc0", u"");
  nodes.Clear();
  EXPECT_EQ(nodes.Count(), 0u);
  EXPECT_EQ(nodes.Find(u"gc0"), kNoNode);
  EXPECT_EQ(nodes.Add(kNoNode, u"gc0", u""), 1);
}

}  // namespace
}  // namespace pricedown
