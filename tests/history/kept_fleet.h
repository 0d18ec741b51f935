#pragma once

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "documents/arquivo_digital.h"
#include "drivers/motoristas.h"
#include "events/expense_figures.h"
#include "history/act.h"
#include "host/sistema.h"
#include "support/database_test.h"
#include "support/fleet.h"
#include "support/temporary_folder.h"

namespace history {

using namespace testing_support;
using namespace zorCrmParvel;
using platform::Date;

using Tables = std::map<std::string, Table>;

/// A fleet in a database file that remembers.
class KeptFleetTest : public testing::Test {
 protected:
  KeptFleetTest() { AddFleet(bd, 10000); }

  static Date Clock() { return Date::FromParts(2024, 3, 15, 10, 30); }
  static std::shared_ptr<KeepingStore> Open(const std::string& file) {
    Options options;
    options.who = {"ana", "posto 1"};
    options.clock = &Clock;
    return std::make_shared<KeepingStore>(embedded::Database::Open(file), options);
  }

  Tables Everything() const {
    Tables all;
    for (const tsql::Table& table : store->catalog().tables()) {
      if (table.name.starts_with("parvel_")) continue;
      Table rows = Cells("SELECT * FROM " + table.name);
      std::sort(rows.begin(), rows.end());
      all[table.name] = rows;
    }
    return all;
  }

  /// As `Rows`, bytes included.
  Table Cells(const std::string& statement) const {
    RecordsetRef rows;
    bd->AbrirLeitura("", statement.c_str(), rows);
    Table table;
    for (std::size_t row = 0; row < static_cast<std::size_t>(rows->RecordCount()); ++row) {
      table.emplace_back();
      for (std::size_t i = 0; i < rows->FieldList().size(); ++i) {
        const platform::Cell& cell = rows->CellAt(row, i);
        const bool bytes = cell.type() == platform::FieldType::kBytes;
        table.back().push_back(cell.IsNull() ? "NULL" : bytes ? std::string(cell.block()) : cell.ToText());
      }
    }
    return table;
  }

  /// One act; the number of its operation.
  long Do(const std::string& words, const std::function<void()>& work) {
    Act(store.get(), words, work);
    return store->LastOperation();
  }

  long Spend(int cost, int km) {
    return Do("Gastos: Confirmar", [&] {
      AddExpense(bd, "12-AB-34", Date::FromParts(2024, 2, 1), "GASOLEO", "40", std::to_string(cost), km);
      RecalcularViatura(bd, "12-AB-34");
    });
  }

  std::string Total() const {
    return Rows(bd, "SELECT CustoTotal, KmActual FROM zor_PV_Viaturas WHERE Matricula = '12-AB-34'")
        .at(0)
        .at(0);
  }

  std::string FileWith(const std::string& content) {
    std::string name = folder.File("f" + std::to_string(content.size()) + ".jpg");
    std::ofstream(name) << content;
    return name;
  }

  /// Driver MT-77, who moved and has another photo now, with a document and an expense.
  void FillDriver() {
    clMotoristas driver;
    driver.bd = bd;
    driver.Codigo = "MT-77";
    driver.Descrição = "João \"Zé\" Silva";
    driver.Morada = "Rua das Flores 17";
    driver.Telefone = "912345678";
    Do("Motoristas: Confirmar", [&] { driver.Escrever(); });
    driver.Morada = "Travessa Nova 3";
    Do("Motoristas: Confirmar", [&] { driver.Escrever(); });
    Do("Motoristas: Foto", [&] { driver.Foto_Add(FileWith(std::string("\xFF\xD8") + "retrato")); });
    Do("Motoristas: Foto", [&] { driver.Foto_Add(FileWith(std::string("\xFF\xD8") + "outro")); });
    Do("Motoristas: Arquivo", [&] {
      Cl_ArquivoDigital archive;
      archive.bd = bd;
      archive.Add(FileWith("carta de condução"), "MT-77", 320, 0, "Carta");
    });
    Do("Gastos: Confirmar", [&] {
      AddExpense(bd, "12-AB-34", Date::FromParts(2024, 2, 1), "GASOLEO", "40", "60", 10500);
      bd->ExecutarSql(
          "", "UPDATE zor_PV_Gastos SET Motorista = N'MT-77', Obs = N'pago por JOÃO \"ZÉ\" SILVA, na caixa'");
      RecalcularViatura(bd, "12-AB-34");
    });
  }

  ScriptedHost scripted;
  PausingHost host{scripted};
  platform::HostInstallation installed{host};
  TemporaryFolder folder;
  std::string file = folder.File("frota.db");
  std::shared_ptr<KeepingStore> store = Open(file);
  DataAccessRef bd{store};
  Sistema sistema;
};

}  // namespace history
