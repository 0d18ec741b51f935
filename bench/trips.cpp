// Round trips that the window's and the terminal's actions cost over a server, counted by the session: they
// are the same whatever the size of the fleet, and each has its limit. The times are those of a server 20 ms
// away.

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include "demo/demo.h"
#include "desktop/list/list_catalog.h"
#include "desktop/start/alert_reading.h"
#include "events/gastos_form.h"
#include "exchange/import.h"
#include "exchange/imports/take_back.h"
#include "exchange/plan/import_plan.h"
#include "exchange/shape/profile_guess.h"
#include "far_fleet.h"
#include "history/act.h"
#include "history/keeping_store.h"
#include "history/settings.h"
#include "history/undo.h"
#include "host/sistema.h"
#include "quiet_host.h"
#include "sqlserver/schema/transfer.h"
#include "vehicles/viaturas_form.h"

namespace {

using namespace zorCrmParvel;
using bench::FarFleet;
using bench::kPlate;

constexpr std::chrono::milliseconds kTrip{20};

/// Rows of the table: what an action costs, against its limit and against what it cost on another fleet.
class Table {
 public:
  void Begin(const std::string& fleet) {
    std::printf("\n%-46s %8s %9s %8s %8s\n", fleet.c_str(), "trips", "seconds", "limit", "rows");
    row_ = 0;
  }
  void Row(const std::string& what, long limit, const FarFleet& fleet, const std::function<void()>& act,
           bool constant = true) {
    Row(what, limit, fleet.traffic(), act, constant);
  }
  void Row(const std::string& what, long limit, const sqlserver::Traffic& traffic,
           const std::function<void()>& act, bool constant = true) {
    const sqlserver::Traffic before = traffic;
    const auto begin = std::chrono::steady_clock::now();
    act();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
    const long trips = traffic.trips - before.trips;
    const bool first = row_ == counted_.size();
    if (first) counted_.push_back(trips);
    const bool same = !constant || counted_[row_] == trips;
    ++row_;
    held_ = held_ && trips <= limit && same;
    std::printf("%-46s %8ld %9.2f %8ld %8ld%s%s\n", what.c_str(), trips, time.count(), limit,
                traffic.rows - before.rows, trips <= limit ? "" : "  PASSED",
                same ? "" : "  GROWS WITH THE FLEET");
  }
  bool held() const { return held_; }

