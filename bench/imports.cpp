// A fuel company's CSV through a profile: rows stored a second, the time from the file to the preview, and
// how memory grows with the rows. Exit code 1 where a limit is not held.

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>

#include "baseline.h"
#include "embedded/database.h"
#include "exchange/plan/import_plan.h"
#include "masterdata/tipos_gastos.h"
#include "quiet_host.h"
#include "vehicles/viaturas.h"

namespace {

constexpr int kVehicles = 500;
constexpr double kRowsASecond = 40000;   // stored, of the whole: read, checked, stored, kept
constexpr double kPreviewSeconds = 1.0;  // from the file read to the states of all its rows

double Since(std::chrono::steady_clock::time_point begin) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// The most memory that the process has had, in MB.
double PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

std::string PlateOf(int vehicle) {
  const std::string number = std::to_string(1000 + vehicle);
  return number.substr(0, 2) + "-" + number.substr(2) + "-XA";
}

/// Fills of 500 vehicles, in the order of their dates, in the columns of the company.
void WriteStatement(const std::string& file, int rows) {
  std::ofstream out(file, std::ios::binary);
  out << "Cartão;Viatura;Data;Hora;Produto;Litros;Valor c/ IVA;Quilómetros;Posto;Documento\n";
  for (int i = 0; i < rows; ++i) {
    const int day = i / kVehicles;
    char line[200];
    std::snprintf(
        line, sizeof line,
        "7824%06d;%s;%02d/%02d/%d;%02d:%02d;GASOLEO RODOV;%d,%02d;%d,%02d;%d;Posto número %d;FT %d\n",
        i % kVehicles, PlateOf(i % kVehicles).c_str(), day % 28 + 1, day / 28 % 12 + 1, 2001 + day / 336,
        i % 24, i % 60, 40 + i % 20, i % 100, 60 + i % 30, i % 100, 1000 + day * 400, i % 400, i);
    out << line;
  }
}

exchange::Profile ProfileOf() {
  exchange::Profile profile;
  profile.name = "Cartão";
  profile.kind = "gastos";
  profile.separator = ";";
  profile.decimal = ",";
  profile.dateOrder = exchange::DateOrder::kDayFirst;
  const auto map = [&](const char* target, int position) {
    profile.At(target).pieces.push_back({.header = {}, .position = position});
  };
  map("Matricula", 1);
  map("Data", 2);
  map("Data", 3);
  map("TipoGasto", 4);
  map("Qtd", 5);
  map("Custo", 6);
  map("Km", 7);
  map("Obs", 8);
  profile.learned["TipoGasto"]["gasoleo rodov"] = "GASOLEO";
  return profile;
}

void AddFleet(const std::shared_ptr<embedded::Database>& database) {
  embedded::Database::Batch batch(*database);
  zorCrmParvel::clTiposGastos type;
  type.bd = database;
  type.Codigo = "GASOLEO";
  type.Combustivel = 1;
  type.Escrever();
  zorCrmParvel::clViaturas vehicle;
  vehicle.bd = database;
  for (int i = 0; i < kVehicles; ++i) {
    vehicle.Matricula = PlateOf(i);
    vehicle.Escrever();
  }
  batch.Commit();
}

double ReadAlone(const std::string& file, int rows) {
  const auto begin = std::chrono::steady_clock::now();
  const auto table = exchange::OpenTable(file);
  long read = 0;
  for (exchange::TableRow row; table->Next(row);) ++read;
  bench::Require(read == rows + 1);
  return Since(begin);
}

struct Times {
  double load, check, store, again;
};

Times Import(const std::string& file, const std::string& folder, int rows) {
  const auto database = embedded::Database::Open(folder);
  AddFleet(database);
  Times times{};
  auto begin = std::chrono::steady_clock::now();
  exchange::ImportPlan plan(database, ProfileOf());
  plan.Load(*exchange::OpenTable(file));
  times.load = Since(begin);
  begin = std::chrono::steady_clock::now();
  plan.Check();
  times.check = Since(begin);
  bench::Require(plan.Sums().stored.rows == rows);
  begin = std::chrono::steady_clock::now();
  const auto stored = plan.Store("b.csv", "soma", "ana");
  times.store = Since(begin);
  bench::Require(stored.rows.stored.rows == rows);
  begin = std::chrono::steady_clock::now();
  exchange::ImportPlan second(database, ProfileOf());
  second.Load(*exchange::OpenTable(file));
  second.Check();
  bench::Require(second.Sums().known.rows == rows);
  times.again = Since(begin);
  return times;
}

}  // namespace

/// `bench_imports [rows]`; `--escrever FILE ROWS` only writes the file, in a process whose memory doesn't
/// count.
int main(int count, char** arguments) {
  if (count == 4) {
    WriteStatement(arguments[2], std::atoi(arguments[3]));
    return 0;
  }
  const bench::QuietHost host;
  const int rows = count == 2 ? std::atoi(arguments[1]) : 100000;
  const bench::Folder folder("parvel_bench_imports");
  const std::string file = std::filesystem::path(folder.File()).parent_path() / "b.csv";
  bench::Require(
      std::system((std::string(arguments[0]) + " --escrever " + file + " " + std::to_string(rows)).c_str()) ==
      0);
  const double alone = ReadAlone(file, rows);
  const double before = PeakMemory();
  const Times times = Import(file, folder.File(), rows);
  const double speed = rows / times.store;
  std::printf(
      "Import of %d rows: the file alone %.3f s; to the preview %.3f s and %.3f s (%.1f); stored %.3f s, "
      "%.0f rows a second "
      "(%.0f), %.1f times the file; a second run %.3f s; memory %.0f MB more\n",
      rows, alone, times.load, times.check, kPreviewSeconds, times.store, speed, kRowsASecond,
      (times.load + times.store) / alone, times.again, PeakMemory() - before);
  return speed >= kRowsASecond && times.check <= kPreviewSeconds ? 0 : 1;
}
