// The control ids of the pickers' windows, public and stable. OK and Cancel have the system's ids,
// 1 and 2.
#pragma once

namespace workbench::picker_ids {

inline constexpr int kSearchLabel = 1001;
inline constexpr int kSearch = 1002;
inline constexpr int kList = 1003;
// Over the list, visible while nothing is found.
inline constexpr int kNothing = 1004;
inline constexpr int kFound = 1005;
inline constexpr int kChosen = 1006;
inline constexpr int kChooseAll = 1007;
inline constexpr int kClear = 1008;

}  // namespace workbench::picker_ids
