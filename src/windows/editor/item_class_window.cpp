// Lifetime, children and layout of the form's window, and its side as the core's view.
#include "windows/editor/item_class_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "editor/form_captions.h"
#include "env/translation.h"
#include "platform/text.h"
#include "windows/base/control_ids.h"
#include "windows/base/gdi.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"
#include "windows/editor/form_children.h"
#include "windows/editor/form_ids.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kMembersName = u"对应明细物料";
constexpr std::u16string_view kLossLookupName = u"查找存货跌价损失科目";
constexpr std::u16string_view kReserveLookupName = u"查找存货跌价准备科目";
constexpr Command kLookup{.tooltip = u"查找科目", .keys = {{{kLookupKey}}}};

}  // namespace

ItemClassWindow::ItemClassWindow(HINSTANCE module)
    : ModalFrameWindow(module, PRICEDOWN_ICON_FOLDER),
      children_(std::make_unique<FormChildren>(module, static_cast<ToolStripEvents&>(*this),
                                               static_cast<FieldEvents&>(*this),
                                               static_cast<MemberListEvents&>(*this))) {
  ListCaptions();
}

ItemClassWindow::~ItemClassWindow() {
  form_ = nullptr;
  children_->form->Detach();
  // With the children's windows: none of their messages may find a destroyed form.
  Destroy();
}

MemberListView& ItemClassWindow::Members() { return children_->members; }

void ItemClassWindow::Create(HWND owner) {
  const VisualStyles::Scope styles(children_->styles);
  CreateFrame(L"PriceDown.ItemClass", owner);
}

// The frames last, so that they lie behind the rest.
void ItemClassWindow::CreateChildren() {
  FormChildren& c = *children_;
  const Dpi dpi = Dpi::Of(Handle());
  c.toolStrip.Create(Handle(), Module(), form_ids::kToolStrip, dpi, Translate(kToolStripName));
  c.line.Create(Handle(), Module(), form_ids::kLine);
  for (const FormField field : kFormRows) CreateRow(c.Row(field));
  c.members.Create(Handle(), Module(), dpi, Translate(kMembersName));
  AddLookupTips();
  ShowLookupPictures(dpi);
  c.headerFrame.Create(Handle(), Module(), form_ids::kHeaderFrame);
  c.itemFrame.Create(Handle(), Module(), form_ids::kItemFrame);
}

void ItemClassWindow::CreateRow(FieldRow& row) {
  row.label.Create(Handle(), Module(), L"STATIC", row.labelId,
                   WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS);
  row.text.Create(Handle(), Module(), row.fieldId);
  if (row.lookupId != 0) {
    row.lookup.Create(
        Handle(), Module(), L"BUTTON", row.lookupId,
        WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON | BS_ICON,
        Translate(row.field == FormField::LossAccount ? kLossLookupName : kReserveLookupName));
  }
}

