// What a large batch on a server leaves, where rows are held back and sent together.

#include "store/near_store_fixture.h"

namespace store {
namespace {

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
  server_->AbandonBatch();  // it has been kept
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

TEST_F(NearStoreTest, RowsAddedDirectlyComeBehindThoseThatAreHeldBack) {
  const zorCrmParvel::RowValues row = {platform::Variant("B")};
  zorCrmParvel::LargeBatch batch(*store_);
  near_->ExecutarSql("", "INSERT INTO zor_PV_Multas (Matricula) VALUES ('A')");
  store_->AddRows("zor_PV_Multas", {"Matricula"}, {&row});
  batch.Commit();
  EXPECT_EQ(testing_support::Rows(far_, "SELECT Matricula FROM zor_PV_Multas ORDER BY Id"),
            testing_support::Table({{"A"}, {"B"}}));
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
