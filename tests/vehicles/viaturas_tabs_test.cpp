#include "vehicles/viaturas_tabs.h"

#include <tuple>

#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "host/sistema.h"
#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;
using platform::Date;
using namespace testing_support;
using Row = std::vector<std::string>;

constexpr const char* kPlate = "12-AB-34";

class ViaturasTabsTest : public DatabaseTest {
 protected:
  ViaturasTabsTest() {
    AddFleet(bd, 20000);
    form.mybd = bd;
    form.Load();
  }
  /// One event of each kind, of February.
  void AddEvents() {
    testing_support::AddEvents(bd, kPlate);
    for (const char* columns :
         {"Seguros SET Validade='2024.02.10 08:05:30', Apolice='AP-1', Premio=300",
          "Revisoes SET Data='2024.02.11 08:05:30', Km=15000, Custo=99.5, Obs='nota'",
          "Inspecoes SET Data='2024.02.12 08:05:30', Km=16000, Obs='nota'",
          "Acessorios SET Data='2024.02.13 08:05:30', TipoAcessorio='GPS', Marca='Tom', Obs='nota'",
          "Gastos SET Data='2024.02.14 09:30:15', Qtd=2, Custo=7.5",
          "Sinistros SET Data='2024.02.15', Motorista='1', LocalAc='A1', Obs='nota'",
          "Multas SET Data='2024.02.16', Motorista='PERDIDO', ValorMulta=60, Obs='nota'"})
      Sql(std::string("UPDATE zor_PV_") + columns);
  }
  static Row Cells(const platform::SGGrid& grid, long row) {
    Row cells;
    for (std::size_t i = 0; i < grid.Columns().size(); ++i)
      if (!grid.Columns()[i].hidden) cells.push_back(grid.CellText(row, i));
    return cells;
  }
  Row Fields(const std::vector<int>& fields) const {
    Row texts;
    for (int field : fields) texts.push_back(form.Campo[field].Text);
    return texts;
  }
  void Show(int tab) {
    form.CarregaViatura(kPlate);
    form.UserSelectsTab(form.SSTab1, kIdentificacao);
    form.UserSelectsTab(form.SSTab1, tab);
  }

  Sistema sistema;
  Viaturas form;
};

TEST_F(ViaturasTabsTest, AGridGrowsWithItsEventsAndKeepsNoneOfAnotherVehicle) {
  for (int count = 1; count <= 30; ++count) {
    AddEvent<clMultas>(bd, kPlate);
    if (count < 29) continue;
    form.CarregaViatura(kPlate);
    EXPECT_EQ(form.GrelhaMul.RowCount(), count == 29 ? 30 : 31);
  }
  form.UserSelectsTab(form.SSTab1, kMultas);
  AddVehicle(bd, "99-ZZ-99");
  Type(form.Campo[0], "99-ZZ-99");
  form.UserGoesTo(form.PushButton2);
  EXPECT_EQ(form.GrelhaMul.RowCount(), 31) << "only a cleared screen shrinks it";
  EXPECT_EQ(Cells(form.GrelhaMul, 0), Row(2));
  EXPECT_EQ(form.Campo[61].Text, "");
}

TEST_F(ViaturasTabsTest, APolicyTellsHowLongItStillRuns) {
  const std::tuple<const char*, std::int16_t, const char*> cases[] = {
      {"14-03-2024", 0, "Prazo de pagamento ultrapassado!"},
      {"15-03-2024", 0, "Faltam ...  0 dias"},
      {"14-04-2024", 0, "Faltam ...  30 dias"},
      {"14-04-2024", 1, ""}};
  for (const auto& [end, closed, line] : cases) {
    SCOPED_TRACE(end);
    Sql("Delete zor_PV_Seguros");
    EventOf<clSeguros> seguro(bd, kPlate);
    seguro.Apolice = "AP";
    seguro.Validade = Date::Parse(end);
    seguro.Inactiva = closed;
    seguro.Escrever();
    Show(kApolices);
    EXPECT_EQ(form.Titulo[64].Caption, line);
    EXPECT_EQ(form.Combo1.ListIndex, 0);
    EXPECT_EQ(Cells(form.Grelha, 0)[2], closed == 1 ? "Inactiva" : "Activa");
  }
}

TEST_F(ViaturasTabsTest, AnAccessoryTellsItsDistanceAndCostPerKm) {
  const std::tuple<int, int, const char*, const char*, const char*> cases[] = {
      {10000, 12500, "100", "Acessório com 2.500 Km", "Custo/Km 0,04 €"},
      {10000, 11000, "14,98", "Acessório com 1.000 Km", "Custo/Km 0,01 €"},
      {5000, 5000, "100", "Acessório com 0 Km", "Custo/Km 0,00 €"},
      {19900, 0, "100", "Acessório com 100 Km", "Custo/Km 1,00 €"},
      {21000, 0, "100", "Acessório com -1.000 Km", "Custo/Km 0,00 €"}};
  for (const auto& [first, last, cost, distance, perKm] : cases) {
    SCOPED_TRACE(distance);
    Sql("Delete zor_PV_Acessorios");
    EventOf<clAcessorios> acessorio(bd, kPlate);
    acessorio.TipoAcessorio = "GPS";
    acessorio.KmInicial = first;
    acessorio.KmFinal = last;
    acessorio.Custo = Currency::Parse(cost);
    acessorio.Escrever();
    Show(kAcessorios);
    EXPECT_EQ(form.Titulo[2].Caption, distance);
    EXPECT_EQ(form.Titulo[51].Caption, perKm);
    form.UserSelectsRow(form.GrelhaAces, 3);
    EXPECT_EQ(form.Titulo[2].Caption + form.Titulo[51].Caption, "");
  }
}

