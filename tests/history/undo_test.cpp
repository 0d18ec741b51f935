#include "history/undo.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <random>

#include "documents/arquivo_digital.h"
#include "drivers/motoristas.h"
#include "events/event_list.h"
#include "events/gastos_form.h"
#include "events/revisoes.h"
#include "history/act.h"
#include "history/reader.h"
#include "host/sistema.h"
#include "masterdata/code_table.h"
#include "support/database_test.h"
#include "support/temporary_folder.h"
#include "vehicles/viaturas.h"
#include "vehicles/viaturas_list.h"

namespace history {
namespace {

using namespace testing_support;
using namespace zorCrmParvel;
using platform::Date;

using Tables = std::map<std::string, Table>;

class UndoTest : public testing::Test {
 protected:
  UndoTest() { AddFleet(bd, 10000); }

  static std::shared_ptr<KeepingStore> Open(const std::string& file) {
    Options options;
    options.who = {"ana", "posto 1"};
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
    const std::string name = folder.File("f" + std::to_string(content.size()) + ".jpg");
    std::ofstream(name) << content;
    return name;
  }

  void RandomAct(std::mt19937& random);

  ScriptedHost scripted;
  PausingHost host{scripted};
  platform::HostInstallation installed{host};
  TemporaryFolder folder;
  std::string file = folder.File("frota.db");
  std::shared_ptr<KeepingStore> store = Open(file);
  DataAccessRef bd{store};
  Sistema sistema;
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

TEST_F(UndoTest, ALifeTellsEachChangeAndWho) {
  const tsql::Table& drivers = store->catalog().Get("zor_Funcionarios");
  Do("Motoristas: Confirmar", [&] { AddDriver(bd, "7", "Rui"); });
  Do("Motoristas: Confirmar", [&] { AddDriver(bd, "7", "Rui Costa"); });
  Do("Motoristas: Remover", [&] { bd->ExecutarSql("", "DELETE FROM zor_Funcionarios WHERE Codigo <> 'x'"); });
  const std::vector<Change> life = ReadLife(*store, drivers, "7");
  ASSERT_EQ(life.size(), 3U);
  EXPECT_NE(life[0].words.find("Removido: Codigo: 7; Nome: Rui Costa"), std::string::npos) << life[0].words;
  EXPECT_EQ(life[1].words, "Nome: Rui → Rui Costa");
  EXPECT_EQ(life[2].operation.words, "Motoristas: Confirmar, 7");
  EXPECT_EQ(life[2].operation.operador, "ana");
  Filter filter;
  filter.text = "s: remov";
  EXPECT_EQ(ReadOperations(*store, filter).operations.size(), 1U);
}

TEST_F(UndoTest, ManyRowsAreRecordedTogetherAndComeBack) {
  for (int i = 0; i < 1200; ++i) AddEvent<clRevisoes>(bd, "12-AB-34");
  const Tables before = Everything();
  const long removal = Do("Viaturas: Remover", [&] {
    clViaturas vehicle;
    vehicle.bd = bd;
    vehicle.Matricula = "12-AB-34";
    vehicle.Anular();
  });
  EXPECT_LT(ReadSteps(*store, removal).size(), 10U);
  Undo(store, removal);
  EXPECT_EQ(Everything(), before);
}

/// A ficha whose button writes, asks, and writes again.
class AskingForm : public platform::Form {
 public:
  explicit AskingForm(DataAccessRef data) : bd(std::move(data)) {}
  void Run(bool fails) {
    AddCode<clMarcas>(bd, "x", "antes");
    platform::MsgBox("Continuar?");
    AddCode<clMarcas>(bd, "y", "depois");
    if (fails) throw platform::RuntimeError(platform::kTypeMismatch);
  }
  DataAccessRef bd;
};

TEST_F(UndoTest, NoLockIsHeldWhileAMessageIsOnTheScreen) {
  AskingForm form(bd);
  const auto other = embedded::Database::Open(file);
  const DataAccessRef others(other);
  const auto nowThere = [&] {
    return Rows(others, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo IN ('x', 'y')").size();
  };
  class Looking : public ScriptedHost {
   public:
    std::function<void()> look;
    int MsgBox(const std::string&, int, const std::string&) override {
      look();
      return platform::kOk;
    }
  } looking;
  PausingHost pausing(looking);
  const platform::HostInstallation current(pausing);
  looking.look = [&] {
    EXPECT_EQ(nowThere(), 1U) << "what was written before the message is kept";
    AddCode<clMarcas>(others, "z", "de outro");
  };
  EXPECT_THROW(Do("Ficha: Confirmar", [&] { form.Run(true); }), platform::RuntimeError);
  EXPECT_EQ(nowThere(), 2U) << "an error of the handler's own leaves what was written before it";
  EXPECT_EQ(ReadSteps(*store, store->LastOperation()).size(), 2U) << "one operation of two units";
}

TEST_F(UndoTest, AnActIsInvisibleUntilItEnds) {
  const DataAccessRef others(embedded::Database::Open(file));
  Do("Gastos: Confirmar", [&] {
    AddCode<clMarcas>(bd, "x", "1");
    EXPECT_TRUE(Rows(others, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo = 'x'").empty());
  });
  EXPECT_EQ(Rows(others, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo = 'x'").size(), 1U);
}

TEST_F(UndoTest, WithoutATableNothingIsRecordedAndAllWorks) {
  embedded::OpenOptions old;
  old.schema =
      "-- versão 1\nCREATE TABLE zor_PV_Marcas (Codigo nvarchar(10) NOT NULL, Nome nvarchar(50) NULL, "
      "CONSTRAINT PK PRIMARY KEY (Codigo));";
  const auto plain = embedded::Database::Open(folder.File("b.db"), old);
  const auto keeping = std::make_shared<KeepingStore>(plain);
  EXPECT_FALSE(keeping->Keeps());
  AddCode<clMarcas>(DataAccessRef(keeping), "1", "Um");
  EXPECT_EQ(Rows(DataAccessRef(plain), "SELECT Nome FROM zor_PV_Marcas").size(), 1U);
}

}  // namespace
}  // namespace history
