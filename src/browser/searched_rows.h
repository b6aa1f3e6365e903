// What finding searches: the items of the grid and the classes of the tree.
#pragma once

#include "browser/grid.h"
#include "browser/node_collection.h"
#include "browser/text_search.h"

namespace pricedown {

// Code, name and model.
class SearchedItems final : public SearchedRows {
 public:
  // The grid must outlive the object.
  explicit SearchedItems(const Grid& grid) : grid_(grid) {}
  std::int32_t Rows() const override { return grid_.MaxRows(); }
  std::int32_t Match(std::int32_t row, const TextPattern& pattern) const override;

 private:
  const Grid& grid_;
};

// Number and name; the row is the node's index, and the root is no class.
class SearchedClasses final : public SearchedRows {
 public:
  // The nodes must outlive the object.
  explicit SearchedClasses(const NodeCollection& nodes) : nodes_(nodes) {}
  std::int32_t Rows() const override { return static_cast<std::int32_t>(nodes_.Count()); }
  std::int32_t Match(std::int32_t row, const TextPattern& pattern) const override;

 private:
  const NodeCollection& nodes_;
};

}  // namespace pricedown
