#include "masterdata/code_table_list.h"

#include "masterdata/code_table_form.h"
#include "support/database_test.h"
#include "support/grid_window.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class CodeTableListTest : public RecordedTest {
 protected:
  CodeTableListTest() {
    for (const char* code : {"B", "a"}) AddCode<clViagens>(bd, code, std::string("Viagem ") + code);
    list.mybd = bd;
    form.Start(list);
  }
  std::string Shown() {
    std::string text;
    for (long row = 0; row < form.grid.RowCount(); ++row)
      text += form.grid.CellText(row, 0) + "=" + form.grid.CellText(row, 1) + ";";
    return text;
  }

  GridWindow form;
  VwLstViagens list;
};

TEST_F(CodeTableListTest, ShowsItsRowsAndColumns) {
  EXPECT_EQ(bd->statements.back(),
            " SELECT zor_PV_Viagens.Codigo AS Codigo, zor_PV_Viagens.Nome AS Nome from zor_PV_Viagens  Order "
            "by zor_PV_Viagens.Codigo");
  EXPECT_EQ(Shown(), "a=Viagem a;B=Viagem B;");
  EXPECT_EQ(list.ICrmVwList_NumeroItens(), 2);
  const auto& columns = form.grid.Columns();
  ASSERT_EQ(columns.size(), 2U);
  EXPECT_EQ(columns[0].caption, "Código");
  EXPECT_EQ(columns[0].width, 2500);
  EXPECT_EQ(columns[1].caption, "Designação");
  EXPECT_EQ(columns[1].width, 4500);
}

TEST_F(CodeTableListTest, EditsTheRowAndReloadsWhateverHappened) {
  GridRow row = form.grid.RowAt(1);
  host.NextForm([&](platform::Form& shown) {
    auto& ficha = dynamic_cast<Viagens&>(shown);
    EXPECT_EQ(ficha.Campo[1].Text, "Viagem B");
    Type(ficha.Campo[1], "Outra");
    Press(ficha.botoes.btConf);
    Press(ficha.botoes.btSair);
  });
  list.ICrmVwList_Editar(&row);
  EXPECT_EQ(Shown(), "a=Viagem a;B=Outra;");
  EXPECT_EQ(host.owners.back(), nullptr);
  host.NextForm([&](platform::Form&) { Sql("Delete zor_PV_Viagens WHERE Codigo='a'"); });
  list.ICrmVwList_Novo();
  EXPECT_EQ(Shown(), "B=Outra;");
}

TEST_F(CodeTableListTest, RemovesWithoutAQuestionAndKeepsWhatTheDatabaseRefuses) {
  GridRow row = form.grid.RowAt(0);
  list.ICrmVwList_Remover(&row);
  EXPECT_EQ(Shown(), "B=Viagem B;");
  list.AnularRegisto("B'");
  EXPECT_EQ(list.ICrmVwList_NumeroItens(), 1);
}

TEST_F(CodeTableListTest, RowsThatAreNoRecordsDoNothing) {
  const auto sent = bd->statements.size();
  GridRow header(form.grid, 0, true);
  GridRow special(form.grid, 0, false, 1);
  for (GridRow* row : {static_cast<GridRow*>(nullptr), &header, &special}) {
    list.ICrmVwList_Editar(row);
    list.ICrmVwList_Remover(row);
  }
  EXPECT_EQ(bd->statements.size(), sent);
}

TEST_F(CodeTableListTest, ErrorsCarryTheListAndTheVerb) {
  const auto sourceOf = [](const std::function<void()>& act) { return FailureOf(act).source(); };
  VwLstTiposSeguro broken;
  GridRow row = form.grid.RowAt(0);
  EXPECT_EQ(sourceOf([&] { broken.ICrmVwList_Iniciar(); }), "Tipos de Apólice::Iniciar");
  EXPECT_EQ(sourceOf([&] { broken.ICrmVwList_Remover(&row); }), "Tipos de ApóliceRemover");
  EXPECT_EQ(sourceOf([&] { broken.ICrmVwList_Editar(&row); }), "Tipos de ApóliceEditar");
  host.NextForm([](platform::Form&) {});
  EXPECT_EQ(sourceOf([&] { broken.ICrmVwList_Novo(); }), "Tipos de ApóliceNovo");
  broken.ICrmVwList_Processar();
}

TEST(ListView, TheEmptyFrameDoesNothing) {
  clListView list;
  ICrmVwList& view = list;
  GridWindow form;
  view.ICrmVwList_GridMaster(&form.grid);
  EXPECT_EQ(view.ICrmVwList_GridMaster(), nullptr);
  EXPECT_EQ(view.ICrmVwList_Name(), "");
  EXPECT_EQ(view.ICrmVwList_NumeroItens(), 0);
  view.ICrmVwList_Iniciar();
  view.ICrmVwList_Editar(nullptr);
}

}  // namespace
}  // namespace zorCrmParvel