 private:
  std::vector<long> counted_;
  std::size_t row_ = 0;
  bool held_ = true;
};

long last = 0;  // number of the import that was stored last

std::set<std::string> Parts(bool feed) {
  std::set<std::string> parts = {desktop::kStepsPart};
  for (const desktop::ListEntry& entry : desktop::AllLists())
    if (desktop::IsAlertList(entry)) parts.insert(entry.key);
  if (feed) parts.insert(desktop::kFeedPart);
  return parts;
}

/// The parts of the board that rows of some tables can change.
std::set<std::string> PartsOf(const FarFleet& fleet, const store::TableNames& written) {
  std::set<std::string> parts;
  for (const auto& [key, part] : desktop::ReadAlerts(fleet.store(), Parts(false)))
    for (const std::string& table : part.tables)
      if (written.count(table) != 0) parts.insert(key);
  return parts;
}

void Read(const FarFleet& fleet, const std::set<std::string>& parts) {
  for (const auto& [key, part] : desktop::ReadAlerts(fleet.store(), parts)) bench::Require(!part.failure);
}

void OpenFicha(const FarFleet& fleet) {
  Viaturas form;
  form.Load();
  form.mybd = fleet.store();
  form.Edicao = true;
  form.CarregaViatura(kPlate);
}

/// A month's file of a fuel company, after the fills that the fleet has.
std::string Fills(int rows, int vehicles, int month = 1) {
  std::ostringstream file;
  file << "Matricula;Data;TipoGasto;Qtd;ValorUn;Km;Obs\n";
  for (int i = 0; i < rows; ++i)
    file << 'V' << 100000 + i % vehicles << ';' << 1 + i / vehicles % 28 << "-0" << month << "-2095 0"
         << i / vehicles % 10 << ":15;GASOLEO;40,5;1,659;" << month * 1000000 + i / vehicles * 500
         << ";Posto d'Aveiras\n";
  return file.str();
}

std::string Fines(int rows, int vehicles, int month = 2) {
  std::ostringstream file;
  file << "Matricula;Data;Motorista;ValorMulta;Obs\n";
  for (int i = 0; i < rows; ++i)
    file << 'V' << 100000 + i % vehicles << ";0" << 1 + i % 9 << "-0" << month << "-2026 08:" << 10 + i % 50
         << ";M100000;" << 30 + i << ";\n";
  return file.str();
}

void Import(const FarFleet& fleet, const char* what, const std::string& text, long rows) {
  std::istringstream file(text);
  std::ostringstream report;
  const auto target = exchange::MakeImportTarget(what, fleet.store());
  const auto result = exchange::ImportCsv(*fleet.store(), *target, file, false, report);
  if (result.added != rows) std::printf("%s", report.str().c_str());
  bench::Require(result.added == rows);
}

/// The same with a profile, as the window imports, and taken back.
void ImportWithProfile(const FarFleet& fleet, const std::string& file, const std::string& kind,
                       const std::string& text, long rows) {
  std::ofstream(file) << text;
  exchange::Profile profile = exchange::GuessProfile(*exchange::KindOf(kind), [&] {
    const auto reader = exchange::OpenTable(file);
    std::vector<exchange::TableRow> sample(20);
    for (exchange::TableRow& row : sample) reader->Next(row);
    return sample;
  }());
  profile.name = kind;
  profile.dateOrder = exchange::DateOrder::kDayFirst;
  profile.decimal = ",";
  exchange::ImportPlan plan(fleet.store(), std::move(profile));
  plan.Load(*exchange::OpenTable(file));
  const auto stored = plan.Store(file, kind, "ana", {}, {});
  if (stored.rows.stored.rows != rows)
    for (std::size_t i = 0; i < 3 && i < plan.size(); ++i) std::printf("%s\n", plan.why(i).reason.c_str());
  bench::Require(stored.rows.stored.rows == rows);
  last = stored.number;
}

void Small(Table& table, const FarFleet& fleet) {
  const DataAccessRef bd(fleet.store());
  Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = bd;
  table.Row("start page with feed", 16, fleet, [&] { Read(fleet, Parts(true)); });
  const auto after = PartsOf(fleet, {"zor_pv_gastos", "zor_pv_viaturas"});
  table.Row("after the ficha of an expense closes", 10, fleet, [&] { Read(fleet, after); });
  table.Row("alert list of inspections", 4, fleet, [&] { Read(fleet, {"AlertasInsp"}); });
  table.Row("alert list of drivers", 4, fleet, [&] { Read(fleet, {"AlertasMot"}); });
  table.Row("feed", 12, fleet, [&] { Read(fleet, {desktop::kFeedPart}); });
  table.Row("ficha of a vehicle, 285 fines and accidents", 16, fleet, [&] { OpenFicha(fleet); });
  const auto kept = std::make_shared<history::KeepingStore>(fleet.store());
  Gastos form;
  form.mybd = DataAccessRef(kept);
  form.TipoMostrar = 1;
  form.Matricula = kPlate;
  form.Load();
  form.Carrega(1);
  const auto save = [&] {
    form.Carrega(1);
    kept->LookAtSettings();
    return [&] {  // as the window presses a button that writes
      history::Act(
          kept.get(), "Gastos: Confirmar", [&] { form.UserPresses(form.botoes.btConf); }, false);
    };
  };
  table.Row("save of an expense, recorded in the history", 6, fleet, save());
  history::Act(kept.get(), "Viaturas: Remover", [&] {
    clViaturas vehicle;
    vehicle.bd = DataAccessRef(kept);
    vehicle.Matricula = kPlate;
    vehicle.Anular();
  });
  table.Row("vehicle with 688 events put back", 45, fleet,
            [&] { history::Undo(kept, kept->LastOperation()); });
  history::WriteSettings(bd, {.records = false});
  table.Row("save of an expense, no history", 6, fleet, save());
  RecordsetRef rows;
  bd->AbrirEdicao("SELECT * FROM zor_PV_Multas WHERE Id=0", rows);
  rows->AddNew();
  rows->Fields("Matricula").SetValue(kPlate);
  table.Row("new numbered row", 1, fleet, [&] { rows->Update(); });
  clGastos expense;
  expense.bd = bd;
  expense.Codigo = kPlate;
  expense.Data = platform::Date::FromParts(2014, 1, 30);
  table.Row("next of 16,000 expenses", 2, fleet, [&] { expense.LerProximo(); });
}

void Large(Table& table) {
  const FarFleet fleet("parvel-bench-trips-import", 500);
  table.Begin("500 vehicles");
  const std::string fills = Fills(5000, 500);
  table.Row("importar gastos, 5,000 rows", 200, fleet, [&] { Import(fleet, "gastos", fills, 5000); });
  table.Row("importar multas, 500 rows", 200, fleet, [&] { Import(fleet, "multas", Fines(500, 500), 500); });
  const bench::Folder folder("parvel-bench-trips-files");
  table.Row("importar gastos with a profile, 5,000 rows", 200, fleet,
            [&] { ImportWithProfile(fleet, folder.File() + ".csv", "gastos", Fills(5000, 500, 2), 5000); });
  table.Row("and taken back", 200, fleet, [&] { exchange::TakeBackImport(fleet.store(), last, {}); });
  table.Row("importar multas with a profile, 500 rows", 200, fleet,
            [&] { ImportWithProfile(fleet, folder.File() + ".csv", "multas", Fines(500, 500, 3), 500); });
  const auto onEmpty = [&](const char* name, const char* what, long limit, const auto& act) {
    const bench::Folder empty(name);
    sqlserver::OpenOptions options;
    options.connection = bench::StandInConnection(empty.File());
    const auto target = sqlserver::Database::Open(options);
    table.Row(what, limit, target->session().traffic(), [&] { act(target); });
  };
  const auto from = embedded::Database::Open(fleet.server().session().Part("Database"));
  onEmpty("parvel-bench-trips-transfer", "transferir, 26,000 rows", 260, [&](const auto& target) {
    sqlserver::Transfer(*from, *target, [](const auto& table) { bench::Require(table.refused.empty()); });
  });
  onEmpty("parvel-bench-trips-demo", "demo, 37,000 rows", 370,
          [](const auto& target) { demo::FillDemo(store::Near(target)); });
}

}  // namespace

int main() {
  const bench::QuietHost host;
  bench::DelayTrips(kTrip);
  Sistema sistema;
  Table table;
  for (const int vehicles : {100, 500, 5000}) {
    const FarFleet fleet("parvel-bench-trips", vehicles);
    table.Begin(std::to_string(vehicles) + " vehicles");
    Small(table, fleet);
  }
  Table large;
  Large(large);
  return table.held() && large.held() ? 0 : 1;
}
