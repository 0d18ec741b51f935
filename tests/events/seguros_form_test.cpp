#include "events/seguros_form.h"

#include <tuple>

#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using platform::Date;
using namespace testing_support;

const char* const kRenewal = "Vai proceder à renovação da Apólice!\n\rPretende continuar?";
const char* const kRemoval = "Vai proceder à anulação da Apólice!\n\rPretende continuar?";

class SegurosTest : public DatabaseTest {
 protected:
  SegurosTest() {
    AddVehicle(bd, "12-AB-34");
    Sql("INSERT INTO zor_PV_Companhias (Codigo, Nome) VALUES ('TEJO', 'Tejo Seguros')");
    Sql("INSERT INTO zor_PV_TiposSeguro (Codigo, Nome) VALUES ('RC', 'Responsabilidade civil')");
    form.mybd = bd;
    form.Load();
  }
  void Add(int modalidade, Date validade, int inactiva = 0) {
    EventOf<clSeguros> seguro(bd, "12-AB-34");
    seguro.Companhia = "TEJO";
    seguro.TipoSeguro = "RC";
    seguro.Apolice = "A-1";
    seguro.Premio = 300;
    seguro.Modalidade = static_cast<std::int16_t>(modalidade);
    seguro.Validade = validade;
    seguro.DataInicio = validade.AddMonths(-12);
    seguro.Inactiva = static_cast<std::int16_t>(inactiva);
    seguro.Escrever();
  }
  Table Policies() {
    return Rows(bd, "SELECT Seg_Id, DataInicio, Validade, Modalidade, Inactiva, Premio FROM zor_PV_Seguros");
  }

  Seguros form;
};

TEST_F(SegurosTest, BeginsHalfYearlyFromTodayAndFieldsCheckThemselvesWhateverWasPressed) {
  EXPECT_EQ(form.Combo1.List[form.Combo1.ListIndex], "Semestral");
  EXPECT_EQ(form.Check1.Value, 0);
  for (const auto* date : {&form.DTPicker1, &form.DTPicker2})
    EXPECT_EQ(date->Value.ToDate(), Date::FromParts(2024, 3, 15));
  Enter(form.Campo[0], "12-AB-34");
  EXPECT_EQ(form.Titulo[9].Caption, "Renault");
  EXPECT_EQ(form.Matricula, "") << "a policy's plate isn't taken before it is loaded";
  for (int i = 0; i < 2; ++i) {
    host.ExpectBox("Companhia não existente!");
    form.UserGoesTo(form.Campo[3]);
  }
}

TEST_F(SegurosTest, RenewalClosesTheOldPolicyAndBeginsWhereItEnded) {
  for (const auto& [modalidade, end, newEnd] :
       {std::tuple{0, "29-02-2024", "28-02-2025"}, {1, "31-03-2024", "30-09-2024"}}) {
    SCOPED_TRACE(newEnd);
    Sql("Delete zor_PV_Seguros");
    Add(modalidade, Date::Parse(end));
    const std::int32_t id = platform::Variant(Policies()[0][0]).ToLong();
    form.Carrega(id);
    host.ExpectBox(kRenewal, platform::kOk);
    Press(form.btRenovar);
    EXPECT_EQ(form.Seg_Id, 0);
    Press(form.botoes.btConf);
    const Table policies = Policies();
    ASSERT_EQ(policies.size(), 2U);
    EXPECT_EQ(policies[0][4] + policies[1][4], "10");
    EXPECT_EQ(policies[1][1], policies[0][2]) << "the two overlap by a day";
    EXPECT_EQ(policies[1][2], newEnd);
  }
}

TEST_F(SegurosTest, ARenewalCanBeDroppedOrCarriedOverAMoveOrBeginOnABlankFicha) {
  Add(0, Date::FromParts(2024, 5, 1));
  Add(0, Date::FromParts(2024, 6, 1));
  form.Carrega(1);
  host.ExpectBox(kRenewal, platform::kCancel);
  Press(form.btRenovar);
  EXPECT_EQ(form.Seg_Id, 1);
  host.ExpectBox(kRenewal, platform::kOk);
  Press(form.btRenovar);
  Press(form.botoes.btCancelar);
  EXPECT_EQ(Policies().size(), 2U);

  form.Carrega(1);
  host.ExpectBox(kRenewal, platform::kOk);
  Press(form.btRenovar);
  Press(form.botoes.btNavega[3]);
  EXPECT_EQ(form.Seg_Id, 2);
  Press(form.botoes.btConf);
  EXPECT_EQ(Policies()[0][4], "1") << "a move doesn't end the renewal: the old policy is closed all the same";

  Sql("Delete zor_PV_Seguros");
  Type(form.Campo[0], "12-AB-34");
  host.ExpectBox(kRenewal, platform::kOk);
  Press(form.btRenovar);
  form.Campo[0].Text = "12-AB-34";
  Press(form.botoes.btConf);
  ASSERT_EQ(Policies().size(), 2U);
  EXPECT_EQ(Policies()[0][4] + Policies()[1][4], "10");
}

TEST_F(SegurosTest, TheListReadPutsOpenPoliciesFirst) {
  Add(0, Date::FromParts(2024, 1, 1), 1);
  Add(0, Date::FromParts(2024, 5, 1));
  clSeguros seguro;
  seguro.bd = bd;
  for (const char* plate : {"", "12-AB-34"}) {
    seguro.Codigo = plate;
    const RecordsetRef rows = seguro.LerApolices();
    ASSERT_EQ(rows->RecordCount(), 2);
    EXPECT_EQ(rows->Fields("Seg_Id").Value().ToLong(), 2);
  }
  std::string name;
  seguro.Companhia = "TEJO";
  EXPECT_TRUE(seguro.ValidarCompanhia(name));
  EXPECT_EQ(name, "Tejo Seguros");
}

}  // namespace
}  // namespace zorCrmParvel
