#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "contract/engines.h"
#include "faults.h"
#include "sqlserver/database.h"

namespace sqlserver_tests {

using contract_tests::ErrorOf;
using contract_tests::kSchema;
using contract_tests::NumberOf;
using contract_tests::Table;

/// A database behind ODBC, on a file of its own.
class ServerTest : public testing::Test {
 protected:
  ServerTest() { store_ = Engine().open(folder_); }
  ~ServerTest() override { ClearFaults(); }

  static contract_tests::Engine Engine() { return contract_tests::Engines()[1]; }
  sqlserver::Database& database() { return dynamic_cast<sqlserver::Database&>(*store_); }
  sqlserver::Session& session() { return database().session(); }
  void Run(const std::string& statement) { store_->ExecutarSql("", statement.c_str()); }
  long Count(const std::string& table) const {
    platform::RecordsetRef rows;
    store_->AbrirLeitura("", {"SELECT * FROM ", zorCrmParvel::fixed(table)}, rows);
    return rows->RecordCount();
  }

  contract_tests::TemporaryFolder folder_;
  std::shared_ptr<zorCrmParvel::Store> store_;
};

}  // namespace sqlserver_tests
