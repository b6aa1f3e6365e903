// What the tables must hold after a command, by the rules of the inventory module and without any
// statement.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace workbench {

struct ModelHeader {
  std::string name;
  std::string lossAccount;
  std::string reserveAccount;
  std::string percentage;
  bool operator==(const ModelHeader&) const = default;
};

struct ModelClass {
  ModelHeader header;
  std::set<std::int32_t> items;
};

struct ModelProvision {
  std::int32_t item = 0;
  std::int32_t year = 0;
  std::int32_t period = 0;
  std::int32_t amount = 0;
};

inline std::string UpperLatin(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  });
  return text;
}

struct ClassModel {
  std::map<std::string, ModelClass> classes;  // by number
  std::vector<ModelProvision> provisions;
  std::int32_t year = 2008;
  std::int32_t period = 3;
  bool voucher = false;  // of the current period

  bool HasHistory(std::int32_t item) const {
    return std::any_of(provisions.begin(), provisions.end(), [&](const ModelProvision& row) {
      const bool before = row.year < year || (row.year == year && row.period < period);
      return row.item == item && before && row.amount != 0;
    });
  }
  bool HasCurrentAmount(std::int32_t item) const {
    return std::any_of(provisions.begin(), provisions.end(), [&](const ModelProvision& row) {
      return row.item == item && row.year == year && row.period == period && row.amount != 0;
    });
  }
  void DropCurrentProvision(std::int32_t item) {
    std::erase_if(provisions, [&](const ModelProvision& row) {
      return row.item == item && row.year == year && row.period == period;
    });
  }
  // The number of another class than `opening` that equals `number`, letter case aside; null if
  // none.
  const std::string* NumberInUse(const std::string& number, const std::string& opening) const {
    for (const auto& entry : classes) {
      if (entry.first != opening && UpperLatin(entry.first) == UpperLatin(number)) {
        return &entry.first;
      }
    }
    return nullptr;
  }
  std::set<std::int32_t> ItemsOfOthers(const std::string& opening) const {
    std::set<std::int32_t> items;
    for (const auto& [number, other] : classes) {
      if (number != opening) items.insert(other.items.begin(), other.items.end());
    }
    return items;
  }

  // The rows as texts, one a line, in the order of the lines.
  std::string ClassRows(const std::map<std::string, std::string>& accountIds) const {
    std::vector<std::string> lines;
    for (const auto& [number, rows] : classes) {
      const ModelHeader& header = rows.header;
      for (const std::int32_t item : rows.items) {
        lines.push_back(number + "|" + header.name + "|" + std::to_string(item) + "|" +
                        accountIds.at(header.lossAccount) + "|" + header.lossAccount + "|" +
                        accountIds.at(header.reserveAccount) + "|" + header.reserveAccount + "|" +
                        header.percentage);
      }
    }
    return Sorted(std::move(lines));
  }
  std::string ProvisionRows() const {
    std::vector<std::string> lines;
    for (const ModelProvision& row : provisions) {
      lines.push_back(std::to_string(row.item) + "|" + std::to_string(row.year) + "|" +
                      std::to_string(row.period) + "|" + std::to_string(row.amount));
    }
    return Sorted(std::move(lines));
  }

 private:
  static std::string Sorted(std::vector<std::string> lines) {
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
  }
};

}  // namespace workbench
