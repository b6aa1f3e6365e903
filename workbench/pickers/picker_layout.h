// Where the controls of a picker go: a client size in, named boxes out, all in pixels.
#pragma once

namespace workbench {

struct Box {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
  bool operator==(const Box&) const = default;
};

struct PickerMeasures {
  int dpi = 96;
  int lineHeight = 0;   // of the font
  int labelWidth = 0;   // of the search field's label
  int buttonWidth = 0;  // of the widest button's text
  int listWidth = 0;    // least width of the columns
};

struct PickerLayout {
  Box searchLabel;
  Box search;
  Box list;
  Box nothing;
  Box found;
  Box chosen;
  Box chooseAll;
  Box clear;
  Box ok;
  Box cancel;
};

// Sizes are never negative, however small the client area.
PickerLayout LayOutPicker(int clientWidth, int clientHeight, const PickerMeasures& measures);

// The height of a row of the list.
int RowHeight(const PickerMeasures& measures);

// The smallest client area in which everything can be used.
Box SmallestPicker(const PickerMeasures& measures);

}  // namespace workbench