void ItemClassWindow::AddLookupTips() {
  FormChildren& c = *children_;
  c.lookupTips.CreatePopup(Handle(), Module(), TOOLTIPS_CLASSW, TTS_ALWAYSTIP | TTS_NOPREFIX);
  std::wstring text = ToWide(TooltipOf(kLookup));
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

// The button shows a picture; its text is for screen readers.
void ItemClassWindow::ShowLookupPictures(Dpi dpi) {
  FormChildren& c = *children_;
  IconHandle picture = LoadIconResource(PRICEDOWN_ICON_LOOKUP, IconSize(dpi));
  for (const FormField field : {FormField::LossAccount, FormField::ReserveAccount}) {
    SendMessageW(c.Row(field).lookup.Handle(), BM_SETIMAGE, IMAGE_ICON,
                 reinterpret_cast<LPARAM>(picture.get()));
  }
  c.lookupPicture = std::move(picture);
}

void ItemClassWindow::ListCaptions() {
  FormChildren& c = *children_;
  std::vector<CaptionAccess> captions;
  for (const FormCaptionRow& row : kFormCaptions) {
    const BoundWindow& window = *Captioned(row.target);
    captions.push_back({std::u16string(row.name), [&window] { return TextOf(window.Handle()); },
                        [&window](std::u16string_view text) { SetTextOf(window.Handle(), text); }});
  }
  for (const FormToolRow& tool : kFormTools) {
    if (tool.separator) continue;
    captions.push_back({Concatenate({u"tlbSPCA.", tool.key}),
                        [&toolStrip = c.toolStrip, &tool] { return toolStrip.Caption(tool); },
                        [&toolStrip = c.toolStrip, &tool](std::u16string_view text) {
                          toolStrip.Rename(tool, text);
                        }});
  }
  c.form = std::make_shared<CaptionedForm>(u"frmItemClass", std::move(captions));
}

void ItemClassWindow::SetFonts(HFONT font) {
  FormChildren& c = *children_;
  for (FieldRow& row : c.rows) {
    for (const BoundWindow* window :
         std::initializer_list<const BoundWindow*>{&row.label, &row.text, &row.lookup}) {
      SetFontOf(window->Handle(), font);
    }
  }
  SetFontOf(c.headerFrame.Handle(), font);
  SetFontOf(c.itemFrame.Handle(), font);
  c.members.SetFont(font);
  c.toolStrip.SetFont(font);
}

FormMeasures ItemClassWindow::Measures() const {
  FormChildren& c = *children_;
  FormMeasures measures;
  measures.toolStripHeight = c.toolStrip.ButtonHeight();
  measures.toolStripWidth = c.toolStrip.ButtonsWidth();
  const WindowContext context(Handle());
  measures.lineHeight = LineHeight(context.Get(), TextFont());
  for (const FieldRow& row : c.rows) {
    const std::wstring label = ToWide(TextOf(row.label.Handle()));
    measures.labelWidth =
        std::max(measures.labelWidth, TextWidth(context.Get(), TextFont(), label));
  }
  return measures;
}

void ItemClassWindow::UpdateResolution(Dpi dpi) {
  children_->toolStrip.UpdateAppearance(dpi);
  children_->members.UpdateAppearance(dpi);
  ShowLookupPictures(dpi);
}

SIZE ItemClassWindow::MinimumSize(Dpi dpi) const {
  return ToSize(MinimumFormSize(Measures(), dpi.Value()));
}

std::array<HWND, 2> ItemClassWindow::ThemedChildren() const {
  return {children_->toolStrip.Handle(), children_->members.Handle()};
}

void ItemClassWindow::PlaceChildren(SIZE client, Dpi dpi) {
  FormChildren& c = *children_;
  const FormPlaces places = PlaceForm({client.cx, client.cy}, Measures(), dpi.Value());
  SetPlaceOf(c.toolStrip.Handle(), ToRect(places.toolStrip));
  SetPlaceOf(c.line.Handle(), ToRect(places.line));
  SetPlaceOf(c.headerFrame.Handle(), ToRect(places.headerFrame));
  SetPlaceOf(c.itemFrame.Handle(), ToRect(places.itemFrame));
  for (std::size_t i = 0; i < kFormRows.size(); ++i) {
    SetPlaceOf(c.Row(kFormRows[i]).label.Handle(), ToRect(places.labels[i]));
    SetPlaceOf(c.Row(kFormRows[i]).text.Handle(), ToRect(places.fields[i]));
  }
  SetPlaceOf(c.Row(FormField::LossAccount).lookup.Handle(), ToRect(places.lossLookup));
  SetPlaceOf(c.Row(FormField::ReserveAccount).lookup.Handle(), ToRect(places.reserveLookup));
  SetPlaceOf(c.members.Handle(), ToRect(places.members));
}

void ItemClassWindow::Show(std::function<void()> unloading) {
  if (Handle() == nullptr) return;
  unloading_ = std::move(unloading);
  const Dpi dpi = Dpi::Of(Handle());
  const bool shownBefore = lastSize_.cx > 0 && lastDpi_ == dpi.Value();
  Centre(shownBefore ? lastSize_ : OuterSize(ToSize(FirstFormSize(Measures(), dpi.Value()))));
  LayOut();
  ShowWindow(Handle(), SW_SHOW);
  FocusFirst();
}

std::u16string ItemClassWindow::Text(FormField field) const {
  return TextOf(children_->Row(field).text.Handle());
}

void ItemClassWindow::SetText(FormField field, std::u16string_view text) {
  SetTextOf(children_->Row(field).text.Handle(), text);
}

void ItemClassWindow::Focus(FormField field) { children_->Row(field).text.Focus(); }

void ItemClassWindow::FocusFirst() { Focus(FormField::ClassNumber); }

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
  FieldRow* const row = children_->Find(&FieldRow::caption, target);
  return row == nullptr ? nullptr : &row->label;
}

void ItemClassWindow::SetCaption(FormCaption target, std::u16string_view text) {
  if (const BoundWindow* window = Captioned(target)) SetTextOf(window->Handle(), text);
}

void ItemClassWindow::SetToolTexts(FormTool tool, std::u16string_view caption,
                                   std::u16string_view toolTip) {
  children_->toolStrip.SetCaption(RowOf(tool), caption);
  children_->toolStrip.SetTooltip(RowOf(tool), toolTip);
}

void ItemClassWindow::SetToolEnabled(FormTool tool, bool enabled) {
  children_->toolStrip.SetEnabled(RowOf(tool), enabled);
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
  Destroy();
}

}  // namespace pricedown::windows
