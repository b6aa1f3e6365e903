// Creates the control's children and fonts, and the captions that the suite may change.
#include "windows/control/control_children.h"

#include <commctrl.h>

#include <utility>
#include <vector>

#include "env/translation.h"
#include "platform/text.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kTreeName = u"物料类别";
constexpr std::u16string_view kGridName = u"物料明细";
constexpr std::u16string_view kSplitterName = u"分隔条";
constexpr std::u16string_view kStatusName = u"状态栏";
constexpr std::u16string_view kFontSample = u"物料类别";
constexpr UINT kMarqueePause = 30;  // milliseconds

}  // namespace

void ControlChildren::Create(HWND parent) {
  const Dpi dpi = Dpi::Of(parent);
  constexpr DWORD label = WS_VISIBLE | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS;
  // The dialog manager uses this order: tree, grid, tool strip.
  title.Create(parent, module, L"STATIC", control_ids::kTitle, label | SS_LEFT);
  period.Create(parent, module, L"STATIC", control_ids::kPeriod, label | SS_RIGHT);
  firstLabel.Create(parent, module, L"STATIC", control_ids::kFirstLabel, label | SS_LEFT);
  secondLabel.Create(parent, module, L"STATIC", control_ids::kSecondLabel, label | SS_RIGHT);
  upperLine.Create(parent, module, control_ids::kUpperLine);
  lowerLine.Create(parent, module, control_ids::kLowerLine);
  classHeading.Create(parent, module, control_ids::kClassHeading, Translate(kTreeName));
  tree.Create(parent, module, dpi, Translate(kTreeName));
  splitter.Create(parent, module, Translate(kSplitterName));
  dragBar.Create(parent, module);
  itemHeading.Create(parent, module, control_ids::kItemHeading, Translate(kGridName));
  pane.Create(parent, module);
  grid.Create(pane.Handle(), module, Translate(kGridName));
  toolStrip.Create(parent, module, control_ids::kToolStrip, dpi, Translate(kToolStripName));
  // In front of the status bar, over its last panel.
  progressBar.Create(parent, module, PROGRESS_CLASSW, control_ids::kProgressBar, PBS_MARQUEE);
  statusBar.Create(parent, module, Translate(kStatusName));
  fontLabel.Create(parent, module, L"STATIC", control_ids::kFontLabel, SS_NOPREFIX, kFontSample);
  findBar.Create(parent, module);
  ListCaptions();
}

void ControlChildren::ListCaptions() {
  const auto ofWindow = [](std::u16string name, BoundWindow& window) {
    return CaptionAccess{std::move(name), [&window] { return TextOf(window.Handle()); },
                         [&window](std::u16string_view text) { SetTextOf(window.Handle(), text); }};
  };
  std::vector<CaptionAccess> captions{ofWindow(u"lbl_Title", title),
                                      ofWindow(u"lblPeriod", period),
                                      ofWindow(u"SSPTitleClass", classHeading),
                                      ofWindow(u"SSPTitleItem", itemHeading),
                                      ofWindow(u"Label1", firstLabel),
                                      ofWindow(u"Label2", secondLabel)};
  for (const Command* button : CommandsOn(surface::kToolStrip)) {
    if (button->separator) continue;
    captions.push_back(
        {Concatenate({u"tbToolBar.", button->key}),
         [this, button] { return toolStrip.Caption(*button); },
         [this, button](std::u16string_view text) { toolStrip.Rename(*button, text); }});
  }
  form = std::make_shared<CaptionedForm>(u"PriceDown", std::move(captions));
}

void ControlChildren::MakeTitleFont(Dpi dpi) {
  const Font& wanted = titleDescription;
  FontHandle font = wanted.name.empty() ? MakeMessageFont(wanted, dpi) : MakeFont(wanted, dpi);
  SetFontOf(title.Handle(), font.Get());
  titleFont = std::move(font);
}

void ControlChildren::MakeFonts(Dpi dpi) {
  MakeTitleFont(dpi);
  // First, because windows keep what they are given.
  FontHandle forTree = MakeFont(treeFont, dpi);
  FontHandle forTexts = MakeMessageFont(dpi);
  for (const BoundWindow* window : std::initializer_list<const BoundWindow*>{
           &period, &firstLabel, &secondLabel, &classHeading, &itemHeading, &statusBar}) {
    SetFontOf(window->Handle(), forTexts.Get());
  }
  toolStrip.SetFont(forTexts.Get());
  findBar.SetFont(forTexts.Get());
  tree.SetFont(std::move(forTree));
  textFont = std::move(forTexts);
}

void ControlChildren::UpdateResolution(Dpi dpi) {
  MakeFonts(dpi);
  tree.UpdateAppearance(dpi);
  toolStrip.UpdateAppearance(dpi);
  grid.UpdateAppearance();
}

void ControlChildren::ShowProgress(bool show) {
  const HWND bar = progressBar.Handle();
  if (bar == nullptr || show == HasVisibleStyle(bar)) return;
  SendMessageW(bar, PBM_SETMARQUEE, show ? TRUE : FALSE, kMarqueePause);
  ShowWindow(bar, show ? SW_SHOWNA : SW_HIDE);
  statusBar.SetPanel(StatusPanel::Wait, show ? Translate(u"请稍候…") : u"");
  if (show) {
    UpdateWindow(statusBar.Handle());
    UpdateWindow(bar);
  }
}

LRESULT ControlChildren::OnNotify(NMHDR& header) {
  if (header.hwndFrom == tree.Handle()) return tree.OnNotify(header);
  return toolStrip.OnNotify(header);
}

}  // namespace pricedown::windows
