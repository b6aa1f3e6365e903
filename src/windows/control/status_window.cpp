// The status bar's panels: the first fills the rest.
#include "windows/control/status_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "control/layout.h"
#include "windows/base/control_ids.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr int kToTheEdge = -1;

}  // namespace

void StatusWindow::Create(HWND parent, HINSTANCE module, std::u16string_view name) {
  const std::wstring text = ToWide(name);
  Creation creation;
  creation.className = STATUSCLASSNAMEW;
  creation.text = text.c_str();
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | CCS_NORESIZE | CCS_NOPARENTALIGN;
  creation.parent = parent;
  creation.id = control_ids::kStatusBar;
  creation.module = module;
  CreateControl(creation);
}

void StatusWindow::SetPanel(StatusPanel panel, std::u16string_view text) {
  std::u16string& shown = texts_[static_cast<std::size_t>(panel)];
  // The bar paints a new text at once.
  if (Handle() == nullptr || shown == text) return;
  const std::wstring wide = ToWide(text);
  const LRESULT set = SendMessageW(Handle(), SB_SETTEXTW, static_cast<WPARAM>(panel),
                                   reinterpret_cast<LPARAM>(wide.c_str()));
  if (set != FALSE) shown = text;
}

void StatusWindow::ArrangePanels(Dpi dpi) {
  if (Handle() == nullptr) return;
  RECT client{};
  GetClientRect(Handle(), &client);
  const int wait = std::max(WidthOf(client) - dpi.ToPixels(kWaitPanelWidth), 0);
  const int passtime = std::max(wait - dpi.ToPixels(kPasstimePanelWidth),
                                std::min(wait, dpi.ToPixels(kStatusPanelWidth)));
  const std::array<int, kPanels> edges{passtime, wait, kToTheEdge};
  SendMessageW(Handle(), SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

}  // namespace pricedown::windows
