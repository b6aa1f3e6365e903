// The commands of the print preview and the two rows of buttons for them, as data.
// What a command does is preview_window's.
#pragma once

#include <array>
#include <cstdint>

#include "env/command.h"
#include "platform/icon_ids.h"

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

struct PreviewButton : Command {
  PreviewCommand command = PreviewCommand::Close;
};

inline constexpr std::array<PreviewButton, 8> kDocumentButtons{{
    {{.key = u"Print",
      .caption = u"打印",
      .tooltip = u"打印",
      .icon = PRICEDOWN_ICON_PRINT,
      .keys = {KeyPress{.key = Key::P, .control = true}}},
     PreviewCommand::Print},
    {{.key = u"PageSetup",
      .caption = u"页面设置",
      .tooltip = u"纸张、方向和页边距",
      .icon = PRICEDOWN_ICON_PAGE_SETUP},
     PreviewCommand::PageSetup},
    {{.key = u"Font",
      .caption = u"字体",
      .tooltip = u"字体，与列表共用",
      .icon = PRICEDOWN_ICON_FONT},
     PreviewCommand::Font},
    {{.key = u"sp4", .separator = true}},
    {{.key = u"First",
      .caption = u"首页",
      .tooltip = u"首页",
      .icon = PRICEDOWN_ICON_FIRST,
      .keys = {KeyPress{.key = Key::Home, .control = true}},
      .pictureOnly = true},
     PreviewCommand::First},
    {{.key = u"Previous",
      .caption = u"上一页",
      .tooltip = u"上一页",
      .icon = PRICEDOWN_ICON_PREVIOUS,
      .keys = {KeyPress{Key::PageUp}},
      .pictureOnly = true},
     PreviewCommand::Previous},
    {{.key = u"Next",
      .caption = u"下一页",
      .tooltip = u"下一页",
      .icon = PRICEDOWN_ICON_NEXT,
      .keys = {KeyPress{Key::PageDown}},
      .pictureOnly = true},
     PreviewCommand::Next},
    {{.key = u"Last",
      .caption = u"末页",
      .tooltip = u"末页",
      .icon = PRICEDOWN_ICON_LAST,
      .keys = {KeyPress{.key = Key::End, .control = true}},
      .pictureOnly = true},
     PreviewCommand::Last},
}};

inline constexpr std::array<PreviewButton, 6> kViewButtons{{
    {{.key = u"ZoomOut",
      .caption = u"缩小",
      .tooltip = u"缩小",
      .icon = PRICEDOWN_ICON_ZOOM_OUT,
      .keys = {KeyPress{Key::Subtract}},
      .pictureOnly = true},
     PreviewCommand::ZoomOut},
    {{.key = u"ZoomIn",
      .caption = u"放大",
      .tooltip = u"放大",
      .icon = PRICEDOWN_ICON_ZOOM_IN,
      .keys = {KeyPress{Key::Add}},
      .pictureOnly = true},
     PreviewCommand::ZoomIn},
    {{.key = u"FitPage",
      .caption = u"整页",
      .tooltip = u"显示整页",
      .icon = PRICEDOWN_ICON_FIT_PAGE,
      .pictureOnly = true},
     PreviewCommand::FitPage},
    {{.key = u"FitWidth",
      .caption = u"页宽",
      .tooltip = u"按页宽显示",
      .icon = PRICEDOWN_ICON_FIT_WIDTH,
      .pictureOnly = true},
     PreviewCommand::FitWidth},
    {{.key = u"sp5", .separator = true}},
    {{.key = u"Close",
      .caption = u"关闭",
      .tooltip = u"关闭",
      .icon = PRICEDOWN_ICON_EXIT,
      .keys = {KeyPress{Key::Escape}}},
     PreviewCommand::Close},
}};

}  // namespace pricedown::windows
