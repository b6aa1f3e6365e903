// Texts and typed numbers.
#include "print/preview_fields.h"

#include <algorithm>
#include <cmath>

#include "env/translation.h"
#include "platform/convert.h"
#include "platform/text.h"
#include "print/preview_state.h"

namespace pricedown {
namespace {

constexpr std::int32_t kMaximumTyped = 10'000'000;

}  // namespace

std::u16string PageCountText(std::int32_t count) {
  return Concatenate({Translate(u"共 "), NumberText(count), Translate(u" 页")});
}

std::u16string ZoomText(double percent) {
  return NumberText(static_cast<std::int32_t>(std::lround(percent))) + u"%";
}

std::vector<std::u16string> ZoomChoices() {
  std::vector<std::u16string> choices{Translate(u"整页"), Translate(u"页宽")};
  for (const double percent : kPreviewSizes) choices.push_back(ZoomText(percent));
  return choices;
}

std::optional<PreviewCommand> ZoomCommandOf(std::int32_t line) {
  if (line == 0) return PreviewCommand::FitPage;
  if (line == 1) return PreviewCommand::FitWidth;
  return std::nullopt;
}

std::optional<std::int32_t> TypedPage(std::u16string_view text) {
  text = Trim(text);
  if (text.empty()) return std::nullopt;
  std::int32_t number = 0;
  for (const char16_t unit : text) {
    std::int32_t digit = -1;
    if (unit >= u'0' && unit <= u'9') digit = unit - u'0';
    if (unit >= u'０' && unit <= u'９') digit = unit - u'０';
    if (digit < 0) return std::nullopt;
    number = std::min(number * 10 + digit, kMaximumTyped);
  }
  return number;
}

std::optional<std::int32_t> TypedPercent(std::u16string_view text) {
  text = Trim(text);
  if (!text.empty() && (text.back() == u'%' || text.back() == u'％')) text.remove_suffix(1);
  const std::optional<std::int32_t> number = TypedPage(text);
  return number && *number > 0 ? number : std::nullopt;
}

std::u16string PrintProgressText(std::int64_t sheet, std::int64_t count) {
  return Concatenate({Translate(u"正在打印第 "), FromUtf8(std::to_string(sheet)),
                      Translate(u" 页，共 "), FromUtf8(std::to_string(count)), Translate(u" 页…")});
}

}  // namespace pricedown
