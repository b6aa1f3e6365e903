// The preview's window: its life, its children, and how they show the state.
#include "windows/print/preview_window.h"

#include <commctrl.h>

#include <array>
#include <string>
#include <utility>

#include "env/translation.h"
#include "platform/convert.h"
#include "print/preview_fields.h"
#include "windows/base/gdi.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"
#include "windows/print/preview_children.h"
#include "windows/print/preview_ids.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kTitle = u"打印预览";
constexpr std::u16string_view kDocumentBarName = u"文档工具栏";
constexpr std::u16string_view kViewBarName = u"显示工具栏";
constexpr std::u16string_view kPaneName = u"页面";
constexpr std::u16string_view kPageLabel = u"页码(&G)";
constexpr std::u16string_view kZoomLabel = u"比例(&Z)";
// The widest texts that the fields must fit.
constexpr std::u16string_view kWidestPage = u"0000000";
constexpr std::int32_t kWidestCount = 1'000'000;
constexpr int kFieldEdges = 10;

}  // namespace

PreviewWindow::PreviewWindow(HINSTANCE module, PreviewPages& pages)
    : ModalFrameWindow(module, PRICEDOWN_ICON_PREVIEW), pages_(pages) {}

PreviewWindow::~PreviewWindow() {
  // Destroys the children's windows too, while the objects that handle their messages live.
  Destroy();
}

void PreviewWindow::MakeChildren() {
  if (children_ != nullptr) return;
  children_ = std::make_unique<PreviewChildren>(
      Module(), [this](PreviewCommand command) { Run(command); },
      [this](bool backwards) { FocusNext(backwards); }, static_cast<PaneEvents&>(*this), state_,
      pages_);
}

void PreviewWindow::Create(HWND owner, FontDialog& fonts) {
  MakeChildren();
  const VisualStyles::Scope styles(children_->styles);
  fonts_ = &fonts;
  complete_ = false;
  state_ = {};
  state_.SetPages(pages_.Count(), pages_.PrintedPaper());
  CreateFrame(L"PriceDown.Preview", owner, Translate(kTitle));
}

void PreviewWindow::CreateChildren() {
  PreviewChildren& c = *children_;
  const Dpi dpi = Dpi::Of(Handle());
  const auto label = [&](PlainControl& control, int id, std::u16string_view text) {
    control.Create(Handle(), Module(), L"STATIC", id, WS_VISIBLE | SS_LEFT | SS_CENTERIMAGE,
                   Translate(text));
  };
  c.documentBar.toolStrip.Create(Handle(), Module(), preview_ids::kDocumentBar, dpi,
                                 Translate(kDocumentBarName));
  label(c.pageLabel, preview_ids::kPageLabel, kPageLabel);
  c.pageField.Create(Handle(), Module(), L"EDIT", preview_ids::kPage,
                     WS_VISIBLE | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL | ES_RIGHT);
  SendMessageW(c.pageField.Handle(), EM_SETLIMITTEXT, kWidestPage.size(), 0);
  label(c.pageCount, preview_ids::kPageCount, u"");
  label(c.zoomLabel, preview_ids::kZoomLabel, kZoomLabel);
  c.zoom.Create(Handle(), Module(), L"COMBOBOX", preview_ids::kZoom,
                WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL);
  for (const std::u16string& choice : ZoomChoices()) {
    SendMessageW(c.zoom.Handle(), CB_ADDSTRING, 0,
                 reinterpret_cast<LPARAM>(ToWide(choice).c_str()));
  }
  c.viewBar.toolStrip.Create(Handle(), Module(), preview_ids::kViewBar, dpi,
                             Translate(kViewBarName));
  c.line.Create(Handle(), Module(), preview_ids::kLine);
  c.pane.Create(Handle(), Module(), preview_ids::kPane, ToWide(Translate(kPaneName)).c_str());
}

void PreviewWindow::SetFonts(HFONT font) {
  PreviewChildren& c = *children_;
  for (const BoundWindow* window : std::initializer_list<const BoundWindow*>{
           &c.pageLabel, &c.pageField, &c.pageCount, &c.zoomLabel, &c.zoom}) {
    SetFontOf(window->Handle(), font);
  }
  c.documentBar.toolStrip.SetFont(font);
  c.viewBar.toolStrip.SetFont(font);
}

