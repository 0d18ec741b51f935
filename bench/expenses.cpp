// A fuel expense saved with the vehicle's figures, and the walk through all expenses, against the same
// statements stepped on SQLite's own interface; then the import of a month's file and a large document's way
// in and out.

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include "baseline.h"
#include "documents/arquivo_digital.h"
#include "embedded/database.h"
#include "embedded/storage/functions.h"
#include "events/gastos_form.h"
#include "exchange/import.h"
#include "host/sistema.h"
#include "masterdata/tipos_gastos.h"
#include "quiet_host.h"
#include "rivals.h"
#include "vehicles/viaturas.h"

namespace {

using namespace zorCrmParvel;

/// A database with `vehicles` vehicles of `expenses` fuel fills each, V10000 the first.
class Fleet {
 public:
  Fleet(const std::string& name, int vehicles, int expenses)
      : folder_(name), database_(embedded::Database::Open(folder_.File())) {
    clTiposGastos type;
    type.bd = database_;
    type.Codigo = "GASOLEO";
    type.Combustivel = 1;
    type.Escrever();
    {
      embedded::Database::Batch batch(*database_);
      clViaturas vehicle;
      vehicle.bd = database_;
      for (int i = 0; i < vehicles; ++i) {
        vehicle.Matricula = "V" + std::to_string(10000 + i);
        vehicle.Escrever();
      }
      batch.Commit();
    }
    connection_ = bench::Connect(folder_.File());
    embedded::RegisterFunctions(connection_.get());
    const std::string sql = "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
                            std::to_string(vehicles * expenses) +
                            ") INSERT INTO zor_PV_Gastos (Matricula, Motorista, Obs, Data, Viagem, Qtd, Km, "
                            "ValorUn, Custo, TipoGasto) "
                            "SELECT 'V' || (10000 + i / " +
                            std::to_string(expenses) + "), '0001', 'Posto da A1', 3600000000 + (i % " +
                            std::to_string(expenses) + ") * 86400, '', 400000, (i % " +
                            std::to_string(expenses) + ") * 5000000, 16590, 663600, 'GASOLEO' FROM n";
    bench::Require(sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
    form_.mybd = database_;
    form_.TipoMostrar = 1;
    form_.Matricula = "V10000";
    form_.Load();
    form_.Carrega(1);
  }

  embedded::Database& database() { return *database_; }
  std::shared_ptr<embedded::Database> shared() { return database_; }
  sqlite3* connection() { return connection_.get(); }

  /// The record in hand confirmed, as the ficha does it.
  void SaveByFicha() {
    form_.Carrega(1);
    form_.UserPresses(form_.botoes.btConf);
  }

 private:
  bench::Folder folder_;
  std::shared_ptr<embedded::Database> database_;
  bench::ConnectionPtr connection_;
  Gastos form_;
};

/// The statements of a save, prepared once; of the rows that are summed up only what the sums need is taken.
class SaveByStatements {
 public:
  explicit SaveByStatements(sqlite3* connection)
      : expense_(bench::Prepare(connection, "SELECT * FROM zor_PV_Gastos WHERE Gst_Id = 1")),
        writeExpense_(bench::Prepare(
            connection,
            "UPDATE zor_PV_Gastos SET Motorista='0001', Obs='Posto da A1', Data=3600000000, Viagem='', "
            "Qtd=400000, Km=0, ValorUn=16590, Custo=663600, TipoGasto='GASOLEO' WHERE rowid = 1")),
        expenses_(bench::Prepare(
            connection,
            "SELECT * FROM zor_PV_Gastos g JOIN zor_PV_TiposGastos t ON t.Codigo = g.TipoGasto "
            "WHERE g.Matricula = 'V10000' ORDER BY g.Data DESC")),
        accessories_(
            bench::Prepare(connection, "SELECT * FROM zor_PV_Acessorios WHERE Matricula = 'V10000'")),
        inspections_(bench::Prepare(connection, "SELECT * FROM zor_PV_Inspecoes WHERE Matricula = 'V10000'")),
        vehicle_(bench::Prepare(connection, "SELECT * FROM zor_PV_Viaturas WHERE Matricula = 'V10000'")),
        make_(bench::Prepare(connection, "SELECT Codigo, Nome FROM zor_PV_Marcas WHERE Codigo = ''")),
        writeVehicle_(bench::Prepare(connection, VehicleUpdate().c_str())) {}

