// Finds the rows that have a text, one after the other, and counts them a part at a time.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "browser/text_pattern.h"

namespace pricedown {

// What is searched. Rows count from 1.
class SearchedRows {
 public:
  virtual std::int32_t Rows() const = 0;
  // The first column of the row that has the pattern in its text; 0 for none, and for a row that
  // was deleted.
  virtual std::int32_t Match(std::int32_t row, const TextPattern& pattern) const = 0;

 protected:
  ~SearchedRows() = default;
};

struct SearchHit {
  std::int32_t row = 0;
  std::int32_t column = 0;
  bool operator==(const SearchHit&) const = default;
};

class TextSearch {
 public:
  // Begins again. The rows must outlive the search; start a new one when they change.
  void Start(const SearchedRows& rows, std::u16string_view text);
  // No text, or nothing was ever started.
  bool IsEmpty() const { return rows_ == nullptr || pattern_.IsEmpty(); }

  // The next hit after `row`, or before it when `backwards`; goes on at the other end, and comes
  // to `row` itself last.
  std::optional<SearchHit> Next(std::int32_t row, bool backwards) const;

  // Counts the hits in the next `rows` rows.
  void ContinueCounting(std::int32_t rows);
  bool IsCounted() const { return IsEmpty() || counted_ >= rows_->Rows(); }
  // "3 / 27" where `row` is the third hit, "– / 27" where it is none or not counted yet, "– / 27+"
  // while there may be more, "0 / 0" where there is none. Empty without a text.
  std::u16string CountText(std::int32_t row) const;

 private:
  std::optional<SearchHit> HitIn(std::int32_t row) const;

  const SearchedRows* rows_ = nullptr;
  TextPattern pattern_;
  std::int32_t counted_ = 0;        // rows
  std::vector<std::int32_t> hits_;  // among them
};

}  // namespace pricedown
