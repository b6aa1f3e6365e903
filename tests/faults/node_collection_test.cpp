// Class numbers and nodes of the tree stay in step when there is no memory for a node.
#include "browser/node_collection.h"

#include <gtest/gtest.h>

#include <new>

#include "tests/faults/allocations.h"

namespace pricedown::testing {
namespace {

TEST(NodeCollection, HoldsNeitherNumberNorNodeAfterAnAllocationFailure) {
  // Too long to be stored without an allocation.
  const NodeId id = NodeId::OfClass(u"01.02.03.04.05");
  int failures = 0;
  for (bool added = false; !added;) {
    NodeCollection nodes;
    nodes.Add({}, u"物料");
    FailAllocation(failures + 1);
    try {
      nodes.Add(id, u"01.02.03.04.05(原材料)");
      added = true;
    } catch (const std::bad_alloc&) {
      ++failures;
    }
    FailAllocation(0);
    EXPECT_EQ(nodes.Find(id), added ? 2 : kNoNode) << failures;
    EXPECT_EQ(nodes.Count(), added ? 2u : 1u) << failures;
    EXPECT_EQ(nodes.Add(id, u""), added ? kNoNode : 2) << failures;
  }
  // The number twice, its entry, the text and the nodes.
  EXPECT_GE(failures, 4);
}

}  // namespace
}  // namespace pricedown::testing
