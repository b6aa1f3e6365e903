// The commands of the print preview and the two rows of buttons for them, as data.
// What a command does is preview_window's.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "control/tool_strip.h"

namespace pricedown::windows {

enum class PreviewCommand : std::uint8_t {
  Print,
  PageSetup,
  Font,
  First,
  Previous,
  Next,
  Last,
  ZoomOut,
  ZoomIn,
  FitPage,
  FitWidth,
  Close,
};

inline constexpr std::array<ToolStripButton, 8> kDocumentButtons{{
    {u"Print", u"打印", u"打印 (Ctrl+P)"},
    {u"PageSetup", u"页面设置", u"纸张、方向和页边距"},
    {u"Font", u"字体", u"字体，与列表共用"},
    {u"sp4", u"", u"", true},
    {u"First", u"首页", u"首页 (Ctrl+Home)", false, true},
    {u"Previous", u"上一页", u"上一页 (PgUp)", false, true},
    {u"Next", u"下一页", u"下一页 (PgDn)", false, true},
    {u"Last", u"末页", u"末页 (Ctrl+End)", false, true},
}};

inline constexpr std::array<ToolStripButton, 6> kViewButtons{{
    {u"ZoomOut", u"缩小", u"缩小 (-)", false, true},
    {u"ZoomIn", u"放大", u"放大 (+)", false, true},
    {u"FitPage", u"整页", u"显示整页", false, true},
    {u"FitWidth", u"页宽", u"按页宽显示", false, true},
    {u"sp5", u"", u"", true},
    {u"Close", u"关闭", u"关闭 (Esc)"},
}};

// The command of a button, by the button's key; nothing for a separator.
constexpr std::optional<PreviewCommand> PreviewCommandOf(std::u16string_view key) {
  constexpr std::array<std::pair<std::u16string_view, PreviewCommand>, 12> kCommands{{
      {u"Print", PreviewCommand::Print},
      {u"PageSetup", PreviewCommand::PageSetup},
      {u"Font", PreviewCommand::Font},
      {u"First", PreviewCommand::First},
      {u"Previous", PreviewCommand::Previous},
      {u"Next", PreviewCommand::Next},
      {u"Last", PreviewCommand::Last},
      {u"ZoomOut", PreviewCommand::ZoomOut},
      {u"ZoomIn", PreviewCommand::ZoomIn},
      {u"FitPage", PreviewCommand::FitPage},
      {u"FitWidth", PreviewCommand::FitWidth},
      {u"Close", PreviewCommand::Close},
  }};
  for (const auto& [name, command] : kCommands) {
    if (name == key) return command;
  }
  return std::nullopt;
}

}  // namespace pricedown::windows
