// Base of connections that interfere with another one.
#pragma once

#include <memory>
#include <utility>

#include "workbench/company/connection.h"

namespace workbench {

class ForwardingConnection : public Connection {
 public:
  explicit ForwardingConnection(std::shared_ptr<Connection> company)
      : company_(std::move(company)) {}

  ResultSet Execute(std::u16string_view text) override { return company_->Execute(text); }
  void Begin() override { company_->Begin(); }
  void Commit() override { company_->Commit(); }
  void Rollback() noexcept override { company_->Rollback(); }
  std::unique_ptr<RowInserter> PrepareInsert(std::string_view table,
                                             std::string_view columns) override {
    return company_->PrepareInsert(table, columns);
  }
  void CreateTables() override { company_->CreateTables(); }
  void CreateIndexes() override { company_->CreateIndexes(); }
  void RequireCompany() override { company_->RequireCompany(); }

 private:
  std::shared_ptr<Connection> company_;
};

}  // namespace workbench
