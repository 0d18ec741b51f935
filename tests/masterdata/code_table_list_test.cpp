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
  GridWindow form;
  VwLstViagens list;
};

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
  EXPECT_EQ(form.Rows(), "a|Viagem a|\nB|Outra|");
  EXPECT_EQ(host.owners.back(), nullptr);
  host.NextForm([&](platform::Form&) { Sql("Delete zor_PV_Viagens WHERE Codigo='a'"); });
  list.ICrmVwList_Novo();
  EXPECT_EQ(form.Rows(), "B|Outra|");
}

TEST_F(CodeTableListTest, RemovesWithoutAQuestionAndKeepsWhatTheDatabaseRefuses) {
  GridRow special(form.grid, 0, false, 1);
  list.ICrmVwList_Remover(&special);
  EXPECT_EQ(list.ICrmVwList_NumeroItens(), 2) << "it is no record";
  GridRow row = form.grid.RowAt(0);
  list.ICrmVwList_Remover(&row);
  EXPECT_EQ(form.Rows(), "B|Viagem B|");
  list.AnularRegisto("B'");
  EXPECT_EQ(list.ICrmVwList_NumeroItens(), 1);
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

}  // namespace
}  // namespace zorCrmParvel
