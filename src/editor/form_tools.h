// The tools of `tlbSPCA`.
#pragma once

#include <array>

#include "editor/form_view.h"
#include "env/command.h"
#include "platform/icon_ids.h"

namespace pricedown {

struct FormToolRow : Command {
  FormTool tool = {};  // unused for separators
};

// By position.
inline constexpr std::array<FormToolRow, 7> kFormTools{{
    {{.key = u"Add",
      .caption = u"新增",
      .icon = PRICEDOWN_ICON_ADD,
      .keys = {{{Key::N, false, true}}}},
     FormTool::Add},
    {{.key = u"Save",
      .caption = u"保存",
      .icon = PRICEDOWN_ICON_SAVE,
      .keys = {{{Key::S, false, true}}}},
     FormTool::Save},
    {{.key = u"sp4", .separator = true}},
    {{.key = u"AddItem", .caption = u"增加物料", .icon = PRICEDOWN_ICON_ADD_ITEM},
     FormTool::AddItem},
    {{.key = u"DelItem", .caption = u"删除物料", .icon = PRICEDOWN_ICON_REMOVE_ITEM},
     FormTool::DelItem},
    {{.key = u"sp7", .separator = true}},
    {{.key = u"iExit", .caption = u"退出", .tooltip = u"退出", .icon = PRICEDOWN_ICON_EXIT},
     FormTool::Exit},
}};

constexpr const FormToolRow& RowOf(FormTool tool) {
  return kFormTools[static_cast<std::size_t>(tool) - 1];
}

}  // namespace pricedown
