// The ids of the control's child windows, public for UI automation: they never change, and a new
// child has a new number.
#pragma once

namespace pricedown::windows::control_ids {

inline constexpr int kTitle = 101;         // lbl_Title
inline constexpr int kPeriod = 102;        // lblPeriod
inline constexpr int kUpperLine = 103;     // Line1
inline constexpr int kLowerLine = 104;     // Line3
inline constexpr int kToolStrip = 105;     // tbToolBar
inline constexpr int kClassHeading = 106;  // SSPTitleClass
inline constexpr int kItemHeading = 107;   // SSPTitleItem
inline constexpr int kTree = 108;          // tvwBase
inline constexpr int kSplitter = 109;      // imgSplitVer
inline constexpr int kDragBar = 110;       // picSplitVer
inline constexpr int kGridPane = 111;      // pic
inline constexpr int kGrid = 112;          // vaList
inline constexpr int kStatusBar = 113;     // sbStatusBar
inline constexpr int kProgressBar = 114;   // pbar
inline constexpr int kFontLabel = 115;     // lblFont
inline constexpr int kCellEditor = 116;    // the grid's field for typing
inline constexpr int kFirstLabel = 117;    // Label1
inline constexpr int kSecondLabel = 118;   // Label2
inline constexpr int kFindBar = 119;
inline constexpr int kFindLabel = 120;
inline constexpr int kFindField = 121;
inline constexpr int kFindCount = 122;
inline constexpr int kCellLabel = 123;  // names the grid's field for screen readers

// The tool strip's buttons have the command ids kFirstButton + position, positions from 1.
inline constexpr int kFirstButton = 200;
// The arrow to the buttons that a narrow tool strip leaves out.
inline constexpr int kMoreButtons = 299;

}  // namespace pricedown::windows::control_ids
