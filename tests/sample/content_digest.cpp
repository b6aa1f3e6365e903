// FNV-1a over kind, size and bytes of every value; doubles by their bits.
#include "tests/sample/content_digest.h"

#include <cstring>
#include <string>
#include <vector>

#include "workbench/sample/sqlite_handle.h"

namespace workbench::testing {
namespace {

class Digest {
 public:
  void AddByte(std::uint8_t byte) { hash_ = (hash_ ^ byte) * 0x100000001B3U; }

  void AddNumber(std::uint64_t number) {
    for (int shift = 0; shift < 64; shift += 8) AddByte(static_cast<std::uint8_t>(number >> shift));
  }

  void AddText(const std::string& text) {
    AddNumber(text.size());
    for (const char c : text) AddByte(static_cast<std::uint8_t>(c));
  }

  void AddColumn(const Statement& row, int column) {
    const int type = row.Type(column);
    AddByte(static_cast<std::uint8_t>(type));
    if (type == SQLITE_INTEGER) AddNumber(static_cast<std::uint64_t>(row.Integer(column)));
    if (type == SQLITE_TEXT) AddText(row.Text(column));
    if (type == SQLITE_FLOAT) {
      const double value = row.Real(column);
      std::uint64_t bits = 0;
      std::memcpy(&bits, &value, sizeof bits);
      AddNumber(bits);
    }
  }

  std::uint64_t value() const { return hash_; }

 private:
  std::uint64_t hash_ = 0xCBF29CE484222325U;
};

}  // namespace

std::uint64_t ContentDigest(sqlite3* company) {
  std::vector<std::string> tables;
  Statement names(company, "SELECT name FROM sqlite_schema WHERE type='table' ORDER BY name");
  while (names.Step()) tables.push_back(names.Text(0));
  Digest digest;
  for (const std::string& table : tables) {
    digest.AddText(table);
    Statement rows(company, "SELECT * FROM " + table + " ORDER BY rowid");
    while (rows.Step()) {
      for (int column = 0; column < rows.ColumnCount(); ++column) digest.AddColumn(rows, column);
    }
  }
  return digest.value();
}

}  // namespace workbench::testing
