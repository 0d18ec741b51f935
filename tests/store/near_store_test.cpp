#include "store/near_store.h"

#include <gtest/gtest.h>

#include <optional>

#include "alerts/alert_builders.h"
#include "alerts/alert_rules.h"
#include "events/expense_figures.h"
#include "events/gastos.h"
#include "host/sistema.h"
#include "support/database_test.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"

namespace schema {
extern const char* const kTables;
}

namespace store {
namespace {

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

TEST_F(NearStoreTest, LoopsTellTheSameAndAskAsOftenOfAnyFleet) {
  using namespace zorCrmParvel::Tools;
  host.clock = platform::Date::FromParts(2024, 3, 1);
  for (const auto& [first, last] : {std::pair{0, 5}, std::pair{5, 40}}) {
    Fill(first, last);
    const auto inspections = List<&RsAlertasInsp, &EncheAlertasInsp>(far_);
    const auto documents = List<&RsAlertasMot, &EncheAlertasMot>(far_);
    EXPECT_EQ(documents.size(), static_cast<std::size_t>(last));
    server_->Asked();
    EXPECT_EQ((List<&RsAlertasInsp, &EncheAlertasInsp>(near_)), inspections);
    EXPECT_EQ(server_->Asked(), 3);
    EXPECT_EQ((List<&RsAlertasMot, &EncheAlertasMot>(near_)), documents);
    EXPECT_EQ(server_->Asked(), 3);
    bool policies = false;
    VerificaAlertasApolices(near_, policies);
    EXPECT_FALSE(policies);
    EXPECT_EQ(server_->Asked(), 3);
  }
}

TEST_F(NearStoreTest, WhatIsWrittenIsSeenAtOnce) {
  Fill(0, 3);
  const auto plates = [&](const char* name) {
    return testing_support::Rows(
        near_, std::string("SELECT Nome FROM zor_Funcionarios WHERE Codigo='") + name + "'");
  };
  const Snapshot snapshot(near_);
  for (const char* code : {"M0", "M1", "m2 ", "M0"})
    EXPECT_EQ(plates(code), testing_support::Table({{"Ana"}})) << code;
  EXPECT_EQ(server_->Asked(), 2);
  near_->ExecutarSql("", "UPDATE zor_Funcionarios SET Nome='Rui'");
  for (const char* code : {"M0", "M1"}) EXPECT_EQ(plates(code), testing_support::Table({{"Rui"}}));
  EXPECT_EQ(server_->Asked(), 3);
}

TEST_F(NearStoreTest, WhatWasReadOfOneRecordAnswersOtherQuestionsAboutIt) {
  Fill(0, 2);
  for (int i = 1; i <= 3; ++i)
    Run("INSERT INTO zor_PV_Multas (Matricula, ValorMulta) VALUES ('10-AA-10', " + std::to_string(i) + ")");
  Run("INSERT INTO zor_PV_Multas (Matricula, ValorMulta) VALUES ('11-AA-11', 50)");
  server_->Asked();
  const auto read = [&](const std::string& statement) { return testing_support::Rows(near_, statement); };
  std::optional<Snapshot> snapshot(near_);
  const auto whole = read("SELECT * FROM zor_PV_Multas WHERE Matricula = N'10-AA-10'");
  EXPECT_EQ(whole.size(), 3U);
  EXPECT_EQ(read("SELECT * FROM zor_PV_Multas WHERE Matricula = N'10-AA-10'"), whole);
  EXPECT_EQ(read("SELECT SUM(ValorMulta) AS Soma FROM zor_PV_Multas WHERE Matricula = N'10-AA-10 '"),
            (testing_support::Table{{"6"}}));
  EXPECT_EQ(server_->Asked(), 1);
  EXPECT_EQ(read("SELECT MAX(ValorMulta) AS Maior FROM zor_PV_Multas WHERE Matricula = N'11-AA-11'"),
            (testing_support::Table{{"50"}}));
  EXPECT_EQ(server_->Asked(), 1) << "of another nothing was read";
  const zorCrmParvel::RowValues row = {platform::Variant("10-AA-10"),
                                       platform::Variant(platform::Currency(7))};
  store_->AddRows("zor_PV_Multas", {"Matricula", "ValorMulta"}, {&row});
  EXPECT_EQ(read("SELECT * FROM zor_PV_Multas WHERE Matricula = N'10-AA-10'").size(), 4U);
  server_->Asked();
  snapshot.reset();
  snapshot.emplace(near_);
  for (int twice = 0; twice < 2; ++twice) read("SELECT Id FROM zor_PV_Multas WHERE Matricula = N'10-AA-10'");
  EXPECT_EQ(server_->Asked(), 1) << "what is read in another is remembered again";
}

TEST_F(NearStoreTest, ATableIsBroughtWhenItIsAskedAgainInTheSameWordsAndNoOther) {
  Fill(0, 3);
  for (int i = 1; i <= 3; ++i)
    Run("INSERT INTO zor_PV_Multas (Matricula, ValorMulta) VALUES ('10-AA-10', " + std::to_string(i) + ")");
  const Snapshot snapshot(near_);
  const auto asks = [&](const std::string& statement) {
    server_->Asked();
    testing_support::Rows(near_, statement);
    return server_->Asked();
  };
  std::string asked;
  for (const char* statement :
       {"SELECT Nome FROM zor_Funcionarios WHERE Codigo='M0'",
        "SELECT Nome FROM zor_PV_Marcas WHERE Codigo='X'", "SELECT Nome FROM zor_PV_Marcas WHERE Codigo='Y'",
        "SELECT Nome FROM zor_PV_Marcas WHERE Codigo='Z'",
        "SELECT Nome FROM zor_Funcionarios WHERE Codigo='M1'",
        "SELECT Nome FROM zor_Funcionarios WHERE Codigo='M2'",
        "SELECT ValorMulta FROM zor_PV_Multas WHERE Id=1", "SELECT ValorMulta FROM zor_PV_Multas WHERE Id=2",
        "SELECT ValorMulta FROM zor_PV_Multas WHERE Id=3"})
    asked += std::to_string(asks(statement));
  EXPECT_EQ(asked, "111010110");
}

TEST_F(NearStoreTest, ATableThatIsTooLargeOrOtherIsLeftWhereItIs) {
  Fill(0, 6);
  const auto small = std::make_shared<NearStore>(server_, schema::kTables, 5);
  const auto other = std::make_shared<NearStore>(
      server_,
      "-- versão 1\nCREATE TABLE zor_Funcionarios (Codigo nvarchar(10) NOT NULL, Nome nvarchar(9) NULL);");
  for (const auto& [store, asked] : {std::pair{small, 5}, std::pair{other, 5}}) {
    const DataAccessRef held(store);
    const Snapshot snapshot(held);
    for (const char* code : {"M0", "M1", "M2", "M3"})
      EXPECT_EQ(testing_support::Rows(
                    held, std::string("SELECT Nome FROM zor_Funcionarios WHERE Codigo='") + code + "'"),
                testing_support::Table({{"Ana"}}));
    EXPECT_EQ(server_->Asked(), asked);
  }
}

TEST_F(NearStoreTest, ALargeBatchLeavesWhatItWouldHaveLeftOnTheServer) {
  const auto both = [&](const auto& act) {
    act(far_);
    const auto wanted = testing_support::Rows(far_, "SELECT * FROM zor_PV_Gastos");
    const auto vehicles = testing_support::Rows(far_, "SELECT * FROM zor_PV_Viaturas");
    return std::pair(wanted, vehicles);
  };
  Fill(0, 4);
  Run("INSERT INTO zor_PV_TiposGastos (Codigo, Nome, Combustivel) VALUES ('G', 'Gasóleo', 1)");
  Run("UPDATE zor_PV_Inspecoes SET Custo=30");
  server_->BeginBatch();
  const auto wanted = both([](const DataAccessRef& data) { Fills(data, 30, 4); });
  server_->AbandonBatch();
  server_->Asked();
  {
    zorCrmParvel::LargeBatch batch(*store_);
    Fills(near_, 30, 4);
    EXPECT_EQ(server_->Asked(), 5);  // the tables
    EXPECT_EQ(testing_support::Rows(far_, "SELECT * FROM zor_PV_Gastos").size(), 0u);
    batch.Commit();
  }
  EXPECT_EQ(both([](const DataAccessRef&) {}), wanted);
}

TEST_F(NearStoreTest, NumbersAreThoseOfTheServerOnceALargeBatchIsKept) {
  Run("INSERT INTO zor_PV_Multas (Matricula) VALUES ('A')");
  Run("INSERT INTO parvel_importacoes (Quem) VALUES ('ana')");
  zorCrmParvel::LargeBatch batch(*store_);
  near_->ExecutarSql("", "INSERT INTO parvel_importacoes (Quem) VALUES ('rui')");
  near_->ExecutarSql("", "INSERT INTO zor_PV_Multas (Matricula) VALUES ('B')");
  near_->ExecutarSql("", "DELETE FROM zor_PV_Multas WHERE Id=1");
  near_->ExecutarSql("",
                     "INSERT INTO parvel_importacoes_linhas (Importacao, Ordem, Tabela, Chave) VALUES "
                     "(2, 1, 'zor_PV_Multas', '2')");
  Run("INSERT INTO zor_PV_Multas (Matricula) VALUES ('outro')");
  Run("INSERT INTO parvel_importacoes (Quem) VALUES ('outro')");
  EXPECT_EQ(store_->NumberGiven("parvel_importacoes", 2), 3);  // sent for it
  batch.Commit();
  EXPECT_EQ(testing_support::Rows(far_, "SELECT Id, Matricula FROM zor_PV_Multas ORDER BY Id"),
            testing_support::Table({{"2", "outro"}, {"3", "B"}}));
  EXPECT_EQ(testing_support::Rows(far_, "SELECT Importacao, Chave FROM parvel_importacoes_linhas"),
            testing_support::Table({{"3", "3"}}));
  EXPECT_EQ(store_->NumberGiven("parvel_importacoes", 1), 1);
}

TEST_F(NearStoreTest, ATableThatIsOnlyAddedToIsNotTakenOver) {
  Run("INSERT INTO zor_PV_Multas (Matricula) VALUES ('A')");
  const auto add = [&](const char* plate) {
    RecordsetRef rows;
    near_->AbrirEdicao("SELECT * FROM zor_PV_Multas WHERE 1=0", rows);
    rows->AddNew();
    rows->Fields("Matricula").SetValue(plate);
    rows->Update();
  };
  const auto all = [](const DataAccessRef& data) {
    return testing_support::Rows(data, "SELECT Id, Matricula FROM zor_PV_Multas ORDER BY Id");
  };
  server_->Asked();
  zorCrmParvel::LargeBatch batch(*store_);
  add("B");
  EXPECT_EQ(server_->Asked(), 0);
  EXPECT_EQ(all(near_), testing_support::Table({{"1", "A"}, {"2", "B"}}));  // by the server
  add("C");
  batch.Commit();
  EXPECT_EQ(all(far_), testing_support::Table({{"1", "A"}, {"2", "B"}, {"3", "C"}}));
}

TEST_F(NearStoreTest, ALargeBatchThatFailsKeepsNothing) {
  Fill(0, 2);
  refused_ = "zor_PV_Multas";
  const auto write = [&] {
    zorCrmParvel::LargeBatch batch(*store_);
    near_->ExecutarSql("", "UPDATE zor_PV_Viaturas SET Obs='x'");
    near_->ExecutarSql("", "INSERT INTO zor_PV_Multas (Matricula) VALUES ('B')");
    batch.Commit();
  };
  EXPECT_THROW(write(), platform::RuntimeError);
  EXPECT_TRUE(testing_support::Rows(near_, "SELECT * FROM zor_PV_Viaturas WHERE Obs='x'").empty());
  refused_.clear();
  write();
  EXPECT_EQ(testing_support::Rows(near_, "SELECT * FROM zor_PV_Viaturas WHERE Obs='x'").size(), 2u);
}

}  // namespace
}  // namespace store
