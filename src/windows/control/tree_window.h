// The class tree `tvwBase` as a tree view of the system.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string_view>
#include <vector>

#include "browser/node_collection.h"
#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"
#include "windows/base/fonts.h"
#include "windows/base/image_list.h"
#include "windows/base/pending_report.h"
#include "windows/control/child_events.h"

namespace pricedown::windows {

class TreeWindow final : public BoundWindow {
 public:
  explicit TreeWindow(ChildEvents& events) : events_(events) {}
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, Dpi dpi, std::u16string_view name);

  void ClearNodes();
  void InsertNode(NodeIndex index, NodeIndex parent, std::u16string_view text);
  void SelectNode(NodeIndex index);
  // After the window has been destroyed: what was selected then.
  NodeIndex SelectedNode() const;
  void MarkNode(NodeIndex index);
  // Makes the node visible and draws it as found; kNoNode for none.
  void ShowFound(NodeIndex index);
  void SetRedraw(bool redraw);

  void SetFont(FontHandle font);
  // Sizes of the resolution, colours of the system.
  void UpdateAppearance(Dpi dpi);
  // A notification that the tree sent to its parent.
  LRESULT OnNotify(NMHDR& header);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnFocus(WPARAM wParam, LPARAM lParam);
  bool OnKeyDown(WPARAM key, bool repeated);
  void OnRightPress(POINT point);
  // False for a click beside the client area.
  bool OnContextMenu(LPARAM place);
  LRESULT OnDraw(NMTVCUSTOMDRAW& drawing) const;
  HTREEITEM ItemOf(NodeIndex index) const;
  NodeIndex IndexOf(HTREEITEM handle) const;
  bool MouseIsOnNode() const;
  void SizeItems();
  void RememberLook();
  void ScrollTo(HTREEITEM item);

  ChildEvents& events_;
  std::vector<HTREEITEM> items_;  // by node index - 1
  Dpi dpi_;
  ImageList images_;
  FontHandle font_;
  PendingReport<bool> clicked_;  // a node, or selected one by keyboard
  NodeIndex lastSelected_ = kNoNode;
  bool selecting_ = false;    // by the core
  bool takingFocus_ = false;  // keeps the system from selecting the first node
  bool rootCollapsed_ = false;
  NodeIndex marked_ = kNoNode;
  NodeIndex found_ = kNoNode;
  NodeIndex firstVisible_ = kNoNode;  // when redrawing was switched off
  bool redraw_ = true;
};

}  // namespace pricedown::windows
