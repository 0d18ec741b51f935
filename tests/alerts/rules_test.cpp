#include "alerts/alert_rules.h"

#include <tuple>

#include "alerts/alert_statements.h"
#include "alerts/alerts_fixture.h"

namespace zorCrmParvel {
namespace {

using Check = void (*)(const DataAccessRef&, bool&);

class AlertRulesTest : public AlertsFixture {
 protected:
  bool Answer(Check check, bool onEntry = false) {
    bool alerta = onEntry;
    check(bd, alerta);
    return alerta;
  }
};

TEST_F(AlertRulesTest, EveryDateRuleFiresFromTheThirtiethDayOn) {
  Vehicle("A");
  Policy("A");
  Accessory("A");
  Driver("1");
  Sql("UPDATE zor_PV_Viaturas SET DataPrxRev=" + Day() + ", KmActual=21001, KmPrxRev=20000");
  const std::string none =
      "UPDATE zor_Funcionarios SET BI='', CartaoCid='', DataValBI='1899.12.30', ValCartaoCid='1899.12.30', "
      "ValCartaCond=NULL, ValidadePassa=NULL";
  const std::tuple<const char*, Check, std::string> rules[] = {
      {"policy", Tools::VerificaAlertasApolices, ""},
      {"revision", Tools::VerificaAlertasRevisoes, ""},
      {"inspection", Tools::VerificaAlertasInspecoes, ""},
      {"accessory", Tools::VerificaAlertasAcessorios, ""},
      {"identity card", Tools::VerificaAlertasMotoristas, "BI='7', DataValBI=" + Day()},
      {"citizen card", Tools::VerificaAlertasMotoristas, "CartaoCid='8', ValCartaoCid=" + Day()},
      {"licence", Tools::VerificaAlertasMotoristas, "ValCartaCond=" + Day()},
      {"passport", Tools::VerificaAlertasMotoristas, "ValidadePassa=" + Day()},
  };
  for (const auto& [name, check, document] : rules) {
    Sql(none);
    if (!document.empty()) Sql("UPDATE zor_Funcionarios SET " + document);
    for (int days : kEdges) {
      SCOPED_TRACE(name + std::string(" in ") + std::to_string(days));
      DaysToGo(days);
      EXPECT_EQ(Answer(check), days <= 30);
    }
  }
}

TEST_F(AlertRulesTest, KilometresFireUnlessTheRevisionIsMoreThanAThousandBehind) {
  Vehicle("A");
  for (int behind : {-10000, -1, 0, 499, 500, 999, 1000, 1001}) {
    Sql("UPDATE zor_PV_Viaturas SET KmPrxRev=20000, KmActual=" + std::to_string(20000 + behind));
    for (bool onEntry : {false, true})
      EXPECT_EQ(Answer(Tools::VerificaAlertasRevisoes, onEntry), behind <= 1000) << behind;
  }
  Sql("UPDATE zor_PV_Viaturas SET KmActual=21000.6, Inactiva=1");
  EXPECT_FALSE(Answer(Tools::VerificaAlertasRevisoes));
  Sql("UPDATE zor_PV_Viaturas SET KmActual=21000.5");
  EXPECT_TRUE(Answer(Tools::VerificaAlertasRevisoes))
      << "out of service, too, and half a kilometre goes to the even";
}

TEST_F(AlertRulesTest, ATableWithoutRowsKeepsTheAnswerThatCame) {
  for (Check check :
       {Tools::VerificaAlertasApolices, Tools::VerificaAlertasRevisoes, Tools::VerificaAlertasInspecoes,
        Tools::VerificaAlertasAcessorios, Tools::VerificaAlertasMotoristas})
    for (bool onEntry : {false, true}) EXPECT_EQ(Answer(check, onEntry), onEntry);
}

TEST_F(AlertRulesTest, OnlyPoliciesAndAccessoriesEndAtOnceOnATrueThatComes) {
  Vehicle("A");
  Policy("A");
  Accessory("A");
  Driver("1");
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day());
  DaysToGo(100);
  for (Check check : {Tools::VerificaAlertasApolices, Tools::VerificaAlertasAcessorios}) {
    bd->statements.clear();
    EXPECT_TRUE(Answer(check, true));
    EXPECT_EQ(bd->statements.size(), 1U) << "no vehicle is looked at";
  }
  EXPECT_FALSE(Answer(Tools::VerificaAlertasInspecoes, true));
  EXPECT_FALSE(Answer(Tools::VerificaAlertasMotoristas, true)) << "the passport's answer replaces it";
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=NULL");
  EXPECT_TRUE(Answer(Tools::VerificaAlertasMotoristas, true)) << "no document answers";
}

TEST_F(AlertRulesTest, PoliciesLookAtTheVehicleThatWasReadLast) {
  Policy("B");
  DaysToGo(5);
  EXPECT_TRUE(Answer(Tools::VerificaAlertasApolices)) << "an unknown vehicle counts as in service";
  Vehicle("A");
  Policy("A");
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=1");
  EXPECT_FALSE(Answer(Tools::VerificaAlertasApolices))
      << "the unknown one now stands behind one out of service";
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=0");
  Sql("UPDATE zor_PV_Seguros SET Inactiva=1, Validade=NULL");
  EXPECT_FALSE(Answer(Tools::VerificaAlertasApolices));
}

TEST_F(AlertRulesTest, AccessoriesNeedAValidityAndAVehicleInService) {
  Vehicle("A");
  Accessory("A");
  DaysToGo(5);
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=1");
  EXPECT_FALSE(Answer(Tools::VerificaAlertasAcessorios));
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=0");
  for (const char* none : {"NULL", "'1899.12.30'"}) {
    Sql(std::string("UPDATE zor_PV_Acessorios SET DataVal=") + none);
    EXPECT_FALSE(Answer(Tools::VerificaAlertasAcessorios)) << none;
  }
}

TEST_F(AlertRulesTest, AVehicleWithoutAnInspectionRuleIsJudgedByTheOneBeforeIt) {
  Vehicle("A");
  Vehicle("B");
  DaysToGo(100);
  Sql("UPDATE zor_PV_Viaturas SET Categoria='OUTRA' WHERE Matricula='A'");
  EXPECT_TRUE(Answer(Tools::VerificaAlertasInspecoes)) << "the first one has 0 days";
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=1 WHERE Matricula='A'");
  EXPECT_FALSE(Answer(Tools::VerificaAlertasInspecoes));
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=0, Categoria='LIGM' WHERE Matricula='A'");
  Sql("UPDATE zor_PV_Viaturas SET Categoria='OUTRA' WHERE Matricula='B'");
  EXPECT_FALSE(Answer(Tools::VerificaAlertasInspecoes));
  Sql("UPDATE zor_PV_Viaturas SET AnoMatricula=2021");
  EXPECT_TRUE(Answer(Tools::VerificaAlertasInspecoes)) << "the year is the column's, not the registration's";
}

TEST_F(AlertRulesTest, DriversAreJudgedByTheirOwnRecord) {
  Driver("1");
  Sql("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', 0, " + Day() + ")");
  Sql("UPDATE zor_Funcionarios SET NoCartaoCondutor='9', DtFimCartaoCondutor=" + Day() +
      ", DtDescarga=" + Day());
  EXPECT_FALSE(Answer(Tools::VerificaAlertasMotoristas));
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day());
  EXPECT_TRUE(Answer(Tools::VerificaAlertasMotoristas));
  for (const char* inactive : {"NULL", "1"}) {
    Sql(std::string("UPDATE zor_Funcionarios SET Inactivo=") + inactive);
    EXPECT_FALSE(Answer(Tools::VerificaAlertasMotoristas)) << inactive;
  }
}