TEST_F(ViaturasTabsTest, TheNextInspectionIsWorkedOutOnLoadAndWhenTheDateChanges) {
  Sql("UPDATE zor_PV_Viaturas SET DataMatricula='2023.05.10', Categoria='LIGM'");
  form.CarregaViatura(kPlate);
  EXPECT_EQ(form.Titulo[67].Caption, "Próxima Inspecção, até 10-05-2025");
  EXPECT_EQ(form.Titulo[63].Caption, "Faltam .... 421 dias");
  form.UserSelectsTab(form.SSTab1, kDUC);
  form.UserPicksDate(form.DTPicker1[3], Date::FromParts(2022, 4, 14));
  EXPECT_EQ(form.Titulo[67].Caption, "Próxima Inspecção, até 14-04-2024");
  Sql("UPDATE zor_PV_Viaturas SET Categoria='OUTRA'");
  form.CarregaViatura(kPlate);
  EXPECT_EQ(form.Titulo[67].Caption + form.Titulo[63].Caption, "Próxima Inspecção, até Faltam .... 0 dias");
  Sql("UPDATE zor_PV_Viaturas SET DataMatricula='2016.02.10', Categoria='PESP'");
  EXPECT_THROW(form.CarregaViatura(kPlate), platform::RuntimeError) << "the rule has no month to give";
}

TEST_F(ViaturasTabsTest, TheRoadTaxFollowsTheMonthOfRegistration) {
  Sql("UPDATE zor_PV_Viaturas SET DataMatricula='2020.05.10', DataSelo=NULL, SeloPago=1");
  form.CarregaViatura(kPlate);
  EXPECT_EQ(form.DTPicker1[13].Value.ToDate(), Date::FromParts(2024, 5, 31));
  EXPECT_EQ(form.chkBxSeloPago.Value, 0) << "a date that is only computed isn't paid";

  Sql("UPDATE zor_PV_Viaturas SET DataSelo='2021.05.31', SeloPago=1");
  form.CarregaViatura(kPlate);
  EXPECT_EQ(form.DTPicker1[13].Value.ToDate(), Date::FromParts(2021, 5, 31)) << "an old date is shown";
  form.UserSelectsTab(form.SSTab1, kDUC);
  form.UserPicksDate(form.DTPicker1[3], Date::FromParts(2020, 5, 11));
  EXPECT_EQ(form.DTPicker1[13].Value.ToDate(), Date::FromParts(2024, 5, 31));
  EXPECT_EQ(form.chkBxSeloPago.Value, 0);
  form.UserToggles(form.chkBxSeloPago);
  form.UserPicksDate(form.DTPicker1[3], Date::FromParts(2020, 5, 12));
  EXPECT_EQ(form.chkBxSeloPago.Value, 1) << "the same day stays paid";

  form.ProximaInspTeste();
  EXPECT_EQ(form.Titulo[67].Caption, "Próxima Inspecção, até 12-05-2026");
  EXPECT_EQ(form.Titulo[63].Caption, "Faltam .... 788 dias");
}

TEST_F(ViaturasTabsTest, AnEventIsEditedInItsOwnFichaAndTheFiguresAreReadAgain) {
  AddEvents();
  Show(kRevisoes);
  host.NextForm([&](platform::Form& ficha) {
    EXPECT_EQ(ficha.Caption, "Revisões");
    Sql("UPDATE zor_PV_Viaturas SET CustoTotal=77, KmActual=21000, Media=5");
    Sql("UPDATE zor_PV_Revisoes SET Custo=1234, Obs='revista'");
  });
  Press(form.zorBotao5);
  EXPECT_EQ(Fields({4, 7, 8}), (Row{"77", "5", "21000"}));
  EXPECT_EQ(form.ActiveControl(), &form.GrelhaManut);
  EXPECT_EQ(Cells(form.GrelhaManut, 0)[2], "1.234,00");
  EXPECT_EQ(form.Campo[54].Text, "nota") << "the details wait for a row to be chosen";
  form.UserSelectsRow(form.GrelhaManut, 0);
  EXPECT_EQ(form.Campo[54].Text, "revista");

  form.UserSelectsTab(form.SSTab1, kApolices);
  host.NextForm([&](platform::Form&) { Sql("UPDATE zor_PV_Viaturas SET CustoTotal=88"); });
  Press(form.zorBotao1);
  EXPECT_EQ(form.Campo[4].Text, "77") << "a policy leaves the figures alone";
}

TEST_F(ViaturasTabsTest, WhatStandsOnAHiddenTabTakesNoFocus) {
  EXPECT_FALSE(form.UserGoesTo(form.Campo[20]));
  EXPECT_TRUE(form.UserGoesTo(form.Campo[3]));
  form.UserSelectsTab(form.SSTab1, kRevisoes);
  EXPECT_FALSE(form.UserGoesTo(form.Campo[3]));
  EXPECT_TRUE(form.UserGoesTo(form.Campo[53]));
  EXPECT_FALSE(form.UserGoesTo(form.Campo[51])) << "details are read only";
  for (int i = 0; i <= form.Campo.UBound(); ++i) EXPECT_TRUE(form.Campo.Has(i)) << i;
}

}  // namespace
}  // namespace zorCrmParvel
