// The filter of the in-memory recordset: an index of the rows by the filtered column.
#include <algorithm>
#include <optional>

#include "platform/convert.h"
#include "platform/text.h"
#include "workbench/suite/recordset.h"
#include "workbench/suite/recordset_errors.h"

namespace workbench {
namespace {

using pricedown::Value;

std::u16string FilterKey(const Value& value) {
  return value.IsNothing() ? std::u16string() : pricedown::UpperCase(pricedown::ToText(value));
}

struct Comparison {
  std::u16string_view name;
  std::u16string value;
};

// name = 'value' with '' for a quote inside the value.
std::optional<Comparison> ParseComparison(std::u16string_view text) {
  const auto equals = text.find(u'=');
  if (equals == std::u16string_view::npos) return std::nullopt;
  Comparison comparison;
  comparison.name = pricedown::Trim(text.substr(0, equals));
  std::u16string_view rest = pricedown::Trim(text.substr(equals + 1));
  if (comparison.name.empty() || rest.size() < 2 || rest.front() != u'\'') return std::nullopt;
  std::size_t at = 1;
  while (at < rest.size()) {
    if (rest[at] == u'\'') {
      if (at + 1 == rest.size()) return comparison;
      if (rest[at + 1] != u'\'') return std::nullopt;
      ++at;
    }
    comparison.value += rest[at++];
  }
  return std::nullopt;
}

}  // namespace

const std::vector<std::size_t>* Recordset::Matching() const {
  const auto found = index_.find(filterValue_);
  return found == index_.end() ? nullptr : &found->second;
}

bool Recordset::Passes(std::size_t row) const { return rows_->IsLive(row); }

std::optional<std::size_t> Recordset::NextFrom(std::size_t row) const {
  if (filterColumn_) {
    const auto* matching = Matching();
    if (matching == nullptr) return std::nullopt;
    auto at = std::lower_bound(matching->begin(), matching->end(), row);
    while (at != matching->end() && !Passes(*at)) ++at;
    return at == matching->end() ? std::nullopt : std::optional(*at);
  }
  while (row < rows_->RowCount() && !Passes(row)) ++row;
  return row < rows_->RowCount() ? std::optional(row) : std::nullopt;
}

std::optional<std::size_t> Recordset::PreviousFrom(std::size_t end) const {
  if (filterColumn_) {
    const auto* matching = Matching();
    if (matching == nullptr) return std::nullopt;
    auto at = std::lower_bound(matching->begin(), matching->end(), end);
    while (at != matching->begin()) {
      if (Passes(*--at)) return *at;
    }
    return std::nullopt;
  }
  while (end > 0) {
    if (Passes(--end)) return end;
  }
  return std::nullopt;
}

void Recordset::SetFilter(std::u16string_view filter) {
  RequireOpen();
  if (added_) Update();
  filterColumn_.reset();
  if (!pricedown::Trim(filter).empty()) {
    const auto comparison = ParseComparison(filter);
    if (!comparison) {
      ThrowInvalidArgument();
    }
    const std::size_t column = ColumnOf(Value(std::u16string(comparison->name)));
    if (indexColumn_ != column) BuildFilterIndex(column);
    filterColumn_ = column;
    filterValue_ = pricedown::UpperCase(comparison->value);
  }
  filterText_ = filter;
  const auto first = NextFrom(0);
  position_ = first ? Position::Row : Position::End;
  if (first) row_ = *first;
}

void Recordset::BuildFilterIndex(std::size_t column) {
  index_.clear();
  for (std::size_t row = 0; row < rows_->RowCount(); ++row) {
    if (rows_->IsLive(row)) index_[FilterKey(rows_->Get(row, column))].push_back(row);
  }
  indexColumn_ = column;
}

void Recordset::NoteWritten(std::size_t column) {
  if (indexColumn_ != column) return;
  indexColumn_.reset();
  if (filterColumn_ == column && !added_) BuildFilterIndex(column);
}

}  // namespace workbench
