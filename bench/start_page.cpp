// What the window's start page asks of the module: the feed and the counts of the six alert lists; on a fleet
// of 10,000 vehicles within a second, also where the feed finds nothing and reads every table to its end, and
// in proportion to the rows on larger ones.

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "alert_fleet.h"
#include "alerts/alert_list.h"
#include "host/sistema.h"
#include "quiet_host.h"

namespace {

using namespace zorCrmParvel;

constexpr const char* kLists[] = {"AlertasAp",    "AlertasRev", "AlertasInsp",
                                  "AlertasAcess", "AlertasMot", "AlertasViat"};
constexpr double kSecond = 1000;  // milliseconds
/// The time of a row on a hundred times as many rows, which no cache of the processor holds, against that on
/// few. A cost that grew with the rows would be far above it.
constexpr double kGrowth = 1.6;

double Milliseconds(const std::function<void()>& act) {
  const auto begin = std::chrono::steady_clock::now();
  act();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// The number of families that have something due.
long Feed(Sistema& sistema) {
  const auto rows = platform::MakeRef<platform::MemoryRecordset>();
  for (const char* field : {"APLICACAO", "Entidade", "Texto"})
    rows->Append(field, platform::FieldType::kText, 50);
  rows->Open();
  RecordsetRef alerts = rows;
  sistema.ICrmSistema_AlertasAdd(alerts);
  return alerts->RecordCount();
}

/// The best of three times for the whole page; each part's is printed.
double Measure(const char* what, const bench::AlertFleet& fleet) {
  Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = fleet.database();
  double best = 0;
  std::string parts;
  for (int round = 0; round < 3; ++round) {
    double all = 0;
    std::string told;
    const auto part = [&](const char* name, const std::function<long()>& act) {
      long rows = 0;
      const double time = Milliseconds([&] { rows = act(); });
      all += time;
      char line[80];
      std::snprintf(line, sizeof line, "  %s(%ld) %.0f", name, rows, time);
      told += line;
    };
    part("feed", [&] { return Feed(sistema); });
    for (const char* key : kLists)
      part(key, [&] {
        const auto list = sistema.MostraListas(key);
        return dynamic_cast<AlertList&>(*list).Contar().linhas;
      });
    if (round == 0 || all < best) {
      best = all;
      parts = told;
    }
  }
  std::printf("%-42s %8.0f ms %s\n", what, best, parts.c_str());
  return best;
}

}  // namespace

int main() {
  const bench::QuietHost host;
  bool held = true;
  {
    const bench::AlertFleet fleet("parvel-bench-start-due", {10000, 10000, 50000, 50000, true});
    held = Measure("10,000 vehicles, a tenth due", fleet) <= kSecond && held;
  }
  {
    const bench::AlertFleet fleet("parvel-bench-start-quiet", {10000, 10000, 50000, 50000, false});
    held = Measure("10,000 vehicles, the feed to its end", fleet) <= kSecond && held;
  }
  double first = 0;
  for (const int rows : {1000, 10000, 100000}) {
    const bench::AlertFleet fleet("parvel-bench-start-rows", {rows, rows, rows, rows, true});
    const double time = Measure(("each table " + std::to_string(rows)).c_str(), fleet) / rows;
    if (first == 0) first = time;
    held = held && time <= first * kGrowth;
    std::printf("  %.2f us a row\n", time * 1000);
  }
  return held ? 0 : 1;
}
