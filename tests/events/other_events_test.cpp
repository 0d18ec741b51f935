#include <tuple>

#include "events/event_list.h"
#include "events/gastos_form.h"
#include "events/incidents_form.h"
#include "events/seguros_form.h"
#include "events/upkeep_form.h"
#include "host/sistema.h"
#include "support/database_test.h"
#include "support/grid_window.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class EventsTest : public DatabaseTest {
 protected:
  EventsTest() {
    AddFleet(bd, 20000);
    Sql("INSERT INTO zor_PV_TiposManut (Codigo, Nome) VALUES ('OLEO', 'Óleo')");
    Sql("INSERT INTO zor_PV_TiposAcessorios (Codigo, Nome) VALUES ('GPS', 'Localizador')");
  }
  template <typename F>
  void Open(F& form, int tipoMostrar = 1) {
    form.mybd = bd;
    form.TipoMostrar = tipoMostrar;
    form.Matricula = tipoMostrar == 1 ? "12-AB-34" : "";
    form.Load();
    if (tipoMostrar == 1) form.Carrega(0);
  }
  /// True when the keyboard is at the second field afterwards.
  template <typename F>
  bool Save(int costField, const std::string& cost) {
    F form;
    Open(form);
    form.Campo[costField].Text = cost;
    form.DTPicker1.SetFocus();  // away from the first field, whose rule would ask for a code
    Press(form.botoes.btConf);
    return form.ActiveControl() == &form.Campo[1];
  }
  std::string Total() {
    const Table rows = Rows(bd, "SELECT CustoTotal, CustoMedioKmT FROM zor_PV_Viaturas");
    return rows.at(0)[0] + " " + rows.at(0)[1];
  }

  Sistema sistema;
};

TEST_F(EventsTest, TheTotalDependsOnTheFichaThatComputedItLast) {
  Save<Acessorios>(8, "100");
  EXPECT_EQ(Total(), "100 0,005");
  Save<Inspecoes>(2, "30");
  EXPECT_EQ(Total(), "130 0,0065");
  EXPECT_TRUE(Save<Revisoes>(4, "1000"));
  EXPECT_EQ(Total(), "1130 0,0565") << "revisions count when a revision is saved";
  Save<Inspecoes>(2, "1");
  EXPECT_EQ(Total(), "131 0,0066") << "and are left out by every other ficha";
  Revisoes revisao;
  Open(revisao);
  revisao.Anular(99, "12-AB-34");
  EXPECT_EQ(Total(), "1131 0,0566");
  Acessorios acessorio;
  Open(acessorio);
  acessorio.Anular(1, "12-AB-34");
  EXPECT_EQ(Total(), "31 0,0016");
  Save<Gastos>(6, "5");
  EXPECT_EQ(Total(), "31 0")
      << "an expense without a type is in no total, and without fuel the vehicle is at 0 km";
  Save<Multas>(4, "700");
  Save<Sinistros>(5, "800");
  EXPECT_EQ(Total(), "31 0") << "fines and accidents cost the vehicle nothing";
  EXPECT_EQ(Rows(bd, "SELECT KmActual, DataPrxRev FROM zor_PV_Viaturas"), (Table{{"0", "NULL"}}));
}

