// Keys and nodes of the tree stay in step when there is no memory for a node.
#include "browser/node_collection.h"

#include <gtest/gtest.h>

#include <new>

#include "tests/faults/allocations.h"

namespace pricedown::testing {
namespace {

TEST(NodeCollection, HoldsNeitherKeyNorNodeAfterAnAllocationFailure) {
  // Too long to be stored without an allocation.
  constexpr std::u16string_view kKey = u"gi01.02.03.04.05";
  int failures = 0;
  for (bool added = false; !added;) {
    NodeCollection nodes;
    nodes.Add(kNoNode, u"gc0", u"物料");
    FailAllocation(failures + 1);
    try {
      nodes.Add(1, kKey, u"01.02.03.04.05(原材料)");
      added = true;
    } catch (const std::bad_alloc&) {
      ++failures;
    }
    FailAllocation(0);
    EXPECT_EQ(nodes.Find(kKey), added ? 2 : kNoNode) << failures;
    EXPECT_EQ(nodes.Count(), added ? 2u : 1u) << failures;
    EXPECT_EQ(nodes.Add(1, kKey, u""), added ? kNoNode : 2) << failures;
  }
  // The key twice, its entry, the text and the nodes.
  EXPECT_GE(failures, 4);
}

}  // namespace
}  // namespace pricedown::testing
