// The display font: where it comes from and what it is applied to.
#include "browser/display_font.h"

#include <algorithm>
#include <string>

#include "env/settings_text.h"
#include "env/user_settings.h"
#include "platform/convert.h"
#include "platform/skip.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kSeparator = u"|";
constexpr std::int32_t kDefaultReportSize = 9;
constexpr double kMinimumReportSize = 9;
constexpr double kMaximumReportSize = 18;
constexpr std::int32_t kPrintRowMargin = 30;   // twips above and below the label together
constexpr std::int32_t kGridRowMargin = 20;    // twips
constexpr double kTitleRowFactor = 1.6;        // title row to label
constexpr double kMaximumPossibleSize = 1638;  // points; the sizes that a font can have

}  // namespace

void DisplayFont::Refresh() {
  SkipFailing([&] {
    const Value chosen =
        ReadUserSetting(environment_.factory, environment_.application, kGridFontKey, u"");
    // Each call may have ended the control.
    if (!ToText(chosen).empty() || environment_.lifetime.HasEnded()) return;
    const double size = ToDouble(ReadUserSetting(environment_.factory, environment_.application,
                                                 kReportFontSizeKey, kDefaultReportSize));
    if (size == lastAppliedSize_ || environment_.lifetime.HasEnded()) return;
    if (size < kMinimumReportSize || size > kMaximumReportSize) return;
    lastAppliedSize_ = size;
    Font labelFont = document_.font;
    labelFont.size = size;
    const std::int32_t rowHeight =
        std::max(view_.MeasureLabel(labelFont) + kPrintRowMargin, kMinimumRowHeight);
    document_.font.size = size;
    document_.rowHeight = std::max(document_.rowHeight, rowHeight);
    Apply();
  });
}

void DisplayFont::Restore(std::u16string_view settings) {
  const auto entry = [&](std::u16string_view name) {
    return SettingsEntry(settings, name, kSeparator);
  };
  Font& font = document_.font;
  SkipFailing([&] {
    if (std::u16string name = entry(u"FontName"); !name.empty()) font.name = std::move(name);
  });
  SkipFailing([&] {
    const double size = ToDouble(entry(u"FontSize"));
    if (size > 0 && size <= kMaximumPossibleSize) font.size = size;
  });
  SkipFailing([&] { font.bold = ToBoolean(entry(u"FontBold")); });
  SkipFailing([&] { font.italic = ToBoolean(entry(u"FontItalic")); });
  Apply();
}

void DisplayFont::ResolutionChanged() {
  if (applied_) Apply();
}

void DisplayFont::Apply() {
  applied_ = true;
  SkipFailing([&] {
    view_.SetTreeFont(document_.font);
    const std::int32_t label = view_.MeasureLabel(document_.font);
    grid_.SetFont(document_.font);
    const double twipsPerPixel = environment_.screen.TwipsPerPixelY();
    grid_.SetRowHeight((label + kGridRowMargin) / twipsPerPixel);
    grid_.SetTitleHeight(label * kTitleRowFactor / twipsPerPixel);
  });
}

void DisplayFont::Save() {
  SkipFailing([&] {
    const Font& font = document_.font;
    const std::u16string settings = BuildSettings({{u"FontName", font.name},
                                                   {u"FontSize", NumberText(font.size)},
                                                   {u"FontBold", ToText(font.bold)},
                                                   {u"FontItalic", ToText(font.italic)}},
                                                  kSeparator);
    SaveUserSetting(environment_.factory, environment_.application, kGridFontKey, settings);
  });
}

}  // namespace pricedown
