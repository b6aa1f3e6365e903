// The whole, immutable result of a query, detached from the database: column descriptions and
// cells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

// ADO's DataTypeEnum, as far as company columns have such types. Texts are always UTF-16, so
// the server's char and varchar appear as WChar and VarWChar.
enum class AdoType : int {
  SmallInt = 2,
  Integer = 3,
  Double = 5,
  Boolean = 11,
  BigInt = 20,
  WChar = 130,
  Numeric = 131,
  VarWChar = 202,
  LongVarWChar = 203,
};

// Cells of a Numeric column are of kind Integer or Number, as they come.
struct ResultColumn {
  std::u16string name;  // as the query spells it; empty for an expression without a name
  AdoType type = AdoType::VarWChar;
  // As ADO's DefinedSize: characters of a text column, bytes of a number.
  std::int64_t definedSize = 0;
  int precision = 0;  // of Numeric only
  int scale = 0;      // of Numeric only
};

enum class CellKind : std::uint8_t { Null, Integer, Number, Text };

// A view of one cell, valid as long as its ResultSet lives (also when that is moved).
class Cell {
 public:
  CellKind Kind() const noexcept { return kind_; }
  bool IsNull() const noexcept { return kind_ == CellKind::Null; }

  // Requires: the kind of the same name.
  std::int64_t Integer() const noexcept { return integer_; }
  double Number() const noexcept { return number_; }
  std::u16string_view Text() const noexcept { return {text_, length_}; }

 private:
  friend class ResultSet;

  // Left unset until its row is added.
  Cell() = default;

  union {
    std::int64_t integer_;
    double number_;
    const char16_t* text_;
  };
  std::uint32_t length_;
  CellKind kind_;
};

// Movable, not copyable. A statement that is no query has a result without columns, unlike a query
// without rows. Filled by the connection, then only read.
class ResultSet {
 public:
  ResultSet() = default;
  explicit ResultSet(std::vector<ResultColumn> columns);
  ResultSet(ResultSet&& other) noexcept;
  ResultSet& operator=(ResultSet&& other) noexcept;
  ~ResultSet() = default;

  std::size_t RowCount() const noexcept { return rowCount_; }
  std::size_t ColumnCount() const noexcept { return columns_.size(); }

  // Requires: column < ColumnCount().
  const ResultColumn& Column(std::size_t column) const noexcept {
    return columns_[column].described;
  }

  // Constant time, no allocation. Requires: row < RowCount() and column < ColumnCount().
  const Cell& At(std::size_t row, std::size_t column) const noexcept {
    return columns_[column].blocks[row / kBlockRows][row % kBlockRows];
  }

  // Filling: AddRow appends a row of Nulls, the setters change a cell of that last row.
  // Requires: at least one row, column < ColumnCount().
  void AddRow();
  void SetInteger(std::size_t column, std::int64_t value) noexcept;
  void SetNumber(std::size_t column, double value) noexcept;
  void SetText(std::size_t column, std::u16string_view text);
  void SetUtf8Text(std::size_t column, std::string_view text);
  void SetColumn(std::size_t column, ResultColumn description);

 private:
  static constexpr std::size_t kBlockRows = 4096;

  struct StoredColumn {
    ResultColumn described;
    // Blocks instead of one vector: growing never copies cells.
    std::vector<std::unique_ptr<Cell[]>> blocks;
    // The last decoded text, stored once while sorted results repeat it row after row.
    std::string lastUtf8;
    std::u16string_view lastText;
  };

  Cell& LastCell(std::size_t column) noexcept {
    return columns_[column].blocks.back()[(rowCount_ - 1) % kBlockRows];
  }
  static void Assign(Cell& cell, std::u16string_view text) noexcept;
  // Reserves `length` code units at a stable address; CommitText keeps the used part.
  char16_t* ReserveText(std::size_t length);
  std::u16string_view CommitText(std::size_t length) noexcept;

  std::vector<StoredColumn> columns_;
  std::size_t rowCount_ = 0;
  std::vector<std::unique_ptr<char16_t[]>> arena_;
  char16_t* arenaFree_ = nullptr;  // the unused end of the last chunk
  std::size_t arenaLeft_ = 0;
  std::size_t nextChunk_ = 0;
};

}  // namespace workbench
