// A code list of 100,000 rows: opened until its count and its first screen are at hand, and read whole;
// against stepping over the same rows on SQLite's own interface.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>
#include <string>

#include "baseline.h"
#include "embedded/database.h"
#include "rivals.h"

namespace {

constexpr int kRows = 100000;
constexpr std::size_t kScreen = 100;
constexpr const char* kList =
    " SELECT zor_PV_Marcas.Codigo AS Codigo, zor_PV_Marcas.Nome AS Nome from zor_PV_Marcas  Order by "
    "zor_PV_Marcas.Codigo";

/// One file, open in the engine and beside it in SQLite.
class Bench {
 public:
  Bench() : folder_("parvel-bench-lists"), database_(embedded::Database::Open(folder_.File())) {
    bench::FillCodes(folder_.File(), kRows);
    connection_ = bench::Connect(folder_.File());
    list_ = bench::Prepare(connection_.get(), kList);
  }

  void OpenToFirstScreen() {
    const zorCrmParvel::RecordsetRef rows = Open();
    bench::Require(rows->RecordCount() == kRows);
    bench::Require(rows->FetchMore(kScreen) && rows->RowsAtHand() >= kScreen);
    rows->Close();
  }

  void ReadAllCells() {
    const zorCrmParvel::RecordsetRef rows = Open();
    std::size_t characters = 0;
    for (std::size_t row = 0; row < kRows; ++row)
      characters += rows->CellAt(row, 0).block().size() + rows->CellAt(row, 1).block().size();
    benchmark::DoNotOptimize(characters);
    rows->Close();
  }

  void StepOverAll() {
    int rows = 0;
    for (; sqlite3_step(list_.get()) == SQLITE_ROW; ++rows) {
      benchmark::DoNotOptimize(sqlite3_column_text(list_.get(), 0));
      benchmark::DoNotOptimize(sqlite3_column_text(list_.get(), 1));
    }
    bench::Require(rows == kRows);
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

Bench& Shared() {
  static Bench bench;
  return bench;
}

template <void (Bench::*operation)()>
void Run(benchmark::State& state) {
  for (auto _ : state) (Shared().*operation)();
}

BENCHMARK(Run<&Bench::StepOverAll>)->Name("list/step over all")->Unit(benchmark::kMillisecond);
BENCHMARK(Run<&Bench::OpenToFirstScreen>)->Name("list/open to first screen")->Unit(benchmark::kMillisecond);
BENCHMARK(Run<&Bench::ReadAllCells>)->Name("list/read all cells")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  bench::Rivals rivals(20);
  const auto baseline = [] { Shared().StepOverAll(); };
  rivals.Compare(
      "open to first screen / step over all", 1.0, 1, [] { Shared().OpenToFirstScreen(); }, baseline);
  rivals.Compare(
      "read all cells / step over all", 1.5, 1, [] { Shared().ReadAllCells(); }, baseline);
  return rivals.Report();
}
