// A code list of 100,000 rows: opened until its count and its first screen are at hand, and read whole;
// against stepping over the same rows on SQLite's own interface.

#include <sqlite3.h>

#include <memory>

#include "embedded/database.h"
#include "operations.h"

namespace {

using bench::kList;
using bench::kListRows;
using bench::Operation;
using bench::Run;

constexpr std::size_t kScreen = 100;

/// One file, open in the engine and beside it in SQLite.
class Bench {
 public:
  Bench() : folder_("parvel-bench-lists"), database_(embedded::Database::Open(folder_.File())) {
    bench::FillCodes(folder_.File(), kListRows);
    connection_ = bench::Connect(folder_.File());
    list_ = bench::Prepare(connection_.get(), kList);
  }

  void OpenToFirstScreen() {
    const zorCrmParvel::RecordsetRef rows = Open();
    bench::Require(rows->RecordCount() == kListRows);
    bench::Require(rows->FetchMore(kScreen) && rows->RowsAtHand() >= kScreen);
    rows->Close();
  }

  void ReadAllCells() { bench::ReadAllCells(Open()); }

  void StepOverAll() {
    int rows = 0;
    for (; sqlite3_step(list_.get()) == SQLITE_ROW; ++rows) {
      benchmark::DoNotOptimize(sqlite3_column_text(list_.get(), 0));
      benchmark::DoNotOptimize(sqlite3_column_text(list_.get(), 1));
    }
    bench::Require(rows == kListRows);
    sqlite3_reset(list_.get());
  }

 private:
  zorCrmParvel::RecordsetRef Open() {
    zorCrmParvel::RecordsetRef rows;
    database_->AbrirLeitura("", kList, rows);
    return rows;
  }

  bench::Folder folder_;
  std::shared_ptr<embedded::Database> database_;
  bench::ConnectionPtr connection_;
  bench::StatementPtr list_;
};

BENCHMARK(Run<&Bench::StepOverAll>)->Name("list/step over all")->Unit(benchmark::kMillisecond);
BENCHMARK(Run<&Bench::OpenToFirstScreen>)->Name("list/open to first screen")->Unit(benchmark::kMillisecond);
BENCHMARK(Run<&Bench::ReadAllCells>)->Name("list/read all cells")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  return bench::Main(argc, argv, 20, [](bench::Rivals& rivals) {
    constexpr Operation<&Bench::StepOverAll> baseline{};
    rivals.Compare("open to first screen / step over all", 1.0, 1, Operation<&Bench::OpenToFirstScreen>(),
                   baseline);
    rivals.Compare("read all cells / step over all", 1.5, 1, Operation<&Bench::ReadAllCells>(), baseline);
  });
}
