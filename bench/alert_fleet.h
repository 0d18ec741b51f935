#pragma once

#include <string>

#include "baseline.h"
#include "embedded/database.h"
#include "embedded/storage/functions.h"
#include "platform/host.h"

namespace bench {

/// How large a fleet is, and whether something of it is due.
struct FleetSize {
  int vehicles;
  int drivers;
  int accessories;
  int policies;
  /// True: a tenth of everything is due, past and to come. False: nothing makes the feed's checks answer, so
  /// that each reads its table to the end.
  bool due;
};

/// A database with a fleet, open in the engine and beside it in SQLite.
class AlertFleet {
 public:
  AlertFleet(const std::string& name, const FleetSize& size)
      : folder_(name),
        database_(embedded::Database::Open(folder_.File())),
        connection_(Connect(folder_.File())),
        today_(platform::Today().seconds()) {
    embedded::RegisterFunctions(connection_.get());
    Run("BEGIN");
    Run("INSERT INTO zor_PV_Marcas (Codigo, Nome) VALUES ('REN', 'Renault')");
    Run("INSERT INTO zor_PV_TiposSeguro (Codigo, Nome) VALUES ('DP', 'Danos próprios')");
    FillVehicles(size);
    FillDrivers(size);
    FillEvents(size);
    Run("COMMIT");
    Run("ANALYZE");
  }

  const std::shared_ptr<embedded::Database>& database() const { return database_; }
  sqlite3* connection() const { return connection_.get(); }
  /// Midnight of this day, as the engine keeps it.
  std::int64_t today() const { return today_; }

 private:
  void Run(const std::string& sql) {
    Require(sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
  }
  /// Rows made by a SELECT on `n`, whose `i` counts from 0.
  void Insert(const std::string& into, int rows, const std::string& select) {
    if (rows > 0)
      Run("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
          std::to_string(rows) + ") INSERT INTO " + into + " SELECT " + select + " FROM n");
  }
  /// A day that differs from row to row: a tenth of them up to 30 days past or to come, the others later; or
  /// all of them later.
  std::string Day(bool due, int step) const {
    const std::string row = "(i * " + std::to_string(step) + ")";
    const std::string days =
        due ? "(CASE WHEN i % 10 = 3 THEN " + row + " % 60 - 30 ELSE 40 + " + row + " % 600 END)"
            : "(40 + " + row + " % 600)";
    return std::to_string(today_) + " + " + days + " * 86400";
  }

  void FillVehicles(const FleetSize& size) {
    Insert(
        "zor_PV_Viaturas (Matricula, Marca, Modelo, Responsavel, Categoria, Departamento, KmInicial, "
        "KmActual, DataKmInicial, CustoMedioKmC, DataMatricula, AnoMatricula, NoMotor, Cilindrada, "
        "CompLeasing, NoContrato, ValContrato, ValorInicial, ValorResidual, Mensalidade, CustoMedioKmT, "
        "QtdInicial, CustoTotal, Obs, Media, NoChassis, Combustivel, DataPrxRev, DataPrxInsp, KmPrxRev, "
        "Inactiva, Tacografo, DtDescarga, DataSelo, SeloPago)",
        size.vehicles,
        "'V' || (100000 + i), 'REN', 'KANGOO', 'Maria Santos', 'LIGP', 'COM', 0, " +
            std::string(size.due ? "400000000" : "600000000") + ", 3600000000, 0, " + std::to_string(today_) +
            " - (100 + i % 200) * 86400" +
            (size.due ? " - (CASE WHEN i % 10 = 3 THEN 126230400 ELSE 0 END)" : "") +
            ", CAST(strftime('%Y', 'now') AS INTEGER) - 1, 'M' || i, '1461', '', '', 0, 0, 0, 0, 0, 0, 0, "
            "'', "
            "0, 'CH' || i, 0, " +
            Day(size.due, 7) + ", NULL, " + (size.due ? "420000000 + (i % 10 - 3) * 20000000" : "500000000") +
            ", 0, 1, " + Day(size.due, 11) + ", " + Day(size.due, 13) + ", 0");
    // The last inspection: two years ago or none.
    Insert("zor_PV_Inspecoes (Matricula, Obs, Data, Km, Custo)", size.due ? size.vehicles / 2 : 0,
           "'V' || (100000 + i), '', " + std::to_string(today_) + " - 730 * 86400, 0, 0");
  }

  void FillDrivers(const FleetSize& size) {
    Insert(
        "zor_Funcionarios (Codigo, Nome, Morada, Localidade, CodPostal, NIF, BI, DataValBI, CartaoCid, "
        "ValCartaoCid, CartaCond, ValCartaCond, ValidadePassa, DtFimCartaoCondutor, DtDescarga, "
        "NoCartaoCondutor, Inactivo)",
        size.drivers,
        "'M' || (100000 + i), 'Condutor número ' || i, 'Rua do Sol', 'Porto', '4000-100', '', '', NULL, "
        "'CC' || i, " +
            Day(size.due, 7) + ", 'P-' || i, " + Day(false, 11) + ", " + Day(size.due, 13) + ", " +
            Day(size.due, 17) + ", " + Day(size.due, 19) + ", 'CT' || i, 0");
    Insert("zor_CartasCond (Motorista, TipoCarta, DataValidade)", size.drivers * 2,
           "'M' || (100000 + i / 2), i % 2, " + Day(size.due, 7));
  }

  void FillEvents(const FleetSize& size) {
    const std::string plate = "'V' || (100000 + (i * 31) % " + std::to_string(size.vehicles) + ")";
    Insert(
        "zor_PV_Acessorios (Matricula, TipoAcessorio, Obs, Data, Marca, Modelo, KmInicial, KmFinal, Qtd, "
        "Custo, DataVal)",
        size.accessories,
        plate + ", 'EXTINTOR', '', 3600000000, 'Xis', 'A', 0, 0, 10000, 250000, " + Day(size.due, 7));
    Insert(
        "zor_PV_Seguros (Matricula, Companhia, TipoSeguro, Apolice, Validade, Premio, Franquia, Modalidade, "
        "DataInicio, Inactiva, Coberturas)",
        size.policies,
        plate + ", 'SEG', 'DP', 'AP-' || i, " + Day(size.due, 11) + ", 0, 0, 0, 3600000000, 0, ''");
  }

  Folder folder_;
  std::shared_ptr<embedded::Database> database_;
  ConnectionPtr connection_;
  std::int64_t today_;
};

}  // namespace bench
