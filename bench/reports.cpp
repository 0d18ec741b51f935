// Reports of 2,000 vehicles with 1,000,000 events of ten years: over a year and over all, by the clock and
// against the same figures made of rows stepped on SQLite's own interface. Exit code 1 where a limit is not
// held. `bench_reports NAME` measures one report alone.

#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "embedded/database.h"
#include "embedded/storage/functions.h"
#include "reports/relatorio.h"
#include "reports_baseline.h"

namespace {

using reports::Periodo;
using reports::TipoDeRelatorio;

constexpr int kRuns = 5;
constexpr double kRatio = 1.5;

struct Kind {
  const char* table;
  int rounds;  // events of each vehicle, evenly over the years
  const char* columns;
  const char* values;  // of vehicle v in round r on day d
};

constexpr std::array<Kind, 7> kKinds = {{
    {"zor_PV_Gastos", 400, "Data, Motorista, Viagem, Obs, Qtd, Km, ValorUn, Custo, TipoGasto",
     "d, printf('%04d', v % 500), '', iif(r % 7, '', 'Posto da A1'), iif(r % 4, 450000 + v % 90 * 1000, "
     "10000), iif(r % 4, 100000000 + (r - r / 4) * 8000000 + v * 10, 0), 15000 + r * 5, iif(r % 4, 700000 + "
     "v * 10, "
     "25000), iif(r % 4 = 0, 'PORTAGEM', iif(v % 10, 'GASOLEO', 'ELECTRICO'))"},
    {"zor_PV_Revisoes", 25, "Data, TipoManut, Obs, Km, Custo",
     "d, 'OLEO', '', 100000000 + r * 96000000, 900000"},
    {"zor_PV_Inspecoes", 10, "Data, Obs, Km, Custo", "d, '', 0, 300000"},
    {"zor_PV_Acessorios", 20, "Data, TipoAcessorio, Obs, KmInicial, KmFinal, Qtd, Custo",
     "d, 'PNEUS', '', 0, 0, 40000, 4000000"},
    {"zor_PV_Multas", 15, "Data, Motorista, Obs, ValorMulta", "d, printf('%04d', v % 500), '', 600000"},
    {"zor_PV_Sinistros", 10, "Data, Motorista, Obs, LocalAc, Responsavel, Custo",
     "d, printf('%04d', v % 500), '', 'Porto', 0, 1000000"},
    {"zor_PV_Seguros", 20, "DataInicio, Validade, Apolice, Premio, Inactiva",
     "d, d + 181 * 86400, 'AP' || v, 3000000, 0"},
}};

const Periodo kAll{Periodo::Ano(2017).de, Periodo::Ano(2026).ate};

/// The events of a kind, in the order of days as an office writes them.
std::string Insert(const Kind& kind) {
  const std::string vehicles = std::to_string(bench::kVehicles);
  const std::string days = std::to_string(3640 / kind.rounds);
  return "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " + vehicles + " * " +
         std::to_string(kind.rounds) + "), e(v, r, d) AS (SELECT i % " + vehicles + ", i / " + vehicles +
         ", (" + std::to_string(kAll.de) + " + i / " + vehicles + " * " + days + " + i % " + vehicles +
         " % 9) * 86400 FROM n) INSERT INTO " + kind.table + " (Matricula, " + kind.columns +
         ") SELECT printf('%02d-GJ-%02d', v / 100, v % 100), " + kind.values + " FROM e";
}

void Fill(const std::string& file) {
  const bench::ConnectionPtr connection = bench::Connect(file);
  embedded::RegisterFunctions(connection.get());
  const auto run = [&](const std::string& sql) {
    bench::Require(sqlite3_exec(connection.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
  };
  const auto numbers = [](int count) {
    return "WITH RECURSIVE n(v) AS (SELECT 0 UNION ALL SELECT v + 1 FROM n WHERE v + 1 < " +
           std::to_string(count) + ") ";
  };
  run("INSERT INTO zor_PV_TiposGastos (Codigo, Nome, Combustivel) VALUES ('GASOLEO', 'Gasóleo', 1), "
      "('ELECTRICO', 'Carregamento', 1), ('PORTAGEM', 'Portagem', 0)");
  run(numbers(500) +
      "INSERT INTO zor_Funcionarios (Codigo, Nome) SELECT printf('%04d', v), 'Motorista ' || v "
      "FROM n");
  run(numbers(bench::kVehicles) +
      "INSERT INTO zor_PV_Viaturas (Matricula, Marca, Categoria, Departamento, KmInicial, Combustivel, "
      "Inactiva) SELECT printf('%02d-GJ-%02d', v / 100, v % 100), 'M' || v % 20, 'C' || v % 8, 'D' || v % "
      "12, "
      "0, iif(v % 10, 0, 3), 0 FROM n");
  run("INSERT INTO parvel_FactoresCO2 (TipoGasto, Desde, Kg) VALUES ('GASOLEO', 3000000000, 26800)");
  run("BEGIN");
  for (const Kind& kind : kKinds) run(Insert(kind));
  run("COMMIT");
}

double Seconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
  return times[kRuns / 2];
}

/// What the baseline does for a report.
void Compute(bench::ReportsBaseline& baseline, TipoDeRelatorio kind, const Periodo& period) {
  const Periodo before{period.Anterior().de, period.ate};
  const Periodo history{kAll.de, period.ate};
  switch (kind) {
    case TipoDeRelatorio::kConsumos:
      return baseline.Follow(baseline.Gather({period.de - 92, period.ate}, nullptr), period);
    case TipoDeRelatorio::kCustos:
      return baseline.Months(before, kAll, false);
    case TipoDeRelatorio::kEmissoes:
      return baseline.Months(before, kAll, true);
    case TipoDeRelatorio::kExcepcoes:
      return baseline.Find(baseline.Gather(history, &period), history);
    case TipoDeRelatorio::kQuilometros:
      return baseline.Follow(baseline.Gather(history, nullptr), period);
    case TipoDeRelatorio::kTotal:
      return baseline.Follow(baseline.Gather(history, &period), period);
    case TipoDeRelatorio::kMovimentos:
      break;
  }
  baseline.Follow(baseline.Gather(period, &period), period);
}

/// One report over one period, in turns with its baseline.
bool Measure(const zorCrmParvel::DataAccessRef& database, bench::ReportsBaseline& baseline,
             const reports::TextosDoRelatorio& report, const Periodo& period, double limit) {
  reports::Pedido request;
  request.periodo = period;
  std::vector<double> subjects, baselines;
  for (int i = 0; i < kRuns; ++i) {
    baselines.push_back(Seconds([&] { Compute(baseline, report.tipo, period); }));
    subjects.push_back(Seconds([&] {
      const reports::Relatorio tables = reports::Fazer(database, report.tipo, request);
      bench::Require(report.tipo == TipoDeRelatorio::kExcepcoes || tables.tabelas.front().Quantas() > 0);
    }));
  }
  const double subject = Median(subjects);
  const double ratio = subject / Median(baselines);
  const bool held = subject < limit && ratio <= kRatio;
  std::printf("%-12s %4lld years %8.3f s (%g) %8.3f s %6.2f (%g)%s\n", report.chave,
              static_cast<long long>((period.ate - period.de) / 365), subject, limit, Median(baselines),
              ratio, kRatio, held ? "" : "  PASSED");
  return held;
}

}  // namespace

int main(int count, char** arguments) {
  const bench::Folder folder("parvel_bench_reports");
  const auto database = embedded::Database::Open(folder.File());
  Fill(folder.File());
  const bench::ConnectionPtr connection = bench::Connect(folder.File());
  bench::ReportsBaseline baseline(connection.get());
  bool held = true;
  for (const reports::TextosDoRelatorio& report : reports::Relatorios()) {
    if (count > 1 && std::string(arguments[1]) != report.chave) continue;
    held = Measure(database, baseline, report, Periodo::Ano(2026), 1) && held;
    held = Measure(database, baseline, report, kAll, 2) && held;
  }
  return held ? 0 : 1;
}