void PreviewWindow::UpdateResolution(Dpi dpi) {
  children_->documentBar.toolStrip.UpdateAppearance(dpi);
  children_->viewBar.toolStrip.UpdateAppearance(dpi);
  children_->pane.UpdateAppearance();
}

PreviewMeasures PreviewWindow::Measures() const {
  PreviewChildren& c = *children_;
  const Dpi dpi = Dpi::Of(Handle());
  const WindowContext context(Handle());
  const auto width = [&](std::u16string_view text) {
    return TextWidth(context.Get(), TextFont(), ToWide(text));
  };
  // The sign of a mnemonic is not shown.
  const int mnemonic = width(u"&");
  RECT zoom{};
  GetWindowRect(c.zoom.Handle(), &zoom);
  PreviewMeasures measures;
  measures.documentBar = {c.documentBar.toolStrip.ButtonsWidth(),
                          c.documentBar.toolStrip.ButtonHeight()};
  measures.viewBar = {c.viewBar.toolStrip.ButtonsWidth(), c.viewBar.toolStrip.ButtonHeight()};
  measures.pageLabel = width(Translate(kPageLabel)) - mnemonic;
  measures.pageField = width(kWidestPage) + dpi.Scale(kFieldEdges);
  measures.pageCount = width(PageCountText(kWidestCount));
  measures.zoomLabel = width(Translate(kZoomLabel)) - mnemonic;
  measures.zoom = {width(ZoomText(kMaximumPreviewPercent)) + 2 * dpi.Scale(kFieldEdges) +
                       GetSystemMetrics(SM_CXVSCROLL),
                   HeightOf(zoom)};
  measures.lineHeight = LineHeight(context.Get(), TextFont());
  return measures;
}

SIZE PreviewWindow::MinimumSize(Dpi dpi) const {
  return ToSize(MinimumPreviewSize(Measures(), dpi.Value()));
}

std::array<HWND, 2> PreviewWindow::ThemedChildren() const {
  return {children_->documentBar.toolStrip.Handle(), children_->viewBar.toolStrip.Handle()};
}

void PreviewWindow::FocusFirst() { SetFocus(children_->pane.Handle()); }

void PreviewWindow::PlaceChildren(SIZE client, Dpi dpi) {
  PreviewChildren& c = *children_;
  const PreviewPlaces places = PlacePreview({client.cx, client.cy}, Measures(), dpi.Value());
  const auto place = [](const BoundWindow& window, const Rectangle& area) {
    SetPlaceOf(window.Handle(), ToRect(area));
  };
  place(c.documentBar.toolStrip, places.documentBar);
  place(c.pageLabel, places.pageLabel);
  place(c.pageField, places.pageField);
  place(c.pageCount, places.pageCount);
  place(c.zoomLabel, places.zoomLabel);
  place(c.zoom, places.zoom);
  place(c.viewBar.toolStrip, places.viewBar);
  place(c.line, places.line);
  place(c.pane, places.pane);
}

SIZE PreviewWindow::FirstSize() const {
  const Dpi dpi = Dpi::Of(Handle());
  const SIZE first = OuterSize(ToSize(FirstPreviewSize(Measures(), dpi.Value())));
  const auto owner = OwnerArea();
  if (!owner) return first;
  return ToSize(
      PreviewSizeOver({first.cx, first.cy}, {WidthOf(*owner), HeightOf(*owner)}, dpi.Value()));
}

void PreviewWindow::Show(std::function<void()> closing) {
  if (Handle() == nullptr) return;
  closing_ = std::move(closing);
  Centre(FirstSize());
  LayOut();
  complete_ = true;
  PaneChanges([] {});
  ShowWindow(Handle(), SW_SHOW);
  FocusFirst();
}

void PreviewWindow::Close() {
  if (const auto closing = std::exchange(closing_, nullptr)) closing();
  Destroy();
}

void PreviewWindow::ShowState() {
  if (Handle() == nullptr) return;
  PreviewChildren& c = *children_;
  c.documentBar.ShowEnabled(state_);
  c.viewBar.ShowEnabled(state_);
  ShowPageNumber();
  SetTextOf(c.pageCount.Handle(), PageCountText(state_.PageCount()));
  ShowZoom();
  c.pane.ShowState();
}

void PreviewWindow::ShowPageNumber() {
  SetTextOf(children_->pageField.Handle(), NumberText(state_.Page()));
}

void PreviewWindow::ShowZoom() { SetTextOf(children_->zoom.Handle(), ZoomText(state_.Percent())); }

}  // namespace pricedown::windows
