#pragma once

#include <sqlite3.h>

#include <cstdio>
#include <memory>
#include <string>

#include "alert_fleet.h"
#include "entry/reads_after.h"
#include "sqlserver/database.h"
#include "sqlserver/session.h"
#include "stand_in.h"
#include "store/database_choice.h"

namespace bench {

inline constexpr const char* kPlate = "V100000";

/// A fleet on the server, as the hosts open it.
class FarFleet {
 public:
  FarFleet(const std::string& name, int vehicles)
      : fleet_(name, {vehicles, vehicles, vehicles, vehicles, true}) {
    FillDrivers();
    FillEvents();
    sqlserver::OpenOptions options;
    options.connection = StandInConnection(fleet_.database()->path());
    options.expected = &entry::ReadsAfterEvent;
    server_ = sqlserver::Database::Open(options);
    near_ = store::Near(server_);
  }

  const std::shared_ptr<zorCrmParvel::Store>& store() const { return near_; }
  sqlserver::Database& server() const { return *server_; }
  const sqlserver::Traffic& traffic() const { return server_->session().traffic(); }

 private:
  void Run(const std::string& sql) const {
    if (sqlite3_exec(fleet_.connection(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) return;
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(fleet_.connection()));
    std::abort();
  }
  /// What a driver's ficha can't do without.
  void FillDrivers() const {
    for (const char* column : {"DataNasc = 3000000000", "Telefone = ''", "Telemovel = ''", "Email = ''",
                               "Passaporte = ''", "DGV = ''", "Obs = ''"}) {
      Run(std::string("UPDATE zor_Funcionarios SET ") + column);
    }
  }
  /// 285 fines and accidents of the first vehicle, and 16,000 expenses.
  void FillEvents() const {
    const std::string n = "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < ";
    const std::string plate = std::string("'") + kPlate + "'";
    const std::string driver = "'M' || (100000 + i % 90), ";
    Run(n +
        "150) INSERT INTO zor_PV_Multas (Matricula, Motorista, Obs, Data, ValorMulta, Responsabilidade) "
        "SELECT " +
        plate + ", " + driver + "'', 3600000000 + i * 86400, 300000, 0 FROM n");
    Run(n +
        "135) INSERT INTO zor_PV_Sinistros (Matricula, Motorista, Obs, Data, LocalAc, Responsavel, Custo) "
        "SELECT " +
        plate + ", " + driver + "'', 3600000000 + i * 86400, '', 0, 0 FROM n");
    Run("INSERT INTO zor_PV_TiposGastos (Codigo, Nome, Combustivel, CustoUnit) VALUES ('GASOLEO', 'Gasóleo', "
        "1, "
        "16590)");
    Run(n +
        "16000) INSERT INTO zor_PV_Gastos (Matricula, Motorista, Obs, Data, Viagem, Qtd, Km, ValorUn, "
        "Custo, TipoGasto) SELECT 'V' || (100000 + i % 40), 'M100000', 'Posto', 3600000000 + (i / 40) * "
        "86400, '', 400000, (i / 40) * 5000000, 16590, 663600, 'GASOLEO' FROM n");
  }

  AlertFleet fleet_;
  std::shared_ptr<sqlserver::Database> server_;
  std::shared_ptr<zorCrmParvel::Store> near_;
};

}  // namespace bench
