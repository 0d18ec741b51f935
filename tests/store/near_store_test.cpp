#include "store/near_store.h"

#include <gtest/gtest.h>

#include "alerts/alert_builders.h"
#include "alerts/alert_rules.h"
#include "host/sistema.h"
#include "support/database_test.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"

namespace schema {
extern const char* const kTables;
}

namespace store {
namespace {

using zorCrmParvel::DataAccessRef;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Snapshot;

/// A server that counts what it is asked.
class CountedServer : public zorCrmParvel::Store {
 public:
  std::string Place() const override { return {}; }
  void BeginBatch() override { database_->BeginBatch(); }
  void CommitBatch() override { database_->CommitBatch(); }
  void AbandonBatch() override { database_->AbandonBatch(); }
  void BringNumbers(const std::string& table, bool on) override { database_->BringNumbers(table, on); }
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

  std::shared_ptr<CountedServer> server_ = std::make_shared<CountedServer>();
  DataAccessRef far_ = DataAccessRef(server_);
  std::shared_ptr<NearStore> store_ = std::make_shared<NearStore>(server_, schema::kTables);
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

}  // namespace
}  // namespace store
