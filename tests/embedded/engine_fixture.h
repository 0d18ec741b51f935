#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "embedded/database.h"
#include "platform/runtime_error.h"
#include "support/recording_data_access.h"

namespace embedded_tests {

using Table = std::vector<std::vector<std::string>>;
using zorCrmParvel::RecordsetRef;

/// A statement, and "number: words" of the error that it raises.
struct Refusal {
  const char* statement;
  const char* error;
};

/// A column of every type, and a code table.
inline constexpr const char* kSchema = R"(-- versão 3
CREATE TABLE Tudo (
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
  CONSTRAINT PK_Tudo PRIMARY KEY (Id)
);
CREATE TABLE Codigos (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_Codigos PRIMARY KEY (Codigo)
);
CREATE UNIQUE INDEX UX_Codigos ON Codigos (Nome);
)";

inline embedded::OpenOptions Options(const char* schema = kSchema) {
  embedded::OpenOptions options;
  options.schema = schema;
  options.busyTimeout = std::chrono::milliseconds(50);
  options.clock = [] { return platform::Date::FromParts(2024, 3, 1, 12, 0, 0); };
  return options;
}

/// "number: words" of the error that `act` raises; empty when it raises none.
inline std::string ErrorOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const platform::RuntimeError& error) {
    return std::to_string(error.number()) + ": " + error.description();
  }
  return {};
}

class EngineTest : public testing::Test {
 protected:
  void Run(const std::string& statement) { database_->ExecutarSql("", statement.c_str()); }
  RecordsetRef Open(const std::string& statement) const {
    RecordsetRef rows;
    database_->AbrirLeitura("", statement.c_str(), rows);
    return rows;
  }
  RecordsetRef Edit(const std::string& statement) const {
    RecordsetRef rows;
    database_->AbrirEdicao(statement.c_str(), rows);
    return rows;
  }
  Table Rows(const std::string& statement) const {
    return testing_support::Rows(zorCrmParvel::DataAccessRef(database_), statement);
  }
  /// The one value of the first row.
  std::string Value(const std::string& statement) const { return Rows(statement).at(0).at(0); }
  void AddCodes(int count) {
    for (int i = 1; i <= count; ++i) {
      const std::string number = std::to_string(1000 + i);
      std::string statement = "INSERT INTO Codigos (Codigo, Nome) VALUES ('C";
      Run(statement.append(number).append("', 'Nome ").append(number).append("')"));
    }
  }

  std::shared_ptr<embedded::Database> database_ = embedded::Database::Open(":memory:", Options());
};

/// A folder of its own, gone at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "parvel-embedded-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace embedded_tests
