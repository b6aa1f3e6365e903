// The tree view. A click is reported after the default handling of the message, because it may end
// the control.
#include "windows/control/tree_window.h"

#include <windowsx.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "browser/node_look.h"
#include "platform/icon_ids.h"
#include "windows/base/context_menu.h"
#include "windows/base/control_ids.h"
#include "windows/base/keyboard.h"
#include "windows/base/painting.h"
#include "windows/base/plain_control.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

// Positions in the image list, from 0.
constexpr int kClosedImage = 0;
constexpr int kOpenImage = 1;

COLORREF MarkColour() {
  constexpr int kShare = 60;  // of 255
  return Blend(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), kShare);
}

bool IsNavigationKey(WPARAM key) {
  return key == VK_UP || key == VK_DOWN || key == VK_HOME || key == VK_END || key == VK_PRIOR ||
         key == VK_NEXT || key == VK_RIGHT || key == VK_LEFT;
}

}  // namespace

void TreeWindow::Create(HWND parent, HINSTANCE module, Dpi dpi, std::u16string_view name) {
  const std::wstring text = ToWide(name);
  Creation creation;
  creation.className = WC_TREEVIEWW;
  creation.text = text.c_str();
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | TVS_HASLINES |
                   TVS_LINESATROOT | TVS_HASBUTTONS | TVS_SHOWSELALWAYS | TVS_DISABLEDRAGDROP;
  creation.extendedStyle = WS_EX_CLIENTEDGE;
  creation.parent = parent;
  creation.id = control_ids::kTree;
  creation.module = module;
  CreateControl(creation);
  SendMessageW(Handle(), TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
  UpdateAppearance(dpi);
}

void TreeWindow::UpdateAppearance(Dpi dpi) {
  if (Handle() == nullptr) return;
  ImageList images =
      ImageListOf({PRICEDOWN_ICON_FOLDER, PRICEDOWN_ICON_OPEN_FOLDER}, IconLook::Normal, dpi);
  TreeView_SetImageList(Handle(), images.get(), TVSIL_NORMAL);
  images_ = std::move(images);
  TreeView_SetIndent(Handle(), IconSize(dpi) + dpi.Scale(3));
  dpi_ = dpi;
  SizeItems();
}

void TreeWindow::SizeItems() {
  if (Handle() == nullptr || !font_) return;
  const int height = std::max(IconSize(dpi_), LineHeight(Handle(), font_.Get())) + dpi_.Scale(2);
  // Tree views round odd heights down.
  TreeView_SetItemHeight(Handle(), (height + 1) / 2 * 2);
}

void TreeWindow::SetFont(FontHandle font) {
  SetFontOf(Handle(), font.Get());
  font_ = std::move(font);
  SizeItems();
}

HTREEITEM TreeWindow::ItemOf(NodeIndex index) const {
  if (index < 1 || static_cast<std::size_t>(index) > items_.size()) return nullptr;
  return items_[static_cast<std::size_t>(index) - 1];
}

NodeIndex TreeWindow::IndexOf(HTREEITEM handle) const {
  TVITEMW item{};
  item.mask = TVIF_PARAM;
  item.hItem = handle;
  if (handle == nullptr || TreeView_GetItem(Handle(), &item) == FALSE) return kNoNode;
  return static_cast<NodeIndex>(item.lParam);
}

void TreeWindow::ClearNodes() {
  lastSelected_ = marked_ = found_ = kNoNode;
  if (Handle() == nullptr) return;
  selecting_ = true;
  // Otherwise the selection would move from node to node during the deletion.
  TreeView_SelectItem(Handle(), nullptr);
  TreeView_DeleteAllItems(Handle());
  items_.clear();
  selecting_ = false;
}

void TreeWindow::InsertNode(NodeIndex index, NodeIndex parent, std::u16string_view text) {
  if (Handle() == nullptr) return;
  std::wstring wide = ToWide(text);
  TVINSERTSTRUCTW insertion{};
  insertion.hParent = parent == kNoNode ? TVI_ROOT : ItemOf(parent);
  insertion.hInsertAfter = TVI_LAST;
  insertion.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
  insertion.item.pszText = wide.data();
  insertion.item.iImage = kClosedImage;
  insertion.item.iSelectedImage = kOpenImage;
  insertion.item.lParam = index;
  items_.resize(static_cast<std::size_t>(index), nullptr);
  items_.back() = TreeView_InsertItem(Handle(), &insertion);
  if (items_.back() != nullptr) return;
  items_.pop_back();
  ThrowIfFailed(E_OUTOFMEMORY);
}

// Never scrolls to the right: the end of a long text would be shown instead of its beginning.
void TreeWindow::ScrollTo(HTREEITEM item) {
  const int left = GetScrollPos(Handle(), SB_HORZ);
  TreeView_EnsureVisible(Handle(), item);
  if (GetScrollPos(Handle(), SB_HORZ) <= left) return;
  SendMessageW(Handle(), WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, left), 0);
  SendMessageW(Handle(), WM_HSCROLL, SB_ENDSCROLL, 0);
}

