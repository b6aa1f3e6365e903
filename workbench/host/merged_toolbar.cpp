// The merged toolbar on the system's toolbar control, texts only.
// Tools are reached by name as any host reaches them.
#include "workbench/host/merged_toolbar.h"

#include <commctrl.h>

#include "platform/convert.h"
#include "platform/skip.h"
#include "windows/com/failure.h"
#include "windows/com/wide_text.h"
#include "workbench/host/resource_ids.h"

namespace workbench {

using pricedown::ObjectPtr;
using pricedown::ToText;
using pricedown::Value;
using pricedown::windows::ToWide;

namespace {

struct StandardTool {
  const char16_t* name;
  const char16_t* caption;
  const char16_t* category;
  bool check;
};
constexpr StandardTool kStandardTools[] = {
    {u"iPrint", u"打印", u"文件", false},
    {u"iPrintPreView", u"预览", u"文件", false},
    {u"iRefresh", u"刷新", u"查看", false},
    {u"iToolBar", u"工具条", u"查看", true},
    {u"mnuViewStatusBar", u"状态栏", u"查看", true},
    {u"iExit", u"退出", u"文件", false},
};

bool IsCheckTool(std::u16string_view name) {
  for (const StandardTool& tool : kStandardTools) {
    if (name == tool.name) return tool.check;
  }
  return false;
}

bool IsTrue(const ObjectPtr& tool, std::u16string_view property) {
  return pricedown::ToBoolean(tool->Get(property));
}

ObjectPtr ToolsOf(const ObjectPtr& bar) {
  return pricedown::RequireObject(bar->Get(u"Tools"), u"Tools");
}

}  // namespace

void AddStandardTools(const ObjectPtr& bar) {
  const ObjectPtr tools = ToolsOf(bar);
  for (const StandardTool& standard : kStandardTools) {
    const bool present = pricedown::SkipFailing([&] { tools->Call(u"Item", {standard.name}); });
    if (present) continue;
    const ObjectPtr tool = pricedown::RequireObject(
        tools->Call(u"Add", {standard.name, standard.caption, standard.category}), standard.name);
    if (standard.check) tool->Put(u"Checked", true);
  }
}

MergedToolbar::MergedToolbar(HINSTANCE module, HWND frame) {
  window_ = CreateWindowExW(
      0, TOOLBARCLASSNAMEW, L"",
      WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS, 0,
      0, 0, 0, frame, nullptr, module, nullptr);
  if (window_ == nullptr) pricedown::windows::ThrowLastError();
  SendMessageW(window_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  SendMessageW(window_, TB_SETBITMAPSIZE, 0, 0);
  SendMessageW(window_, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
}

void MergedToolbar::Merge(const ObjectPtr& bar) {
  while (SendMessageW(window_, TB_DELETEBUTTON, 0, 0) != 0) {
  }
  tools_.clear();
  if (bar != nullptr) {
    const ObjectPtr tools = ToolsOf(bar);
    const std::int32_t count = pricedown::ToInt32(tools->Get(u"Count"));
    for (std::int32_t i = 1; i <= count; ++i) {
      Tool tool;
      tool.object = pricedown::RequireObject(tools->Call(u"Item", {i}), u"Tools");
      if (ToText(tool.object->Get(u"Category")) == u"Menus") continue;
      tool.name = ToText(tool.object->Get(u"Name"));
      tool.caption = ToWide(ToText(tool.object->Get(u"Caption")));
      tool.description = ToWide(ToText(tool.object->Get(u"Description")));
      tool.check = IsCheckTool(tool.name);
      tools_.push_back(std::move(tool));
    }
  }
  for (std::size_t i = 0; i < tools_.size(); ++i) {
    TBBUTTON button{};
    button.iBitmap = I_IMAGENONE;
    button.idCommand = IDM_FIRST_TOOL + static_cast<int>(i);
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = static_cast<BYTE>(BTNS_AUTOSIZE | BTNS_SHOWTEXT |
                                       (tools_[i].check ? BTNS_CHECK : BTNS_BUTTON));
    button.iString = reinterpret_cast<INT_PTR>(tools_[i].caption.c_str());
    SendMessageW(window_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
  }
  RefreshStates();
  SendMessageW(window_, TB_AUTOSIZE, 0, 0);
}

void MergedToolbar::RefreshStates() {
  for (std::size_t i = 0; i < tools_.size(); ++i) {
    const auto id = static_cast<WPARAM>(IDM_FIRST_TOOL) + i;
    const ObjectPtr& tool = tools_[i].object;
    const UINT state = (IsTrue(tool, u"Enabled") ? TBSTATE_ENABLED : 0U) |
                       (IsTrue(tool, u"Checked") ? TBSTATE_CHECKED : 0U) |
                       (IsTrue(tool, u"Visible") ? 0U : TBSTATE_HIDDEN);
    constexpr LRESULT kShown = TBSTATE_ENABLED | TBSTATE_CHECKED | TBSTATE_HIDDEN;
    const LRESULT shown = SendMessageW(window_, TB_GETSTATE, id, 0) & kShown;
    if (shown == static_cast<LRESULT>(state)) continue;
    SendMessageW(window_, TB_ENABLEBUTTON, id, MAKELPARAM(state & TBSTATE_ENABLED, 0));
    SendMessageW(window_, TB_CHECKBUTTON, id, MAKELPARAM((state & TBSTATE_CHECKED) != 0, 0));
    SendMessageW(window_, TB_HIDEBUTTON, id, MAKELPARAM((state & TBSTATE_HIDDEN) != 0, 0));
  }
}

ObjectPtr MergedToolbar::ToolOf(int commandId) const {
  const int index = commandId - IDM_FIRST_TOOL;
  if (index < 0 || static_cast<std::size_t>(index) >= tools_.size()) return nullptr;
  return tools_[static_cast<std::size_t>(index)].object;
}

ObjectPtr MergedToolbar::ToolNamed(std::u16string_view name) const {
  for (const Tool& tool : tools_) {
    if (tool.name == name) return tool.object;
  }
  return nullptr;
}

void MergedToolbar::AppendTo(HMENU menu) const {
  for (std::size_t i = 0; i < tools_.size(); ++i) {
    if (!IsTrue(tools_[i].object, u"Visible")) continue;
    const UINT state = (IsTrue(tools_[i].object, u"Enabled") ? MF_ENABLED : MF_GRAYED) |
                       (IsTrue(tools_[i].object, u"Checked") ? MF_CHECKED : MF_UNCHECKED);
    AppendMenuW(menu, MF_STRING | state, static_cast<UINT_PTR>(IDM_FIRST_TOOL) + i,
                tools_[i].caption.c_str());
  }
}

std::wstring MergedToolbar::TipOf(int commandId) const {
  const int index = commandId - IDM_FIRST_TOOL;
  if (index < 0 || static_cast<std::size_t>(index) >= tools_.size()) return {};
  const Tool& tool = tools_[static_cast<std::size_t>(index)];
  return tool.description.empty() ? tool.caption : tool.description;
}

}  // namespace workbench
