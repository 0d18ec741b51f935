#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/store.h"
#include "platform/runtime_error.h"

/// The engines that the suite runs over, and what a test of it needs.
namespace contract_tests {

using Table = std::vector<std::vector<std::string>>;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Store;

/// A column of every type, and a code table.
inline constexpr const char* kSchema = R"(-- versão 1
CREATE TABLE PT_Tudo (
  Id int IDENTITY(1,1) NOT NULL,
  Nome nvarchar(10) NULL,
  Notas nvarchar(max) NULL,
  Activa bit NULL,
  Ano smallint NULL,
  Km int NULL,
  Valor money NULL,
  Razao float NULL,
  Data datetime NULL,
  Foto varbinary(max) NULL,
  CONSTRAINT PK_PT_Tudo PRIMARY KEY (Id)
);
CREATE TABLE PT_Codigos (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_PT_Codigos PRIMARY KEY (Codigo)
);
CREATE UNIQUE INDEX UX_PT_Codigos ON PT_Codigos (Nome);
)";

/// A folder of its own, gone at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

/// A connection string for a SQLite file behind ODBC, and a driver manager that knows the driver.
std::string SqliteConnection(const std::string& file);
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

/// "number: words" of the error that `act` raises; empty when it raises none.
std::string ErrorOf(const std::function<void()>& act);
/// The number alone.
int NumberOf(const std::function<void()>& act);

class ContractTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override;
  void Run(const std::string& statement) { store_->ExecutarSql("", statement.c_str()); }
  RecordsetRef Open(const std::string& statement) const;
  RecordsetRef Edit(const std::string& statement) const;
  Table Rows(const std::string& statement) const;
  void AddCodes(int count);

  TemporaryFolder folder_;
  std::shared_ptr<Store> store_;
};

}  // namespace contract_tests