  void operator()() const {
    bench::StepThrough(expense_.get());  // the record is shown, with its vehicle and make
    bench::StepThrough(vehicle_.get());
    bench::StepThrough(make_.get());
    bench::StepThrough(expense_.get());
    bench::StepThrough(writeExpense_.get());
    bench::StepThrough(expenses_.get(), {"Qtd", "Km", "Custo", "Combustivel"});
    bench::StepThrough(accessories_.get(), {"Custo"});
    bench::StepThrough(inspections_.get(), {"Custo"});
    bench::StepThrough(vehicle_.get());
    bench::StepThrough(vehicle_.get());
    bench::StepThrough(writeVehicle_.get());
  }

 private:
  static std::string VehicleUpdate() {
    std::string sql = "UPDATE zor_PV_Viaturas SET Marca='', KmActual=5000000";
    for (const char* column : {"Modelo", "Categoria", "Departamento", "NoMotor", "Cilindrada", "CompLeasing",
                               "NoContrato", "Obs", "NoChassis"})
      sql += std::string(", ") + column + "=''";
    for (const char* column : {"KmInicial", "CustoMedioKmC", "ValorInicial", "ValorResidual", "Mensalidade",
                               "CustoMedioKmT", "QtdInicial", "CustoTotal", "Media", "KmPrxRev"})
      sql += std::string(", ") + column + "=1";
    return sql + " WHERE rowid = 1";
  }

  bench::StatementPtr expense_, writeExpense_, expenses_, accessories_, inspections_, vehicle_, make_,
      writeVehicle_;
};

/// LerProximo's statement and its count, as the engine compiles them: the count by its index, the rows in
/// their order.
class StepByStatements {
 public:
  StepByStatements(sqlite3* connection, const std::string& compare, const std::string& order)
      : rows_(bench::Prepare(connection,
                             ("SELECT * FROM zor_PV_Gastos WHERE " + Key("?1", compare) + order).c_str())),
        count_(bench::Prepare(
            connection, ("SELECT count(*) FROM zor_PV_Gastos WHERE " + Key(kPadding, compare)).c_str())) {
    sqlite3_bind_text(rows_.get(), 1, kPadding + 1, 16, SQLITE_STATIC);
  }

  void operator()() const {
    sqlite3_int64 id = 0;
    for (int i = 0; i < 2 && sqlite3_step(rows_.get()) == SQLITE_ROW; ++i)
      id = sqlite3_column_int64(rows_.get(), 0);
    bench::Require(sqlite3_step(count_.get()) == SQLITE_ROW && id > 0);
    sqlite3_reset(count_.get());
    sqlite3_reset(rows_.get());
  }

