#include "history/act.h"

#include "drivers/motoristas.h"
#include "events/upkeep.h"
#include "history/kept_fleet.h"
#include "history/retention.h"
#include "history/undo.h"
#include "history/view/life.h"
#include "masterdata/code_table.h"
#include "vehicles/viaturas.h"

namespace history {
namespace {

using ActTest = KeptFleetTest;

TEST_F(ActTest, ALifeTellsEachChangeAndWho) {
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

TEST_F(ActTest, ManyRowsAreRecordedTogetherAndComeBack) {
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

TEST_F(ActTest, NoLockIsHeldWhileAMessageIsOnTheScreen) {
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

TEST_F(ActTest, WhateverTheUserIsAskedBeforeItNothingIsHeld) {
  const DataAccessRef others(embedded::Database::Open(file));
  class Looking : public ScriptedHost {
   public:
    std::function<void()> look;
    std::string InputBox(const std::string&, const std::string&, const std::string&) override {
      return look(), "a";
    }
    std::optional<std::string> OpenFile(const platform::FileDialog&) override { return look(), "b"; }
    void ShowModal(platform::Form&, platform::Form*) override { look(); }
    std::string ShowLookup(platform::ListaPesquisa&) override { return look(), "c"; }
    void ShowReport(platform::MapaListagem&) override { look(); }
    void OpenDocument(const std::string&) override { look(); }
  } looking;
  PausingHost pausing(looking);
  const platform::HostInstallation current(pausing);
  platform::Form form;
  platform::ListaPesquisa list;
  platform::MapaListagem report;
  const std::function<std::string()> questions[] = {[&] { return pausing.InputBox("", "", ""); },
                                                    [&] { return pausing.OpenFile({}).value_or(""); },
                                                    [&] { return pausing.ShowModal(form, nullptr), "-"; },
                                                    [&] { return pausing.ShowLookup(list); },
                                                    [&] { return pausing.ShowReport(report), "-"; },
                                                    [&] { return pausing.OpenDocument("x"), "-"; }};
  std::string answers;
  int code = 0;
  for (const auto& question : questions)
    Do("Acto", [&] {
      AddCode<clMarcas>(bd, "q" + std::to_string(++code), "antes");
      looking.look = [&] {
        EXPECT_EQ(Rows(others, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo LIKE 'q%'").size(),
                  static_cast<std::size_t>(code));
      };
      answers += question();
    });
  EXPECT_EQ(answers, "ab-c--");
  EXPECT_EQ(pausing.TemporaryFolder(), looking.TemporaryFolder());
  EXPECT_EQ(pausing.Now(), looking.Now());
}

TEST_F(ActTest, AnActIsInvisibleUntilItEnds) {
  const DataAccessRef others(embedded::Database::Open(file));
  Do("Gastos: Confirmar", [&] {
    AddCode<clMarcas>(bd, "x", "1");
    EXPECT_TRUE(Rows(others, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo = 'x'").empty());
  });
  EXPECT_EQ(Rows(others, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo = 'x'").size(), 1U);
}

TEST_F(ActTest, ABatchIsKeptWithItsRecordOrNotAtAll) {
  const DataAccessRef others(embedded::Database::Open(file));
  const auto there = [&] {
    return Rows(others, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo = 'x'").size();
  };
  {
    zorCrmParvel::Batch left(*store);
    AddCode<clMarcas>(bd, "x", "1");
  }
  EXPECT_EQ(Rows(bd, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo = 'x'").size(), 0U);
  zorCrmParvel::Batch batch(*store);
  AddCode<clMarcas>(bd, "x", "1");
  EXPECT_EQ(there(), 0U);
  store->BeginAct("Marcas: Confirmar");
  AddCode<clMarcas>(bd, "y", "1");
  store->AbandonAct();  // the batch decides
  batch.Commit();
  EXPECT_EQ(there(), 1U);
  EXPECT_EQ(Rows(others, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo = 'y'").size(), 1U);
  Undo(store, store->LastOperation());
  EXPECT_EQ(there(), 0U);
}

TEST_F(ActTest, WithoutATableNothingIsRecordedAndAllWorks) {
  const auto plain = BareDatabase();
  const auto keeping = std::make_shared<KeepingStore>(plain);
  EXPECT_FALSE(keeping->Keeps());
  EXPECT_EQ(ReadSettings(DataAccessRef(plain)), Settings());
  EXPECT_TRUE(ReadOperations(*keeping, Filter()).operations.empty());
  EXPECT_TRUE(ReadOperators(*keeping).empty());
  EXPECT_TRUE(ReadLife(*keeping, keeping->catalog().Get("zor_PV_Marcas"), "1").empty());
  EXPECT_EQ(ShownSize(SizeOf(*keeping)), "O histórico está vazio.");
  EXPECT_EQ(ClearBefore(*keeping, Clock()).operations + KeepWithin(*keeping, {}, Clock()).operations, 0);
  AddCode<clMarcas>(DataAccessRef(keeping), "1", "Um");
  EXPECT_EQ(Rows(DataAccessRef(plain), "SELECT Nome FROM zor_PV_Marcas").size(), 1U);
}

}  // namespace
}  // namespace history
