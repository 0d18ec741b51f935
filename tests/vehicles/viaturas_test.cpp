#include "vehicles/viaturas.h"

#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;
using namespace testing_support;

class ViaturasTest : public RecordedTest {
 protected:
  ViaturasTest() { viatura.bd = bd; }
  clViaturas viatura;
};

TEST_F(ViaturasTest, ARowIsReadByAnyFaceOfItsPlateAndCutToItsColumns) {
  viatura.Matricula = "12-AB-34";
  viatura.Responsavel = "Maria Antónia dos Santos e Silva Albuquerque";  // four too many
  viatura.KmActual = Currency::Parse("123456,5");
  viatura.SeloPago = true;
  viatura.Escrever();
  clViaturas lida;
  lida.bd = bd;
  lida.Matricula = "12-ab-34 ";
  ASSERT_TRUE(lida.Ler());
  EXPECT_TRUE(lida.ValContrato.IsZero() && lida.DataPrxInsp.IsZero() && lida.DataSelo.IsZero());
  lida.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Matricula, Responsavel, KmActual, SeloPago FROM zor_PV_Viaturas"),
            (Table{{"12-AB-34", "Maria Antónia dos Santos e Silva Albuque", "123456,5", "True"}}))
      << "a known plate is never rewritten";
}

TEST_F(ViaturasTest, NullsMeanNothingOrAreRefusedByTheirColumn) {
  AddVehicle(bd, "A");
  Sql("UPDATE zor_PV_Viaturas SET Responsavel=NULL, SeloPago=NULL, DataSelo=NULL");
  viatura.Matricula = "A";
  ASSERT_TRUE(viatura.Ler());
  EXPECT_TRUE(viatura.Responsavel.IsNull());
  EXPECT_FALSE(viatura.SeloPago);
  viatura.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Responsavel, DataSelo FROM zor_PV_Viaturas"), (Table{{"NULL", "00:00:00"}}));
  Sql("UPDATE zor_PV_Viaturas SET Responsavel='Ana'");
  viatura.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Responsavel FROM zor_PV_Viaturas"), (Table{{"NULL"}}));
  Sql("UPDATE zor_PV_Viaturas SET KmPrxRev=NULL");
  EXPECT_EQ(NumberOf([&] { viatura.Ler(); }), platform::kInvalidUseOfNull);
}

TEST_F(ViaturasTest, AnUnknownPlateLeavesTheObjectAsItWas) {
  viatura.Matricula = "NADA";
  viatura.Marca = "X";
  EXPECT_FALSE(viatura.Ler());
  EXPECT_EQ(viatura.Marca, "X");
  EXPECT_THROW(viatura.EscreverMedia(), platform::RuntimeError);
  AddVehicle(bd, "NADA", 5);
  viatura.KmActual = 7;
  viatura.CustoMedioKmC = 8;
  viatura.Media = 6;
  EXPECT_TRUE(viatura.EscreverMedia());
  EXPECT_EQ(Rows(bd, "SELECT Marca, KmActual, CustoMedioKmC, Media, CustoMedioKmT FROM zor_PV_Viaturas"),
            (Table{{"REN", "7", "8", "6", "0"}}));
}

TEST_F(ViaturasTest, WalksByPlateAlone) {
  for (const char* plate : {"B", "A", "C"}) AddVehicle(bd, plate);
  std::string walk;
  while (viatura.LerProximo()) walk += viatura.Matricula;
  while (viatura.LerAnterior()) walk += viatura.Matricula;
  EXPECT_TRUE(viatura.LerUltimo());
  walk += viatura.Matricula;
  EXPECT_TRUE(viatura.LerPrimeiro());
  EXPECT_EQ(walk + viatura.Matricula, "ABCBACA");
}

TEST_F(ViaturasTest, ThePickerLeavesOutWhatDoesNotResolve) {
  AddVehicle(bd, "A");  // its model code is empty
  host.NextLookup("");
  EXPECT_EQ(viatura.MostraLista(), "");
  EXPECT_TRUE(host.lookups.back().rows.empty());
  Sql("INSERT INTO zor_PV_Modelos (Codigo, Nome) VALUES ('', 'Sem modelo')");
  host.NextLookup("A");
  EXPECT_EQ(viatura.MostraLista(), "A");
  EXPECT_EQ(host.lookups.back().rows, (Table{{"A", "Renault", "Sem modelo"}}));
}

}  // namespace
}  // namespace zorCrmParvel
