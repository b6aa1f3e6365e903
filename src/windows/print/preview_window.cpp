// The preview's window: its life, its children, and how they show the state.
// What the user does is in preview_events.cpp and preview_keys.cpp.
#include "windows/print/preview_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "env/translation.h"
#include "platform/convert.h"
#include "windows/com/wide_text.h"
#include "windows/print/preview_children.h"
#include "windows/print/preview_ids.h"
#include "windows/ui/gdi.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kTitle = u"打印预览";
constexpr std::u16string_view kDocumentBarName = u"文档工具栏";
constexpr std::u16string_view kViewBarName = u"显示工具栏";
constexpr std::u16string_view kPaneName = u"页面";
constexpr std::u16string_view kPageLabel = u"页码(&G)";
constexpr std::u16string_view kZoomLabel = u"比例(&Z)";
constexpr std::u16string_view kFitPage = u"整页";
constexpr std::u16string_view kFitWidth = u"页宽";
constexpr std::array<int, 10> kPercents{25, 50, 75, 100, 125, 150, 200, 300, 400, 500};
// The widest texts that the fields are made for.
constexpr std::u16string_view kWidestPage = u"0000000";
constexpr std::u16string_view kWidestCount = u"共 0000000 页";
constexpr std::u16string_view kWidestZoom = u"500%";
constexpr int kFieldEdges = 10;
constexpr int kDropDownHeight = 320;
constexpr int kEnoughHeight = 600;  // of an owner whose height is taken
constexpr DWORD kStyle =
    WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

