#include "masterdata/code_table_form.h"

#include "host/sistema.h"
#include "masterdata/tipos_gastos_form.h"
#include "support/database_test.h"
#include "support/screen.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class CodeTableFormTest : public DatabaseTest {
 protected:
  CodeTableFormTest() {
    for (const char* code : {"A", "B", "C"}) AddCode<clMarcas>(bd, code, std::string("Marca ") + code);
    form.mybd = bd;
    form.Load();
  }

  Table Marcas_() { return Rows(bd, "SELECT Codigo, Nome FROM zor_PV_Marcas ORDER BY Codigo"); }
  void GoTo(const std::string& code) { Enter(form.Campo[0], code); }
  std::string Screen() { return form.Campo[0].Text + "|" + form.Campo[1].Text; }

  Marcas form;
};

TEST_F(CodeTableFormTest, LeavingTheCodeShowsItsRecordOrBeginsANewOne) {
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
  GoTo("b");
  EXPECT_EQ(Screen(), "b|Marca B");
  EXPECT_EQ(form.ActiveControl(), &form.Campo[1]);
  form.UserKey(platform::kKeyTab, true);
  GoTo("N");
  EXPECT_EQ(Screen(), "N|Marca B") << "an unknown code leaves the name as it stands";
  Type(form.Campo[1], "Nova");
  Press(form.botoes.btConf);
  EXPECT_EQ(Screen(), "|");
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
  EXPECT_EQ(Marcas_().back(), (std::vector<std::string>{"N", "Nova"}));
  GoTo("A");
  form.UserKey(platform::kKeyEscape);
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
  EXPECT_FALSE(form.IsClosed());
  form.UserKey(platform::kKeyEscape);
  EXPECT_TRUE(form.IsClosed());
}

TEST_F(CodeTableFormTest, AnEmptyCodeHoldsTheFocusAgainstEverythingButLeaving) {
  for (const char* code : {"", "   "}) {
    Enter(form.Campo[0], code);
    Press(form.botoes.btConf);
    Press(form.botoes.btNavega[0]);
    Press(form.btLista[0]);
    EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
    EXPECT_EQ(Marcas_().size(), 3U);
  }
  Press(form.botoes.btSair);
  EXPECT_TRUE(form.IsClosed());
}

TEST_F(CodeTableFormTest, ArrowsAskAboutAChangedNameAndMoveInAnyCase) {
  const std::string question = "A informação relativa à Marca foi alterada.\n\rPretende gravar?";
  GoTo("A");
  Type(form.Campo[1], "Alfa");
  host.ExpectBox(question, platform::kOk);
  Press(form.botoes.btNavega[2]);
  EXPECT_EQ(Screen(), "B|Marca B");
  Type(form.Campo[1], "Beta");
  host.ExpectBox(question, platform::kCancel);
  Press(form.botoes.btNavega[2]);
  EXPECT_EQ(Screen(), "C|Marca C");
  EXPECT_EQ(host.boxes.back().style, 321);

  Type(form.Campo[1], "Outra");
  Press(form.botoes.btCancelar);
  EXPECT_EQ(Screen(), "|") << "clearing asks nothing";
  GoTo("N");
  host.ExpectBox(question, platform::kCancel);
  Press(form.botoes.btNavega[0]);  // the name of the last record is still the one to compare with
  GoTo("A");
  Type(form.Campo[1], "Outra");
  Press(form.botoes.btSair);
  EXPECT_EQ(Marcas_(), (Table{{"A", "Alfa"}, {"B", "Marca B"}, {"C", "Marca C"}}));
}

TEST_F(CodeTableFormTest, RemovesAfterAQuestion) {
  const std::string question = "Vai proceder à anulação da Marca!\n\rPretende continuar?";
  GoTo("B");
  host.ExpectBox(question, platform::kCancel);
  Press(form.botoes.btAnular);
  EXPECT_EQ(Screen(), "B|Marca B");
  host.ExpectBox(question, platform::kOk);
  Press(form.botoes.btAnular);
  EXPECT_EQ(Screen(), "|");
  EXPECT_EQ(Marcas_(), (Table{{"A", "Marca A"}, {"C", "Marca C"}}));
  GoTo("A");
  form.Campo[0].Text = "C";  // set by a program, which doesn't leave the field
  host.ExpectBox(question, platform::kOk);
  Press(form.botoes.btAnular);
  EXPECT_EQ(Marcas_(), (Table{{"A", "Marca A"}})) << "what stands on the screen goes";
}

class TiposGastosTest : public DatabaseTest {
 protected:
  TiposGastosTest() {
    form.mybd = bd;
    form.Load();
  }
  TiposGastos form;
};

TEST_F(TiposGastosTest, AChangedCostAloneIsDroppedWithoutAQuestion) {
  AddExpenseTypes(bd);
  Enter(form.Campo[0], "GASOLEO");
  EXPECT_EQ(form.Campo[2].DisplayText(), "1,659");
  Type(form.Campo[2], "9");
  Press(form.botoes.btNavega[0]);
  EXPECT_EQ(form.Campo[2].Text, "1,659");
}

TEST_F(TiposGastosTest, AnEmptyCostIsZeroAndATextIsRefusedWithTheScreenKept) {
  Type(form.Campo[0], "PORT");
  Type(form.Campo[2], "muito");
  EXPECT_THROW(Press(form.botoes.btConf), platform::RuntimeError);
  EXPECT_EQ(form.Campo[0].Text, "PORT");
  EXPECT_EQ(form.Campo[2].Text, "muito");
  Type(form.Campo[2], "");
  Press(form.botoes.btConf);
  EXPECT_EQ(Rows(bd, "SELECT * FROM zor_PV_TiposGastos"), (Table{{"PORT", "", "0", "0"}}));
}

}  // namespace
}  // namespace zorCrmParvel
