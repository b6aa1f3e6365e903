// Finding items in the grid and classes in the tree: what the find bar does.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "browser/class_tree.h"
#include "browser/searched_rows.h"
#include "control/views.h"
#include "platform/key.h"

namespace pricedown {

// What a key does in the bar's field.
enum class FindKey { None, Accept, Next, Previous, Close };
FindKey FindKeyOf(const KeyPress& press);

// The bar's parts, in its coordinates. Pixels, as all measures.
struct FindMeasures {
  std::int32_t label = 0;  // width of its text
  std::int32_t count = 0;  // width of the widest count
  std::int32_t line = 0;   // height of a line of text
  std::int32_t margin = 0;
};
struct FindPlaces {
  Rectangle label;
  Rectangle field;
  Rectangle count;
};
// A narrow bar leaves the label out, then the count.
FindPlaces PlaceFindBar(Size bar, const FindMeasures& measures);

class Find {
 public:
  // All must outlive the object.
  Find(FindView& view, const Grid& grid, ClassTree& tree);
  Find(const Find&) = delete;
  Find& operator=(const Find&) = delete;

  // Opens the bar over that pane, with the last text.
  void Open(FindPane pane);
  // Returns to the pane; the last hit stays the current cell.
  void Close();
  // Goes to the first hit from the row that was current when the bar was opened or its rows last
  // changed. Ignored while `composing`: the text is not what the user means yet.
  void TextChanged(std::u16string_view text, bool composing);
  // In the pane that has the focus; in the tree with the bar open.
  void Next(bool backwards);
  // Enter in the bar: in the grid the next hit, in the tree the class found, or else the first hit
  // from the same row, as a click on it.
  void Accept();
  bool HasText() const { return !text_.empty(); }

  // The user clicks a class: the one found is no longer marked.
  void NodeClicked();
  // The rows of the pane have been replaced or shown again.
  void RowsChanged(FindPane pane);
  // Counts a part of the rows and shows how many hits there are.
  void ContinueCounting();

 private:
  const SearchedRows& RowsOf(FindPane pane) const;
  void Restart();
  void ForgetFound();
  std::int32_t CurrentRow() const;
  void GoTo(const SearchHit& hit);
  void ShowCount();

  FindView& view_;
  ClassTree& tree_;
  SearchedItems items_;
  SearchedClasses classes_;
  TextSearch search_;
  FindPane pane_ = FindPane::Grid;
  bool open_ = false;
  std::u16string text_;
  std::int32_t origin_ = 1;    // row from which the typed text is searched
  NodeIndex found_ = kNoNode;  // in the tree
};

}  // namespace pricedown