void Move(const BoundWindow& window, const RECT& place) {
  if (window.Handle() == nullptr) return;
  SetWindowPos(window.Handle(), nullptr, place.left, place.top, WidthOf(place), HeightOf(place),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE Outer(SIZE client, Dpi dpi) {
  RECT area{0, 0, client.cx, client.cy};
  AdjustFrame(area, kStyle, kExtendedStyle, dpi);
  return {WidthOf(area), HeightOf(area)};
}

void Append(HWND combo, std::u16string_view text) {
  SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

}  // namespace

PreviewWindow::PreviewWindow(HINSTANCE module, PreviewPages& pages)
    : module_(module), pages_(pages) {}

PreviewWindow::~PreviewWindow() {
  // The children's windows go with this one; none of their messages may find a dead window.
  Destroy();
}

// Not before the first showing: few controls are ever previewed.
void PreviewWindow::MakeChildren() {
  if (children_ != nullptr) return;
  children_ = std::make_unique<PreviewChildren>(
      module_, [this](PreviewCommand command) { Run(command); },
      [this](bool backwards) {
        const HWND next = GetNextDlgTabItem(Handle(), GetFocus(), backwards ? TRUE : FALSE);
        if (next != nullptr) SetFocus(next);
      },
      static_cast<PaneEvents&>(*this), state_, pages_);
}

void PreviewWindow::Create(HWND owner, FontDialog& fonts) {
  MakeChildren();
  const VisualStyles::Scope styles(children_->styles);
  owner_ = owner;
  fonts_ = &fonts;
  lastFocus_ = nullptr;
  complete_ = waiting_ = busy_ = closeAfter_ = false;
  state_ = {};
  state_.SetPages(pages_.Count(), pages_.PrintedPaper());
  const std::wstring title = ToWide(Translate(kTitle));
  Creation creation;
  creation.className = L"PriceDown.Preview";
  creation.text = title.c_str();
  creation.style = kStyle;
  creation.extendedStyle = kExtendedStyle;
  creation.parent = owner;
  creation.module = module_;
  CreateOwn(creation);
  try {
    CreateChildren();
    MakeFonts();
  } catch (...) {
    Destroy();
    throw;
  }
}

// In tab order.
void PreviewWindow::CreateChildren() {
  PreviewChildren& c = *children_;
  const Dpi dpi = Dpi::Of(Handle());
  const auto label = [&](PlainControl& control, int id, std::u16string_view text) {
    control.Create(Handle(), module_, L"STATIC", id, WS_VISIBLE | SS_LEFT | SS_CENTERIMAGE,
                   Translate(text));
  };
  c.documentBar.strip.Create(Handle(), module_, preview_ids::kDocumentBar, dpi,
                             Translate(kDocumentBarName));
  label(c.pageLabel, preview_ids::kPageLabel, kPageLabel);
  c.pageField.Create(Handle(), module_, L"EDIT", preview_ids::kPage,
                     WS_VISIBLE | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL | ES_RIGHT);
  SendMessageW(c.pageField.Handle(), EM_SETLIMITTEXT, kWidestPage.size(), 0);
  label(c.pageCount, preview_ids::kPageCount, u"");
  label(c.zoomLabel, preview_ids::kZoomLabel, kZoomLabel);
  c.zoom.Create(Handle(), module_, L"COMBOBOX", preview_ids::kZoom,
                WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL);
  Append(c.zoom.Handle(), Translate(kFitPage));
  Append(c.zoom.Handle(), Translate(kFitWidth));
  for (const int percent : kPercents) {
    Append(c.zoom.Handle(), NumberText(std::int32_t{percent}) + u"%");
  }
  c.viewBar.strip.Create(Handle(), module_, preview_ids::kViewBar, dpi, Translate(kViewBarName));
  c.line.Create(Handle(), module_, preview_ids::kLine);
  c.pane.Create(Handle(), module_, preview_ids::kPane, ToWide(Translate(kPaneName)).c_str());
}

void PreviewWindow::MakeFonts() {
  PreviewChildren& c = *children_;
  FontHandle font = MakeMessageFont(Dpi::Of(Handle()));
  for (const BoundWindow* window : std::initializer_list<const BoundWindow*>{
           &c.pageLabel, &c.pageField, &c.pageCount, &c.zoomLabel, &c.zoom}) {
    GiveFont(window->Handle(), font.Get());
  }
  c.documentBar.strip.SetFont(font.Get());
  c.viewBar.strip.SetFont(font.Get());
  c.font = std::move(font);
}

PreviewMeasures PreviewWindow::Measures() const {
  PreviewChildren& c = *children_;
  const Dpi dpi = Dpi::Of(Handle());
  const WindowContext context(Handle());
  const auto width = [&](std::u16string_view text) {
    return TextWidth(context.Get(), c.font.Get(), ToWide(text));
  };
  // The sign of a mnemonic is not shown.
  const int mnemonic = width(u"&");
  RECT zoom{};
  GetWindowRect(c.zoom.Handle(), &zoom);
  PreviewMeasures measures;
  measures.documentBar = {c.documentBar.strip.ButtonsWidth(), c.documentBar.strip.ButtonHeight()};
  measures.viewBar = {c.viewBar.strip.ButtonsWidth(), c.viewBar.strip.ButtonHeight()};
  measures.pageLabel = width(Translate(kPageLabel)) - mnemonic;
  measures.pageField = width(kWidestPage) + dpi.Scale(kFieldEdges);
  measures.pageCount = width(Translate(kWidestCount));
  measures.zoomLabel = width(Translate(kZoomLabel)) - mnemonic;
  measures.zoom = {width(kWidestZoom) + 2 * dpi.Scale(kFieldEdges) + GetSystemMetrics(SM_CXVSCROLL),
                   HeightOf(zoom)};
  measures.lineHeight = LineHeight(context.Get(), c.font.Get());
  return measures;
}

void PreviewWindow::LayOut() {
  if (Handle() == nullptr || !children_->font) return;
  PreviewChildren& c = *children_;
  RECT client{};
  GetClientRect(Handle(), &client);
  const Dpi dpi = Dpi::Of(Handle());
  PreviewPlaces places = PlacePreview({client.right, client.bottom}, Measures(), dpi);
  Move(c.documentBar.strip, places.documentBar);
  Move(c.pageLabel, places.pageLabel);
  Move(c.pageField, places.pageField);
  Move(c.pageCount, places.pageCount);
  Move(c.zoomLabel, places.zoomLabel);
  // Its height is that of the open list; closed it follows the font.
  places.zoom.bottom += dpi.Scale(kDropDownHeight);
  Move(c.zoom, places.zoom);
  Move(c.viewBar.strip, places.viewBar);
  Move(c.line, places.line);
  Move(c.pane, places.pane);
}

// As large as the owner, or larger where that one is small, over it and inside its screen.
void PreviewWindow::Centre() {
  const Dpi dpi = Dpi::Of(Handle());
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(
      MonitorFromWindow(owner_ != nullptr ? owner_ : Handle(), MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  SIZE size = Outer(FirstPreviewSize(Measures(), dpi), dpi);
  RECT owner = work;
  if (owner_ != nullptr && IsIconic(owner_) == FALSE) {
    GetWindowRect(owner_, &owner);
    size.cx = std::max<LONG>(size.cx, WidthOf(owner));
    if (HeightOf(owner) >= dpi.Scale(kEnoughHeight)) size.cy = HeightOf(owner);
  }
  const LONG width = std::min<LONG>(size.cx, WidthOf(work));
  const LONG height = std::min<LONG>(size.cy, HeightOf(work));
  const LONG left =
      std::clamp((owner.left + owner.right - width) / 2, work.left, work.right - width);
  const LONG top =
      std::clamp((owner.top + owner.bottom - height) / 2, work.top, work.bottom - height);
  SetWindowPos(Handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void PreviewWindow::Show(std::function<void()> closing) {
  if (Handle() == nullptr) return;
  closing_ = std::move(closing);
  Centre();
  LayOut();
  complete_ = true;
  PaneChanges([] {});
  ShowWindow(Handle(), SW_SHOW);
  SetFocus(children_->pane.Handle());
}

void PreviewWindow::Close() noexcept {
  if (Handle() == nullptr) return;
  if (busy_) {
    closeAfter_ = true;
    return;
  }
  if (const auto closing = std::exchange(closing_, nullptr)) closing();
  Destroy();
}

HWND PreviewWindow::DialogOwner() const {
  if (Handle() != nullptr && IsWindowVisible(Handle()) != FALSE) return Handle();
  return owner_ != nullptr && IsWindow(owner_) != FALSE ? owner_ : GetActiveWindow();
}

void PreviewWindow::SetWaiting(bool waiting) {
  waiting_ = waiting;
  // At once: while a command runs, no message asks for the pointer.
  SetCursor(LoadCursorW(nullptr, waiting ? IDC_WAIT : IDC_ARROW));
}

void PreviewWindow::ShowState() {
  if (Handle() == nullptr) return;
  PreviewChildren& c = *children_;
  for (PreviewBar* bar : {&c.documentBar, &c.viewBar}) {
    for (std::size_t i = 0; i < bar->buttons.size(); ++i) {
      const auto command = PreviewCommandOf(bar->buttons[i].key);
      if (!command) continue;
      const bool enabled = IsEnabled(*command);
      if (bar->strip.IsEnabled(i + 1) != enabled) bar->strip.SetEnabled(i + 1, enabled);
    }
  }
  ShowPageNumber();
  GiveText(c.pageCount.Handle(),
           Translate(u"共 ") + NumberText(state_.PageCount()) + Translate(u" 页"));
  ShowZoom();
  c.pane.ShowState();
}

void PreviewWindow::ShowPageNumber() {
  GiveText(children_->pageField.Handle(), NumberText(state_.Page()));
}

void PreviewWindow::ShowZoom() {
  const auto percent = static_cast<std::int32_t>(std::lround(state_.Percent()));
  GiveText(children_->zoom.Handle(), NumberText(percent) + u"%");
}

}  // namespace pricedown::windows
