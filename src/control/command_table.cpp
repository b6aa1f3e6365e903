// The rows of the table of commands.
#include <array>

#include "control/price_down.h"
#include "platform/icon_ids.h"

namespace pricedown {

// A button's position is its place among the rows of the tool strip. Positions, keys and tool names
// are public: append new rows.
// NOLINTNEXTLINE(readability-function-size) A table; in a function because its rows are friends.
std::span<const ControlCommand> ControlCommands() {
  using namespace surface;
  constexpr auto HasItems = [](const PriceDown& control) {
    return control.grid_.Cells().MaxRows() > 0;
  };
  constexpr auto HasFindText = [](const PriceDown& control) { return control.find_.HasText(); };
  static constexpr std::array<ControlCommand, 16> kCommands{{
      {{.key = u"sp2", .separator = true}, {.surfaces = kToolStrip}},
      {{.key = u"Add",
        .caption = u"新增",
        .tooltip = u"新增",
        .icon = PRICEDOWN_ICON_ADD,
        .keys = {KeyPress{Key::Insert}}},
       {.surfaces = kToolStrip | kCommandBar | kMenus,
        .tool = u"iInsert",
        .changesClasses = true,
        .right = 0x20000,
        .run = [](PriceDown& control) { control.addRecord(); }}},
      {{.key = u"Edit",
        .caption = u"修改",
        .tooltip = u"修改",
        .icon = PRICEDOWN_ICON_EDIT,
        .keys = {KeyPress{Key::F2}, KeyPress{Key::Enter}}},
       {.surfaces = kToolStrip | kCommandBar | kMenus,
        .tool = u"iEdit",
        .description = u"修改物料类别属性",
        .changesClasses = true,
        .right = 0x400000,
        .run = [](PriceDown& control) { control.editRecord(); }}},
      {{.key = u"Del",
        .caption = u"删除",
        .tooltip = u"删除",
        .icon = PRICEDOWN_ICON_DELETE,
        .keys = {KeyPress{Key::Delete}}},
       {.surfaces = kToolStrip | kCommandBar | kMenus,
        .tool = u"iCut",
        .description = u"删除物料类别",
        .changesClasses = true,
        .right = 0x10000,
        .run = [](PriceDown& control) { control.delRecord(); }}},
      {{.key = u"Refresh", .caption = u"刷新", .keys = {KeyPress{Key::F5}}},
       {.surfaces = kMenus,
        .beginsGroup = true,
        .tool = u"iRefresh",
        .run = [](PriceDown& control) { control.tree_.RefreshCurrentNode(); },
        .enabled = [](const PriceDown& control) { return control.IsToolEnabled(u"iRefresh"); }}},
      {{.key = u"Print",
        .caption = u"打印",
        .tooltip = u"打印",
        .icon = PRICEDOWN_ICON_PRINT,
        .keys = {KeyPress{.key = Key::P, .control = true}}},
       {.surfaces = kToolStrip | kMenus,
        .tool = u"iPrint",
        .right = 0x8000,
        .run = [](PriceDown& control) { control.PrintPara(); }}},
      {{.key = u"PrintView",
        .caption = u"预览",
        .tooltip = u"预览",
        .icon = PRICEDOWN_ICON_PREVIEW},
       {.surfaces = kToolStrip | kMenus,
        .tool = u"iPrintPreView",
        .right = 0x8000,
        .run = [](PriceDown& control) { control.PreviewPara(); }}},
      {{.key = u"Copy",
        .caption = u"复制",
        .keys = {KeyPress{.key = Key::C, .control = true},
                 KeyPress{.key = Key::Insert, .control = true}}},
       {.surfaces = kGridMenu,
        .beginsGroup = true,
        .run = [](PriceDown& control) { control.ports_.view.CopyCells(false); },
        .enabled = HasItems}},
      {{.key = u"CopyTitled",
        .caption = u"连同标题复制",
        .keys = {KeyPress{.key = Key::C, .shift = true, .control = true}}},
       {.surfaces = kGridMenu,
        .run = [](PriceDown& control) { control.ports_.view.CopyCells(true); },
        .enabled = HasItems}},
      {{.key = u"Find", .caption = u"查找", .keys = {KeyPress{.key = Key::F, .control = true}}},
       {.surfaces = kMenus,
        .beginsGroup = true,
        .run = [](PriceDown& control) { control.find_.Open(control.ports_.view.FocusedPane()); }}},
      {{.key = u"FindNext", .caption = u"查找下一个", .keys = {KeyPress{Key::F3}}},
       {.surfaces = kMenus,
        .run = [](PriceDown& control) { control.find_.Next(false); },
        .enabled = HasFindText}},
      {{.key = u"FindPrevious",
        .caption = u"查找上一个",
        .keys = {KeyPress{.key = Key::F3, .shift = true}}},
       {.surfaces = kMenus,
        .run = [](PriceDown& control) { control.find_.Next(true); },
        .enabled = HasFindText}},
      {{.key = u"sp3", .separator = true}, {.surfaces = kToolStrip}},
      {{.key = u"Exit", .caption = u"退出", .tooltip = u"退出系统", .icon = PRICEDOWN_ICON_EXIT},
       {.surfaces = kToolStrip,
        .tool = u"iExit",
        .run = [](PriceDown& control) { control.ports_.container.Close(); }}},
      {{},
       {.tool = kToolStripTool,
        .toggle = [](PriceDown& control,
                     const ObjectPtr& tool) { control.ToggleToolStrip(tool); }}},
      {{},
       {.tool = kStatusBarTool,
        // The host has already changed the state of the tool.
        .toggle = [](PriceDown& control,
                     const ObjectPtr& tool) { control.FollowTool(tool, kStatusBarTool); }}},
  }};
  return kCommands;
}

}  // namespace pricedown
