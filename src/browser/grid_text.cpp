// Which cells are copied, and which rows may hold a column's longest text.
#include "browser/grid_text.h"

#include <algorithm>

namespace pricedown {
namespace {

constexpr std::size_t kMaximumRows = 64;

// A measure without a device: Chinese characters are about twice as wide as Latin ones.
std::size_t TextWeight(std::u16string_view text) {
  std::size_t weight = 0;
  for (const char16_t unit : text) weight += unit > 0xFF ? 2 : 1;
  return weight;
}

}  // namespace

std::optional<CopiedCells> Copied(const Grid& grid, const GridSelection& selection, bool titled) {
  if (grid.MaxRows() == 0) return std::nullopt;
  const CellRange range = selection.Range();
  CellCopier copier;
  const auto addRow = [&](std::int32_t row) {
    for (std::int32_t column = range.column; column <= range.column2; ++column) {
      const bool isNumber = grid.UpperBound(column, row).has_value();
      copier.Add(grid.Text(column, row), isNumber ? CellKind::Number : CellKind::Text);
    }
    copier.EndRow();
  };
  if (titled) addRow(kTitleRow);
  for (std::int32_t row = range.row; row <= range.row2 && row <= grid.MaxRows(); ++row) addRow(row);
  return copier.Finish(!titled && !selection.IsBlock());
}

std::vector<std::int32_t> RowsOfLongestTexts(const Grid& grid, std::int32_t column) {
  struct Candidate {
    std::size_t weight;
    std::int32_t row;
  };
  const auto longer = [](const Candidate& a, const Candidate& b) { return a.weight > b.weight; };
  std::vector<Candidate> longest;
  for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
    const Candidate candidate{TextWeight(grid.Text(column, row)), row};
    if (longest.size() == kMaximumRows) {
      if (candidate.weight <= longest.front().weight) continue;
      std::pop_heap(longest.begin(), longest.end(), longer);
      longest.pop_back();
    }
    longest.push_back(candidate);
    std::push_heap(longest.begin(), longest.end(), longer);
  }
  std::vector<std::int32_t> rows{kTitleRow};
  for (const Candidate& candidate : longest) rows.push_back(candidate.row);
  return rows;
}

}  // namespace pricedown
