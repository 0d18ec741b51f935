#include "history/undo.h"

#include <random>

#include "documents/arquivo_digital.h"
#include "drivers/motoristas.h"
#include "events/event_list.h"
#include "events/gastos_form.h"
#include "events/upkeep.h"
#include "history/kept_fleet.h"
#include "history/reader.h"
#include "masterdata/code_table.h"
#include "support/errors.h"
#include "vehicles/viaturas.h"
#include "vehicles/viaturas_list.h"

namespace history {
namespace {

class UndoTest : public KeptFleetTest {
 protected:
  void RandomAct(std::mt19937& random);
};

void UndoTest::RandomAct(std::mt19937& random) {
  const std::vector<std::string> plates = {"12-AB-34", "10-GJ-10", "É-11"};
  const auto any = [&](unsigned below) { return random() % below; };
  const std::string& plate = plates[any(3)];
  platform::SGGrid* grid = nullptr;
  switch (any(9)) {
    case 0: {
      Gastos form;
      form.mybd = bd;
      form.Load();
      form.Carrega(0);
      form.Campo[0].Text = plate;
      form.Campo[4].Text = "GASOLEO";
      form.Campo[5].Text = std::to_string(any(50) + 1);
      form.Campo[6].Text = std::to_string(any(90) + 1);
      form.Campo[8].Text = std::to_string(10000 + any(9000));
      Press(form.botoes.btConf);
      return;
    }
    case 1:
      return AddVehicle(bd, plate, static_cast<int>(any(900)), 3);
    case 2: {
      clViaturas vehicle;
      vehicle.bd = bd;
      vehicle.Matricula = plate;
      vehicle.Anular();
      vehicle.Foto_Del();
      return;
    }
    case 3:
      return AddEvents(bd, plate);
    case 4: {
      clViaturas vehicle;
      vehicle.bd = bd;
      vehicle.Matricula = plate;
      vehicle.Foto_Add(FileWith(std::string(any(3) + 1, 'x') + '\0'));
      return;
    }
    case 5: {
      Cl_ArquivoDigital archive;
      archive.bd = bd;
      archive.Add(FileWith(std::string(any(4) + 1, 'y')), plate, 300, static_cast<int>(any(4)),
                  "Título \"é\"");
      scripted.AnswerInput("Outro " + std::to_string(any(9)));
      archive.MudaNomeDocumento(static_cast<int>(any(4)));
      return;
    }
    case 6: {
      Cl_ArquivoDigital archive;
      archive.bd = bd;
      archive.RemoverDocumento(static_cast<int>(any(4)));
      return;
    }
    case 7: {
      clMotoristas driver;
      driver.bd = bd;
      driver.Codigo = std::to_string(any(3));
      if (any(3) == 0) return static_cast<void>(driver.Anular());
      return AddDriver(bd, driver.Codigo, "Nome\n" + std::to_string(any(100)));
    }
    default: {
      platform::Form form;
      platform::SGGrid master{form, "GridMaster"};
      VwLstGastos list;
      list.mybd = bd;
      list.ICrmVwList_GridMaster(&master);
      list.ICrmVwList_Iniciar();
      grid = &master;
      if (grid->RowCount() == 0) return;
      platform::GridRow row = grid->RowAt(static_cast<long>(any(static_cast<unsigned>(grid->RowCount()))));
      list.ICrmVwList_Remover(&row);
    }
  }
}

TEST_F(UndoTest, RandomActsUndoneInReverseLeaveEveryTableAsItWas) {
  std::mt19937 random(20261125);
  std::vector<std::pair<long, Tables>> acts;  // with what was there before
  while (acts.size() < 120) {
    const Tables before = Everything();
    try {
      Do("Acto", [&] { RandomAct(random); });
    } catch (const platform::RuntimeError&) {
      // a handler's own error: what it wrote before stays, as one operation
    }
    const long number = store->LastOperation();
    EXPECT_EQ(number == 0, before == Everything());
    if (number != 0) acts.emplace_back(number, before);
  }
  const Tables last = Everything();
  bd.reset();
  store.reset();
  store = Open(file);  // as after a restart
  bd = DataAccessRef(store);
  for (auto act = acts.rbegin(); act != acts.rend(); ++act) {
    ASSERT_TRUE(Conflicts(*store, act->first).empty()) << act->first;
    Undo(store, act->first);
    ASSERT_EQ(Everything(), act->second) << act->first;
    ASSERT_THROW(Undo(store, act->first), platform::RuntimeError);
  }
  // The undoing can be undone in its turn.
  Slice slice;
  do {
    slice = ReadOperations(*store, {}, slice.next, 50);
    for (const Operation& each : slice.operations)
      if (each.undoes != 0) Undo(store, each.number);
  } while (slice.next != 0 && slice.operations.back().number > acts.back().first);
  EXPECT_EQ(Everything(), last);
}

TEST_F(UndoTest, AnExpenseInTheMiddleGoesAsIfItHadNotBeen) {
  const long first = Spend(60, 10500);
  Spend(70, 10900);
  EXPECT_EQ(Total(), "130");
  EXPECT_TRUE(Conflicts(*store, first).empty());
  Undo(store, first);
  EXPECT_EQ(Total(), "70");
  EXPECT_EQ(Rows(bd, "SELECT Custo FROM zor_PV_Gastos").size(), 1U);
}

TEST_F(UndoTest, WhatSomebodyChangedSinceIsNamed) {
  const auto name = [&](const char* text) {
    return Do("Marcas: Confirmar", [&] { AddCode<clMarcas>(bd, "r", text); });
  };
  name("Um");
  const long second = name("Dois");
  name("Três");
  const std::vector<Conflict> conflicts = Conflicts(*store, second);
  ASSERT_EQ(conflicts.size(), 1U);
  const Conflict& it = conflicts.front();
  EXPECT_EQ(it.table + it.key + it.column + it.now + it.written + it.before, "zor_PV_MarcasrNomeTrêsDoisUm");
  Undo(store, second);
  EXPECT_EQ(Rows(bd, "SELECT Nome FROM zor_PV_Marcas WHERE Codigo = 'r'").at(0).at(0), "Um");

  const long removal = Do("Remover", [&] { bd->ExecutarSql("", "Delete From zor_PV_Marcas"); });
  const auto told = [&](long operation) {
    std::string text;
    for (const Conflict& each : Conflicts(*store, operation))
      text += each.key + " " + each.column + ": " + each.now + "; ";
    return text;
  };
  EXPECT_EQ(told(second + 1), "r : (removido); ") << "a change of a row that is gone";
  EXPECT_EQ(told(removal), "");
  name("Outra");
  EXPECT_EQ(told(removal), "r Nome: Outra; ");
  name("Um");
  EXPECT_EQ(told(removal), "r : (já existe); ") << "though it holds the same";
  EXPECT_EQ(ErrorOf([&] { Conflicts(*store, 999); }),
            std::to_string(platform::kInvalidCall) + ": Não há no histórico uma operação com o número 999.");
}

TEST_F(UndoTest, ARowWithoutPlateIsKnownByWhatElseItHas) {
  const long added = Do("Multas: Confirmar", [&] {
    bd->ExecutarSql("", "INSERT INTO zor_PV_Multas (Motorista, ValorMulta) VALUES (N'1', 60)");
  });
  EXPECT_EQ(ReadOperation(*store, added)->words, "Multas: Confirmar, 1");
  Undo(store, added);
  EXPECT_TRUE(Rows(bd, "SELECT * FROM zor_PV_Multas").empty());
}

TEST_F(UndoTest, AWriteWithoutAnActThatFailsLeavesNothingBehind) {
  EXPECT_THROW(bd->ExecutarSql("", "UPDATE zor_PV_Marcas SET Codigo = NULL"), platform::RuntimeError);
  const DataAccessRef others(embedded::Database::Open(file));
  AddCode<clMarcas>(others, "x", "de outro");  // nothing is locked
  AddCode<clMarcas>(bd, "r", "Um");
  const Slice slice = ReadOperations(*store, Filter());
  EXPECT_EQ(slice.operations.front().words, "Gravação, r");
  EXPECT_EQ(ReadSteps(*store, slice.operations.front().number).size(), 1U);
}

TEST_F(UndoTest, TheLastToUndoIsOnesOwnThatStillStands) {
  const auto last = [&] {
    const auto operation = LastToUndo(*store);
    return operation ? operation->words : "";
  };
  const long first = Do("Marcas: Um", [&] { AddCode<clMarcas>(bd, "r", "Um"); });
  Options elsewhere;
  elsewhere.who = {"ana", "posto 2"};
  const auto other = std::make_shared<KeepingStore>(embedded::Database::Open(file), elsewhere);
  Act(other.get(), "Marcas: Dois", [&] { AddCode<clMarcas>(DataAccessRef(other), "s", "Dois"); });
  EXPECT_EQ(last(), "Marcas: Um, r");
  const long undoing = Undo(store, first);
  EXPECT_NE(last(), "Marcas: Um, r");
  Undo(store, undoing);
  EXPECT_EQ(last(), "Marcas: Um, r") << "its undoing was undone";
}

TEST_F(UndoTest, TheNewestActIsTheLastThatChangedAnything) {
  const auto name = [&] { AddCode<clMarcas>(bd, "r", "Um"); };
  const long first = Do("Marcas: Um", name);
  EXPECT_EQ(Do("Nada", name), 0);
  EXPECT_EQ(store->Newest().head, first);
  EXPECT_EQ(store->Newest().words, "Marcas: Um");
  EXPECT_TRUE(store->IsOwn(first));
  const long undoing = Undo(store, first);
  EXPECT_EQ(store->Newest().head, 0);
  EXPECT_TRUE(store->IsOwn(undoing));
  EXPECT_FALSE(store->IsOwn(undoing + 1));
}

TEST_F(UndoTest, WhatIsNotRememberedGoesWithTheActThatWroteItAsWell) {
  store->BeginAct("Opções");
  bd->ExecutarSql("", "INSERT INTO parvel_opcoes (Nome, Valor) VALUES (N'x', N'1')");
  store->AbandonAct();
  EXPECT_TRUE(Rows(bd, "SELECT Valor FROM parvel_opcoes WHERE Nome = N'x'").empty());
  Do("Opções", [&] { bd->ExecutarSql("", "INSERT INTO parvel_opcoes (Nome, Valor) VALUES (N'x', N'2')"); });
  EXPECT_EQ(Rows(bd, "SELECT Valor FROM parvel_opcoes WHERE Nome = N'x'"), (Table{{"2"}}));
}

}  // namespace
}  // namespace history
