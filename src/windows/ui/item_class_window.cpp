// The form's window: its life, its children, and the view that the core shows itself through.
// What the user does is in item_class_events.cpp.
#include "windows/ui/item_class_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "editor/item_class_form.h"
#include "env/translation.h"
#include "platform/text.h"
#include "windows/com/wide_text.h"
#include "windows/ui/control_ids.h"
#include "windows/ui/form_children.h"
#include "windows/ui/form_ids.h"
#include "windows/ui/gdi.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kToolBarName = u"工具栏";
constexpr std::u16string_view kMembersName = u"对应明细物料";
constexpr std::u16string_view kLookupText = u"…";
constexpr std::u16string_view kLookupTip = u"查找科目 (F7)";
constexpr DWORD kStyle =
    WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

struct RowDescription {
  FormField field;
  FormCaption caption;
  int labelId;
  int fieldId;
  int lookupId;  // 0: none
};
// By the number of the field.
constexpr std::array<RowDescription, kFormFields.size()> kRows{{
    {FormField::ClassNumber, FormCaption::Label1, form_ids::kLabel1, form_ids::kClassNumber, 0},
    {FormField::ClassName, FormCaption::Label2, form_ids::kLabel1 + 1, form_ids::kClassName, 0},
    {FormField::LossAccount, FormCaption::Label3, form_ids::kLabel1 + 2, form_ids::kLossAccount,
     form_ids::kLossLookup},
    {FormField::ReserveAccount, FormCaption::Label4, form_ids::kLabel1 + 3,
     form_ids::kReserveAccount, form_ids::kReserveLookup},
    {FormField::Percentage, FormCaption::Label5, form_ids::kLabel1 + 4, form_ids::kPercentage, 0},
}};

const RowDescription& DescriptionOf(FormField field) {
  return kRows[static_cast<std::size_t>(field)];
}

// The outer size of the form with that inner size.
SIZE Outer(SIZE client, Dpi dpi) {
  RECT area{0, 0, client.cx, client.cy};
  AdjustFrame(area, kStyle, kExtendedStyle, dpi);
  return {WidthOf(area), HeightOf(area)};
}

