#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "store/store.h"
#include "support/engine_tables.h"
#include "support/temporary_folder.h"

/// The engines that the suite runs over, and what a test of it needs.
namespace contract_tests {

using testing_support::ErrorOf;
using testing_support::NumberOf;
using testing_support::Table;
using testing_support::TemporaryFolder;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Store;

inline const std::string kSchema = testing_support::EngineTables("PT_");

/// A connection string for a SQLite file behind ODBC, and a driver manager that knows the driver.
std::string SqliteConnection(const std::string& file);
/// Such a file, opened by the server's engine.
std::shared_ptr<Store> OpenSqliteFile(const std::string& file);
/// The server of PARVEL_TEST_ODBC; empty without one.
std::string ServerConnection();

struct Engine {
  std::string name;
  /// True when it reads the server's dialect; otherwise plain SQL alone.
  bool speaksTsql;
  /// Why the engine can't be run here; empty when it can.
  std::string missing;
  /// Opens the tables of `kSchema`, empty.
  std::function<std::shared_ptr<Store>(const TemporaryFolder& folder)> open;
};

std::vector<Engine> Engines();
inline void PrintTo(const Engine& engine, std::ostream* out) { *out << engine.name; }

class ContractTest : public testing::TestWithParam<Engine>, protected testing_support::EngineUser {
 protected:
  using EngineUser::Run;

  ContractTest() : EngineUser("PT_") {}
  ~ContractTest() override { store_.reset(); }  // before its folder
  void SetUp() override {
    if (!GetParam().missing.empty()) GTEST_SKIP() << GetParam().missing;
    store_ = GetParam().open(folder_);
  }

  TemporaryFolder folder_;
};

}  // namespace contract_tests
