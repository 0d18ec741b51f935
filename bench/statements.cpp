// A code table's record read and written through its entity, against SQLite's own interface on the same file:
// with a statement prepared once, and with one prepared for each call.

#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "embedded/database.h"
#include "masterdata/code_table.h"
#include "operations.h"

namespace {

constexpr int kRows = 5000;
constexpr const char* kRead = "SELECT Codigo, Nome From zor_PV_Marcas WHERE Codigo = ?";
constexpr const char* kWrite = "UPDATE zor_PV_Marcas SET Nome = ? WHERE rowid = ?";

std::string Code(int i) { return "M" + std::to_string(10000 + i % kRows); }

/// One file, open in the engine and beside it in SQLite.
class Bench {
 public:
  Bench() : folder_("parvel-bench-statements"), database_(embedded::Database::Open(folder_.File())) {
    bench::FillCodes(folder_.File(), kRows);
    connection_ = bench::Connect(folder_.File());
    read_ = bench::Prepare(connection_.get(), kRead);
    write_ = bench::Prepare(connection_.get(), kWrite);
    brand_.bd = zorCrmParvel::DataAccessRef(std::shared_ptr<zorCrmParvel::DataAccess>(database_));
  }

  void ReadByEntity() {
    brand_.Codigo = Code(next_++);
    if (!brand_.Ler()) std::abort();
    benchmark::DoNotOptimize(brand_.Descrição);
  }

  void ReadPrepared() { Read(read_.get()); }

  void ReadPreparingEachTime() { Read(bench::Prepare(connection_.get(), kRead).get()); }

  /// A statement with a list of that many values.
  template <int Values>
  void ReadAmong() {
    std::string statement = "SELECT Nome From zor_PV_Marcas WHERE Codigo IN ('" + Code(0) + "'";
    for (int i = 1; i < Values; ++i) statement.append(", 'x").append(std::to_string(i)).append("'");
    zorCrmParvel::RecordsetRef rows;
    brand_.bd->AbrirLeitura("", (statement + ")").c_str(), rows);
    if (rows->RecordCount() != 1) std::abort();
    rows->Close();
  }

  void WriteByEntity() {
    brand_.Codigo = Code(next_++);
    brand_.Descrição = "Marca " + std::to_string(next_);
    brand_.Escrever();
  }

  void WritePrepared() {
    const std::string name = "Marca " + std::to_string(next_);
    const sqlite3_int64 row = Read(read_.get());
    sqlite3_bind_text(write_.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    sqlite3_bind_int64(write_.get(), 2, row);
    if (sqlite3_step(write_.get()) != SQLITE_DONE) std::abort();
    sqlite3_reset(write_.get());
  }

 private:
  sqlite3_int64 Read(sqlite3_stmt* statement) {
    const int number = next_++;
    const std::string code = Code(number);
    sqlite3_bind_text(statement, 1, code.data(), static_cast<int>(code.size()), SQLITE_STATIC);
    if (sqlite3_step(statement) != SQLITE_ROW) std::abort();
    name_.assign(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)));
    benchmark::DoNotOptimize(name_);
    sqlite3_reset(statement);
    return number % kRows + 1;
  }

  bench::Folder folder_;
  std::shared_ptr<embedded::Database> database_;
  bench::ConnectionPtr connection_;
  bench::StatementPtr read_;
  bench::StatementPtr write_;
  zorCrmParvel::clMarcas brand_;
  std::string name_;
  int next_ = 0;
};

using bench::Operation;
using bench::Run;

BENCHMARK(Run<&Bench::ReadPrepared>)->Name("read/prepared");
BENCHMARK(Run<&Bench::ReadPreparingEachTime>)->Name("read/preparing each time");
BENCHMARK(Run<&Bench::ReadByEntity>)->Name("read/entity");
BENCHMARK(Run<&Bench::WritePrepared>)->Name("write/prepared");
BENCHMARK(Run<&Bench::WriteByEntity>)->Name("write/entity");

}  // namespace

int main(int argc, char** argv) {
  return bench::Main(argc, argv, 200, [](bench::Rivals& rivals) {
    constexpr Operation<&Bench::ReadByEntity> read{};
    rivals.Compare("Ler / prepared statement", 1.5, 400, read, Operation<&Bench::ReadPrepared>());
    rivals.Compare("Ler / preparing each time", 1.0, 400, read, Operation<&Bench::ReadPreparingEachTime>());
    rivals.Compare("Escrever / prepared statements", 1.5, 1, Operation<&Bench::WriteByEntity>(),
                   Operation<&Bench::WritePrepared>());
    rivals.Compare("20,000 values in a list / 5,000", 5.0, 1, Operation<&Bench::ReadAmong<20000>>(),
                   Operation<&Bench::ReadAmong<5000>>());
  });
}