void TreeWindow::SelectNode(NodeIndex index) {
  const HTREEITEM item = ItemOf(index);
  if (Handle() == nullptr || item == nullptr) return;
  selecting_ = true;
  TreeView_SelectItem(Handle(), item);
  ScrollTo(item);
  selecting_ = false;
}

NodeIndex TreeWindow::SelectedNode() const {
  if (Handle() == nullptr) return lastSelected_;
  return IndexOf(TreeView_GetSelection(Handle()));
}

void TreeWindow::MarkNode(NodeIndex index) {
  marked_ = index;
  if (Handle() != nullptr) InvalidateRect(Handle(), nullptr, FALSE);
}

void TreeWindow::ShowFound(NodeIndex index) {
  found_ = index;
  if (Handle() == nullptr) return;
  if (const HTREEITEM item = ItemOf(index)) ScrollTo(item);
  InvalidateRect(Handle(), nullptr, FALSE);
}

// Once for a load and those that begin inside it.
void TreeWindow::RememberLook() {
  firstVisible_ = IndexOf(TreeView_GetFirstVisible(Handle()));
  if (const HTREEITEM root = ItemOf(1)) {
    rootCollapsed_ = items_.size() > 1 &&
                     (TreeView_GetItemState(Handle(), root, TVIS_EXPANDED) & TVIS_EXPANDED) == 0;
  }
}

void TreeWindow::SetRedraw(bool redraw) {
  if (Handle() == nullptr || redraw == redraw_) return;
  redraw_ = redraw;
  if (!redraw) RememberLook();
  // A root that the user closed stays closed.
  if (redraw && !rootCollapsed_) {
    if (const HTREEITEM root = ItemOf(1)) TreeView_Expand(Handle(), root, TVE_EXPAND);
  }
  SendMessageW(Handle(), WM_SETREDRAW, redraw ? TRUE : FALSE, 0);
  if (!redraw) return;
  if (const NodeIndex first = std::exchange(firstVisible_, kNoNode); first > kRootNode) {
    const auto last = static_cast<NodeIndex>(items_.size());
    TreeView_SelectSetFirstVisible(Handle(), ItemOf(std::min(first, last)));
  }
  InvalidateRect(Handle(), nullptr, TRUE);
}

