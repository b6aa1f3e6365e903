// The control's window: lifetime, placement in containers, and the core's views.
#include "windows/control/control_window.h"

#include <utility>

#include "browser/item_grid.h"
#include "windows/base/dpi.h"
#include "windows/base/plain_control.h"
#include "windows/base/rectangles.h"
#include "windows/control/control_children.h"

namespace pricedown::windows {
namespace {

// Until a container sets the size; twips.
constexpr Rectangle kFirstSize{0, 0, 9600, 6000};

}  // namespace

ControlWindow::ControlWindow(HINSTANCE module, UiAutomation& automation)
    : children_(
          std::make_unique<ControlChildren>(module, static_cast<ChildEvents&>(*this), automation)) {
  const VisualStyles::Scope styles(children_->styles);
  children_->parking.Create(module);
  Creation creation;
  creation.className = L"PriceDown.Control";
  creation.style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  creation.extendedStyle = WS_EX_CONTROLPARENT;
  creation.parent = children_->parking.Handle();
  creation.module = module;
  CreateOwn(creation);
  children_->Create(Handle());
  children_->MakeFonts(Dpi::Of(Handle()));
  children_->parking.OnSystemChange([this](UINT message) { SystemChanged(message); });
  const RECT size = Dpi::Of(Handle()).ToPixels(kFirstSize);
  MoveTo(size);
}

ControlWindow::~ControlWindow() {
  Attach(nullptr);
  focusChange_ = nullptr;
  children_->form->Detach();
  children_->parking.OnSystemChange(nullptr);
  // Destroys the children's windows as well, before their objects.
  Destroy();
}

void ControlWindow::Attach(PriceDown* control) {
  control_ = control;
  children_->grid.Show(control == nullptr ? nullptr : &control->GetGrid());
  ShowStatus();
}

void ControlWindow::HoldDuringEvents(std::function<std::shared_ptr<void>()> hold) {
  hold_ = std::move(hold);
}

void ControlWindow::OnFocusChange(std::function<void(bool gained)> handler) {
  focusChange_ = std::move(handler);
}

HWND ControlWindow::DialogOwner() const {
  ResumePainting();
  const HWND root = Handle() == nullptr ? nullptr : GetAncestor(Handle(), GA_ROOT);
  if (root != nullptr && IsWindowVisible(root) != FALSE) return root;
  return GetActiveWindow();
}

// Fonts and pictures follow the new parent's resolution.
void ControlWindow::MoveUnder(HWND parent) {
  if (Handle() == nullptr) return;
  const Dpi before = Dpi::Of(Handle());
  SetParent(Handle(), parent);
  if (Handle() != nullptr && Dpi::Of(Handle()) != before) SystemChanged(kDpiChangedAfterParent);
}

void ControlWindow::MoveInto(HWND parent, const RECT& pixels) {
  MoveUnder(parent);
  if (Handle() == nullptr) return;
  MoveTo(pixels);
  ShowWindow(Handle(), SW_SHOW);
}

void ControlWindow::MoveTo(const RECT& pixels) {
  // What a hidden window uncovers is not painted again.
  ResumePainting();
  SetPlaceOf(Handle(), pixels);
}

void ControlWindow::SetAcceptsInput(bool accepts) {
  acceptsInput_ = accepts;
  UpdateInput(IsShown());
}

// A hidden window must not get the focus, which its container may still set to it.
void ControlWindow::UpdateInput(bool shown) {
  if (Handle() != nullptr) EnableWindow(Handle(), shown && acceptsInput_ ? TRUE : FALSE);
}

bool ControlWindow::IsShown() const {
  return Handle() != nullptr && (paintingPaused_ || HasVisibleStyle(Handle()));
}

bool ControlWindow::Holds(HWND window) const {
  if (Handle() == nullptr || window == nullptr) return false;
  return window == Handle() || IsChild(Handle(), window) != FALSE;
}

void ControlWindow::Hide() {
  ResumePainting();
  if (Holds(GetFocus())) SetFocus(GetAncestor(Handle(), GA_PARENT));
  if (Handle() != nullptr) ShowWindow(Handle(), SW_HIDE);
  // The container may have refused the focus, or passed it back.
  if (Holds(GetFocus())) SetFocus(nullptr);
}

void ControlWindow::Park() {
  Hide();
  MoveUnder(children_->parking.Handle());
}

ObjectPtr ControlWindow::Form() const { return children_->form; }

void ControlWindow::SetTitle(std::u16string_view text) {
  SetTextOf(children_->title.Handle(), text);
}

void ControlWindow::SetTitleFont(const Font& font) {
  Font& title = children_->titleDescription;
  title.size = font.size;
  title.charset = font.charset;
  if (!font.name.empty()) title = font;
  children_->MakeTitleFont(Dpi::Of(Handle()));
}

void ControlWindow::SetPeriod(std::u16string_view text) {
  SetTextOf(children_->period.Handle(), text);
}

void ControlWindow::DisableButton(const Command& command) {
  children_->toolStrip.SetEnabled(command, false);
}

void ControlWindow::CopyCells(bool titled) { children_->grid.Copy(titled); }

void ControlWindow::OpenFind(FindPane pane, std::u16string_view text) {
  if (Handle() == nullptr) return;
  children_->grid.MarkCurrentCell(pane == FindPane::Grid);
  children_->findBar.Open(pane, text);
  children_->MoveFindBar();
  children_->findBar.Focus();
}

void ControlWindow::CloseFind(FindPane pane) {
  if (Handle() == nullptr) return;
  // Before the bar closes, so that the focus goes straight to the pane.
  if (children_->findBar.HasFocus()) SetFocus(children_->WindowOf(pane));
  children_->findBar.Close();
  children_->grid.MarkCurrentCell(false);
}

void ControlWindow::ShowFindCount(std::u16string_view text, bool counting) {
  children_->findBar.SetCount(text, counting);
  // The keyboard is in the field, so that no reader speaks the hit by itself.
  if (!counting && children_->findBar.HasFocus() && !work_.Waiting()) children_->grid.Speak(text);
}

void ControlWindow::ShowFoundCell(std::int32_t column, std::int32_t row) {
  children_->grid.GoTo(column, row);
}

void ControlWindow::ShowFoundNode(std::int32_t node) { children_->tree.ShowFound(node); }

std::int32_t ControlWindow::CurrentRow() const { return children_->grid.Selection().row; }

FindPane ControlWindow::FocusedPane() const {
  if (children_->findBar.HasFocus()) return children_->findBar.Pane();
  return GetFocus() == children_->tree.Handle() ? FindPane::Tree : FindPane::Grid;
}

Size ControlWindow::ControlSize() const {
  if (Handle() == nullptr) return {};
  RECT client{};
  GetClientRect(Handle(), &client);
  const Dpi dpi = Dpi::Of(Handle());
  return {dpi.ToTwips(WidthOf(client)), dpi.ToTwips(HeightOf(client))};
}

// The default handling takes the style WS_VISIBLE away, and later sets it again.
void ControlWindow::SetPainting(bool on) noexcept {
  if (on) {
    ResumePainting();
  } else if (IsShown() && !paintingPaused_) {
    DefWindowProcW(Handle(), WM_SETREDRAW, FALSE, 0);
    paintingPaused_ = true;
  }
}

void ControlWindow::ResumePainting() const {
  if (!std::exchange(paintingPaused_, false) || Handle() == nullptr) return;
  DefWindowProcW(Handle(), WM_SETREDRAW, TRUE, 0);
  RedrawWindow(Handle(), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void ControlWindow::ShowProgress() {
  ResumePainting();
  children_->ShowProgress(true);
}

void ControlWindow::ShowDragBar(const Rectangle& bar) {
  if (Handle() != nullptr) children_->dragBar.Show(Dpi::Of(Handle()).ToPixels(bar));
}

void ControlWindow::HideDragBar() { children_->dragBar.Hide(); }

void ControlWindow::ClearNodes() { children_->tree.ClearNodes(); }

void ControlWindow::InsertNode(NodeIndex index, NodeIndex parent, std::u16string_view text) {
  children_->tree.InsertNode(index, parent, text);
  if (index % kRowsBetweenReports == 0 && work_.FillIsLong(Clock::now())) ShowProgress();
}

void ControlWindow::SelectNode(NodeIndex index) { children_->tree.SelectNode(index); }

NodeIndex ControlWindow::SelectedNode() const { return children_->tree.SelectedNode(); }

void ControlWindow::MarkNode(NodeIndex index) { children_->tree.MarkNode(index); }

void ControlWindow::SetRedraw(bool redraw) {
  work_.BeginFill(Clock::now());
  children_->tree.SetRedraw(redraw);
  if (redraw) children_->ShowProgress(false);
}

void ControlWindow::SetTreeFont(const Font& font) {
  if (Handle() == nullptr) return;
  children_->tree.SetFont(MakeFont(font, Dpi::Of(Handle())));
  children_->treeFont = font;
}

std::int32_t ControlWindow::MeasureLabel(const Font& font) {
  if (Handle() == nullptr) return 0;
  const Dpi dpi = Dpi::Of(Handle());
  FontHandle handle = MakeFont(font, dpi);
  const HWND label = children_->fontLabel.Handle();
  SetFontOf(label, handle.Get());
  children_->labelFont = std::move(handle);
  return dpi.ToTwips(LineHeight(label, children_->labelFont.Get()));
}

}  // namespace pricedown::windows
