#include "masterdata/code_table.h"

#include "masterdata/tipos_gastos.h"
#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class CodeTableTest : public RecordedTest {
 protected:
  CodeTableTest() { marca.bd = bd; }

  void Write(const std::string& codigo, const std::string& nome) {
    marca.Codigo = codigo;
    marca.Descrição = nome;
    ASSERT_TRUE(marca.Escrever());
  }

  clMarcas marca;
};

TEST_F(CodeTableTest, WritesWhatFitsAndClearsTheNameOfACodeThatIsNotThere) {
  Write("ABCDEFGHIJKLMNO", std::string(60, 'n'));
  EXPECT_EQ(Rows(bd, "SELECT Codigo, Nome FROM zor_PV_Marcas"),
            (Table{{"ABCDEFGHIJ", std::string(50, 'n')}}));
  Sql("Delete zor_PV_Marcas");
  Write("REN", "Renault");
  Write("ren ", "Renault S.A.");  // the same code to the database: only the name changes
  EXPECT_EQ(Rows(bd, "SELECT Codigo, Nome FROM zor_PV_Marcas"), (Table{{"REN", "Renault S.A."}}));
  marca.Codigo = "NADA";
  EXPECT_FALSE(marca.Ler());
  EXPECT_EQ(marca.Descrição, "");
  EXPECT_EQ(marca.Codigo, "NADA");
  EXPECT_TRUE(marca.Anular()) << "removing nothing is no failure";
}

TEST_F(CodeTableTest, WalksInTheDatabasesOrder) {
  for (const char* code : {"b", "A", "á", "zzzzzzzzzzzzz"}) Write(code, code);
  marca.Codigo = "";
  std::string walk;
  while (marca.LerProximo()) walk += marca.Codigo + " ";
  EXPECT_EQ(walk, "A á b zzzzzzzzzz ");
  EXPECT_EQ(marca.Codigo, "zzzzzzzzzz") << "at the end the code stays";
  EXPECT_EQ(marca.Descrição, "") << "and the name is cleared";
  EXPECT_TRUE(marca.LerAnterior());
  EXPECT_EQ(marca.Codigo, "b");
  EXPECT_TRUE(marca.LerUltimo());
  EXPECT_EQ(marca.Codigo, "zzzzzzzzzz");
  EXPECT_TRUE(marca.LerPrimeiro());
  EXPECT_FALSE(marca.LerAnterior());
  EXPECT_EQ(marca.Codigo, "A");
  EXPECT_FALSE(marca.MostraMapa()) << "though it is shown";
}

TEST_F(CodeTableTest, AnApostropheANullAndNoDatabaseAreErrors) {
  Write("A", "Alfa");
  bd->statements.clear();
  marca.Codigo = "A' or '1'='1";
  EXPECT_THROW(marca.Ler(), platform::RuntimeError);
  EXPECT_THROW(marca.Escrever(), platform::RuntimeError);
  EXPECT_FALSE(marca.Anular());
  EXPECT_TRUE(bd->statements.empty());
  EXPECT_EQ(Rows(bd, "SELECT Codigo FROM zor_PV_Marcas").size(), 1U);
  Sql("UPDATE zor_PV_Marcas SET Nome=NULL");
  marca.Codigo = "A";
  EXPECT_EQ(NumberOf([&] { marca.Ler(); }), platform::kInvalidUseOfNull);
  marca.bd = {};
  EXPECT_THROW(marca.Ler(), platform::RuntimeError);
  EXPECT_FALSE(marca.Anular());
}

TEST_F(CodeTableTest, ExpenseTypesKeepTheirFuelMarkWhenACodeIsUnknown) {
  AddExpenseTypes(bd);
  clTiposGastos lido;
  lido.bd = bd;
  lido.Codigo = "gasoleo";
  ASSERT_TRUE(lido.Ler());
  lido.Codigo = "NADA";
  EXPECT_FALSE(lido.Ler());
  EXPECT_EQ(lido.Descrição + lido.CustoUnit.ToText() + std::to_string(lido.Combustivel), "01");
  EXPECT_EQ(bd->statements.back(), "SELECT *  From zor_PV_TiposGastos WHERE     (Codigo = N'NADA')");
}

}  // namespace
}  // namespace zorCrmParvel
