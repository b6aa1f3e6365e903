// The control's window: its life, its place in containers, and the views of the core.
// What the user does is in control_events.cpp, the keyboard and drawing in files of their own.
#include "windows/ui/control_window.h"

#include <commctrl.h>

#include <utility>

#include "control/tool_strip.h"
#include "env/translation.h"
#include "platform/text.h"
#include "windows/com/wide_text.h"
#include "windows/ui/control_children.h"
#include "windows/ui/control_ids.h"
#include "windows/ui/dpi.h"
#include "windows/ui/gdi.h"

namespace pricedown::windows {
namespace {

// Before a container gives the control its size; twips.
constexpr Rectangle kFirstSize{0, 0, 9600, 6000};

constexpr std::u16string_view kTreeName = u"物料类别";
constexpr std::u16string_view kGridName = u"物料明细";
constexpr std::u16string_view kStripName = u"工具栏";
constexpr std::u16string_view kStatusName = u"状态栏";
constexpr std::u16string_view kFontSample = u"物料类别";

}  // namespace

ControlWindow::ControlWindow(HINSTANCE module)
    : children_(std::make_unique<ControlChildren>(module, static_cast<ChildEvents&>(*this))) {
  const VisualStyles::Scope styles(children_->styles);
  children_->parking.Create(module);
  Creation creation;
  creation.className = L"PriceDown.Control";
  creation.style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  creation.extendedStyle = WS_EX_CONTROLPARENT;
  creation.parent = children_->parking.Handle();
  creation.module = module;
  CreateOwn(creation);
  CreateChildren();
  MakeFonts();
  ListCaptions();
  children_->parking.OnSystemChange([this](UINT message) { SystemChanged(message); });
  const RECT size = Dpi::Of(Handle()).ToPixels(kFirstSize);
  MoveTo(size);
}

ControlWindow::~ControlWindow() {
  Attach(nullptr);
  children_->form->Detach();
  children_->parking.OnSystemChange(nullptr);
  // The children's windows go with this one; none of their messages may find a dead control.
  Destroy();
}

void ControlWindow::CreateChildren() {
  ControlChildren& c = *children_;
  const HWND parent = Handle();
  const Dpi dpi = Dpi::Of(parent);
  constexpr DWORD label = WS_VISIBLE | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS;
  c.title.Create(parent, c.module, L"STATIC", control_ids::kTitle, label | SS_LEFT);
  c.period.Create(parent, c.module, L"STATIC", control_ids::kPeriod, label | SS_RIGHT);
  c.firstLabel.Create(parent, c.module, L"STATIC", control_ids::kFirstLabel, label | SS_LEFT);
  c.secondLabel.Create(parent, c.module, L"STATIC", control_ids::kSecondLabel, label | SS_RIGHT);
  c.upperLine.Create(parent, c.module, control_ids::kUpperLine);
  c.strip.Create(parent, c.module, control_ids::kToolStrip, dpi, Translate(kStripName));
  for (const UserCommand command :
       {UserCommand::Add, UserCommand::Edit, UserCommand::Delete, UserCommand::Print}) {
    const std::size_t position = StripPositionOf(command);
    c.strip.SetTooltip(position, Concatenate({Translate(kStripButtons[position - 1].tooltip), u" (",
                                              ShortcutOf(command), u")"}));
  }
  c.lowerLine.Create(parent, c.module, control_ids::kLowerLine);
  c.classHeading.Create(parent, c.module, control_ids::kClassHeading, Translate(kTreeName));
  c.tree.Create(parent, c.module, dpi, Translate(kTreeName));
  c.splitter.Create(parent, c.module);
  c.dragBar.Create(parent, c.module);
  c.itemHeading.Create(parent, c.module, control_ids::kItemHeading, Translate(kGridName));
  c.pane.Create(parent, c.module);
  c.sheet.Create(c.pane.Handle(), c.module, Translate(kGridName));
  // In front of the status bar, over its last panel.
  c.progressBar.Create(parent, c.module, PROGRESS_CLASSW, control_ids::kProgressBar, PBS_MARQUEE);
  c.statusBar.Create(parent, c.module, Translate(kStatusName));
  c.fontLabel.Create(parent, c.module, L"STATIC", control_ids::kFontLabel, SS_NOPREFIX,
                     kFontSample);
}

void ControlWindow::ListCaptions() {
  const auto ofWindow = [](std::u16string name, BoundWindow& window) {
    return CaptionAccess{std::move(name), [&window] { return TextOf(window.Handle()); },
                         [&window](std::u16string_view text) { GiveText(window.Handle(), text); }};
  };
  ControlChildren& c = *children_;
  std::vector<CaptionAccess> captions{ofWindow(u"lbl_Title", c.title),
                                      ofWindow(u"lblPeriod", c.period),
                                      ofWindow(u"SSPTitleClass", c.classHeading),
                                      ofWindow(u"SSPTitleItem", c.itemHeading),
                                      ofWindow(u"Label1", c.firstLabel),
                                      ofWindow(u"Label2", c.secondLabel)};
  for (std::size_t i = 0; i < kStripButtons.size(); ++i) {
    if (kStripButtons[i].separator) continue;
    captions.push_back(
        {Concatenate({u"tbToolBar.", kStripButtons[i].key}),
         [&strip = c.strip, i] { return strip.Caption(i + 1); },
         [&strip = c.strip, i](std::u16string_view text) { strip.SetCaption(i + 1, text); }});
  }
  c.form = std::make_shared<ControlForm>(u"PriceDown", std::move(captions));
}

void ControlWindow::MakeFonts() {
  ControlChildren& c = *children_;
  const Dpi dpi = Dpi::Of(Handle());
  const TitleFont& title = c.titleDescription;
  FontHandle titleFont = title.name.empty()
                             ? MakeMessageFont(title.points, dpi)
                             : MakeFont(title.name, title.charset, title.points, dpi);
  FontHandle textFont = MakeMessageFont(dpi);
  GiveFont(c.title.Handle(), titleFont.Get());
  for (const BoundWindow* window :
       std::initializer_list<const BoundWindow*>{&c.period, &c.firstLabel, &c.secondLabel,
                                                 &c.classHeading, &c.itemHeading, &c.statusBar}) {
    GiveFont(window->Handle(), textFont.Get());
  }
  c.strip.SetFont(textFont.Get());
  c.tree.SetFont(MakeFont(c.treeFont, dpi));
  c.titleFont = std::move(titleFont);
  c.textFont = std::move(textFont);
}

void ControlWindow::Attach(PriceDown* control) {
  control_ = control;
  children_->sheet.Show(control == nullptr ? nullptr : &control->ItemSheet());
  ShowStatus();
}

void ControlWindow::HoldDuringEvents(std::function<std::shared_ptr<void>()> hold) {
  hold_ = std::move(hold);
}

void ControlWindow::OnUiActivate(std::function<void()> handler) {
  uiActivate_ = std::move(handler);
}

HWND ControlWindow::DialogOwner() const {
  const HWND root = Handle() == nullptr ? nullptr : GetAncestor(Handle(), GA_ROOT);
  if (root != nullptr && IsWindowVisible(root) != FALSE) return root;
  return GetActiveWindow();
}

void ControlWindow::MoveInto(HWND parent, const RECT& pixels) {
  if (Handle() == nullptr) return;
  SetParent(Handle(), parent);
  MoveTo(pixels);
  ShowWindow(Handle(), SW_SHOW);
}

void ControlWindow::MoveTo(const RECT& pixels) { GivePlace(Handle(), pixels); }

void ControlWindow::Park() {
  if (Handle() == nullptr) return;
  ShowWindow(Handle(), SW_HIDE);
  SetParent(Handle(), children_->parking.Handle());
}

ObjectPtr ControlWindow::Form() const { return children_->form; }

void ControlWindow::SetTitle(std::u16string_view text) {
  GiveText(children_->title.Handle(), text);
}

void ControlWindow::SetTitleFont(std::u16string_view name, std::int32_t charset, double points) {
  TitleFont& title = children_->titleDescription;
  title.points = points;
  if (!name.empty()) {
    title.name = name;
    title.charset = charset;
  }
  MakeFonts();
}

void ControlWindow::SetPeriod(std::u16string_view text) {
  GiveText(children_->period.Handle(), text);
}

void ControlWindow::SetStripButtonEnabled(std::size_t position, bool enabled) {
  children_->strip.SetEnabled(position, enabled);
}

Size ControlWindow::ControlSize() const {
  if (Handle() == nullptr) return {};
  RECT client{};
  GetClientRect(Handle(), &client);
  const Dpi dpi = Dpi::Of(Handle());
  return {dpi.ToTwips(WidthOf(client)), dpi.ToTwips(HeightOf(client))};
}

void ControlWindow::ShowDragBar(const Rectangle& bar) {
  if (Handle() != nullptr) children_->dragBar.Show(Dpi::Of(Handle()).ToPixels(bar));
}

void ControlWindow::HideDragBar() { children_->dragBar.Hide(); }

void ControlWindow::ClearNodes() { children_->tree.ClearNodes(); }

void ControlWindow::InsertNode(NodeIndex index, NodeIndex parent, std::u16string_view text) {
  children_->tree.InsertNode(index, parent, text);
  // The clock is not asked for every node.
  constexpr NodeIndex kNodesBetween = 512;
  if (index % kNodesBetween == 0 && Clock::now() - children_->fillBegan > kLongWork) {
    ShowProgress(true);
  }
}

void ControlWindow::SelectNode(NodeIndex index) { children_->tree.SelectNode(index); }

NodeIndex ControlWindow::SelectedNode() const { return children_->tree.SelectedNode(); }

void ControlWindow::SetRedraw(bool redraw) {
  children_->fillBegan = Clock::now();
  children_->tree.SetRedraw(redraw);
  if (redraw) ShowProgress(false);
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
  GiveFont(label, handle.Get());
  children_->labelFont = std::move(handle);
  return dpi.ToTwips(LineHeight(label, children_->labelFont.Get()));
}

}  // namespace pricedown::windows
