// The events of a vehicle: a list of 100,000 of them, a list of 20,000 vehicles, a revision saved on a
// vehicle with 10,000 events of each kind, and the ficha of a vehicle with 10,000 events opened in the
// window; against the same statements stepped on SQLite's own interface.

#include <sqlite3.h>

#include <QApplication>
#include <QSettings>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "baseline.h"
#include "desktop/ficha/form_dialog.h"
#include "drivers/motoristas.h"
#include "embedded/database.h"
#include "embedded/storage/functions.h"
#include "events/upkeep_form.h"
#include "host/list_view.h"
#include "host/sistema.h"
#include "quiet_host.h"
#include "rivals.h"
#include "vehicles/viaturas.h"
#include "vehicles/viaturas_form.h"

namespace {

using namespace zorCrmParvel;

struct Kind {
  const char* table;
  const char* columns;
  const char* values;
};

constexpr std::array<Kind, 7> kKinds = {{
    {"zor_PV_Gastos", "Data, Motorista, Viagem, Obs, Qtd, Km, ValorUn, Custo, TipoGasto",
     "'0001', '', 'Posto da A1', 400000, i * 5000000, 16590, 663600, 'GASOLEO'"},
    {"zor_PV_Seguros",
     "Validade, DataInicio, Companhia, TipoSeguro, Apolice, Premio, Franquia, Modalidade, Inactiva, "
     "Coberturas",
     "3600000000, 'C', 'T', 'AP' || i, 3000000, 0, 0, 0, ''"},
    {"zor_PV_Revisoes", "Data, TipoManut, Obs, Km, Custo", "'OLEO', '', i * 5000000, 900000"},
    {"zor_PV_Inspecoes", "Data, Obs, Km, Custo", "'', i * 5000000, 300000"},
    {"zor_PV_Acessorios", "Data, TipoAcessorio, Obs, Marca, Modelo, KmInicial, KmFinal, Qtd, Custo, DataVal",
     "'PNEUS', '', 'M', 'X', 0, 0, 40000, 4000000, 3800000000"},
    {"zor_PV_Sinistros", "Data, Motorista, Obs, LocalAc, Responsavel, Custo",
     "'0001', '', 'Porto', 0, 1000000"},
    {"zor_PV_Multas", "Data, Motorista, Obs, ValorMulta, Responsabilidade", "'0001', '', 600000, 0"},
}};

/// A database with one vehicle, V1, that has so many events of each kind.
class Vehicle {
 public:
  Vehicle(const std::string& name, int eventsOfEachKind)
      : folder_(name), database_(embedded::Database::Open(folder_.File())) {
    clViaturas vehicle;
    vehicle.bd = database_;
    vehicle.Matricula = "V1";
    vehicle.Escrever();
    clMotoristas driver;
    driver.bd = database_;
    driver.Codigo = "0001";
    driver.Escrever();
    connection_ = bench::Connect(folder_.File());
    embedded::RegisterFunctions(connection_.get());
    Run("INSERT INTO zor_PV_TiposGastos (Codigo, Nome, Combustivel, CustoUnit) VALUES ('GASOLEO', 'Gasóleo', "
        "1, 16590)");
    Run("INSERT INTO zor_PV_TiposManut (Codigo, Nome) VALUES ('OLEO', 'Mudança de óleo')");
    Run("INSERT INTO zor_PV_Companhias (Codigo, Nome) VALUES ('C', 'Companhia')");
    Run("INSERT INTO zor_PV_TiposSeguro (Codigo, Nome) VALUES ('T', 'Todos os riscos')");
    Run("INSERT INTO zor_PV_TiposAcessorios (Codigo, Nome) VALUES ('PNEUS', 'Pneus')");
    for (const Kind& kind : kKinds) Fill(kind, eventsOfEachKind);
  }

  void Fill(const Kind& kind, int rows) {
    Run(std::string("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ") +
        std::to_string(rows) + ") INSERT INTO " + kind.table + " (Matricula, " + kind.columns +
        ") SELECT 'V1', 3500000000 + i * 3600, " + kind.values + " FROM n");
  }

  void Run(const std::string& sql) {
    bench::Require(sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
  }

  std::shared_ptr<embedded::Database> database() { return database_; }
  sqlite3* connection() { return connection_.get(); }

 private:
  bench::Folder folder_;
  std::shared_ptr<embedded::Database> database_;
  bench::ConnectionPtr connection_;
};

/// Statements prepared once and stepped to their ends, with every value taken.
class Statements {
 public:
  Statements(sqlite3* connection, const std::vector<std::string>& all) {
    for (const std::string& sql : all) statements_.push_back(bench::Prepare(connection, sql.c_str()));
  }

  void operator()() const {
    for (const auto& statement : statements_) bench::StepThrough(statement.get());
  }

