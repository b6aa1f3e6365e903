// The search from row to row, and the count that goes on in parts.
#include "browser/text_search.h"

#include <algorithm>

#include "platform/convert.h"
#include "platform/text.h"

namespace pricedown {

void TextSearch::Start(const SearchedRows& rows, std::u16string_view text) {
  rows_ = &rows;
  pattern_ = TextPattern(text);
  counted_ = 0;
  hits_.clear();
}

std::optional<SearchHit> TextSearch::Next(std::int32_t row, bool backwards) const {
  if (IsEmpty() || (IsCounted() && hits_.empty())) return std::nullopt;
  const std::int32_t count = rows_->Rows();
  const std::int32_t step = backwards ? -1 : 1;
  std::int32_t next = std::clamp(row, 0, count + 1);
  if (IsCounted()) {
    // The rows in between have none.
    const auto place = backwards ? std::lower_bound(hits_.begin(), hits_.end(), next)
                                 : std::upper_bound(hits_.begin(), hits_.end(), next);
    if (backwards) return HitIn(place == hits_.begin() ? hits_.back() : *(place - 1));
    return HitIn(place == hits_.end() ? hits_.front() : *place);
  }
  for (std::int32_t i = 0; i < count; ++i) {
    next += step;
    if (next > count) next = 1;
    if (next < 1) next = count;
    if (const auto hit = HitIn(next)) return hit;
  }
  return std::nullopt;
}

std::optional<SearchHit> TextSearch::HitIn(std::int32_t row) const {
  const std::int32_t column = rows_->Match(row, pattern_);
  return column != 0 ? std::optional(SearchHit{row, column}) : std::nullopt;
}

void TextSearch::ContinueCounting(std::int32_t rows) {
  if (IsEmpty()) return;
  const std::int32_t end = counted_ + std::min(rows, rows_->Rows() - counted_);
  while (counted_ < end) {
    if (HitIn(++counted_)) hits_.push_back(counted_);
  }
}

std::u16string TextSearch::CountText(std::int32_t row) const {
  if (IsEmpty()) return {};
  const auto total = static_cast<std::int32_t>(hits_.size());
  const auto place = std::lower_bound(hits_.begin(), hits_.end(), row);
  const bool isHit = place != hits_.end() && *place == row;
  const auto position = static_cast<std::int32_t>(place - hits_.begin()) + 1;
  const std::u16string_view elsewhere = total == 0 && IsCounted() ? u"0" : u"–";
  return Concatenate({isHit ? NumberText(position) : std::u16string(elsewhere), u" / ",
                      NumberText(total), IsCounted() ? u"" : u"+"});
}

}  // namespace pricedown
