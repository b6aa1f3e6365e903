// The merged toolbar on the system's toolbar control. A check tool is an ordinary button that shows
// the tool's state.
#include "workbench/host/merged_toolbar.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/convert.h"
#include "platform/icon_ids.h"
#include "platform/skip.h"
#include "windows/base/fonts.h"
#include "windows/base/gdi.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"
#include "workbench/host/resource_ids.h"

namespace workbench {

using pricedown::ObjectPtr;
using pricedown::ToText;
using pricedown::Value;
using pricedown::windows::Dpi;
using pricedown::windows::IconLook;
using pricedown::windows::ImageList;
using pricedown::windows::ToWide;

namespace {

// Left of the picture, between picture and caption, right of the caption; pixels at 96 dpi.
constexpr int kGap = 6;

struct ToolIcon {
  std::u16string_view tool;
  int icon;
};
// Tools that the control also has as buttons show the control's icons.
constexpr ToolIcon kToolIcons[] = {
    {u"iInsert", PRICEDOWN_ICON_ADD},
    {u"iEdit", PRICEDOWN_ICON_EDIT},
    {u"iCut", PRICEDOWN_ICON_DELETE},
    {u"iPrint", PRICEDOWN_ICON_PRINT},
    {u"iPrintPreView", PRICEDOWN_ICON_PREVIEW},
    {u"iExit", PRICEDOWN_ICON_EXIT},
    {u"iRefresh", IDI_REFRESH},
    {u"iToolBar", IDI_TOOL_STRIP},
    {u"mnuViewStatusBar", IDI_STATUS_BAR},
};

struct StandardTool {
  const char16_t* name;
  const char16_t* caption;
  const char16_t* category;
};
constexpr StandardTool kStandardTools[] = {
    {u"iPrint", u"打印", u"文件"},
    {u"iPrintPreView", u"预览", u"文件"},
    {u"iRefresh", u"刷新", u"查看"},
    {u"iToolBar", u"工具条", u"查看"},
    {u"mnuViewStatusBar", u"状态栏", u"查看"},
    {u"iExit", u"退出", u"文件"},
};

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
    tools->Call(u"Add", {standard.name, standard.caption, standard.category});
  }
}

MergedToolbar::MergedToolbar(HINSTANCE module, HWND frame) {
  window_ = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                            WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_LIST |
                                TBSTYLE_TOOLTIPS | TBSTYLE_WRAPABLE,
                            0, 0, 0, 0, frame, nullptr, module, nullptr);
  if (window_ == nullptr) pricedown::windows::ThrowLastError();
  SendMessageW(window_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
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
      tools_.push_back(std::move(tool));
    }
  }
  UpdatePictures();
  AddButtons();
  RefreshStates();
  SendMessageW(window_, TB_AUTOSIZE, 0, 0);
}

// For the window's current resolution.
void MergedToolbar::UpdatePictures() {
  const Dpi dpi = Dpi::Of(window_);
  std::vector<int> icons;
  for (Tool& tool : tools_) {
    const auto* found = std::find_if(std::begin(kToolIcons), std::end(kToolIcons),
                                     [&](const ToolIcon& row) { return row.tool == tool.name; });
    if (found == std::end(kToolIcons)) continue;
    tool.picture = static_cast<int>(icons.size());
    icons.push_back(found->icon);
  }
  ImageList normal = ImageListOf(icons, IconLook::Normal, dpi);
  ImageList disabled = ImageListOf(icons, IconLook::Disabled, dpi);
  const int size = pricedown::windows::IconSize(dpi);
  SendMessageW(window_, TB_SETBITMAPSIZE, 0, MAKELPARAM(size, size));
  SendMessageW(window_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(normal.get()));
  SendMessageW(window_, TB_SETDISABLEDIMAGELIST, 0, reinterpret_cast<LPARAM>(disabled.get()));
  pictures_ = std::move(normal);
  disabledPictures_ = std::move(disabled);
}

// In sizes of the resolution; the system's own are pixels.
void MergedToolbar::AddButtons() {
  const Dpi dpi = Dpi::Of(window_);
  const auto font = reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0));
  const pricedown::windows::WindowContext context(window_);
  const int gap = dpi.Scale(kGap);
  SendMessageW(window_, TB_SETLISTGAP, static_cast<WPARAM>(gap), 0);
  for (std::size_t i = 0; i < tools_.size(); ++i) {
    TBBUTTON button{};
    button.iBitmap = tools_[i].picture;
    button.idCommand = IDM_FIRST_TOOL + static_cast<int>(i);
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_SHOWTEXT;
    button.iString = reinterpret_cast<INT_PTR>(tools_[i].caption.c_str());
    SendMessageW(window_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    TBBUTTONINFOW size{};
    size.cbSize = sizeof size;
    size.dwMask = TBIF_SIZE;
    size.cx =
        static_cast<WORD>(3 * gap + pricedown::windows::IconSize(dpi) +
                          pricedown::windows::TextWidth(context.Get(), font, tools_[i].caption));
    SendMessageW(window_, TB_SETBUTTONINFOW, static_cast<WPARAM>(button.idCommand),
                 reinterpret_cast<LPARAM>(&size));
  }
}

void MergedToolbar::FitInto(int width) {
  // A toolbar breaks its rows at its current width; TB_AUTOSIZE then sets the height.
  SetWindowPos(window_, nullptr, 0, 0, width, 0, SWP_NOZORDER | SWP_NOACTIVATE);
  SendMessageW(window_, TB_AUTOSIZE, 0, 0);
}

void MergedToolbar::RefreshStates() {
  for (std::size_t i = 0; i < tools_.size(); ++i) {
    const auto id = static_cast<WPARAM>(IDM_FIRST_TOOL) + i;
    const ObjectPtr& tool = tools_[i].object;
    const int state = (IsTrue(tool, u"Enabled") ? TBSTATE_ENABLED : 0) |
                      (IsTrue(tool, u"Checked") ? TBSTATE_CHECKED : 0) |
                      (IsTrue(tool, u"Visible") ? 0 : TBSTATE_HIDDEN);
    constexpr LRESULT kShown = TBSTATE_ENABLED | TBSTATE_CHECKED | TBSTATE_HIDDEN;
    // Setting the state would release a pressed button.
    if ((SendMessageW(window_, TB_GETSTATE, id, 0) & kShown) == state) continue;
    SendMessageW(window_, TB_SETSTATE, id, MAKELPARAM(state, 0));
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
