#include "alerts/alert_builders.h"

#include <map>
#include <vector>

#include "alerts/alerts_fixture.h"

namespace zorCrmParvel {
namespace {

using platform::kInvalidUseOfNull;
using platform::kSubscriptOutOfRange;
using testing_support::Table;

class AlertBuildersTest : public AlertsFixture {
 protected:
  Table Insp() { return Built(Tools::RsAlertasInsp(), Tools::EncheAlertasInsp); }
  Table Mot() { return Built(Tools::RsAlertasMot(), Tools::EncheAlertasMot); }
  Table Acess() { return Built(Tools::RsAlertasAcess(), Tools::EncheAlertasAcess); }
  void Class(int tipo, const std::string& date) {
    Sql("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', " +
        std::to_string(tipo) + ", " + date + ")");
  }

 private:
  Table Built(const RecordsetRef& rs, void (*fill)(const RecordsetRef&, const DataAccessRef&)) {
    fill(rs, bd);
    return testing_support::Rows(rs);
  }
};

TEST_F(AlertBuildersTest, EveryBandHasItsWords) {
  Vehicle("12-AB-34");
  Accessory("12-AB-34");
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=0, DataPrxInsp='2024.04.01'");
  const std::map<int, std::pair<std::string, std::string>> words = {
      {-1, {"Data da Inspecção ultrapassada!", "Acessório caducado!"}},
      {0, {"Faltam 0 dias para a inspecção!", "Acessório a menos de 10 dias de caducação!"}},
      {9, {"Faltam 9 dias para a inspecção!", "Acessório a menos de 10 dias de caducação!"}},
      {10, {"Inspecção no próximo mês!", "Acessório deve ser regularizado!"}},
      {29, {"Inspecção no próximo mês!", "Acessório deve ser regularizado!"}},
      {30, {"Data da Inspecção ultrapassada!", "Acessório caducado!"}},
  };
  for (int days : kEdges) {
    SCOPED_TRACE(days);
    DaysToGo(days);
    if (days > 30) {
      EXPECT_TRUE(Insp().empty() && Acess().empty());
      continue;
    }
    const auto& [insp, acess] = words.at(days);
    const std::string n = std::to_string(days);
    EXPECT_EQ(Insp(), (Table{{"12-AB-34", "1000", "03-2024", "01-04-2024", insp, n}}));
    EXPECT_EQ(Acess(), (Table{{"12-AB-34", "EXTINTORES", "Xis", "15-03-2024", acess, n, "1"}}));
  }
}

TEST_F(AlertBuildersTest, EveryDocumentOfADriverHasItsLadder) {
  const std::string soon = "Documento deve ser regularizado!";
  const std::string card = "Doc. a menos de 10 dias de caducação!";
  const std::string paper = "Documento a menos de 10 dias de caducação!";
  const std::string past = "Documento caducado!";
  const std::string download = "Descarga a menos de 10 dias!";
  const std::string late = "Data de descarga ultrapassada!";
  // Cards, papers and download on each of the edges; an empty text for no row.
  const std::map<int, std::array<std::string, 3>> words = {
      {-1, {past, past, late}}, {0, {card, paper, download}}, {9, {card, paper, download}},
      {10, {soon, soon, late}}, {29, {soon, soon, ""}},       {30, {past, past, ""}},
      {31, {"", "", ""}},
  };
  Driver("1");
  Sql("UPDATE zor_Funcionarios SET BI='7', DataValBI=" + Day() + ", CartaoCid='8', ValCartaoCid=" + Day() +
      ", ValidadePassa=" + Day() + ", NoCartaoCondutor='9', DtFimCartaoCondutor=" + Day() +
      ", DtDescarga=" + Day());
  Class(0, Day());
  const std::pair<const char*, std::size_t> documents[] = {{"BI", 0},
                                                           {"CC", 0},
                                                           {"Carta Condução - B    - Ligeiros", 1},
                                                           {"Passaporte", 1},
                                                           {"Cartão Condutor", 1},
                                                           {"Cartão Condutor", 2}};
  for (int days : kEdges) {
    SCOPED_TRACE(days);
    DaysToGo(days);
    Table expected;
    for (const auto& [label, ladder] : documents)
      if (const std::string& notas = words.at(days)[ladder]; !notas.empty())
        expected.push_back({"Ana 1", label, "15-03-2024", notas, std::to_string(days), "1"});
    EXPECT_EQ(Mot(), expected);
  }
}

TEST_F(AlertBuildersTest, NoDateIsNoRow) {
  Driver("1");
  Sql("UPDATE zor_Funcionarios SET BI='7', CartaoCid='8', NoCartaoCondutor='9', ValCartaCond=" + Day());
  DaysToGo(1);
  for (const char* none : {"NULL", "'1899.12.30'"}) {
    SCOPED_TRACE(none);
    for (const char* column :
         {"DataValBI", "ValCartaoCid", "ValidadePassa", "DtFimCartaoCondutor", "DtDescarga"})
      Sql(std::string("UPDATE zor_Funcionarios SET ").append(column).append("=").append(none));
    Sql("Delete zor_CartasCond");
    Class(1, none);
    EXPECT_TRUE(Mot().empty()) << "nor does the licence of the driver's own record count";
  }
}

TEST_F(AlertBuildersTest, LicenceClassesAreTestedOneByOne) {
  Driver("1");
  DaysToGo(-3);
  for (int tipo : {0, 4, 9}) Class(tipo, Day());
  Class(3, Day(300));
  const Table rows = Mot();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[1][1], "Carta Condução - D1   - Pesados Passageiros");
  EXPECT_EQ(rows[2][1], "Carta Condução - D+E  - Reboques e Semi-Reboques");
  for (int outside : {10, -1}) {
    Sql("UPDATE zor_CartasCond SET TipoCarta=" + std::to_string(outside) +
        " WHERE TipoCarta>8 or TipoCarta<0");
    EXPECT_EQ(testing_support::NumberOf([&] { Mot(); }), kSubscriptOutOfRange) << outside;
  }
}

TEST_F(AlertBuildersTest, ANullEndsTheFilling) {
  Vehicle("A");
  Driver("1");
  Driver("2");
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day());
  Sql("UPDATE zor_Funcionarios SET Inactivo=NULL WHERE Codigo='2'");
  DaysToGo(1);
  const RecordsetRef rs = Tools::RsAlertasMot();
  EXPECT_EQ(testing_support::NumberOf([&] { Tools::EncheAlertasMot(rs, bd); }), kInvalidUseOfNull);
  EXPECT_EQ(rs->RecordCount(), 1) << "the rows before it stay";
  Sql("UPDATE zor_PV_Viaturas SET KmActual=NULL");
  EXPECT_EQ(testing_support::NumberOf([&] { Insp(); }), platform::kMultipleStep);
  Sql("UPDATE zor_PV_Viaturas SET DataMatricula=NULL");
  EXPECT_EQ(testing_support::NumberOf([&] { Insp(); }), kInvalidUseOfNull);
}

