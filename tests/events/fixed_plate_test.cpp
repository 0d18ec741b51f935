// Event fichas as they are opened from the vehicle's ficha, for a plate that is fixed.
#include "events/event_form.h"

#include <functional>
#include <map>

#include "host/sistema.h"
#include "support/database_test.h"
#include "vehicles/viaturas_form.h"
#include "vehicles/viaturas_tabs.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class FixedPlateTest : public DatabaseTest {
 protected:
  FixedPlateTest() {
    AddFleet(bd, 10000);
    Sql("INSERT INTO zor_PV_TiposManut (Codigo, Nome) VALUES ('OLEO', 'Óleo')");
    Sql("INSERT INTO zor_PV_TiposAcessorios (Codigo, Nome) VALUES ('GPS', 'Localizador')");
    Sql("INSERT INTO zor_PV_Companhias (Codigo, Nome) VALUES ('FID', 'Fidelidade')");
    vehicle.mybd = bd;
    vehicle.Load();
  }
  /// Opens a new event from each tab of the vehicle on the screen.
  void FromEachTab(const std::function<void(EventForm&, const std::string& kind)>& user) {
    for (const SeparadorDeEventos& tab : SeparadoresDeEventos()) {
      vehicle.UserSelectsTab(vehicle.SSTab1, tab.indice);
      host.NextForm([&](platform::Form& form) { user(dynamic_cast<EventForm&>(form), tab.ficha); });
      vehicle.UserPresses(vehicle.*tab.editar);
    }
  }

  Sistema sistema;
  Viaturas vehicle;
};

TEST_F(FixedPlateTest, TheFirstFieldHasTheFocusWhetherOrNotThePlateIsKnown) {
  const std::map<std::string, const char*> codes = {{"Revisoes", "OLEO"}, {"Acessorios", "GPS"},
                                                    {"Multas", "1"},      {"Sinistros", "1"},
                                                    {"Seguros", "FID"},   {"Gastos", ""}};
  for (const char* plate : {"12-AB-34", "00-NO-00"}) {
    SCOPED_TRACE(plate);
    vehicle.UserGoesTo(vehicle.Campo[0]);
    Enter(vehicle.Campo[0], plate);
    FromEachTab([&](EventForm& form, const std::string& kind) {
      SCOPED_TRACE(kind);
      EXPECT_EQ(form.Campo[0].Text, plate);
      const auto code = codes.find(kind);
      platform::Control* first = &form.DTPicker1;  // inspections begin there
      if (code != codes.end()) first = &form.Campo[1];
      ASSERT_EQ(form.ActiveControl(), first);
      if (code != codes.end()) Type(form.Campo[1], code->second);
      if (code != codes.end())
        host.NextForm([](platform::Form& shown) { EXPECT_NE(shown.Caption, "Viaturas"); });
      form.UserKey(platform::kKeyF4);
      form.UserKey(platform::kKeyEscape);
      EXPECT_EQ(form.ActiveControl(), form.Neighbour(first, true));
      EXPECT_FALSE(form.IsClosed());
      form.UserGoesTo(*first);
      form.UserKey(platform::kKeyTab);
      EXPECT_EQ(form.ActiveControl(), form.Neighbour(first, false)) << "the first Tab moves on";
      first->SetFocus();
      form.UserPresses(form.botoes.btCancelar);
      EXPECT_EQ(form.ActiveControl(), first);
      EXPECT_FALSE(form.Campo[0].Enabled);
    });
  }
}

TEST_F(FixedPlateTest, AnExpenseIsEnteredByTheKeyboardAlone) {
  Enter(vehicle.Campo[0], "12-AB-34");
  FromEachTab([&](EventForm& form, const std::string& kind) {
    if (kind != "Gastos") return;
    EXPECT_EQ(form.Titulo[8].Caption, "Renault");
    form.UserKey(platform::kKeyEscape);  // from the trip to the driver
    Type(form.Campo[2], "um texto comprido demais");
    host.NextForm([](platform::Form& driver) {
      EXPECT_EQ(dynamic_cast<platform::zor_input&>(*driver.ActiveControl()).Text, "");
      EXPECT_NE(driver.Notice().find("mais de 10 caracteres"), std::string::npos) << driver.Notice();
    });
    form.UserKey(platform::kKeyF4);
    form.UserKey(platform::kKeyEscape);
    for (const char* text : {"GASOLEO", "1", "", "40", "1,659", "66,36", "10500", "cheio"})
      Enter(form.Campo[form.ActiveControl()->Index()], text);
    form.UserKey(platform::kKeyEnter);
    EXPECT_EQ(form.ActiveControl(), &form.Campo[1]);
    EXPECT_EQ(form.Campo[0].Text, "12-AB-34");
    form.UserGoesTo(form.Campo[3]);
    form.UserKey(platform::kKeyF3);
    EXPECT_EQ(form.ActiveControl(), &form.Campo[3]) << "the list of vehicles is out of reach";
  });
  EXPECT_EQ(Rows(bd, "SELECT Matricula, TipoGasto, Qtd, Custo, Km, Obs FROM zor_PV_Gastos"),
            (Table{{"12-AB-34", "GASOLEO", "40", "66,36", "10500", "cheio"}}));
}

}  // namespace
}  // namespace zorCrmParvel