bool TreeWindow::MouseIsOnNode() const {
  const DWORD position = GetMessagePos();
  TVHITTESTINFO hit{};
  hit.pt = {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
  ScreenToClient(Handle(), &hit.pt);
  return TreeView_HitTest(Handle(), &hit) != nullptr && (hit.flags & TVHT_ONITEM) != 0;
}

// The system's own colour of a selection without the focus is that of the window in high contrast.
LRESULT TreeWindow::OnDraw(NMTVCUSTOMDRAW& drawing) const {
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  const TreeMarks marks{SelectedNode(), marked_, found_, GetFocus() == Handle()};
  switch (LookOf(static_cast<NodeIndex>(drawing.nmcd.lItemlParam), marks)) {
    case NodeLook::Plain:
      return CDRF_DODEFAULT;
    case NodeLook::Found:
      drawing.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
      drawing.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
      break;
    case NodeLook::Current:
      drawing.clrText = GetSysColor(COLOR_WINDOWTEXT);
      drawing.clrTextBk = MarkColour();
      break;
  }
  return CDRF_NEWFONT;
}

LRESULT TreeWindow::OnNotify(NMHDR& header) {
  switch (header.code) {
    case NM_CUSTOMDRAW:
      return OnDraw(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
    case NM_CLICK:
      if (MouseIsOnNode()) clicked_.Value() = true;
      return 0;
    case TVN_SELCHANGINGW:
    case TVN_SELCHANGINGA:
      return takingFocus_ ? TRUE : FALSE;
    case TVN_SELCHANGEDW:
    case TVN_SELCHANGEDA:
      if (!selecting_) clicked_.Value() = true;
      return 0;
    default:
      return 0;
  }
}

LRESULT TreeWindow::OnFocus(WPARAM wParam, LPARAM lParam) {
  // After a reload no node is selected; the focus must not select one.
  takingFocus_ = true;
  const LRESULT result = Default(WM_SETFOCUS, wParam, lParam);
  takingFocus_ = false;
  events_.FocusEntered();
  return result;
}

// Returns whether the key was handled.
bool TreeWindow::OnKeyDown(WPARAM key, bool repeated) {
  if (key == VK_TAB) {
    events_.TabPressed(GetKeyState(VK_SHIFT) < 0);
    return true;
  }
  if (events_.KeyPressed(Handle(), PressOf(key), repeated)) return true;
  if (!IsNavigationKey(key) || TreeView_GetSelection(Handle()) != nullptr || items_.empty()) {
    return false;
  }
  if (ItemOf(marked_) == nullptr) {
    // The new selection is reported from within, as the last step.
    TreeView_SelectItem(Handle(), TreeView_GetFirstVisible(Handle()));
    return true;
  }
  SelectNode(marked_);
  // Also when the key leads nowhere: the node is the selected one now.
  clicked_.Value() = true;
  return false;
}

// Selects the node as a click does, so that the menu applies to it. The default handling would wait
// for the button to go up.
void TreeWindow::OnRightPress(POINT point) {
  const Lifetime window = WindowLifetime();
  SetFocus(Handle());
  if (window.HasEnded()) return;
  TVHITTESTINFO hit{};
  hit.pt = point;
  if (TreeView_HitTest(Handle(), &hit) == nullptr || (hit.flags & TVHT_ONITEM) == 0) return;
  if (hit.hItem != TreeView_GetSelection(Handle())) TreeView_SelectItem(Handle(), hit.hItem);
}

bool TreeWindow::OnContextMenu(LPARAM place) {
  RECT node{};
  const HTREEITEM selected = TreeView_GetSelection(Handle());
  // The message reads the node from the memory that it writes the rectangle to.
  std::memcpy(&node, &selected, sizeof selected);  // NOLINT(bugprone-sizeof-expression)
  if (selected == nullptr ||
      SendMessageW(Handle(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&node)) == 0) {
    node = {};
  }
  const auto point = MenuPlace(Handle(), place, node);
  if (point) events_.MenuRequested(Handle(), *point);
  return point.has_value();
}

LRESULT TreeWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) lastSelected_ = SelectedNode();
  if (message == WM_SETFOCUS) return OnFocus(wParam, lParam);
  if (message == WM_KILLFOCUS) {
    const LRESULT result = Default(message, wParam, lParam);
    events_.FocusLeft(reinterpret_cast<HWND>(wParam));
    return result;
  }
  if (message == WM_KEYDOWN && OnKeyDown(wParam, IsRepeated(lParam))) return 0;
  // Tab, Enter, Ctrl+P: the system would look for a node of that name.
  if (message == WM_CHAR && wParam < L' ') return 0;
  if (message == WM_RBUTTONDOWN) {
    OnRightPress({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
    return 0;
  }
  if (IsContextMenuKey(message, wParam)) {
    OnContextMenu(kByKeyboard);
    return 0;
  }
  if (message == WM_CONTEXTMENU && OnContextMenu(lParam)) return 0;
  const auto [result, clicked] = clicked_.After([&] { return Default(message, wParam, lParam); });
  if (!clicked) return result;
  if (const NodeIndex node = SelectedNode(); node != kNoNode) events_.NodeClicked(node);
  return result;
}

}  // namespace pricedown::windows
