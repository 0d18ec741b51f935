// The six alert lists with their counts, and the feed on a fleet where no check finds anything, so that each
// reads its table to the end; against the same statements, prepared once and stepped on SQLite's own
// interface, every column of every row read.

#include <functional>
#include <string>

#include "alert_fleet.h"
#include "alerts/alert_list.h"
#include "host/sistema.h"
#include "quiet_host.h"
#include "rivals.h"

namespace {

using namespace zorCrmParvel;

constexpr double kLimit = 1.5;
constexpr int kSamples = 7;
constexpr const char* kRow[] = {"SELECT * FROM zor_PV_Viaturas WHERE Matricula = ?1",
                                "SELECT max(Data) FROM zor_PV_Inspecoes WHERE Matricula = ?1 || ' '",
                                "SELECT * FROM zor_CartasCond WHERE Motorista = ?1"};

constexpr const char* kPolicies =
    "SELECT s.Matricula, s.Apolice, t.Nome, s.Validade, CASE WHEN s.Validade / 86400 - ?1 >= 10 AND "
    "s.Validade / 86400 - ?1 < 30 THEN 'a' WHEN s.Validade / 86400 - ?1 >= 0 AND s.Validade / 86400 - ?1 < "
    "10 "
    "THEN 'b' WHEN s.Validade / 86400 - ?1 < 0 THEN 'c' END, s.Validade / 86400 - ?1 FROM zor_PV_Seguros s "
    "JOIN zor_PV_TiposSeguro t ON s.TipoSeguro = t.Codigo JOIN zor_PV_Viaturas v ON v.Matricula = "
    "s.Matricula "
    "WHERE s.Validade / 86400 - ?1 <= 30 AND s.Inactiva = 0 AND v.Inactiva = 0 ORDER BY s.Matricula";

constexpr const char* kRevisions =
    "SELECT v.Matricula, m.Nome, v.KmActual, v.KmPrxRev, v.DataPrxRev, CASE WHEN v.DataPrxRev / 86400 - ?1 "
    ">= 0 "
    "AND v.DataPrxRev / 86400 - ?1 < 30 THEN 'Revisão marcada para  ' || sv_date_text(v.DataPrxRev, 105) "
    "WHEN "
    "v.DataPrxRev / 86400 - ?1 < 0 THEN 'c' END, v.DataPrxRev / 86400 - ?1, "
    "v.KmPrxRev - v.KmActual FROM zor_PV_Viaturas v JOIN zor_PV_Marcas m ON v.Marca = m.Codigo "
    "WHERE v.DataPrxRev / 86400 - ?1 < 30 AND v.Inactiva = 0 UNION "
    "SELECT v.Matricula, m.Nome, v.KmActual, v.KmPrxRev, v.DataPrxRev, CASE WHEN v.KmPrxRev - v.KmActual >= "
    "0 "
    "AND v.KmPrxRev - v.KmActual < 10000000 THEN 'Faltam  ' || sv_money_text(v.KmPrxRev - v.KmActual) || ' "
    "Km "
    "para a revisão ' WHEN v.KmPrxRev - v.KmActual < 0 THEN 'd' END, "
    "v.DataPrxRev / 86400 - ?1, v.KmPrxRev - v.KmActual FROM zor_PV_Viaturas v JOIN zor_PV_Marcas m "
    "ON v.Marca = m.Codigo WHERE v.KmPrxRev - v.KmActual < 10000000 AND v.Inactiva = 0 ORDER BY 1";

constexpr const char* kVehicles =
    "SELECT v.Matricula, m.Nome, v.DataSelo, CASE WHEN v.DataSelo / 86400 - ?1 > 0 THEN 'a' WHEN "
    "v.DataSelo / 86400 - ?1 < 0 THEN 'b' END, v.DataSelo / 86400 - ?1, 100 FROM zor_PV_Viaturas v "
    "JOIN zor_PV_Marcas m ON v.Marca = m.Codigo WHERE v.DataSelo / 86400 - ?1 < 30 AND v.Inactiva = 0 AND "
    "coalesce(v.SeloPago, 0) = 0 UNION "
    "SELECT v.Matricula, m.Nome, v.DtDescarga, CASE WHEN v.DtDescarga / 86400 - ?1 > 0 THEN 'c' WHEN "
    "v.DtDescarga / 86400 - ?1 < 0 THEN 'd' END, 100, v.DtDescarga / 86400 - ?1 FROM zor_PV_Viaturas v "
    "JOIN zor_PV_Marcas m ON v.Marca = m.Codigo WHERE v.DtDescarga / 86400 - ?1 < 10 AND v.Inactiva = 0 AND "
    "v.Tacografo = 1 ORDER BY 1";

constexpr const char* kAllVehicles = "SELECT * FROM zor_PV_Viaturas";
constexpr const char* kAllDrivers = "SELECT * FROM zor_Funcionarios";
constexpr const char* kAllAccessories = "SELECT * FROM zor_PV_Acessorios";
constexpr const char* kAllPolicies = "SELECT * FROM zor_PV_Seguros ORDER BY Matricula, Inactiva, Validade";

/// The lists and the feed of one fleet, by the module and by statements.
class Bench {
 public:
  explicit Bench(const bench::AlertFleet& fleet) : today_(fleet.today() / 86400) {
    sistema_.ICrmSistema_ZorDataAccess = fleet.database();
    for (const char* sql :
         {kPolicies, kRevisions, kVehicles, kAllVehicles, kAllDrivers, kAllAccessories, kAllPolicies})
      statements_.emplace_back(sql, bench::Prepare(fleet.connection(), sql));
    for (const char* sql : kRow) statements_.emplace_back(sql, bench::Prepare(fleet.connection(), sql));
  }

