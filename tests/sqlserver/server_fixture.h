#pragma once

#include <gtest/gtest.h>

#include <string>

#include "contract/engines.h"
#include "faults.h"
#include "sqlserver/database.h"
#include "sqlserver/session.h"

namespace sqlserver_tests {

using contract_tests::ErrorOf;
using contract_tests::kSchema;
using contract_tests::NumberOf;
using contract_tests::Table;

/// A database behind ODBC, on a file of its own.
class ServerTest : public testing::Test, protected testing_support::EngineUser {
 protected:
  using EngineUser::Run;

  ServerTest() : EngineUser("PT_") { store_ = Engine().open(folder_); }
  ~ServerTest() override {
    ClearFaults();
    store_.reset();  // before its folder
  }

  static contract_tests::Engine Engine() { return contract_tests::Engines()[2]; }
  sqlserver::Database& database() { return dynamic_cast<sqlserver::Database&>(*store_); }
  sqlserver::Session& session() { return database().session(); }
  long Count(const std::string& table) const { return Open("SELECT * FROM " + table)->RecordCount(); }

  testing_support::TemporaryFolder folder_;
};

}  // namespace sqlserver_tests
