#include "store/near_store_fixture.h"
#include "support/temporary_folder.h"

namespace store {
namespace {

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
  { const Snapshot within(near_); }
  EXPECT_EQ(asks("SELECT ValorMulta FROM zor_PV_Multas WHERE Id=3"), 0) << "the outer one goes on";
}

TEST_F(NearStoreTest, ATableThatIsTooLargeOrOtherIsLeftWhereItIs) {
  Fill(0, 6);
  const auto small = std::make_shared<NearStore>(server_, schema::kTables, 5);
  const auto other = std::make_shared<NearStore>(
      server_,
      "-- versão 1\nCREATE TABLE zor_Funcionarios (Codigo nvarchar(10) NOT NULL, Nome nvarchar(9) NULL);");
  const auto whole = std::make_shared<NearStore>(server_, schema::kTables, 6);
  for (const auto& [store, asked] : {std::pair{small, 5}, std::pair{other, 5}, std::pair{whole, 2}}) {
    const DataAccessRef held(store);
    const Snapshot snapshot(held);
    for (const char* code : {"M0", "M1", "M2", "M3"})
      EXPECT_EQ(testing_support::Rows(
                    held, std::string("SELECT Nome FROM zor_Funcionarios WHERE Codigo='") + code + "'"),
                testing_support::Table({{"Ana"}}));
    EXPECT_EQ(server_->Asked(), asked);
  }
}

TEST_F(NearStoreTest, AnotherThreadOpensTheSameWhereTheServerLetsIt) {
  EXPECT_FALSE(store_->Opener());
  const testing_support::TemporaryFolder folder;
  const auto opener = NearStore(embedded::Database::Open(folder.File("a.db")), schema::kTables).Opener();
  EXPECT_EQ(opener()->Place(), folder.File("a.db"));
}

TEST_F(NearStoreTest, ALongTableIsBroughtWholeAndDocumentsNever) {
  for (int i = 0; i < 600; ++i)
    Run("INSERT INTO zor_PV_Multas (Matricula, ValorMulta) VALUES ('P" + std::to_string(i) + "', 2)");
  Run("INSERT INTO zor_ArquivoDigital (zor_ArquivoDigital_Entidade) VALUES ('A')");
  server_->Asked();
  const Snapshot snapshot(near_);
  for (const int plate : {0, 255, 256, 599})
    EXPECT_EQ(
        testing_support::Rows(near_, "SELECT COUNT(*) AS Quantas FROM zor_PV_Multas WHERE Matricula = 'P" +
                                         std::to_string(plate) + "'"),
        (testing_support::Table{{"1"}}))
        << plate;
  EXPECT_EQ(testing_support::Rows(near_, "SELECT SUM(ValorMulta) AS Soma FROM zor_PV_Multas WHERE Id > 0"),
            (testing_support::Table{{"1200"}}));
  EXPECT_EQ(server_->Asked(), 3);
  for (const char* entity : {"A", "B", "C"})
    testing_support::Rows(near_, std::string("SELECT zor_ArquivoDigital_Id FROM zor_ArquivoDigital WHERE "
                                             "zor_ArquivoDigital_Entidade = '") +
                                     entity + "'");
  EXPECT_EQ(server_->Asked(), 3);
}

}  // namespace
}  // namespace store
