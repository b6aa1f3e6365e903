// The ids of the child windows of preview and progress window, by which UI automation finds them.
// They are public and never change; a new child gets a new number.
#pragma once

namespace pricedown::windows::preview_ids {

// Of the progress window; 取消 is IDCANCEL.
inline constexpr int kProgressText = 401;
inline constexpr int kProgressBar = 402;

// Of the preview.
inline constexpr int kDocumentBar = 501;  // printing, page set-up, font, turning pages
inline constexpr int kPageLabel = 502;
inline constexpr int kPage = 503;  // the number of the page shown; Enter goes to the one typed
inline constexpr int kPageCount = 504;
inline constexpr int kZoomLabel = 505;
inline constexpr int kZoom = 506;
inline constexpr int kViewBar = 507;  // sizes, and closing
inline constexpr int kLine = 508;     // below the bars
inline constexpr int kPane = 509;     // where the page is shown

// The buttons of both bars have the command ids control_ids::kFirstButton + position, positions
// from 1; their order is that of print/preview_commands.h.

}  // namespace pricedown::windows::preview_ids