 private:
  std::vector<bench::StatementPtr> statements_;
};

const std::string kVehicle = "SELECT * FROM zor_PV_Viaturas WHERE Matricula = 'V1'";

std::string Events(const std::string& table, const std::string& rest = "") {
  return "SELECT * FROM " + table + rest + " WHERE Matricula = 'V1'";
}

/// The statements of a revision's save: it is shown, written, and the vehicle's total made of four kinds.
std::vector<std::string> SaveStatements() {
  return {
      "SELECT * FROM zor_PV_Revisoes WHERE Manu_Id = 1",
      kVehicle,
      "SELECT * FROM zor_PV_Revisoes WHERE Manu_Id = 1",
      "UPDATE zor_PV_Revisoes SET TipoManut = 'OLEO', Obs = '', Data = 3500003600, Km = 1, Custo = 900000 "
      "WHERE rowid = 1",
      Events("zor_PV_Gastos", " g JOIN zor_PV_TiposGastos t ON t.Codigo = g.TipoGasto"),
      Events("zor_PV_Acessorios"),
      Events("zor_PV_Inspecoes"),
      Events("zor_PV_Revisoes"),
      kVehicle,
      kVehicle,
      "UPDATE zor_PV_Viaturas SET CustoTotal = 1, CustoMedioKmT = 1, KmActual = 1 WHERE rowid = 1"};
}

/// The statements of a vehicle's ficha: the vehicle and its events, each kind twice where figures are made of
/// it.
std::vector<std::string> FichaStatements() {
  return {kVehicle,
          Events("zor_PV_Seguros"),
          Events("zor_PV_Revisoes"),
          Events("zor_PV_Inspecoes"),
          Events("zor_PV_Acessorios"),
          Events("zor_PV_Gastos", " g JOIN zor_PV_TiposGastos t ON t.Codigo = g.TipoGasto") +
              " ORDER BY Data DESC",
          Events("zor_PV_Sinistros"),
          Events("zor_PV_Multas")};
}

/// A list as the window opens it: bound, counted, and its first screen read.
void OpenList(const DataAccessRef& bd, const char* key) {
  class GridForm : public platform::Form {
   public:
    platform::SGGrid Grelha{*this, "Grelha"};
  };
  Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = bd;
  const auto list = sistema.MostraListas(key);
  GridForm form;
  list->ICrmVwList_GridMaster(&form.Grelha);
  list->ICrmVwList_Iniciar();
  bench::Require(list->ICrmVwList_NumeroItens() > 100);
  std::size_t characters = 0;
  for (long row = 0; row < 100; ++row)
    for (std::size_t column = 0; column < form.Grelha.Columns().size(); ++column)
      characters += form.Grelha.CellText(row, column).size();
  bench::Require(characters > 0);
  list->ICrmVwList_Terminar();
}

int CompareLists() {
  Vehicle events("parvel-bench-events-list", 1);
  events.Fill(kKinds[0], 100000);
  events.Run(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) INSERT INTO "
      "zor_PV_Viaturas (Matricula, Marca, Modelo, Responsavel, Departamento) SELECT 'W' || i, '', '', 'Ana', "
      "'' FROM n");
  bench::Rivals rivals(20);
  rivals.Compare(
      "100,000 expenses: first screen / step", 1.0, 1, [&] { OpenList(events.database(), "Gastos"); },
      Statements(events.connection(),
                 {"SELECT g.Gst_Id, g.Data, g.Matricula, t.Nome, g.Qtd, g.Custo, g.Km FROM zor_PV_Gastos g "
                  "LEFT JOIN zor_PV_TiposGastos t ON t.Codigo = g.TipoGasto ORDER BY g.Data"}));
  rivals.Compare(
      "20,000 vehicles: first screen / step", 1.0, 1, [&] { OpenList(events.database(), "Viaturas"); },
      Statements(
          events.connection(),
          {"SELECT v.Matricula, m.Nome, o.Nome, v.Responsavel, d.Nome FROM zor_PV_Viaturas v LEFT JOIN "
           "zor_PV_Marcas m ON m.Codigo = v.Marca LEFT JOIN zor_PV_Modelos o ON o.Codigo = v.Modelo "
           "LEFT JOIN zor_PV_Departamentos d ON d.Codigo = v.Departamento ORDER BY v.Matricula"}));
  return rivals.Report();
}

int CompareSave() {
  Vehicle vehicle("parvel-bench-revision", 10000);
  Revisoes form;
  form.mybd = vehicle.database();
  form.TipoMostrar = 1;
  form.Matricula = "V1";
  form.Load();
  bench::Rivals rivals(30);
  rivals.Compare(
      "revision saved, 10,000 of each / same", 1.5, 1,
      [&] {
        form.Carrega(1);
        form.UserPresses(form.botoes.btConf);
      },
      Statements(vehicle.connection(), SaveStatements()));
  return rivals.Report();
}

/// The ficha from nothing until it is painted, against the statements and what painting may take.
int CompareFicha() {
  constexpr double kTimes = 1.5;
  constexpr double kPaintingSeconds = 0.1;
  Vehicle vehicle("parvel-bench-ficha", 1430);
  const bench::Folder folder("parvel-bench-ficha-settings");
  QSettings settings(QString::fromStdString(folder.File()), QSettings::IniFormat);
  bench::Rivals rivals(20);
  rivals.Compare(
      "vehicle's ficha, 10,000 events / same", kTimes, 1,
      [&] {
        Viaturas form;
        form.Load();
        form.mybd = vehicle.database();
        form.Edicao = true;
        form.CarregaViatura("V1");
        desktop::FormDialog dialog(form, settings, nullptr);
        dialog.show();
        bench::Require(!dialog.grab().isNull());
      },
      Statements(vehicle.connection(), FichaStatements()), kPaintingSeconds);
  return rivals.Report();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const bench::QuietHost host;
  Sistema sistema;
  return CompareLists() | CompareSave() | CompareFicha();
}
