// Class numbers and nodes of the tree stay in step when there is no memory for a node.
#include "browser/node_collection.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "tests/faults/allocations.h"

namespace pricedown::testing {
namespace {

TEST(NodeCollection, HoldsNeitherNumberNorNodeAfterAnAllocationFailure) {
  const NodeId id = NodeId::OfClass(u"01.02.03.04.05");
  // Too long for the memory that the root's text has opened.
  const std::u16string text = id.classNumber + std::u16string(100'000, u'料');
  int failures = 0;
  for (bool added = false; !added;) {
    NodeCollection nodes;
    nodes.Add({}, u"物料");
    FailAllocation(failures + 1);
    try {
      nodes.Add(id, text);
      added = true;
    } catch (const std::bad_alloc&) {
      ++failures;
    }
    FailAllocation(0);
    EXPECT_EQ(nodes.Find(id), added ? 2 : kNoNode) << failures;
    EXPECT_EQ(nodes.Count(), added ? 2u : 1u) << failures;
    EXPECT_EQ(nodes.Add(id, u""), added ? kNoNode : 2) << failures;
  }
  // A block for the text, its place among the blocks, and the index of the numbers.
  EXPECT_GE(failures, 3);
}

}  // namespace
}  // namespace pricedown::testing
