// What the history keeps of each kind of write, and what is read of it, whole.

#include "history/drivers/driver_export.h"
#include "history/kept_fleet.h"
#include "history/undo.h"
#include "history/view/browser.h"
#include "history/view/life.h"
#include "history/view/periods.h"
#include "history/view/table_names.h"
#include "masterdata/code_table.h"
#include "support/files.h"
#include "support/whole_text.h"

namespace history {
namespace {

class WholeTest : public KeptFleetTest {
 protected:
  std::string Row(const std::vector<std::string>& cells) const {
    std::string text;
    for (const std::string& cell : cells) text += (text.empty() ? "" : " | ") + cell;
    return text + "\n";
  }
  std::string All(const std::string& statement) const {
    std::string text;
    for (const auto& row : Rows(bd, statement)) text += Row(row);
    return text;
  }
  /// Acts of every kind of write, from a driver's record to many rows at once.
  void Work() {
    FillDriver();
    Do("Marcas: Confirmar", [&] { AddCode<clMarcas>(bd, "r\"é", "Um\n\\\t dois"); });
    Do("Nada", [&] { AddCode<clMarcas>(bd, "r\"é", "Um\n\\\t dois"); });
    Do("Datas: Confirmar", [&] {
      bd->ExecutarSql(
          "",
          "UPDATE zor_PV_Viaturas SET DataPrxRev = '2024-05-06 07:08:09', KmPrxRev = -1234567.891, "
          "Obs = NULL WHERE Matricula = '12-AB-34'");
    });
    Do("Gastos: Confirmar", [&] {
      for (int day = 1; day <= 10; ++day)
        AddExpense(bd, "12-AB-34", Date::FromParts(2024, 3, day), "PORTAGEM", "1", "1,5", 0);
    });
    Do("Gastos: Alterar campo", [&] {
      bd->ExecutarSql("", "UPDATE zor_PV_Gastos SET Obs = N'via verde' WHERE TipoGasto = 'PORTAGEM'");
    });
    const long removal = Do("Gastos: Remover", [&] {
      AddCode<clMarcas>(bd, "s", "Outra");
      bd->ExecutarSql("", "DELETE FROM zor_PV_Gastos WHERE TipoGasto = 'PORTAGEM'");
    });
    Undo(store, removal);
    Do("Motoristas: Remover",
       [&] { bd->ExecutarSql("", "DELETE FROM zor_Funcionarios WHERE Codigo = '1'"); });
    Do("Revisões: Confirmar", [&] {
      bd->ExecutarSql("", "INSERT INTO zor_PV_Revisoes (Matricula, Custo) VALUES ('12-AB-34', 5.5)");
    });
    Do("Opções", [&] { bd->ExecutarSql("", "DELETE FROM parvel_opcoes"); });
    Do("Viaturas: Confirmar", [&] {
      for (int i = 0; i < 9; ++i) AddVehicle(bd, "V" + std::to_string(i), i);
    });
    Undo(store, Do("Viaturas: Remover", [&] {
           AddCode<clMarcas>(bd, "t", "Mais outra");
           bd->ExecutarSql("", "DELETE FROM zor_PV_Viaturas WHERE Matricula LIKE 'V%'");
         }));
    Batch batch(*store->inner());
    store->Note("Importação 7: mês.csv", "parvel_importacoes", "7");
    batch.Commit();
  }
};

TEST_F(WholeTest, EveryWriteIsKeptAsItWas) {
  Work();
  EXPECT_THROW(Do("Marcas", [&] { bd->ExecutarSql("", "INSERT INTO zor_PV_Marcas (Codigo) VALUES ('u')"); }),
               platform::RuntimeError)
      << "a row that the history could not tell";
  EXPECT_TRUE(Rows(bd, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo = 'u'").empty());
  ExpectWholeText(
      PARVEL_SOURCE_DIR "/tests/history/kept.txt",
      All("SELECT Id, Operacao, Momento, Operador, Posto, Texto, Registo, Anula, Tabela, Chave, Linhas, "
          "Antes, Depois FROM parvel_historico ORDER BY Id") +
          "= conteúdos\n" + All("SELECT Resumo FROM parvel_conteudos ORDER BY Resumo"));
}

TEST_F(WholeTest, WhatIsReadOfItIsWhatWasDone) {
  Work();
  Browser browser(store);
  browser.Ask({});
  while (!browser.AtEnd()) browser.ReadOn();
  std::string text;
  for (const Operation& each : browser.operations()) {
    if (each.number <= 6) continue;
    text += std::to_string(each.number) + " " + ShownMoment(each.moment) + " " + each.operador + " " +
            each.posto + ": " + ShownWords(each) + " (" + ShownState(each) + ")\n";
    for (const DetailLine& line : browser.DetailOf(each.number, each.number == 42 ? 0 : 3))
      text += "  " + line.record + ": " + line.words + "\n";
  }
  for (const auto& [table, key] :
       {std::pair("zor_Funcionarios", "mt-77"), {"zor_PV_Gastos", "3"}, {"zor_PV_Marcas", "s"}}) {
    text += std::string("= vida de ") + table + " " + key + "\n";
    for (const Change& change : ReadLife(*store, store->catalog().Get(table), key))
      text +=
          std::to_string(change.operation.number) + " " + change.operation.words + ": " + change.words + "\n";
  }
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/history/read.txt", text);
  EXPECT_EQ(LastToUndo(*store)->words, "Importação 7: mês.csv");
  EXPECT_EQ(ReadOperators(*store), std::vector<std::string>{"ana"});
  EXPECT_EQ(ReadLife(*store, store->catalog().Get("zor_PV_Gastos"), "3", 2).size(), 2U);
}

TEST_F(WholeTest, ADriversDataAreExportedInFull) {
  FillDriver();
  const auto add = [&](const char* table,
                       const std::vector<std::pair<const char*, platform::Variant>>& values) {
    RecordsetRef rows;
    bd->AbrirEdicao((std::string("SELECT * FROM ") + table).c_str(), rows);
    rows->AddNew();
    for (const auto& [name, value] : values) rows->Fields(name).SetValue(value);
    rows->Update();
  };
  add("zor_CartasCond",
      {{"Motorista", "MT-77"}, {"TipoCarta", 3}, {"DataValidade", Date::FromParts(2031, 1, 1)}});
  bd->ExecutarSql("", "UPDATE zor_Funcionarios SET Obs = N'<b>& ' WHERE Codigo = 'MT-77'");
  const std::string attached = folder.File("nota?.pdf");
  std::ofstream(attached) << "nota";
  for (const std::string& path : {folder.File("falta.pdf"), attached, attached})
    add("zor_PV_Attach", {{"Tipo", 20}, {"Codigo", "MT-77"}, {"Fx", path}});
  const std::string to = folder.File("dados");
  ExportDriver(*store, "MT-77", to);
  EXPECT_EQ(Contents(to + "/fotografia.jpg"), std::string("\xFF\xD8") + "outro");
  std::string text = Contents(to + "/motorista.json") + Contents(to + "/motorista.html");
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(to)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) text += name + "\n";
  for (std::size_t at; (at = text.find(folder.File(""))) != std::string::npos;)
    text.replace(at, folder.File("").size(), "PASTA/");
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/history/driver.txt", text);
}

TEST(HistoryViewTest, PeriodsNarrowAFilter) {
  std::string text;
  for (const Period& period : Periods()) {
    Filter filter;
    Apply(period, Date::FromParts(2024, 3, 15, 10, 30), filter);
    text += std::string(period.name) + " " + (filter.from ? filter.from->ToText() : "-") + " " +
            (filter.to ? filter.to->ToText() : "-") + ";";
  }
  EXPECT_EQ(text,
            "Desde sempre - -;Hoje 15-03-2024 -;Últimos 7 dias 09-03-2024 -;Últimos 30 dias 15-02-2024 -;"
            "Este ano 01-01-2024 -;O ano passado 01-01-2023 31-12-2023;");
}

TEST(HistoryViewTest, EveryListHasItsTable) {
  const std::pair<const char*, const char*> lists[] = {{"Viaturas", "zor_PV_Viaturas"},
                                                       {"Motoristas", "zor_Funcionarios"},
                                                       {"Apolices", "zor_PV_Seguros"},
                                                       {"Tacografos", "zor_PV_Viaturas"},
                                                       {"Selo", "zor_PV_Viaturas"},
                                                       {"TacMot", "zor_Funcionarios"},
                                                       {"AlertasViat", "zor_PV_Viaturas"},
                                                       {"AlertasMot", "zor_Funcionarios"},
                                                       {"AlertasAcess", "zor_PV_Acessorios"},
                                                       {"AlertasAp", "zor_PV_Viaturas"},
                                                       {"AlertasRev", "zor_PV_Viaturas"},
                                                       {"AlertasInsp", "zor_PV_Viaturas"},
                                                       {"Gastos", "zor_PV_Gastos"},
                                                       {"Marcas", "zor_PV_Marcas"},
                                                       {"nada", ""}};
  for (const auto& [list, table] : lists) EXPECT_EQ(TableOfList(list), table) << list;
  EXPECT_EQ(NameOfTable("ZOR_pv_seguros"), "Apólices");
  EXPECT_EQ(NameOfTable("outra"), "outra");
}

}  // namespace
}  // namespace history
