// The widths of texts on a measuring context. One pixel of it is a hundredth of a millimetre: at
// that size the hinting of letters, which differs by device, no longer matters.
#include "windows/print/device_measurer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "windows/base/gdi.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

// More than a document has; after many changes of the font the cache is emptied.
constexpr std::size_t kMaximumFonts = 32;

Tenths RoundedUp(int hundredths) {
  return (hundredths + kHundredthsPerTenth - 1) / kHundredthsPerTenth;
}

}  // namespace

const DeviceMeasurer::MeasuredFont& DeviceMeasurer::Find(const Font& font) {
  for (const MeasuredFont& known : fonts_) {
    if (known.font == font) return known;
  }
  if (context_ == nullptr) context_.reset(CreateCompatibleDC(nullptr));
  if (context_ == nullptr) ThrowLastError();
  MeasuredFont measured{font, MakeFont(font, kHimetricPerInch), {}};
  const Selected selected(context_.get(), measured.handle.Get());
  if (GetTextMetricsW(context_.get(), &measured.metrics) == FALSE) ThrowLastError();
  if (fonts_.size() == kMaximumFonts) fonts_.clear();
  return fonts_.emplace_back(std::move(measured));
}

std::span<const int> DeviceMeasurer::Ends(const Font& font, std::u16string_view text) {
  ends_.resize(text.size());
  if (text.empty()) return ends_;
  const MeasuredFont& measured = Find(font);
  const Selected selected(context_.get(), measured.handle.Get());
  SIZE size{};
  if (GetTextExtentExPointW(context_.get(), ToWide(text).c_str(), static_cast<int>(text.size()), 0,
                            nullptr, ends_.data(), &size) == FALSE) {
    ThrowLastError();
  }
  // A character that is drawn back over the one before it makes no text narrower.
  for (std::size_t i = 1; i < ends_.size(); ++i) ends_[i] = std::max(ends_[i], ends_[i - 1]);
  return ends_;
}

Tenths DeviceMeasurer::Width(const Font& font, std::u16string_view text) {
  const std::span<const int> ends = Ends(font, text);
  return ends.empty() ? 0 : RoundedUp(ends.back());
}

std::size_t DeviceMeasurer::FittingLength(const Font& font, std::u16string_view text,
                                          Tenths available) {
  const std::span<const int> ends = Ends(font, text);
  const auto tooLong = std::upper_bound(ends.begin(), ends.end(), available * kHundredthsPerTenth);
  return static_cast<std::size_t>(tooLong - ends.begin());
}

Tenths DeviceMeasurer::LineHeight(const Font& font) {
  return RoundedUp(Find(font).metrics.tmHeight);
}

int DeviceMeasurer::Ascent(const Font& font) { return Find(font).metrics.tmAscent; }

}  // namespace pricedown::windows
