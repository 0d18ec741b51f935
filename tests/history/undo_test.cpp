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
  const std::string plate = plates[any(3)];
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
  name("Outra");
  EXPECT_EQ(Conflicts(*store, removal).front().now, "Outra");
}

}  // namespace
}  // namespace history