  void List(const char* key) {
    const auto list = sistema_.MostraListas(key);
    rows_ += dynamic_cast<AlertList&>(*list).Contar().linhas;
  }
  void Feed() {
    const auto rows = platform::MakeRef<platform::MemoryRecordset>();
    for (const char* field : {"APLICACAO", "Entidade", "Texto"})
      rows->Append(field, platform::FieldType::kText, 50);
    rows->Open();
    RecordsetRef alerts = rows;
    sistema_.ICrmSistema_AlertasAdd(alerts);
    bench::Require(alerts->RecordCount() == 0);
  }

  void StepDue(const char* sql) {
    sqlite3_stmt* statement = Find(sql);
    sqlite3_bind_int64(statement, 1, today_);
    Step(statement);
  }
  /// All rows of a table; for each another statement by the text in its column `key`, if any.
  void StepRows(const char* sql, const char* each = nullptr, int key = 0) {
    sqlite3_stmt* inner = each != nullptr ? Find(each) : nullptr;
    Step(Find(sql), [&](sqlite3_stmt* row) {
      if (inner == nullptr) return;
      sqlite3_bind_text(inner, 1, reinterpret_cast<const char*>(sqlite3_column_text(row, key)),
                        sqlite3_column_bytes(row, key), SQLITE_TRANSIENT);
      Step(inner);
    });
  }
  void StepFeed() {
    StepRows(kAllPolicies, kRow[0], 1);
    StepRows(kAllVehicles);
    StepRows(kAllVehicles, kRow[1]);
    StepRows(kAllAccessories, kRow[0], 1);
    StepRows(kAllDrivers);
  }

 private:
  sqlite3_stmt* Find(const char* sql) {
    for (const auto& [text, statement] : statements_)
      if (text == sql) return statement.get();
    std::abort();
  }
  void Step(sqlite3_stmt* statement, const std::function<void(sqlite3_stmt*)>& each = {}) {
    while (sqlite3_step(statement) == SQLITE_ROW) {
      for (int column = 0; column < sqlite3_column_count(statement); ++column) Read(statement, column);
      if (each) each(statement);
    }
    sqlite3_reset(statement);
  }
  void Read(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
      case SQLITE_INTEGER:
        rows_ += sqlite3_column_int64(statement, column) & 1;
        break;
      case SQLITE_TEXT:
        text_.assign(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                     static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
        break;
      default:
        break;
    }
  }

  Sistema sistema_;
  std::int64_t today_;  // days
  std::vector<std::pair<const char*, bench::StatementPtr>> statements_;
  std::string text_;
  std::int64_t rows_ = 0;  // keeps what is read from being left out
};

}  // namespace

int main() {
  const bench::QuietHost host;
  bench::Rivals rivals(kSamples);
  {
    const bench::AlertFleet fleet("parvel-bench-alerts-due", {10000, 10000, 50000, 50000, true});
    Bench b(fleet);
    const auto list = [&](const char* key, const std::function<void()>& baseline) {
      rivals.Compare(
          std::string(key) + " / statements", kLimit, 1, [&] { b.List(key); }, baseline);
    };
    list("AlertasAp", [&] { b.StepDue(kPolicies); });
    list("AlertasRev", [&] { b.StepDue(kRevisions); });
    list("AlertasInsp", [&] { b.StepRows(kAllVehicles, kRow[1]); });
    list("AlertasAcess", [&] { b.StepRows(kAllAccessories); });
    list("AlertasMot", [&] { b.StepRows(kAllDrivers, kRow[2]); });
    list("AlertasViat", [&] { b.StepDue(kVehicles); });
  }
  const bench::AlertFleet quiet("parvel-bench-alerts-quiet", {10000, 10000, 50000, 50000, false});
  Bench b(quiet);
  rivals.Compare(
      "feed without a hit / statements", kLimit, 1, [&] { b.Feed(); }, [&] { b.StepFeed(); });
  return rivals.Report();
}
