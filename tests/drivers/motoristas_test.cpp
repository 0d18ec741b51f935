#include "drivers/motoristas.h"

#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using platform::Date;
using namespace testing_support;

class MotoristasTest : public RecordedTest {
 protected:
  MotoristasTest() {
    motorista.bd = bd;
    motorista.Codigo = "7";
  }
  void AddPerson() {
    pessoal->ExecutarSql(
        "",
        "INSERT INTO Func1 (Nfunc, Nome, Morada, Localid, CdPostal, NFiscal, DtNasc, BI, DtBI, Emissao, "
        "Telefone, Telemove, Email, Passpo, NUMERO_CARTAO_CIDADAO) VALUES ('7', 'Ana do Pessoal', 'Rua', "
        "'Porto', '4000-001', '1', '1980.05.06', '2', NULL, 'Porto', '3', '4', 'a@b.pt', '5', '6')");
  }
  DataAccessRef pessoal = MemoryDatabase();
  clMotoristas motorista;
};

TEST_F(MotoristasTest, ReadsAndWritesTheFleetsOwnTable) {
  motorista.Descrição = "Ana";
  motorista.DataValBI = Date::FromParts(2030, 1, 2);
  motorista.TipoCartaCond = 4;
  motorista.NoCartaoCondutor = "12345678901234567890";  // cut to its column
  motorista.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Nome, DataPassa, ValidadePassa, DataBI, DataValBI FROM zor_Funcionarios"),
            (Table{{"Ana", "NULL", "NULL", "00:00:00", "02-01-2030"}}));
  Sql("UPDATE zor_Funcionarios SET DataBI=NULL, TipoCartaCond=NULL, EmissaoBI=NULL");
  bd->statements.clear();
  clMotoristas lido;
  lido.bd = bd;
  lido.Codigo = "7";
  lido.LeuPV = true;
  ASSERT_TRUE(lido.Ler());
  EXPECT_EQ(bd->statements.back(), "SELECT *  From zor_Funcionarios WHERE     (Codigo = N'7')");
  EXPECT_FALSE(lido.LeuPV);
  EXPECT_EQ(lido.Descrição, "Ana");
  EXPECT_EQ(lido.TipoCartaCond, 0);
  EXPECT_EQ(lido.DataValBI, Date::FromParts(2030, 1, 2));
  Sql("UPDATE zor_Funcionarios SET DGV=NULL");
  EXPECT_THROW(lido.Ler(), platform::RuntimeError);
}

TEST_F(MotoristasTest, ThePersonnelDataWinWhereTheyStand) {
  motorista.LerSal = true;
  motorista.bdSal = pessoal;
  AddDriver(bd, "7", "Ana da Frota");
  EXPECT_FALSE(motorista.Ler()) << "who isn't in the personnel table doesn't exist, whatever the fleet holds";
  AddPerson();
  Sql("UPDATE zor_Funcionarios SET DGV='Lisboa', DataValBI='2031.01.01', DataCartaoCid='2019.05.06'");
  motorista.DataBI = Date::FromParts(2001, 1, 1);
  motorista.DataValBI = Date::FromParts(2002, 2, 2);
  ASSERT_TRUE(motorista.Ler());
  EXPECT_TRUE(motorista.LeuPV);
  EXPECT_EQ(motorista.Descrição, "Ana do Pessoal");
  EXPECT_EQ(motorista.DGV, "Lisboa");
  EXPECT_EQ(motorista.DataCartaoCid, Date::FromParts(2019, 5, 6));
  EXPECT_EQ(motorista.DataBI, Date::FromParts(2001, 1, 1)) << "a null leaves it as it was";
  EXPECT_EQ(motorista.DataValBI, Date::FromParts(2002, 2, 2)) << "not read on this path";
  motorista.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Nome FROM zor_Funcionarios"), (Table{{"Ana do Pessoal"}}));

  motorista.Anular();
  ASSERT_TRUE(motorista.Ler());
  EXPECT_FALSE(motorista.LeuPV);
  motorista.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Codigo FROM zor_Funcionarios").size(), 1U);
}

TEST_F(MotoristasTest, GoesWithTheLicenceClasses) {
  AddDriver(bd, "7", "Ana");
  for (const char* row : {"('7', 1)", "('7', 2)", "('8', 1)"})
    bd->ExecutarSql("", {"INSERT INTO zor_CartasCond (Motorista, TipoCarta) VALUES ", fixed(row)});
  EXPECT_TRUE(motorista.Anular());
  EXPECT_EQ(Rows(bd, "SELECT Motorista FROM zor_CartasCond"), (Table{{"8"}}));
}

}  // namespace
}  // namespace zorCrmParvel
