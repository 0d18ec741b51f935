// What the history and the file forget of a person.

#include "history/drivers/driver_erasure.h"

#include <fstream>

#include "exchange/profile/profile_store.h"
#include "history/kept_fleet.h"
#include "history/reader.h"
#include "history/undo.h"
#include "masterdata/code_table.h"
#include "support/files.h"
#include "vehicles/viaturas.h"

namespace history {
namespace {

using ErasureTest = KeptFleetTest;

TEST_F(ErasureTest, AnErasedDriverIsNowhereInTheFileAndHisExpensesStay) {
  FillDriver();
  AddDriver(bd, "0002", "Ana Sousa");
  // So many expenses go with a vehicle that the history keeps them together.
  AddVehicle(bd, "10-GJ-10", 0);
  for (int day = 1; day <= 12; ++day)
    AddExpense(bd, "10-GJ-10", Date::FromParts(2024, 2, day), "PORTAGEM", "1", "2", 0);
  bd->ExecutarSql("", "UPDATE zor_PV_Gastos SET Motorista = N'mt-77' WHERE Matricula = '10-GJ-10'");
  const long removal = Do("Viaturas: Remover", [&] {
    clViaturas vehicle;
    vehicle.bd = bd;
    vehicle.Matricula = "10-GJ-10";
    vehicle.Anular();
  });
  exchange::Profile profile;
  profile.name = "Cartão";
  profile.kind = "gastos";
  profile.learned["Motorista"] = {{"joao silva", "MT-77"}, {"ana sousa", "0002"}};
  exchange::SaveProfile(bd, profile);
  bd->ExecutarSql("", "INSERT INTO parvel_perfis (Nome, Perfil) VALUES (N'Outro', N'{\"Motorista\" : 77}')");
  const std::string total = Total();
  const Erased erased = EraseDriver(store, "MT-77");
  EXPECT_EQ(erased.code, "Ex-1");
  EXPECT_EQ(erased.places, 3);
  EXPECT_TRUE(erased.fromFile);
  EXPECT_EQ(Rows(bd, "SELECT Perfil FROM parvel_perfis WHERE Nome = N'Outro'"),
            (Table{{"{\"Motorista\" : 77}"}}));
  const std::string content = Contents(file) + Contents(file + "-wal");
  for (const char* gone : {"Silva", "SILVA", "Flores", "Travessa", "912345678", "retrato", "outro",
                           "carta de cond", "joao silva", "MT-77", "mt-77"})
    EXPECT_EQ(content.find(gone), std::string::npos) << gone;
  for (const char* stays : {"Ana Sousa", "ana sousa", "na caixa"})
    EXPECT_NE(content.find(stays), std::string::npos);
  EXPECT_EQ(Rows(bd, "SELECT Motorista, Obs, Custo FROM zor_PV_Gastos"),
            (Table{{"Ex-1", "pago por Ex-1, na caixa", "60"}}));
  EXPECT_EQ(Total(), total);
  // What is left can be undone under the new code, what is gone can't.
  const Slice slice = ReadOperations(*store, Filter());
  EXPECT_EQ(slice.operations.front().words, "Motoristas: dados pessoais apagados, Ex-1");
  for (const Operation& each : slice.operations) {
    if (each.words.starts_with("Motoristas") && each.record == "Ex-1") {
      EXPECT_THROW(Undo(store, each.number), platform::RuntimeError) << each.words;
    }
    if (each.words.starts_with("Gastos")) Undo(store, each.number);
  }
  EXPECT_TRUE(Rows(bd, "SELECT * FROM zor_PV_Gastos").empty());
  Undo(store, removal);
  EXPECT_EQ(Rows(bd, "SELECT Motorista FROM zor_PV_Gastos"), (Table(12, {"Ex-1"})));
  EXPECT_THROW(EraseDriver(store, "MT-77"), platform::RuntimeError);
}

TEST_F(ErasureTest, ASecondErasureTakesAnotherCodeAndTellsWhatStaysInTheFile) {
  AddDriver(bd, "0002", "Ana Sousa");
  EXPECT_EQ(EraseDriver(store, "0002").code, "Ex-1");
  const long made = Do("Motoristas: Confirmar", [&] {
    AddCode<clMarcas>(bd, "r", "Um");
    AddDriver(bd, "0003", "Rui Costa");
    bd->ExecutarSql(
        "", "INSERT INTO zor_PV_Multas (Motorista, Obs) VALUES (N'0003', N'Rui Costa por RUI COSTA, Rui')");
  });
  EXPECT_EQ(ReadSteps(*store, made).size(), 3U);
  const DataAccessRef others(embedded::Database::Open(file));
  RecordsetRef reading;
  const Snapshot snapshot(others);
  others->AbrirLeitura("", "SELECT * FROM zor_Funcionarios", reading);
  const Erased erased = EraseDriver(store, "0003");
  EXPECT_EQ(erased.code, "Ex-2");
  EXPECT_FALSE(erased.fromFile) << "another program still reads what was there";
  EXPECT_EQ(ReadSteps(*store, made).size(), 2U) << "what else was done with it stays";
  EXPECT_EQ(Rows(bd, "SELECT Motorista, Obs FROM zor_PV_Multas"), (Table{{"Ex-2", "Ex-2 por Ex-2, Rui"}}));
  Undo(store, made);
  EXPECT_TRUE(Rows(bd, "SELECT * FROM zor_PV_Multas").empty());
}

TEST_F(ErasureTest, OneOfManyRowsThatAreKeptTogetherIsTakenOutOfThem) {
  Do("Motoristas: Confirmar", [&] {
    for (int i = 0; i < 12; ++i) AddDriver(bd, "D" + std::to_string(i), "Nome de " + std::to_string(i));
  });
  const Tables before = Everything();
  const long removal = Do("Motoristas: Remover", [&] {
    bd->ExecutarSql("", "DELETE FROM zor_Funcionarios WHERE Codigo LIKE 'D%'");
  });
  const long undoing = Undo(store, removal);
  EXPECT_EQ(Everything(), before);
  EraseDriver(store, "D7");
  std::string kept;
  for (const long number : {removal, undoing})
    for (const Step& step : ReadSteps(*store, number))
      kept += std::to_string(step.before.size()) + "/" + std::to_string(step.after.size()) + " ";
  EXPECT_EQ(kept, "1/0 10/0 0/1 0/10 ");
  Undo(store, undoing);
  EXPECT_EQ(Rows(bd, "SELECT Codigo FROM zor_Funcionarios WHERE Codigo LIKE 'D%'").size(), 0U);
}

}  // namespace
}  // namespace history
