// The rows and the chunks of memory that hold their texts.
#include "workbench/company/result_set.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

#include "workbench/company/utf.h"

namespace workbench {
namespace {

// In code units. Small results stay small, big ones soon reach the biggest chunk.
constexpr std::size_t kSmallestChunk = 512;
constexpr std::size_t kBiggestChunk = 1 << 19;

}  // namespace

ResultSet::ResultSet(std::vector<ResultColumn> columns) {
  columns_.reserve(columns.size());
  for (ResultColumn& column : columns) {
    columns_.emplace_back().described = std::move(column);
  }
}

ResultSet::ResultSet(ResultSet&& other) noexcept
    : columns_(std::exchange(other.columns_, {})),
      rowCount_(std::exchange(other.rowCount_, 0)),
      arena_(std::exchange(other.arena_, {})),
      arenaFree_(std::exchange(other.arenaFree_, nullptr)),
      arenaLeft_(std::exchange(other.arenaLeft_, 0)),
      nextChunk_(std::exchange(other.nextChunk_, 0)) {}

ResultSet& ResultSet::operator=(ResultSet&& other) noexcept {
  if (this != &other) {
    std::destroy_at(this);
    std::construct_at(this, std::move(other));
  }
  return *this;
}

void ResultSet::AddRow() {
  if (rowCount_ % kBlockRows == 0) {
    // Allocate first, then append: a failure leaves all columns the same length.
    for (StoredColumn& column : columns_) column.blocks.reserve(column.blocks.size() + 1);
    std::vector<std::unique_ptr<Cell[]>> made;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      std::unique_ptr<Cell[]> block(new Cell[kBlockRows]);
      made.push_back(std::move(block));
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      columns_[i].blocks.push_back(std::move(made[i]));
    }
  }
  ++rowCount_;
  for (std::size_t i = 0; i < columns_.size(); ++i) LastCell(i).kind_ = CellKind::Null;
}

void ResultSet::SetInteger(std::size_t column, std::int64_t value) noexcept {
  Cell& cell = LastCell(column);
  cell.integer_ = value;
  cell.kind_ = CellKind::Integer;
}

void ResultSet::SetNumber(std::size_t column, double value) noexcept {
  Cell& cell = LastCell(column);
  cell.number_ = value;
  cell.kind_ = CellKind::Number;
}

void ResultSet::SetText(std::size_t column, std::u16string_view text) {
  std::copy(text.begin(), text.end(), ReserveText(text.size()));
  Assign(LastCell(column), CommitText(text.size()));
}

void ResultSet::SetUtf8Text(std::size_t column, std::string_view text) {
  StoredColumn& stored = columns_[column];
  if (text != stored.lastUtf8) {
    const std::size_t length = DecodeUtf8(text, ReserveText(text.size()));
    stored.lastUtf8.assign(text);
    stored.lastText = CommitText(length);
  }
  Assign(LastCell(column), stored.lastText);
}

void ResultSet::SetColumn(std::size_t column, ResultColumn description) {
  columns_[column].described = std::move(description);
}

char16_t* ResultSet::ReserveText(std::size_t length) {
  if (length <= arenaLeft_) return arenaFree_;
  if (length > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("text of a result cell");
  }
  const std::size_t chunk = std::max({length, nextChunk_, kSmallestChunk});
  // Not make_unique, which would zero memory that is filled next.
  arena_.push_back(nullptr);
  arena_.back().reset(new char16_t[chunk]);
  nextChunk_ = std::min(std::max(nextChunk_, kSmallestChunk) * 2, kBiggestChunk);
  arenaFree_ = arena_.back().get();
  arenaLeft_ = chunk;
  return arenaFree_;
}

std::u16string_view ResultSet::CommitText(std::size_t length) noexcept {
  const std::u16string_view text(arenaFree_, length);
  arenaFree_ += length;
  arenaLeft_ -= length;
  return text;
}

void ResultSet::Assign(Cell& cell, std::u16string_view text) noexcept {
  cell.text_ = text.data();
  cell.length_ = static_cast<std::uint32_t>(text.size());
  cell.kind_ = CellKind::Text;
}

}  // namespace workbench
