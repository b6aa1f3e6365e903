// The layout of the control: sizes in, named rectangles out, all in twips.
#pragma once

#include <cstdint>

#include "platform/geometry.h"

namespace pricedown {

// The size of the title's font.
inline constexpr double kTitlePoints = 18;
// The least width of either pane while the splitter is dragged.
inline constexpr std::int32_t kMinimumPaneWidth = 1680;
inline constexpr std::int32_t kSplitterWidth = 75;
// How far one key moves the splitter.
inline constexpr std::int32_t kSplitterStep = 150;
// How much narrower the grid is than its pane.
inline constexpr std::int32_t kGridMargin = 50;
inline constexpr std::int32_t kDefaultSplitter = 3600;
// The status bar's last panel, "wait"; the progress bar lies over it.
inline constexpr std::int32_t kWaitPanelWidth = 2100;
// Its panel before that, "Passtime".
inline constexpr std::int32_t kPasstimePanelWidth = 1800;
// The least width of its first panel, "Status", at the expense of "Passtime".
inline constexpr std::int32_t kStatusPanelWidth = 3600;

struct LayoutInput {
  Size control;
  std::int32_t splitter = kDefaultSplitter;  // width of the tree pane
  bool toolStripVisible = true;
  bool statusBarVisible = true;
};

// Every child of the control, all in the control's coordinates. A hidden one has height 0, and the
// lower line is hidden together with the tool strip. Nothing has a negative size; only the grid
// and the progress bar lie inside another one.
struct Layout {
  Rectangle title;         // lbl_Title
  Rectangle period;        // lblPeriod
  Rectangle upperLine;     // Line1
  Rectangle toolStrip;     // tbToolBar
  Rectangle lowerLine;     // Line3
  Rectangle classHeading;  // SSPTitleClass
  Rectangle tree;          // tvwBase
  Rectangle splitter;      // imgSplitVer
  Rectangle itemHeading;   // SSPTitleItem
  Rectangle gridPane;      // pic
  Rectangle grid;          // vaList, inside the grid pane
  Rectangle statusBar;     // sbStatusBar
  Rectangle progressBar;   // pbar, over the status bar's last panel
  Rectangle firstLabel;    // Label1, above the period
  Rectangle secondLabel;   // Label2, right of Label1
  bool operator==(const Layout&) const = default;
};

Layout ComputeLayout(const LayoutInput& input);

// Clamps a splitter position to at least kMinimumPaneWidth, then to at most the width less
// kMinimumPaneWidth: a control that is too narrow for both shrinks the left pane first. Never
// negative.
std::int32_t ClampSplitter(std::int32_t proposed, std::int32_t controlWidth);

}  // namespace pricedown
