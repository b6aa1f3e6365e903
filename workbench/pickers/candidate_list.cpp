// Reads ids once and texts by the page, and searches in stretches of ids. Each stretch is one
// statement, so nothing stays open in the database between two steps.
#include "workbench/pickers/candidate_list.h"

#include <algorithm>
#include <utility>

#include "workbench/company/connection.h"

namespace workbench {
namespace {

// The first stretch is short so that the first screen shows at once; later ones are long enough to
// pay for their statement.
constexpr std::size_t kFirstStretch = 512;
constexpr std::size_t kStretch = 4096;
constexpr std::size_t kPage = 64;
constexpr std::size_t kMaximumRows = 8192;

std::int32_t IdOf(const Cell& cell) {
  if (cell.Kind() == CellKind::Integer) return static_cast<std::int32_t>(cell.Integer());
  return cell.Kind() == CellKind::Number ? static_cast<std::int32_t>(cell.Number()) : 0;
}

std::u16string TextOf(const Cell& cell) {
  return cell.Kind() == CellKind::Text ? std::u16string(cell.Text()) : std::u16string();
}

// Whether every row that matches the new words also matches the old ones.
bool Narrows(const std::vector<std::u16string>& before, const std::vector<std::u16string>& after) {
  if (before.empty() || after.size() < before.size()) return false;
  return std::equal(before.begin(), before.end(), after.begin(),
                    [](const auto& old, const auto& now) { return now.starts_with(old); });
}

}  // namespace

CandidateList::CandidateList(Connection& company, const CandidateTable& table,
                             std::u16string_view condition)
    : company_(company), table_(table) {
  const ResultSet result = company_.Execute(IdsStatement(table_, condition));
  ids_.reserve(result.RowCount());
  for (std::size_t row = 0; row < result.RowCount(); ++row) {
    ids_.push_back(IdOf(result.At(row, 0)));
  }
}

std::span<const std::int32_t> CandidateList::Searched() const {
  if (!HasWords()) return {};
  return narrowed_ ? rest_ : ids_;
}

void CandidateList::Search(std::u16string_view text) {
  std::vector<std::u16string> words = SearchWords(text);
  if (words == words_) return;
  if (Narrows(words_, words)) {
    const auto unsearched = Searched().subspan(next_);
    std::vector<std::int32_t> rest = std::move(found_);
    rest.insert(rest.end(), unsearched.begin(), unsearched.end());
    rest_ = std::move(rest);
    narrowed_ = true;
  } else {
    rest_ = {};
    narrowed_ = false;
  }
  words_ = std::move(words);
  found_.clear();
  next_ = 0;
}

void CandidateList::Advance() {
  const auto searched = Searched();
  const std::size_t size = std::min(next_ == 0 ? kFirstStretch : kStretch, searched.size() - next_);
  const auto stretch = searched.subspan(next_, size);

  std::vector<std::int32_t> ordered(stretch.begin(), stretch.end());
  std::sort(ordered.begin(), ordered.end());
  const ResultSet result = company_.Execute(MatchStatement(table_, ordered, words_));
  std::vector<std::int32_t> matching;
  matching.reserve(result.RowCount());
  for (std::size_t row = 0; row < result.RowCount(); ++row) {
    matching.push_back(IdOf(result.At(row, 0)));
  }
  std::sort(matching.begin(), matching.end());
  // Keeps the order of codes and drops rows that the condition excludes.
  std::copy_if(stretch.begin(), stretch.end(), std::back_inserter(found_), [&](std::int32_t id) {
    return std::binary_search(matching.begin(), matching.end(), id);
  });
  next_ += size;
}

const CandidateRow& CandidateList::Row(std::size_t position) {
  const std::int32_t id = Id(position);
  if (const auto known = rows_.find(id); known != rows_.end()) return known->second;
  LoadAround(position);
  return rows_.at(id);
}

void CandidateList::LoadAround(std::size_t position) {
  if (rows_.size() >= kMaximumRows) rows_.clear();
  const auto shown = Shown();
  const std::size_t first = position - position % kPage;
  const auto page = shown.subspan(first, std::min(kPage, shown.size() - first));
  const ResultSet result = company_.Execute(RowsStatement(table_, page));
  for (const std::int32_t id : page) rows_[id] = CandidateRow(table_.shownColumns.size());
  for (std::size_t row = 0; row < result.RowCount(); ++row) {
    CandidateRow& texts = rows_[IdOf(result.At(row, 0))];
    texts.resize(table_.shownColumns.size());
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = TextOf(result.At(row, i + 1));
  }
}

}  // namespace workbench
