// The commands of the print preview: the rows of its two tool strips, and its keys.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "env/command.h"
#include "platform/icon_ids.h"

namespace pricedown {

enum class PreviewCommand : std::uint8_t {
  Print,
  PageSetup,
  Font,
  EnterPage,  // to the field of the page number
  First,
  Previous,
  Next,
  Last,
  ZoomOut,
  ZoomIn,
  FitPage,
  FitWidth,
  LineUp,
  LineDown,
  LineLeft,
  LineRight,
  ScreenUp,  // and on to the page before where there is no more to see
  ScreenDown,
  Top,
  Bottom,
  Close,
};

// Scrolling works while another command has a modal window open.
constexpr bool Scrolls(PreviewCommand command) {
  return command >= PreviewCommand::LineUp && command <= PreviewCommand::Bottom;
}

// The parts of the preview that answer a key; the fields edit with the others.
enum class KeyScope : std::uint8_t { Page, PageAndButtons, All };

struct PreviewButton : Command {
  PreviewCommand command = PreviewCommand::Close;  // unused for separators
  KeyScope scope = KeyScope::All;                  // of its keys
};

inline constexpr std::array<PreviewButton, 8> kDocumentButtons{{
    {{u"Print", u"打印", u"打印", PRICEDOWN_ICON_PRINT, {{{Key::P, false, true}}}},
     PreviewCommand::Print},
    {{u"PageSetup", u"页面设置", u"纸张、方向和页边距", PRICEDOWN_ICON_PAGE_SETUP},
     PreviewCommand::PageSetup},
    {{u"Font", u"字体", u"字体，与列表共用", PRICEDOWN_ICON_FONT}, PreviewCommand::Font},
    {{.key = u"sp4", .separator = true}},
    {{u"First", u"首页", u"首页", PRICEDOWN_ICON_FIRST, {{{Key::Home, false, true}}}, false, true},
     PreviewCommand::First,
     KeyScope::PageAndButtons},
    {{u"Previous",
      u"上一页",
      u"上一页",
      PRICEDOWN_ICON_PREVIOUS,
      {{{Key::PageUp, false, true}}},
      false,
      true},
     PreviewCommand::Previous},
    {{u"Next",
      u"下一页",
      u"下一页",
      PRICEDOWN_ICON_NEXT,
      {{{Key::PageDown, false, true}}},
      false,
      true},
     PreviewCommand::Next},
    {{u"Last", u"末页", u"末页", PRICEDOWN_ICON_LAST, {{{Key::End, false, true}}}, false, true},
     PreviewCommand::Last,
     KeyScope::PageAndButtons},
}};

inline constexpr std::array<PreviewButton, 6> kViewButtons{{
    {{u"ZoomOut",
      u"缩小",
      u"缩小",
      PRICEDOWN_ICON_ZOOM_OUT,
      {{{Key::Subtract}, {Key::Minus}}},
      false,
      true},
     PreviewCommand::ZoomOut,
     KeyScope::PageAndButtons},
    {{u"ZoomIn",
      u"放大",
      u"放大",
      PRICEDOWN_ICON_ZOOM_IN,
      {{{Key::Add}, {Key::Plus}}},
      false,
      true},
     PreviewCommand::ZoomIn,
     KeyScope::PageAndButtons},
    {{u"FitPage", u"整页", u"显示整页", PRICEDOWN_ICON_FIT_PAGE, {}, false, true},
     PreviewCommand::FitPage},
    {{u"FitWidth", u"页宽", u"按页宽显示", PRICEDOWN_ICON_FIT_WIDTH, {}, false, true},
     PreviewCommand::FitWidth},
    {{.key = u"sp5", .separator = true}},
    {{u"Close", u"关闭", u"关闭", PRICEDOWN_ICON_EXIT, {{{Key::Escape}}}}, PreviewCommand::Close},
}};

// The part of the preview that has the keyboard focus.
enum class PreviewFocus : std::uint8_t { Page, Buttons, Field };

// The command of a button's key or of another one; nothing for keys that the part or the system
// handles, Escape among them. Shift and Alt make no difference.
std::optional<PreviewCommand> CommandOfKey(const KeyPress& press, PreviewFocus focus);

}  // namespace pricedown
