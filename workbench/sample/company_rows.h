// The rows of the company tables as plain values, and the writer that inserts them.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/company/connection.h"

namespace workbench {

struct AccountRow {
  int id = 0;
  std::string number;
  std::string name;
  int level = 1;
  int parentId = 0;  // 0 for an account of the first level
  bool isDetail = true;
  bool isDebit = true;
};

struct ItemRow {
  int id = 0;
  std::string number;
  std::optional<std::string> shortNumber;
  std::string name;
  std::optional<std::string> model;
  int category = 1;  // FErpClsID, 1 to 9
  std::string unit;
  std::optional<double> planPrice;
  std::optional<double> salePrice;
};

// One member item of an item class.
struct ClassRow {
  int itemId = 0;
  std::string number;
  std::string name;
  int lossAccountId = 0;
  std::string lossAccount;
  int reserveAccountId = 0;
  std::string reserveAccount;
  double percentage = 0;
};

struct ProvisionRow {
  int itemId = 0;
  int year = 0;
  int period = 0;
  std::optional<double> haveAdd;
  std::optional<double> currentAdd;
};

struct VoucherRow {
  int year = 0;
  int period = 0;
  std::string date;
  int number = 0;
  std::optional<int> tranType;
  std::optional<std::string> internalInd;
  std::string explanation;
};

struct ProfileRow {
  std::string category;
  std::string key;
  std::optional<std::string> value;
};

struct UserRow {
  int id = 0;
  std::string name;
  std::string description;
};

struct RightRow {
  int userId = 0;
  int objectType = 0;
  int objectNumber = 0;
  int mask = 0;  // the bits granted
};

struct UserSettingRow {
  int userId = 0;
  std::string category;
  std::string key;
  std::optional<std::string> value;
};

// Inserts rows, many at a time where the company is on a server. Requires: the company's tables
// exist and the connection outlives the writer. Add and Finish throw DatabaseError.
class CompanyWriter {
 public:
  // Called with the number of rows so far, every `kProgressRows` rows. May be empty.
  using Progress = std::function<void(std::int64_t rows)>;
  static constexpr std::int64_t kProgressRows = 50000;

  explicit CompanyWriter(Connection& company, Progress progress = {});

  void Add(const AccountRow& row);
  void Add(const ItemRow& row);
  void Add(const ClassRow& row);
  void Add(const ProvisionRow& row);
  // Vouchers number themselves, from 1 in an empty table.
  void Add(const VoucherRow& row);
  void Add(const ProfileRow& row);
  void Add(const UserRow& row);
  void Add(const RightRow& row);
  void Add(const UserSettingRow& row);

  template <class Rows>
  void AddAll(const Rows& rows) {
    for (const auto& row : rows) Add(row);
  }

  // Sends the pending rows, which are lost without it.
  void Finish();

 private:
  enum Table { kAccount, kItem, kClass, kProvision, kVoucher, kProfile, kUser, kRight, kSetting };

  void Insert(Table table, std::initializer_list<InsertValue> row);

  std::vector<std::unique_ptr<RowInserter>> tables_;
  Progress progress_;
  std::int64_t rows_ = 0;
};

}  // namespace workbench
