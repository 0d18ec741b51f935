// A code list of 100,000 rows over ODBC: opened, which reads it whole, and each cell looked at; against a
// bare loop of SQLFetch with bound columns over the same driver (SQLite's, which Debian has).

#include <array>
#include <memory>
#include <string>

#include "operations.h"
#include "sqlserver/database.h"
#include "sqlserver/session.h"
#include "sqlserver/utf16.h"

namespace {

using bench::kList;
using bench::kListRows;
using bench::Operation;
using bench::Run;

constexpr std::size_t kWidest = 51;

/// The baseline's own connection, set up with nothing.
class BareConnection {
 public:
  explicit BareConnection(const std::string& text)
      : environment_(SQL_HANDLE_ENV, SQL_NULL_HANDLE), connection_(SQL_HANDLE_DBC, Prepared()) {
    std::u16string wide = sqlserver::ToUtf16(text);
    connection_.Check(SQLDriverConnectW(connection_.get(), nullptr, sqlserver::Wide(wide),
                                        static_cast<SQLSMALLINT>(wide.size()), nullptr, 0, nullptr,
                                        SQL_DRIVER_NOPROMPT));
  }
  ~BareConnection() { SQLDisconnect(connection_.get()); }
  BareConnection(const BareConnection&) = delete;
  BareConnection& operator=(const BareConnection&) = delete;
  const sqlserver::Handle& get() const { return connection_; }

 private:
  SQLHANDLE Prepared() const {
    environment_.Check(SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION,
                                     reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
    return environment_.get();
  }

  sqlserver::Handle environment_;
  sqlserver::Handle connection_;
};

class Bench {
 public:
  Bench() : folder_("parvel-bench-odbc"), database_(Fill(Text())), bare_(Text()) {}

  void ReadAllCells() {
    zorCrmParvel::RecordsetRef rows;
    database_->AbrirLeitura("", kList, rows);
    bench::Require(rows->RecordCount() == kListRows);
    bench::ReadAllCells(rows);
  }

  void FetchAll() {
    const sqlserver::OdbcStatement statement(bare_.get());
    statement.Execute(kList);
    std::array<std::array<SQLWCHAR, kWidest>, 2> texts{};
    std::array<SQLLEN, 2> lengths{};
    for (SQLUSMALLINT i = 0; i < 2; ++i)
      statement.Check(SQLBindCol(statement.get(), static_cast<SQLUSMALLINT>(i + 1), SQL_C_WCHAR,
                                 texts[i].data(), sizeof texts[i], &lengths[i]));
    int rows = 0;
    for (; SQL_SUCCEEDED(SQLFetch(statement.get())); ++rows) benchmark::DoNotOptimize(texts);
    bench::Require(rows == kListRows);
  }

 private:
  std::string Text() const { return "Driver=SQLite3;Database=" + folder_.File(); }

  static std::shared_ptr<sqlserver::Database> Fill(const std::string& connection) {
    sqlserver::OpenOptions options;
    options.connection = connection;
    auto database = sqlserver::Database::Open(options);
    sqlserver::Parameters none;
    database->session().Write(
        "CREATE TABLE zor_PV_Marcas (Codigo nvarchar(10) NOT NULL PRIMARY KEY, Nome nvarchar(50))", none);
    database->session().Write(bench::CodesToInsert(kListRows), none);
    return database;
  }

  bench::Folder folder_;
  std::shared_ptr<sqlserver::Database> database_;
  BareConnection bare_;
};

BENCHMARK(Run<&Bench::FetchAll>)->Name("odbc/fetch all")->Unit(benchmark::kMillisecond);
BENCHMARK(Run<&Bench::ReadAllCells>)->Name("odbc/read all cells")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  return bench::Main(argc, argv, 20, [](bench::Rivals& rivals) {
    rivals.Compare("read all cells / fetch all", 1.3, 1, Operation<&Bench::ReadAllCells>(),
                   Operation<&Bench::FetchAll>());
  });
}
