// Places the children by the core's layout, and draws the control for containers.
#include <windows.h>

#include <commctrl.h>

#include <string>
#include <utility>
#include <vector>

#include "windows/base/dpi.h"
#include "windows/base/gdi.h"
#include "windows/base/painting.h"
#include "windows/base/plain_control.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"
#include "windows/control/control_children.h"
#include "windows/control/control_window.h"

namespace pricedown::windows {
namespace {

using Placement = std::pair<HWND, RECT>;

bool IsPlaced(HWND window, const RECT& area) {
  if (HasVisibleStyle(window) == (IsRectEmpty(&area) != FALSE)) return false;
  const RECT place = AreaInParent(window);
  return EqualRect(&place, &area) != FALSE;
}

UINT PlacingFlags(const RECT& area) {
  const UINT shown = IsRectEmpty(&area) != FALSE ? SWP_HIDEWINDOW : SWP_SHOWWINDOW;
  return SWP_NOZORDER | SWP_NOACTIVATE | shown;
}

// Windows without an area are hidden.
void PlaceAll(const std::vector<Placement>& placements) {
  // All at once, to avoid flicker.
  HDWP batch = BeginDeferWindowPos(static_cast<int>(placements.size()));
  for (const auto& [window, area] : placements) {
    // Most layouts move few windows.
    if (window == nullptr || batch == nullptr || IsPlaced(window, area)) continue;
    batch = DeferWindowPos(batch, window, nullptr, area.left, area.top, WidthOf(area),
                           HeightOf(area), PlacingFlags(area));
  }
  if (batch != nullptr && EndDeferWindowPos(batch) != FALSE) return;
  // A batch that fails moves nothing.
  for (const auto& [window, area] : placements) {
    if (window == nullptr || IsPlaced(window, area)) continue;
    SetWindowPos(window, nullptr, area.left, area.top, WidthOf(area), HeightOf(area),
                 PlacingFlags(area));
  }
}

bool IsClass(HWND window, const wchar_t* name) {
  wchar_t text[64] = {};
  GetClassNameW(window, text, 64);
  return lstrcmpiW(text, name) == 0;
}

void DrawLabel(HDC context, HWND label, RECT area) {
  const LONG_PTR style = GetWindowLongPtrW(label, GWL_STYLE);
  const Selected font(context, reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)));
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
  const std::wstring text = ToWide(TextOf(label));
  const UINT side = (style & SS_TYPEMASK) == SS_RIGHT ? DT_RIGHT : DT_LEFT;
  DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &area,
            side | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

// Draws a window with its children, its upper left corner at the context's origin.
void DrawWindow(HDC context, HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  OffsetRect(&area, -area.left, -area.top);
  if (IsClass(window, L"STATIC")) {
    DrawLabel(context, window, area);
    return;
  }
  POINT origin{};
  RECT outer{};
  GetWindowRect(window, &outer);
  ClientToScreen(window, &origin);
  const POINT border{origin.x - outer.left, origin.y - outer.top};
  if (border.x > 0 && border.y > 0) {
    FillArea(context, area, GetSysColor(COLOR_WINDOW));
    PaintFrame(context, window, area);
  }
  const SavedDc saved(context);
  RECT client{};
  GetClientRect(window, &client);
  OffsetWindowOrgEx(context, -border.x, -border.y, nullptr);
  IntersectClipRect(context, 0, 0, client.right, client.bottom);
  SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context),
               PRF_CLIENT | PRF_ERASEBKGND);
  // From the lowest one up: the find bar lies over a heading.
  for (HWND child = GetWindow(GetWindow(window, GW_CHILD), GW_HWNDLAST); child != nullptr;
       child = GetWindow(child, GW_HWNDPREV)) {
    if (!HasVisibleStyle(child)) continue;
    const RECT place = AreaInParent(child);
    const SavedDc before(context);
    OffsetWindowOrgEx(context, -place.left, -place.top, nullptr);
    DrawWindow(context, child);
  }
}

}  // namespace

void ControlWindow::Place(const Layout& layout) {
  if (Handle() == nullptr) return;
  const ControlChildren& c = *children_;
  const Dpi dpi = Dpi::Of(Handle());
  const RECT pane = dpi.ToPixels(layout.gridPane);
  const Rectangle strip =
      MiddleOf(FromRect(dpi.ToPixels(layout.toolStrip)), c.toolStrip.ButtonHeight());
  RECT grid = dpi.ToPixels(layout.grid);
  OffsetRect(&grid, -pane.left, -pane.top);
  PlaceAll({{c.title.Handle(), dpi.ToPixels(layout.title)},
            {c.period.Handle(), dpi.ToPixels(layout.period)},
            {c.firstLabel.Handle(), dpi.ToPixels(layout.firstLabel)},
            {c.secondLabel.Handle(), dpi.ToPixels(layout.secondLabel)},
            {c.upperLine.Handle(), dpi.ToPixels(layout.upperLine)},
            {c.toolStrip.Handle(), ToRect(strip)},
            {c.lowerLine.Handle(), dpi.ToPixels(layout.lowerLine)},
            {c.classHeading.Handle(), dpi.ToPixels(layout.classHeading)},
            {c.tree.Handle(), dpi.ToPixels(layout.tree)},
            {c.splitter.Handle(), dpi.ToPixels(layout.splitter)},
            {c.itemHeading.Handle(), dpi.ToPixels(layout.itemHeading)},
            {c.pane.Handle(), pane},
            {c.statusBar.Handle(), dpi.ToPixels(layout.statusBar)}});
  PlaceAll({{c.grid.Handle(), grid}});
  children_->MoveFindBar();
  children_->statusBar.ArrangePanels(dpi);
  // Its visibility follows the work, not the layout.
  const RECT bar = dpi.ToPixels(layout.progressBar);
  SetWindowPos(c.progressBar.Handle(), HWND_TOP, bar.left, bar.top, WidthOf(bar), HeightOf(bar),
               SWP_NOACTIVATE);
  // A hidden window must not keep the focus.
  const HWND focus = GetFocus();
  if (IsWindowVisible(Handle()) != FALSE && IsChild(Handle(), focus) != FALSE &&
      IsWindowVisible(focus) == FALSE) {
    SetFocusFirst(false);
  }
}

void ControlChildren::MoveFindBar() {
  if (!findBar.IsOpen()) return;
  const HWND heading =
      findBar.Pane() == FindPane::Tree ? classHeading.Handle() : itemHeading.Handle();
  findBar.MoveTo(AreaInParent(heading));
}

void ControlWindow::Draw(HDC context, const RECT& pixels) {
  if (Handle() == nullptr) return;
  RECT client{};
  GetClientRect(Handle(), &client);
  if (IsRectEmpty(&client) != FALSE) return;
  RECT target = pixels;
  LPtoDP(context, reinterpret_cast<POINT*>(&target), 2);
  const SavedDc saved(context);
  SetMapMode(context, MM_ANISOTROPIC);
  SetWindowOrgEx(context, 0, 0, nullptr);
  SetWindowExtEx(context, WidthOf(client), HeightOf(client), nullptr);
  SetViewportOrgEx(context, target.left, target.top, nullptr);
  SetViewportExtEx(context, WidthOf(target), HeightOf(target), nullptr);
  IntersectClipRect(context, 0, 0, client.right, client.bottom);
  FillButtonFace(context, client);
  DrawWindow(context, Handle());
}

}  // namespace pricedown::windows