 private:
  static constexpr const char* kPadding = "'000000000000000 '";
  static std::string Key(const std::string& padding, const std::string& compare);
  bench::StatementPtr rows_, count_;
};

std::string StepByStatements::Key(const std::string& padding, const std::string& compare) {
  return "(sv_left(Matricula || " + padding + ", 15) || sv_date_text(Data, 102)) COLLATE SERVER " + compare +
         " 'V100000000000002014.01.30'";
}

long PeakKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
  return 0;
}

void ResetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

/// A month's file of a fuel company: `rows` fills of 1,000 vehicles, after those that the fleet has.
std::string MonthFile(int rows) {
  std::ostringstream file;
  file << "Matricula;Data;TipoGasto;Qtd;ValorUn;Km;Obs\n";
  for (int i = 0; i < rows; ++i)
    file << 'V' << 10000 + i % 1000 << ';' << 1 + i / 1000 % 28 << "-0" << 1 + i / 28000 << "-2095 0"
         << i / 1000 % 10 << ":15;GASOLEO;40,5;1,659;" << 1000000 + i / 1000 * 500 << ";Posto da A1\n";
  return file.str();
}

/// True when it is fast enough.
bool Import(Fleet& fleet, int rows) {
  constexpr double kLeastRowsASecond = 20000;
  std::istringstream file(MonthFile(rows));
  std::ofstream report("/dev/null");
  const auto target = exchange::MakeImportTarget("gastos", fleet.shared());
  ResetPeak();
  const long before = PeakKilobytes();
  const auto begin = std::chrono::steady_clock::now();
  const auto result = exchange::ImportCsv(fleet.database(), *target, file, false, report);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  std::printf("import of %d rows: %ld added, %ld refused, %.0f rows a second (%.0f), peak memory +%ld kB\n",
              rows, result.added, result.refused, rows / seconds, kLeastRowsASecond,
              PeakKilobytes() - before);
  return rows / seconds >= kLeastRowsASecond;
}

/// True when both ways need less memory than the limit.
bool Document(Fleet& fleet, const bench::Folder& folder) {
  constexpr double kMostTimesItsSize = 2.2;
  bool held = true;
  constexpr long kMegabytes = 200;
  const std::string path = folder.File() + ".pdf";
  {
    std::ofstream file(path, std::ios::binary);
    const std::string megabyte(1 << 20, 'x');
    for (long i = 0; i < kMegabytes; ++i) file << megabyte;
  }
  Cl_ArquivoDigital archive;
  archive.bd = fleet.shared();
  const auto measure = [&](const char* what, const std::function<void()>& act) {
    ResetPeak();
    const long before = PeakKilobytes();
    act();
    const double times = static_cast<double>(PeakKilobytes() - before) / (kMegabytes * 1024.0);
    std::printf("document of %ld MB %s: peak memory +%.2f times its size (%.1f)\n", kMegabytes, what, times,
                kMostTimesItsSize);
    held = held && times < kMostTimesItsSize;
  };
  measure("in", [&] { bench::Require(archive.Add(path, "V10000", 303, 0, "large")); });
  measure("out", [&] { archive.VisalizarDocumento(1, 0, folder.File() + "."); });
  return held;
}

}  // namespace

int main() {
  const bench::QuietHost host;
  Sistema sistema;
  bench::Rivals rivals(40);
  {
    Fleet one("parvel-bench-one-vehicle", 1, 10000);
    const SaveByStatements statements(one.connection());
    rivals.Compare(
        "save, 10,000 expenses / statements", 1.5, 1, [&] { one.SaveByFicha(); }, statements);
  }
  Fleet alone("parvel-bench-alone", 1, 1000);
  Fleet fleet("parvel-bench-fleet", 1000, 1000);
  rivals.Compare(
      "save among 1,000,000 / alone", 1.2, 1, [&] { fleet.SaveByFicha(); }, [&] { alone.SaveByFicha(); });

  clGastos expense;
  expense.bd = fleet.shared();
  expense.Codigo = "V10000";
  expense.Data = platform::Date::FromParts(2014, 1, 30);
  bench::Rivals walk(5);
  walk.Compare(
      "LerProximo / statement and count", 1.2, 1, [&] { expense.LerProximo(); },
      StepByStatements(fleet.connection(), ">=", " ORDER BY Matricula, Data"));
  walk.Compare(
      "LerAnterior / statement and count", 1.2, 1, [&] { expense.LerAnterior(); },
      StepByStatements(fleet.connection(), "<=", " ORDER BY Matricula DESC, Data DESC"));
  const int missed = rivals.Report() | walk.Report();
  Fleet month("parvel-bench-month", 1000, 100);
  Import(month, 10000);  // the program's own pages and plans are not the file's
  const bool fast = Import(month, 100000);
  const bench::Folder folder("parvel-bench-document");
  const bool small = Document(alone, folder);
  return missed != 0 || !fast || !small ? 1 : 0;
}
