// What is remembered is kept small, told to those who wrote over each other, and forgotten where the law
// asks.

#include "events/cost_sums.h"
#include "events/upkeep.h"
#include "history/drivers/driver_activity.h"
#include "history/figures.h"
#include "history/kept_fleet.h"
#include "history/outside.h"
#include "history/overwritten.h"
#include "history/retention.h"
#include "history/undo.h"
#include "masterdata/code_table.h"

namespace history {
namespace {

class KeepingTest : public KeptFleetTest {
 protected:
  std::shared_ptr<KeepingStore> Other(const char* who) {
    Options options;
    options.who = {who, "posto 2"};
    return std::make_shared<KeepingStore>(embedded::Database::Open(file), options);
  }

  /// Forgets how the fleet came to be.
  void BeginAnew() { store->inner()->ExecutarSql("", "DELETE FROM parvel_historico"); }
};

TEST_F(KeepingTest, DriversWithoutEventsForLongAreListed) {
  FillDriver();
  AddDriver(bd, "0002", "Ana");
  const auto quiet = [&](Date day) {
    std::string codes;
    for (const QuietDriver& each : DriversQuietSince(*store, day))
      codes += each.code + (each.last ? " " + each.last->ToText() : "") + ";";
    return codes;
  };
  const Date event = Date::FromParts(2024, 2, 1);
  EXPECT_EQ(quiet(event), "0002;1;");
  bd->ExecutarSql("", "UPDATE zor_PV_Gastos SET Motorista = N'mt-77'");
  EXPECT_EQ(quiet(event), "0002;1;") << "codes are one in any letters";
  EXPECT_EQ(NameOfDriver(*store, "0002"), "Ana");
  EXPECT_EQ(NameOfDriver(*store, "0003"), std::nullopt);
  EXPECT_EQ(quiet(event.AddDays(1)), "0002;1;MT-77 01-02-2024;");
  bd->ExecutarSql("", "INSERT INTO zor_PV_Multas (Motorista, Data) VALUES (N'0002', '2024-01-31')");
  bd->ExecutarSql("", "INSERT INTO zor_PV_Multas (Motorista, Data) VALUES (N'MT-77', '2024-02-03')");
  bd->ExecutarSql("", "INSERT INTO zor_PV_Sinistros (Motorista, Data) VALUES (N'MT-77', '2024-01-03')");
  EXPECT_EQ(quiet(Date::FromParts(2025, 1, 1)), "1;0002 31-01-2024;MT-77 03-02-2024;");
}

TEST_F(KeepingTest, WhoWritesOverWhatOthersStoredIsTold) {
  Do("Marcas: Confirmar", [&] { AddCode<clMarcas>(bd, "r", "Um"); });
  Do("Ficha: abrir", [&] { Rows(bd, "SELECT * FROM zor_PV_Marcas"); });
  const long seen = store->Mark();
  const auto others = Other("rui");
  Act(others.get(), "Marcas: Confirmar", [&] { AddCode<clMarcas>(DataAccessRef(others), "r", "Dois"); });
  const long ours = Do("Marcas: Confirmar", [&] { AddCode<clMarcas>(bd, "r", "Três"); });
  const std::vector<Overwritten> lost = OverwrittenBy(*store, ours, seen);
  ASSERT_EQ(lost.size(), 1U);
  EXPECT_EQ(lost[0].by.words, "Marcas: Confirmar, r");
  EXPECT_EQ(lost[0].by.operador + lost[0].theirs.ToText() + lost[0].ours.ToText(), "ruiDoisTrês");
  EXPECT_TRUE(OverwrittenBy(*store, ours, ours).empty());
  const long again = Do("Marcas: Confirmar", [&] { AddCode<clMarcas>(bd, "r", "Quatro"); });
  EXPECT_TRUE(OverwrittenBy(*store, again, seen + 1).empty()) << "one's own";
  PutBack(*store, lost[0]);
  EXPECT_EQ(Rows(bd, "SELECT Nome FROM zor_PV_Marcas WHERE Codigo = 'r'").at(0).at(0), "Dois");
}

TEST_F(KeepingTest, TwoWhoSaveExpensesOfOneVehicleLeaveItsFiguresRight) {
  const auto others = Other("rui");
  for (int i = 0; i < 10; ++i) {
    Spend(60 + i, 10500 + 100 * i);
    Act(others.get(), "Gastos: Confirmar", [&] {
      AddExpense(DataAccessRef(others), "12-AB-34", Date::FromParts(2024, 3, 1 + i), "GASOLEO", "40", "10",
                 10550 + i);
      RecalcularViatura(DataAccessRef(others), "12-AB-34");
    });
  }
  EXPECT_TRUE(CheckFigures(store, false).empty());
  bd->ExecutarSql("", "UPDATE zor_PV_Viaturas SET CustoTotal = 166 WHERE Matricula = '12-AB-34'");
  for (const bool correct : {false, true}) {
    const auto wrong = CheckFigures(store, correct);
    ASSERT_EQ(wrong.size(), 1U);
    EXPECT_EQ(wrong[0].plate + " " + wrong[0].lines.front().substr(0, 16), "12-AB-34 CustoTotal: 166 ");
  }
  EXPECT_TRUE(CheckFigures(store, false).empty());
  EventOf<clRevisoes> service(bd, "12-AB-34");
  service.Custo = platform::Currency(1000);
  service.Escrever();
  const auto without = Tools::SomaCustoSemRevisoes(bd, "12-AB-34");
  const auto with = Tools::SomaCustoComRevisoes(bd, "12-AB-34");
  EXPECT_EQ(with, without + platform::Currency(1000));
  EXPECT_TRUE(CheckFigures(store, false).empty());
  GuardarCustoTotal(bd, "12-AB-34", with);
  EXPECT_TRUE(CheckFigures(store, true).empty()) << "as the ficha of a revision leaves it";
  EXPECT_EQ(Rows(bd, "SELECT CustoTotal FROM zor_PV_Viaturas").at(0).at(0), with.ToText());
  GuardarCustoTotal(bd, "12-AB-34", with + platform::Currency(1));
  EXPECT_EQ(CheckFigures(store, true).size(), 1U);
  EXPECT_EQ(Rows(bd, "SELECT CustoTotal FROM zor_PV_Viaturas").at(0).at(0), without.ToText());
}

TEST_F(KeepingTest, WhatIsOlderThanTheOfficeKeepsGoesDocumentsFirst) {
  BeginAnew();
  Date now = Date::FromParts(2018, 5, 1);
  Options options;
  options.who = {"ana", "posto 1"};
  options.clock = [&] { return now; };
  const auto old = std::make_shared<KeepingStore>(embedded::Database::Open(file), options);
  const DataAccessRef past(old);
  const auto remove = [&](const std::string& content) {
    Cl_ArquivoDigital archive;
    archive.bd = past;
    Act(old.get(), "Arquivo", [&] { archive.Add(FileWith(content), "12-AB-34", 300, 0, content); });
    Act(old.get(), "Remover", [&] { past->ExecutarSql("", "DELETE FROM zor_ArquivoDigital"); });
    return old->LastOperation();
  };
  const long first = remove("velho");
  now = Date::FromParts(2023, 5, 1);
  const long second = remove("documento");
  now = Date::FromParts(2022, 1, 1);  // a clock that was put back
  const long third = remove("recente!");
  const Cleared cleared = KeepWithin(*old, {.years = 6, .documentYears = 2}, Date::FromParts(2024, 4, 1));
  EXPECT_EQ(std::pair(cleared.operations, cleared.documents), std::pair(0L, 1L));
  EXPECT_EQ(ShownSize(SizeOf(*old)),
            "6 operações desde 01-05-2018, 6 linhas; 2 documentos removidos ainda se podem repor.");
  EXPECT_THROW(Undo(old, first), platform::RuntimeError);
  const Cleared more = KeepWithin(*old, {.years = 4, .documentYears = 0}, Date::FromParts(2024, 4, 1));
  EXPECT_EQ(std::pair(more.operations, more.documents), std::pair(2L, 0L));
  EXPECT_FALSE(ReadOperation(*old, first));
  for (const long kept : {second, third}) Undo(old, kept);
  EXPECT_EQ(Rows(bd, "SELECT zor_ArquivoDigital_Titulo FROM zor_ArquivoDigital").size(), 2U);
}

TEST_F(KeepingTest, AnOfficeThatTurnsTheHistoryOffIsNotRemembered) {
  WriteSettings(bd, {.records = false, .years = 7});
  EXPECT_EQ(ReadSettings(bd), (Settings{.records = false, .years = 7}));
  store->LookAtSettings();
  EXPECT_EQ(Do("Marcas: Confirmar", [&] { AddCode<clMarcas>(bd, "r", "Um"); }), 0);
  EXPECT_TRUE(store->HasHistory());
}

TEST_F(KeepingTest, WhatIsWrittenPastTheHistoryIsUndoneByItsOwnMeans) {
  {
    Batch batch(*store->inner());
    store->Note("Importação 7: mês.csv", "parvel_importacoes", "7");
    batch.Commit();
  }
  const long noted = store->LastOperation();
  SetUndoing("parvel_importacoes", [](const auto& inner, const std::string& key, const auto& beforeCommit) {
    Batch batch(*inner);
    beforeCommit("Anular importação " + key);
    batch.Commit();
    return std::vector<std::string>{"linha 3"};
  });
  std::vector<std::string> kept;
  const long undoing = Undo(store, noted, &kept);
  EXPECT_EQ(kept, std::vector<std::string>{"linha 3"});
  EXPECT_EQ(ReadOperation(*store, noted)->undoneBy, undoing);
  EXPECT_THROW(Undo(store, noted), platform::RuntimeError);
  EXPECT_THROW(Undo(store, undoing), platform::RuntimeError);
}

}  // namespace
}  // namespace history
