// The pane of the preview. Its scroll bars are shown also when there is nothing to scroll: a page
// that is fitted to the width would otherwise change its own width.
#include "windows/print/preview_pane.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "windows/base/gdi.h"
#include "windows/base/painting.h"
#include "windows/base/provider_values.h"
#include "windows/base/rectangles.h"
#include "windows/com/variant.h"

namespace pricedown::windows {
namespace {

constexpr int kShadow = 3;  // pixels at 96 dpi
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kPageEdge = RGB(0, 0, 0);
constexpr int kEdgeShare = 150;  // of ink in the paper's edge, in 255
constexpr int kShadowShare = 80;

void UpdateScrollBar(HWND window, int bar, int content, int area, int position) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMax = std::max(content - 1, 0);
  info.nPage = static_cast<UINT>(std::max(area, 0));
  info.nPos = position;
  SetScrollInfo(window, bar, &info, TRUE);
}

}  // namespace

PreviewPane::~PreviewPane() { provider_.End(Handle()); }

void PreviewPane::Create(HWND parent, HINSTANCE module, int id, const wchar_t* name) {
  Creation creation;
  creation.className = L"PriceDown.PreviewPane";
  creation.text = name;
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | WS_HSCROLL | WS_VSCROLL;
  creation.parent = parent;
  creation.id = id;
  creation.module = module;
  dpi_ = Dpi::Of(parent);
  CreateOwn(creation);
}

void PreviewPane::UpdateAppearance() {
  dpi_ = Dpi::Of(Handle());
  OnSize();
}

void PreviewPane::ShowState() {
  if (Handle() == nullptr) return;
  RECT area{};
  GetClientRect(Handle(), &area);
  UpdateScrollBar(Handle(), SB_HORZ, state_.ContentWidth(), area.right, state_.ScrollX());
  UpdateScrollBar(Handle(), SB_VERT, state_.ContentHeight(), area.bottom, state_.ScrollY());
  InvalidateRect(Handle(), nullptr, FALSE);
  ReportText();
}

LRESULT PreviewPane::OnGetObject(WPARAM wParam, LPARAM lParam) {
  return provider_.Return(Handle(), wParam, lParam, [&] {
    reportedText_ = ReadingText(Lines());
    return MakeCom<PageProvider>(static_cast<PageAccess&>(*this), provider_.System());
  });
}

void PreviewPane::ReportText() {
  if (!provider_.IsListenedTo()) {
    // A client that listens later has not heard of this page.
    reportedText_.reset();
    return;
  }
  std::u16string text = ReadingText(Lines());
  if (text == reportedText_) return;
  reportedText_ = text;
  const ComPtr<PageProvider> provider = provider_.Get();
  UiAutomation& automation = provider_.System();
  automation.RaiseChildrenInvalidated(provider.get());
  Variant value;
  value.attach(PropertyText(text));
  automation.RaisePropertyChanged(provider.get(), UIA_ValueValuePropertyId, value.get());
}

std::vector<ReadingLine> PreviewPane::Lines() const { return ReadingLines(pages_.Shown()); }

RECT PreviewPane::ShownArea(const Rectangle& paper) const {
  const Rectangle box = state_.PaperBox();
  const auto pixels = [&](Tenths length) { return static_cast<int>(state_.Pixels(length)); };
  const RECT area{box.left + pixels(paper.left), box.top + pixels(paper.top),
                  box.left + pixels(paper.Right()), box.top + pixels(paper.Bottom())};
  RECT client{};
  RECT shown{};
  GetClientRect(Handle(), &client);
  IntersectRect(&shown, &area, &client);
  return shown;
}

void PreviewPane::OnSize() {
  RECT area{};
  GetClientRect(Handle(), &area);
  events_.PaneChanges([&] { state_.SetArea({area.right, area.bottom, dpi_.Value()}); });
}

void PreviewPane::OnPaint() {
  const PaintDc paint(Handle());
  RECT area{};
  GetClientRect(Handle(), &area);
  const BufferedPaint buffer(paint.Get(), area);
  Paint(buffer.Context(), area);
}

void PreviewPane::Paint(HDC context, const RECT& area) {
  const COLORREF desk = GetSysColor(COLOR_APPWORKSPACE);
  FillArea(context, area, desk);
  const RECT paper = ToRect(state_.PaperBox());
  const int shadow = dpi_.Scale(kShadow);
  RECT part = paper;
  OffsetRect(&part, shadow, shadow);
  FillArea(context, part, Blend(desk, kPageEdge, kShadowShare));
  part = paper;
  InflateRect(&part, 1, 1);
  FillArea(context, part, Blend(desk, kPageEdge, kEdgeShare));
  FillArea(context, paper, kPaper);
  const SavedDc saved(context);
  IntersectClipRect(context, paper.left, paper.top, paper.right, paper.bottom);
  const double pixels = state_.Pixels(1);
  pages_.Paint(context,
               {static_cast<double>(paper.left), static_cast<double>(paper.top), pixels, pixels});
}

void PreviewPane::OnWheel(int delta, bool zooms) {
  if (!zooms) {
    events_.PaneChanges([&] { state_.Wheel(delta, WHEEL_DELTA); });
  } else if (const auto command = state_.ZoomOfWheel(delta, WHEEL_DELTA)) {
    events_.PaneCommand(*command);
  }
}

void PreviewPane::OnScroll(int bar, int code) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(Handle(), bar, &info);
  const int page = static_cast<int>(info.nPage);
  int distance = 0;
  switch (code) {
    case SB_LINEUP:
      distance = -state_.LineStep();
      break;
    case SB_LINEDOWN:
      distance = state_.LineStep();
      break;
    case SB_PAGEUP:
      distance = -page;
      break;
    case SB_PAGEDOWN:
      distance = page;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      distance = info.nTrackPos - info.nPos;
      break;
    case SB_TOP:
      distance = -info.nMax;
      break;
    case SB_BOTTOM:
      distance = info.nMax;
      break;
    default:
      return;
  }
  events_.PaneChanges(
      [&] { state_.ScrollBy(bar == SB_HORZ ? distance : 0, bar == SB_VERT ? distance : 0); });
}

LRESULT PreviewPane::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETOBJECT:
      return IsProviderRequest(lParam) ? OnGetObject(wParam, lParam)
                                       : Default(message, wParam, lParam);
    case WM_DESTROY:
      provider_.End(Handle());
      return 0;
    case WM_SIZE:
      OnSize();
      return 0;
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_LBUTTONDOWN:
      SetFocus(Handle());
      return 0;
    case WM_MOUSEWHEEL:
      OnWheel(GET_WHEEL_DELTA_WPARAM(wParam), (LOWORD(wParam) & MK_CONTROL) != 0);
      return 0;
    case WM_HSCROLL:
      OnScroll(SB_HORZ, LOWORD(wParam));
      return 0;
    case WM_VSCROLL:
      OnScroll(SB_VERT, LOWORD(wParam));
      return 0;
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