TEST_F(AlertRulesTest, ANullWhereAValueIsNeededEndsTheCheck) {
  const std::pair<Check, const char*> cases[] = {
      {Tools::VerificaAlertasApolices, "UPDATE zor_PV_Seguros SET Validade=NULL"},
      {Tools::VerificaAlertasRevisoes, "UPDATE zor_PV_Viaturas SET KmActual=NULL"},
      {Tools::VerificaAlertasRevisoes, "UPDATE zor_PV_Viaturas SET KmActual=0, KmPrxRev=NULL"},
      {Tools::VerificaAlertasMotoristas, "UPDATE zor_Funcionarios SET BI='7', DataValBI=NULL"},
      {Tools::VerificaAlertasMotoristas,
       "UPDATE zor_Funcionarios SET BI=NULL, CartaoCid='8', ValCartaoCid=NULL"},
      {Tools::VerificaAlertasInspecoes, "UPDATE zor_PV_Viaturas SET DataMatricula=NULL"},
      {Tools::VerificaAlertasInspecoes,
       "UPDATE zor_PV_Viaturas SET DataMatricula='2022.03.15', AnoMatricula=NULL"},
  };
  Vehicle("A");
  Policy("A");
  Driver("1");
  for (const auto& [check, change] : cases) {
    SCOPED_TRACE(change);
    Sql(change);
    EXPECT_EQ(testing_support::NumberOf([&, act = check] { Answer(act); }), platform::kInvalidUseOfNull);
  }
}

TEST(AlertStatements, AreSentToTheByte) {
  const auto fingerprint = [](const char* text) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (; *text != '\0'; ++text) hash = (hash ^ static_cast<unsigned char>(*text)) * 0x100000001b3U;
    return hash;
  };
  EXPECT_EQ(fingerprint(Tools::SqlAlertasApolices()), 0xe9f1e51aa44373ceU);
  EXPECT_EQ(fingerprint(Tools::SqlAlertasRevisoes()), 0x3ddbef94bdefab32U);
  EXPECT_EQ(fingerprint(Tools::SqlAlertasViaturas()), 0x7f2f0a9ba759d780U);
}

}  // namespace
}  // namespace zorCrmParvel