void Move(const BoundWindow& window, const RECT& place) {
  if (window.Handle() == nullptr) return;
  SetWindowPos(window.Handle(), nullptr, place.left, place.top, WidthOf(place), HeightOf(place),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

ItemClassWindow::ItemClassWindow(HINSTANCE module)
    : module_(module),
      children_(std::make_unique<FormChildren>(module, static_cast<StripEvents&>(*this),
                                               static_cast<FieldEvents&>(*this),
                                               static_cast<MemberListEvents&>(*this))) {
  ListCaptions();
}

ItemClassWindow::~ItemClassWindow() {
  form_ = nullptr;
  children_->form->Detach();
  // The children's windows go with this one; none of their messages may find a dead form.
  Destroy();
}

MemberGridView& ItemClassWindow::Members() { return children_->members; }

void ItemClassWindow::Create(HWND owner) {
  const VisualStyles::Scope styles(children_->styles);
  owner_ = owner;
  lastFocus_ = nullptr;
  waiting_ = busy_ = closing_ = destroying_ = false;
  Creation creation;
  creation.className = L"PriceDown.ItemClass";
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

// In tab order; the frames last, so that they lie behind the rest.
void ItemClassWindow::CreateChildren() {
  FormChildren& c = *children_;
  const Dpi dpi = Dpi::Of(Handle());
  c.strip.Create(Handle(), module_, form_ids::kToolBar, dpi, Translate(kToolBarName));
  c.line.Create(Handle(), module_, form_ids::kLine);
  for (const FormField field : kFormRows) CreateRow(field);
  c.members.Create(Handle(), module_, dpi, Translate(kMembersName));
  AddLookupTips();
  c.headerFrame.Create(Handle(), module_, form_ids::kHeaderFrame);
  c.itemFrame.Create(Handle(), module_, form_ids::kItemFrame);
}

void ItemClassWindow::CreateRow(FormField field) {
  const RowDescription& description = DescriptionOf(field);
  FieldRow& row = children_->Row(field);
  row.label.Create(Handle(), module_, L"STATIC", description.labelId,
                   WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS);
  row.text.Create(Handle(), module_, description.fieldId);
  if (description.lookupId != 0) {
    row.lookup.Create(Handle(), module_, L"BUTTON", description.lookupId,
                      WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, kLookupText);
  }
}

void ItemClassWindow::AddLookupTips() {
  FormChildren& c = *children_;
  c.lookupTips.CreatePopup(Handle(), module_, TOOLTIPS_CLASSW, TTS_ALWAYSTIP | TTS_NOPREFIX);
  std::wstring text = ToWide(Translate(kLookupTip));
  for (const FormField field : {FormField::LossAccount, FormField::ReserveAccount}) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = Handle();
    tool.uId = reinterpret_cast<UINT_PTR>(c.Row(field).lookup.Handle());
    tool.lpszText = text.data();
    SendMessageW(c.lookupTips.Handle(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

void ItemClassWindow::ListCaptions() {
  FormChildren& c = *children_;
  std::vector<CaptionAccess> captions;
  const auto add = [&captions](std::u16string name, BoundWindow& window) {
    captions.push_back({std::move(name), [&window] { return TextOf(window.Handle()); },
                        [&window](std::u16string_view text) { GiveText(window.Handle(), text); }});
  };
  add(u"frmItemClass", *this);
  add(u"FrameAdd", c.headerFrame);
  add(u"Frame1", c.itemFrame);
  add(u"Label1", c.Row(FormField::ClassNumber).label);
  add(u"Label2", c.Row(FormField::ClassName).label);
  add(u"Label3", c.Row(FormField::LossAccount).label);
  add(u"Label4", c.Row(FormField::ReserveAccount).label);
  add(u"Label5", c.Row(FormField::Percentage).label);
  for (std::size_t i = 0; i < kFormTools.size(); ++i) {
    if (kFormTools[i].separator) continue;
    captions.push_back(
        {Concatenate({u"tlbSPCA.", kFormTools[i].key}),
         [&strip = c.strip, i] { return strip.Caption(i + 1); },
         [&strip = c.strip, i](std::u16string_view text) { strip.SetCaption(i + 1, text); }});
  }
  c.form = std::make_shared<ControlForm>(u"frmItemClass", std::move(captions));
}

void ItemClassWindow::MakeFonts() {
  FormChildren& c = *children_;
  FontHandle font = MakeMessageFont(Dpi::Of(Handle()));
  for (FieldRow& row : c.rows) {
    for (const BoundWindow* window :
         std::initializer_list<const BoundWindow*>{&row.label, &row.text, &row.lookup}) {
      GiveFont(window->Handle(), font.Get());
    }
  }
  GiveFont(c.headerFrame.Handle(), font.Get());
  GiveFont(c.itemFrame.Handle(), font.Get());
  c.members.SetFont(font.Get());
  c.strip.SetFont(font.Get());
  c.font = std::move(font);
}

FormMeasures ItemClassWindow::Measures() const {
  FormChildren& c = *children_;
  FormMeasures measures;
  measures.stripHeight = c.strip.ButtonHeight();
  measures.stripWidth = c.strip.ButtonsWidth();
  const WindowContext context(Handle());
  measures.lineHeight = LineHeight(context.Get(), c.font.Get());
  for (const FieldRow& row : c.rows) {
    const std::wstring label = ToWide(TextOf(row.label.Handle()));
    measures.labelWidth =
        std::max(measures.labelWidth, TextWidth(context.Get(), c.font.Get(), label));
  }
  return measures;
}

void ItemClassWindow::LayOut() {
  if (Handle() == nullptr || !children_->font) return;
  FormChildren& c = *children_;
  RECT client{};
  GetClientRect(Handle(), &client);
  const FormPlaces places = PlaceForm({client.right, client.bottom}, Measures(), Dpi::Of(Handle()));
  Move(c.strip, places.strip);
  Move(c.line, places.line);
  Move(c.headerFrame, places.headerFrame);
  Move(c.itemFrame, places.itemFrame);
  for (std::size_t i = 0; i < kFormRows.size(); ++i) {
    Move(c.Row(kFormRows[i]).label, places.labels[i]);
    Move(c.Row(kFormRows[i]).text, places.fields[i]);
  }
  Move(c.Row(FormField::LossAccount).lookup, places.lossLookup);
  Move(c.Row(FormField::ReserveAccount).lookup, places.reserveLookup);
  Move(c.members, places.members);
}

// Over the owner, inside the owner's screen.
void ItemClassWindow::Centre(SIZE size) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(
      MonitorFromWindow(owner_ != nullptr ? owner_ : Handle(), MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  RECT owner = work;
  if (owner_ != nullptr && IsIconic(owner_) == FALSE) GetWindowRect(owner_, &owner);
  const LONG width = std::min(size.cx, work.right - work.left);
  const LONG height = std::min(size.cy, work.bottom - work.top);
  const LONG left =
      std::clamp((owner.left + owner.right - width) / 2, work.left, work.right - width);
  const LONG top =
      std::clamp((owner.top + owner.bottom - height) / 2, work.top, work.bottom - height);
  SetWindowPos(Handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ItemClassWindow::Show(std::function<void()> unloading) {
  if (Handle() == nullptr) return;
  unloading_ = std::move(unloading);
  SetWaiting(true);
  children_->members.Fill();
  SetWaiting(false);
  const Dpi dpi = Dpi::Of(Handle());
  const bool shownBefore = lastSize_.cx > 0 && lastDpi_ == dpi.Value();
  Centre(shownBefore ? lastSize_ : Outer(FirstFormSize(Measures(), dpi), dpi));
  LayOut();
  ShowWindow(Handle(), SW_SHOW);
  Focus(FormField::ClassNumber);
}

HWND ItemClassWindow::DialogOwner() const {
  if (Handle() != nullptr && IsWindowVisible(Handle()) != FALSE) return Handle();
  return owner_ != nullptr && IsWindow(owner_) != FALSE ? owner_ : GetActiveWindow();
}

std::u16string ItemClassWindow::Text(FormField field) const {
  return TextOf(children_->Row(field).text.Handle());
}

void ItemClassWindow::SetText(FormField field, std::u16string_view text) {
  GiveText(children_->Row(field).text.Handle(), text);
}

void ItemClassWindow::Focus(FormField field) { children_->Row(field).text.Focus(); }

BoundWindow* ItemClassWindow::Captioned(FormCaption target) {
  switch (target) {
    case FormCaption::Title:
      return this;
    case FormCaption::Frame1:
      return &children_->itemFrame;
    case FormCaption::FrameAdd:
      return &children_->headerFrame;
    default:
      break;
  }
  const auto row = std::find_if(kRows.begin(), kRows.end(),
                                [target](const RowDescription& r) { return r.caption == target; });
  return row == kRows.end() ? nullptr : &children_->Row(row->field).label;
}

void ItemClassWindow::SetCaption(FormCaption target, std::u16string_view text) {
  if (const BoundWindow* window = Captioned(target)) GiveText(window->Handle(), text);
}

void ItemClassWindow::SetToolTexts(FormTool tool, std::u16string_view caption,
                                   std::u16string_view toolTip) {
  const auto position = static_cast<std::size_t>(tool);
  children_->strip.SetCaption(position, caption);
  children_->strip.SetTooltip(position, toolTip);
}

void ItemClassWindow::SetToolEnabled(FormTool tool, bool enabled) {
  const auto position = static_cast<std::size_t>(tool);
  if (children_->strip.IsEnabled(position) != enabled) {
    children_->strip.SetEnabled(position, enabled);
  }
}

ObjectPtr ItemClassWindow::FormObject() { return children_->form; }

void ItemClassWindow::Unload() {
  if (Handle() == nullptr) return;
  if (IsWindowVisible(Handle()) != FALSE && IsZoomed(Handle()) == FALSE &&
      IsIconic(Handle()) == FALSE) {
    RECT area{};
    GetWindowRect(Handle(), &area);
    lastSize_ = {WidthOf(area), HeightOf(area)};
    lastDpi_ = Dpi::Of(Handle()).Value();
  }
  if (const auto unloading = std::exchange(unloading_, nullptr)) unloading();
  if (!destroying_) Destroy();
}

}  // namespace pricedown::windows
