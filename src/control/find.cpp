// The find bar's keys and places, and its way through hits and counts.
#include "control/find.h"

#include <algorithm>

namespace pricedown {
namespace {

// A part of the count, a fraction of a millisecond to a few.
constexpr std::int32_t kRowsAtOnce = 20000;

}  // namespace

FindKey FindKeyOf(const KeyPress& press) {
  if (press.control || press.alt) return FindKey::None;
  switch (press.key) {
    case Key::Enter:
      return press.shift ? FindKey::Previous : FindKey::Accept;
    case Key::F3:
      return press.shift ? FindKey::Previous : FindKey::Next;
    case Key::Escape:
      return FindKey::Close;
    default:
      return FindKey::None;
  }
}

FindPlaces PlaceFindBar(Size bar, const FindMeasures& measures) {
  const std::int32_t margin = measures.margin;
  const std::int32_t leastField = measures.count;
  const std::int32_t height = std::min(measures.line, bar.height);
  const std::int32_t top = (bar.height - height) / 2;
  std::int32_t left = margin;
  std::int32_t right = bar.width - margin;
  FindPlaces places;
  if (right - left >= measures.count + margin + leastField) {
    places.count = {right - measures.count, top, measures.count, height};
    right = places.count.left - margin;
  }
  if (right - left >= measures.label + margin + leastField) {
    places.label = {left, top, measures.label, height};
    left += measures.label + margin;
  }
  places.field = {left, top, std::max(right - left, 0), height};
  return places;
}

Find::Find(FindView& view, const Grid& grid, ClassTree& tree)
    : view_(view), tree_(tree), items_(grid), classes_(tree.Nodes()) {
  tree.OnLoaded([this] { RowsChanged(FindPane::Tree); });
}

const SearchedRows& Find::RowsOf(FindPane pane) const {
  if (pane == FindPane::Grid) return items_;
  return classes_;
}

void Find::Restart() {
  search_.Start(RowsOf(pane_), text_);
  ShowCount();
}

std::int32_t Find::CurrentRow() const {
  if (pane_ == FindPane::Grid) return view_.CurrentRow();
  return found_ != kNoNode ? found_ : std::max(tree_.MarkedNode(), kRootNode);
}

void Find::ShowCount() {
  if (open_) view_.ShowFindCount(search_.CountText(CurrentRow()), !search_.IsCounted());
}

void Find::Open(FindPane pane) {
  if (open_ && pane != pane_) Close();
  pane_ = pane;
  open_ = true;
  ForgetFound();
  origin_ = CurrentRow();
  view_.OpenFind(pane, text_);
  Restart();
}

void Find::Close() {
  if (!open_) return;
  open_ = false;
  ForgetFound();
  view_.CloseFind(pane_);
}

void Find::ForgetFound() {
  if (found_ == kNoNode) return;
  found_ = kNoNode;
  view_.ShowFoundNode(kNoNode);
}

void Find::NodeClicked() {
  ForgetFound();
  ShowCount();
}

void Find::TextChanged(std::u16string_view text, bool composing) {
  if (composing || !open_ || text == text_) return;
  text_ = text;
  search_.Start(RowsOf(pane_), text_);
  if (const auto hit = search_.Next(origin_ - 1, false)) {
    GoTo(*hit);
  } else {
    ForgetFound();
  }
  ShowCount();
}

void Find::GoTo(const SearchHit& hit) {
  if (pane_ == FindPane::Grid) {
    view_.ShowFoundCell(hit.column, hit.row);
  } else {
    found_ = hit.row;
    view_.ShowFoundNode(found_);
  }
}

void Find::Next(bool backwards) {
  const FindPane pane = view_.FocusedPane();
  if (pane == FindPane::Tree && !open_) Open(pane);
  if (pane != pane_) {
    Close();
    pane_ = pane;
    Restart();
  }
  if (const auto hit = search_.Next(CurrentRow(), backwards)) {
    GoTo(*hit);
    origin_ = hit->row;
  }
  ShowCount();
}

void Find::Accept() {
  if (pane_ == FindPane::Grid) return Next(false);
  NodeIndex node = found_;
  if (node == kNoNode) {
    // The bar opened with its earlier text, which has not been searched from here yet.
    if (const auto hit = search_.Next(origin_ - 1, false)) node = hit->row;
  }
  if (!tree_.Nodes().Contains(node)) return Close();
  // The focus moves, and in its event the host may load other classes.
  const NodeId id = tree_.Nodes().IdOf(node);
  Close();
  // Last, because it may end the control.
  tree_.Select(tree_.Nodes().Find(id));
}

void Find::RowsChanged(FindPane pane) {
  if (pane != pane_) return;
  ForgetFound();
  // The row that the text was searched from may be another one, or gone.
  origin_ = CurrentRow();
  if (!search_.IsEmpty()) Restart();
}

void Find::ContinueCounting() {
  search_.ContinueCounting(kRowsAtOnce);
  ShowCount();
}

}  // namespace pricedown
