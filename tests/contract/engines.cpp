#include "engines.h"

#include <cstdlib>
#include <fstream>

#include "embedded/database.h"
#include "sqlserver/database.h"
#include "sqlserver/schema/schema_script.h"
#include "sqlserver/session.h"
#include "store/near_store.h"

namespace contract_tests {
namespace {

// The same columns as SQLite declares them; money is kept as text, which alone holds its whole range there.
constexpr const char* kSqliteTables[] = {
    "CREATE TABLE PT_Tudo (Id INTEGER PRIMARY KEY AUTOINCREMENT, Nome nvarchar(10), Notas nvarchar(99999), "
    "Activa bit, Ano smallint, Km int, Valor moneychar, Razao float, Data datetime, Foto varbinary(99999))",
    "CREATE TABLE PT_Codigos (Codigo nvarchar(10) NOT NULL PRIMARY KEY, Nome nvarchar(50) UNIQUE)"};

/// Tells the driver manager of the SQLite driver in a folder of the test's own, unless a server is tested,
/// whose driver the machine's own configuration names.
class DriverManager {
 public:
  DriverManager() {
    if (!ServerConnection().empty()) return;
    std::ofstream(folder_.File("odbcinst.ini")) << "[SQLite3]\nDriver=libsqlite3odbc.so\n";
    setenv("ODBCSYSINI", folder_.File("").c_str(), 1);
    setenv("ODBCINSTINI", "odbcinst.ini", 1);
  }

 private:
  TemporaryFolder folder_;
};

std::shared_ptr<Store> OpenEmbedded(const TemporaryFolder& /*folder*/) {
  embedded::OpenOptions options;
  options.schema = kSchema;
  return embedded::Database::Open(":memory:", options);
}

/// Asks whatever is read twice within a snapshot, so that the tables taken over into memory answer it.
class AskedTwice : public store::NearStore {
 public:
  using NearStore::NearStore;

 protected:
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override {
    const zorCrmParvel::Snapshot snapshot(std::shared_ptr<Store>(this, [](Store*) {}));
    NearStore::OpenForReading(statement + " ");
    return NearStore::OpenForReading(statement);
  }
};

std::shared_ptr<Store> OpenNear(const TemporaryFolder& folder) {
  return std::make_shared<AskedTwice>(OpenEmbedded(folder), kSchema);
}

sqlserver::OpenOptions OptionsFor(const std::string& connection) {
  sqlserver::OpenOptions options;
  options.connection = connection;
  options.schema = kSchema;
  const char* password = std::getenv("PARVEL_SENHA");
  options.password = password == nullptr ? "" : password;
  return options;
}

std::shared_ptr<Store> OpenSqlite(const TemporaryFolder& folder) {
  auto database = OpenSqliteFile(folder.File("contrato.db"));
  sqlserver::Parameters none;
  for (const char* table : kSqliteTables)
    dynamic_cast<sqlserver::Database&>(*database).session().Write(table, none);
  return database;
}

std::shared_ptr<Store> OpenServer(const TemporaryFolder& /*folder*/) {
  auto database = sqlserver::Database::Open(OptionsFor(ServerConnection()));
  sqlserver::CreateLackingTables(*database, kSchema);
  for (const char* table : {"PT_Tudo", "PT_Codigos"})
    database->ExecutarSql("", {"DELETE FROM ", zorCrmParvel::fixed(table)});
  return database;
}

}  // namespace

std::string SqliteConnection(const std::string& file) {
  static const DriverManager manager;
  return "Driver=SQLite3;Database=" + file;
}

std::shared_ptr<Store> OpenSqliteFile(const std::string& file) {
  return sqlserver::Database::Open(OptionsFor(SqliteConnection(file)));
}

std::string ServerConnection() {
  const char* connection = std::getenv("PARVEL_TEST_ODBC");
  return connection == nullptr ? "" : connection;
}

std::vector<Engine> Engines() {
  const std::string noServer = ServerConnection().empty()
                                   ? "PARVEL_TEST_ODBC names no server: its own dialect is not tested here."
                                   : "";
  return {{"Embedded", true, "", &OpenEmbedded},
          {"NearMemory", true, "", &OpenNear},
          {"OdbcSqlite", false, "", &OpenSqlite},
          {"OdbcServer", true, noServer, &OpenServer}};
}

}  // namespace contract_tests
