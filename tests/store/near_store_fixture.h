#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "alerts/alert_builders.h"
#include "alerts/alert_rules.h"
#include "events/expense_figures.h"
#include "events/gastos.h"
#include "host/sistema.h"
#include "store/near_store.h"
#include "support/database_test.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"

namespace schema {
extern const char* const kTables;
}

namespace store {

using zorCrmParvel::clGastos;
using zorCrmParvel::DataAccessRef;
using zorCrmParvel::RecalcularViatura;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Snapshot;

/// A server that counts what it is asked.
class CountedServer : public zorCrmParvel::Store {
 public:
  std::string Place() const override { return {}; }
  void BeginBatch() override { database_->BeginBatch(); }
  void CommitBatch() override { database_->CommitBatch(); }
  void AbandonBatch() override { database_->AbandonBatch(); }
  void AddRows(const std::string& table, const std::vector<std::string>& columns,
               const std::vector<const zorCrmParvel::RowValues*>& rows) override {
    database_->AddRows(table, columns, rows);
  }
  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override {
    return database_->ObterLigacao(connection);
  }
  int Asked() { return std::exchange(asked_, 0); }

 protected:
  bool Execute(const std::string& statement) override {
    ++asked_;
    return database_->ExecutarSql("", statement.c_str());
  }
  RecordsetRef OpenForEditing(const std::string& statement) override {
    ++asked_;
    RecordsetRef rows;
    database_->AbrirEdicao(statement.c_str(), rows);
    return rows;
  }
  RecordsetRef OpenForReading(const std::string& statement) override {
    ++asked_;
    RecordsetRef rows;
    database_->AbrirLeitura("", statement.c_str(), rows);
    return rows;
  }

 private:
  std::shared_ptr<embedded::Database> database_ = testing_support::MemoryDatabase();
  int asked_ = 0;
};

class NearStoreTest : public testing_support::DatabaseTest {
 protected:
  void Fill(int first, int last) {
    for (int i = first; i < last; ++i) {
      const std::string plate = std::to_string(10 + i) + "-AA-" + std::to_string(10 + i);
      testing_support::AddVehicle(far_, plate);
      testing_support::AddDriver(far_, "M" + std::to_string(i), "Ana");
      Run("UPDATE zor_PV_Viaturas SET Categoria='LIGM', DataMatricula='2022.03.15', AnoMatricula=2022, "
          "KmActual=1000, KmPrxRev=9000, Inactiva=0 WHERE Matricula='" +
          plate + "'");
      Run("INSERT INTO zor_PV_Inspecoes (Matricula, Data) VALUES ('" + plate + "', '2022.04.01')");
      Run("INSERT INTO zor_PV_Seguros (Matricula, Validade, Inactiva) VALUES ('" + plate +
          "', '2099.01.01', 0)");
      Run("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('m" + std::to_string(i) +
          "', 2, '2024.01.01')");
    }
    server_->Asked();
  }
  void Run(const std::string& statement) const { far_->ExecutarSql("", statement.c_str()); }

  template <RecordsetRef (*New)(), void (*FillRows)(const RecordsetRef&, const DataAccessRef&)>
  static testing_support::Table List(const DataAccessRef& bd) {
    const RecordsetRef rows = New();
    FillRows(rows, bd);
    return testing_support::Rows(rows);
  }

  /// Writes the changes of a large batch, a row at a time.
  std::vector<long> Apply(const sqlserver::TableChanges& changes) const {
    if (changes.table == refused_) throw platform::RuntimeError(platform::kStatementRefused, "", "não");
    std::vector<long> numbers;
    const auto write = [&](const std::string& condition, const sqlserver::RowWriter::Values& values) {
      RecordsetRef rows;
      far_->AbrirEdicao(("SELECT * FROM " + changes.table + condition).c_str(), rows);
      if (condition == kNew) rows->AddNew();
      for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i]) rows->Fields(changes.fields[i].name).SetValue(*values[i]);
      rows->Update();
      if (changes.numbered && condition == kNew) numbers.push_back(rows->Fields(0).Value().ToLong());
    };
    for (const auto& change : changes.changed)
      write(" WHERE " + changes.fields[0].name + "=N'" + change.key.at(0).ToText() + "'", change.values);
    for (const auto& row : changes.added) write(kNew, row);
    for (const auto& key : changes.removed)
      Run("DELETE FROM " + changes.table + " WHERE " + changes.fields[0].name + "=N'" + key.at(0).ToText() +
          "'");
    return numbers;
  }
  static constexpr const char* kNew = " WHERE 1=0";

  /// What an import does: rows are added, and the vehicles' figures follow.
  static void Fills(const DataAccessRef& bd, int rows, int vehicles) {
    clGastos fill;
    fill.bd = bd;
    for (int i = 0; i < rows; ++i) {
      fill.Codigo = std::to_string(10 + i % vehicles) + "-AA-" + std::to_string(10 + i % vehicles);
      fill.Data = platform::Date::FromParts(2024, 1, 1).AddDays(i / vehicles);
      fill.TipoGasto = "G";
      fill.Qtd = 40;
      fill.Custo = 60;
      fill.Km = 1000 + i * 10;
      fill.Escrever();
    }
    for (int i = 0; i < vehicles; ++i)
      RecalcularViatura(bd, std::to_string(10 + i) + "-AA-" + std::to_string(10 + i));
  }
  std::string refused_;  // a table that the server doesn't write

  std::shared_ptr<CountedServer> server_ = std::make_shared<CountedServer>();
  DataAccessRef far_ = DataAccessRef(server_);
  std::shared_ptr<NearStore> store_ = std::make_shared<NearStore>(
      server_, schema::kTables, NearStore::kMostRows, [this](const auto& changes) { return Apply(changes); });
  DataAccessRef near_ = DataAccessRef(store_);
};

}  // namespace store
