// The control's own row of buttons `tbToolBar` as data.
// What a button does is dispatch.cpp; the window only shows it.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace pricedown {

struct ToolStripButton {
  std::u16string_view key;
  std::u16string_view caption;
  std::u16string_view tooltip;
  bool separator = false;
  bool pictureOnly = false;  // the caption is the button's name, but not shown
};

inline constexpr std::array<ToolStripButton, 8> kToolStripButtons{{
    {u"sp2", u"", u"", true},
    {u"Add", u"新增", u"新增"},
    {u"Edit", u"修改", u"修改"},
    {u"Del", u"删除", u"删除"},
    {u"Print", u"打印", u"打印"},
    {u"PrintView", u"预览", u"预览"},
    {u"sp3", u"", u"", true},
    {u"Exit", u"退出", u"退出系统"},
}};

// Positions, from 1, of the buttons that change classes.
inline constexpr std::array<std::size_t, 3> kClassCommandButtons{2, 3, 4};

}  // namespace pricedown
