// Placing the control's panes: on a resize, for a splitter position, after a check tool changed.
#include "control/price_down.h"
#include "platform/first_failure.h"

namespace pricedown {

// Reads the check tools every time, so resizing, a new splitter position and a changed check tool
// share one path.
void PriceDown::LayOut() {
  layout_ = ComputeLayout({ports_.view.ControlSize(), splitter_.Position(),
                           commandBar_->CheckTool(kToolStripTool)->Checked(),
                           commandBar_->CheckTool(kStatusBarTool)->Checked()});
  ports_.view.Place(layout_);
}

void PriceDown::Resized() {
  if (!HasEnded()) LayOut();
}

void PriceDown::ResolutionChanged() {
  if (HasEnded()) return;
  font_.ResolutionChanged();
  LayOut();
}

Rectangle PriceDown::DragBar() const {
  Rectangle bar = layout_.splitter;
  bar.left = splitter_.BarPosition();
  return bar;
}

void PriceDown::SplitterDown() {
  if (HasEnded()) return;
  // In a narrow control the splitter is placed left of its position; the drag begins at its place.
  splitter_.SetPosition(layout_.splitter.left);
  splitter_.Begin();
  ports_.view.ShowDragBar(DragBar());
}

void PriceDown::SplitterMoved(std::int32_t offset) {
  if (HasEnded() || !splitter_.Dragging()) return;
  splitter_.MoveTo(offset, ports_.view.ControlSize().width);
  ports_.view.ShowDragBar(DragBar());
}

void PriceDown::SplitterUp() {
  if (HasEnded() || !splitter_.Dragging()) return;
  splitter_.SetPosition(splitter_.BarPosition());
  // A layout that fails hides the bar and ends the drag, too.
  FirstFailure steps;
  steps.Run([&] { LayOut(); });
  steps.Run([&] { ports_.view.HideDragBar(); });
  splitter_.End();
  steps.Rethrow();
}

void PriceDown::StepSplitter(bool right) {
  if (HasEnded()) return;
  splitter_.SetPosition(layout_.splitter.left);
  splitter_.Begin();
  splitter_.MoveTo(right ? kSplitterStep : -kSplitterStep, ports_.view.ControlSize().width);
  splitter_.End();
  LayOut();
}

}  // namespace pricedown
