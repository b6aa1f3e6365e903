// Base of tests that need a real server; skipped, with the reason, where there is none.
#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <memory>
#include <string>
#include <string_view>

#include "tests/server_support/postgres_server.h"
#include "workbench/company/connection.h"
#include "workbench/company/utf.h"

namespace workbench::testing {

class ServerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string whyNot;
    server_ = PostgresServer::Get(whyNot);
    if (server_ == nullptr) GTEST_SKIP() << whyNot;
    database_ = server_->NewDatabase();
  }

  std::unique_ptr<Connection> Open(ConnectOptions options = {}) const {
    return OpenConnection(database_, std::move(options));
  }
  static ResultSet Execute(Connection& connection, std::string_view text) {
    return connection.Execute(Utf16FromUtf8(text));
  }
  // The first cell, a whole number.
  static std::int64_t Number(Connection& connection, std::string_view text) {
    return Execute(connection, text).At(0, 0).Integer();
  }

  PostgresServer* server_ = nullptr;
  std::string database_;
};

}  // namespace workbench::testing