TEST_F(EventsTest, AnEmptyOrUnknownPlateHoldsTheFocus) {
  Inspecoes form;
  Open(form, 0);
  form.UserKey(platform::kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
  host.ExpectBox("Viatura não existente!");
  Enter(form.Campo[0], "NADA");
  Sql("UPDATE zor_PV_Viaturas SET Marca='PERDIDA'");
  form.Titulo[7].Caption = "antiga";
  Enter(form.Campo[0], "12-AB-34");
  EXPECT_EQ(form.Titulo[7].Caption, "") << "a lost make clears its label";
  EXPECT_EQ(form.Matricula, "12-AB-34");
  Press(form.botoes.btSair);
  EXPECT_TRUE(form.IsClosed());
}

TEST_F(EventsTest, AnAccessoryMayHaveNoValidity) {
  Acessorios form;
  Open(form);
  Type(form.Campo[1], "GPS");
  form.UserPicksDate(form.DTPicker2, platform::Variant::Null{});
  Press(form.botoes.btConf);
  EXPECT_EQ(Rows(bd, "SELECT DataVal FROM zor_PV_Acessorios"), (Table{{"NULL"}}));
  form.Carrega(1);
  EXPECT_EQ(form.DTPicker2.Value.ToText(), "15-03-2024") << "an untouched validity is today";
}

TEST_F(EventsTest, AnAccessoryTellsItsDistanceAndCostPerKm) {
  const std::tuple<int, int, const char*, const char*, const char*> cases[] = {
      {10000, 12500, "100", "Acessório com 2.500 Km", "Custo/Km 0,04 €"},
      {5000, 5000, "1234,5", "Acessório com 0 Km", "Custo/Km 1.234,50 €"},
      {5000, 6000, "14,98", "Acessório com 1.000 Km", "Custo/Km 0,01 €"},
      {1000, 0, "100", "Acessório com -1.000 Km", "Custo/Km -0,10 €"}};
  for (const auto& [first, last, cost, distance, perKm] : cases) {
    SCOPED_TRACE(distance);
    EventOf<clAcessorios> acessorio(bd, "12-AB-34");
    acessorio.KmInicial = first;
    acessorio.KmFinal = last;
    acessorio.Custo = platform::Currency::Parse(cost);
    acessorio.Escrever();
    acessorio.LerUltimo();
    Acessorios form;
    Open(form, 0);
    form.Carrega(acessorio.Id);
    EXPECT_EQ(form.Titulo[12].Caption, distance);
    EXPECT_EQ(form.Titulo[13].Caption, perKm);
    acessorio.Anular();
  }
}

TEST_F(EventsTest, AStoredDateIsShownAsFarAsItsFieldGoes) {
  const auto shown = [&](auto&& form, auto&& event) {
    event.Data = platform::Date::FromParts(2024, 2, 10, 8, 5, 30);
    event.Escrever();
    Open(form, 0);
    form.Carrega(1);
    return form.DTPicker1.Value.ToText();
  };
  const char* const plate = "12-AB-34";
  EXPECT_EQ(shown(Gastos(), EventOf<clGastos>(bd, plate)), "10-02-2024 08:05:00");
  EXPECT_EQ(shown(Revisoes(), EventOf<clRevisoes>(bd, plate)), "10-02-2024");
  EXPECT_EQ(shown(Inspecoes(), EventOf<clInspecoes>(bd, plate)), "10-02-2024");
  EXPECT_EQ(shown(Seguros(), EventOf<clSeguros>(bd, plate)), "10-02-2024 08:05:30") << "as it stands";
}

TEST_F(EventsTest, AnEventWithLostCodesIsListed) {
  sistema.ICrmSistema_ZorDataAccess = bd;
  for (const char* key :
       {"Gastos", "Apolices", "Revisoes", "Inspecoes", "Multas", "Sinistros", "Acessorios"}) {
    SCOPED_TRACE(key);
    const std::string table = key == std::string("Apolices") ? "Seguros" : key;
    Sql("INSERT INTO zor_PV_" + table + " (Matricula) VALUES ('PERDIDA')");
    const auto list = sistema.MostraListas(key);
    GridWindow window;
    window.Start(*list);
    EXPECT_EQ(list->ICrmVwList_NumeroItens(), 1);
  }
}

TEST_F(EventsTest, TheListOfAccessoriesKeepsTheVehicleOfARowThatHasGone) {
  for (const char* table : {"Acessorios", "Inspecoes"}) {
    SCOPED_TRACE(table);
    Sql(std::string("INSERT INTO zor_PV_") + table + " (Matricula) VALUES ('12-AB-34')");
    sistema.ICrmSistema_ZorDataAccess = bd;
    const auto list = sistema.MostraListas(table);
    GridWindow window;
    window.Start(*list);
    GridRow row = window.grid.RowAt(0);
    Sql(std::string("Delete zor_PV_") + table);
    host.NextForm([&](platform::Form& form) {
      EXPECT_EQ(dynamic_cast<EventForm&>(form).Campo[0].Text,
                table == std::string("Acessorios") ? "12-AB-34" : "");
    });
    list->ICrmVwList_Editar(&row);
  }
}

}  // namespace
}  // namespace zorCrmParvel
