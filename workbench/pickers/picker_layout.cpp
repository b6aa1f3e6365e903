// The picker's layout: search field above, list in between, texts and buttons below. Distances
// follow the system's guidelines at 96 dpi.
#include "workbench/pickers/picker_layout.h"

#include <algorithm>

namespace workbench {
namespace {

class Distances {
 public:
  explicit Distances(const PickerMeasures& measures) : measures_(measures) {}

  int Margin() const { return Scale(12); }
  int Gap() const { return Scale(8); }
  // An edit control draws its line at the top, so the field is only as high as frame and line.
  int FieldHeight() const { return measures_.lineHeight + Scale(1) + 6; }
  int ButtonHeight() const { return measures_.lineHeight + Scale(11); }
  int ButtonWidth() const { return std::max(Scale(80), measures_.buttonWidth + Scale(20)); }
  int Scale(int pixels) const { return pixels * measures_.dpi / 96; }

 private:
  const PickerMeasures& measures_;
};

}  // namespace

PickerLayout LayOutPicker(int clientWidth, int clientHeight, const PickerMeasures& measures) {
  const Distances distances(measures);
  const int margin = distances.Margin();
  const int gap = distances.Gap();
  const int inner = std::max(0, clientWidth - 2 * margin);
  const int line = measures.lineHeight;
  PickerLayout layout;

  const int field = distances.FieldHeight();
  layout.searchLabel = {margin, margin + (field - line) / 2, measures.labelWidth, line};
  const int searchLeft = layout.searchLabel.Right() + gap / 2;
  layout.search = {searchLeft, margin, std::max(0, clientWidth - margin - searchLeft), field};

  const int buttonWidth = distances.ButtonWidth();
  const int buttonHeight = distances.ButtonHeight();
  const int buttonTop = clientHeight - margin - buttonHeight;
  layout.chooseAll = {margin, buttonTop, buttonWidth, buttonHeight};
  layout.clear = {margin + buttonWidth + gap, buttonTop, buttonWidth, buttonHeight};
  layout.cancel = {clientWidth - margin - buttonWidth, buttonTop, buttonWidth, buttonHeight};
  layout.ok = {layout.cancel.left - gap - buttonWidth, buttonTop, buttonWidth, buttonHeight};

  const int textTop = buttonTop - distances.Scale(10) - line;
  const int half = inner / 2;
  layout.found = {margin, textTop, inner - half, line};
  layout.chosen = {margin + inner - half, textTop, half, line};

  const int listTop = layout.search.Bottom() + gap;
  layout.list = {margin, listTop, inner, std::max(0, textTop - distances.Scale(6) - listTop)};
  // A third of the way down, clear of the titles and the frame.
  const int inset = distances.Scale(4);
  layout.nothing = {margin + inset, listTop + layout.list.height / 3,
                    std::max(0, inner - 2 * inset), line};
  return layout;
}

int RowHeight(const PickerMeasures& measures) {
  return measures.lineHeight + Distances(measures).Scale(5);
}

Box SmallestPicker(const PickerMeasures& measures) {
  const Distances distances(measures);
  const int buttons = 4 * distances.ButtonWidth() + 5 * distances.Gap();
  const int rows = 6 * RowHeight(measures);
  const int others = distances.FieldHeight() + distances.ButtonHeight() + measures.lineHeight +
                     distances.Scale(24);
  return {0, 0, 2 * distances.Margin() + std::max(buttons, measures.listWidth),
          2 * distances.Margin() + others + rows};
}

}  // namespace workbench
