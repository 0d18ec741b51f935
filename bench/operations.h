#pragma once

#include <benchmark/benchmark.h>

#include "baseline.h"
#include "host/data_access.h"
#include "rivals.h"

/// What the benches of a code table share: their operations are members of one object, which is made when it
/// is first asked for.
namespace bench {

constexpr int kListRows = 100000;
constexpr const char* kList =
    " SELECT zor_PV_Marcas.Codigo AS Codigo, zor_PV_Marcas.Nome AS Nome from zor_PV_Marcas  Order by "
    "zor_PV_Marcas.Codigo";

inline void ReadAllCells(const zorCrmParvel::RecordsetRef& rows) {
  std::size_t characters = 0;
  for (std::size_t row = 0; row < kListRows; ++row)
    characters += rows->CellAt(row, 0).block().size() + rows->CellAt(row, 1).block().size();
  benchmark::DoNotOptimize(characters);
  rows->Close();
}

template <typename Bench>
Bench& Shared() {
  static Bench bench;
  return bench;
}

template <auto operation>
struct Operation;

template <typename Bench, void (Bench::*operation)()>
struct Operation<operation> {
  void operator()() const { (Shared<Bench>().*operation)(); }
};

template <auto operation>
void Run(benchmark::State& state) {
  for (auto _ : state) Operation<operation>()();
}

/// Runs the benchmarks that the arguments choose, then the rivals that `compare` gives; the exit code tells
/// whether a limit was passed.
template <typename Compare>
int Main(int argc, char** argv, int samples, const Compare& compare) {
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  Rivals rivals(samples);
  compare(rivals);
  return rivals.Report();
}

}  // namespace bench