TEST_F(AlertBuildersTest, AVehicleWithoutAnInspectionRuleRepeatsTheRowBeforeIt) {
  Vehicle("A");
  Vehicle("B");
  DaysToGo(5);
  Sql("UPDATE zor_PV_Viaturas SET Categoria='OUTRA' WHERE Matricula='B'");
  Table rows = Insp();
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[1][2], "03-2024");
  EXPECT_EQ(rows[1][5], "5");
  Sql("UPDATE zor_PV_Viaturas SET Categoria='OUTRA'");
  rows = Insp();
  EXPECT_EQ(rows[0][2], "");
  EXPECT_EQ(rows[0][4], "Faltam 0 dias para a inspecção!");
  Sql("UPDATE zor_PV_Viaturas SET Categoria='LIGM', AnoMatricula=2023");
  EXPECT_EQ(Insp().size(), 2U) << "the year is that of the registration";
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=1");
  EXPECT_TRUE(Insp().empty());
}

TEST_F(AlertBuildersTest, AccessoriesDontLookAtTheirVehicle) {
  Vehicle("A");
  Accessory("A");
  Accessory("SEM-VIATUR");
  DaysToGo(1);
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=1");
  EXPECT_EQ(Acess().size(), 2U);
  Sql("UPDATE zor_PV_Acessorios SET DataVal='1899.12.30' WHERE Id=1");
  EXPECT_EQ(Acess().size(), 1U);
  Sql("UPDATE zor_PV_Acessorios SET Matricula='ONZE-LETRAS'");
  EXPECT_EQ(testing_support::NumberOf([&] { Acess(); }), platform::kMultipleStep);
}

}  // namespace
}  // namespace zorCrmParvel
