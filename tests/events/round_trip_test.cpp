#include "drivers/motoristas.h"
#include "events/event_form.h"
#include "host/sistema.h"
#include "masterdata/tipos_gastos.h"
#include "support/database_test.h"
#include "support/screen.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

struct Code {
  const char* field;
  int title;  // the label that shows its name
  void (*add)(const DataAccessRef& bd, const std::string& code, const std::string& name);
  const char* unknown;  // what is said of a code that isn't there, or of none
};

const struct {
  const char* name;  // of the ficha, and behind "zor_PV_" of its table
  const char* row;   // the controls, in the order of the columns behind the id
  int make;          // the label of the vehicle's make
  std::vector<Code> codes;
} kFichas[] = {
    {"Gastos",
     "0 2 3 DTPicker1 1 5 8 7 6 4",
     8,
     {{"Campo(4)", 12, &AddCode<clTiposGastos>, "Tipo Gasto não existente!"},
      {"Campo(2)", 14, &AddCode<clMotoristas>, "Motorista não existente!"},
      {"Campo(1)", 7, &AddCode<clViagens>, "Viagem não existente!"}}},
    {"Seguros",
     "0 1 2 3 DTPicker1 4 5 Combo1 DTPicker2 Check1 6",
     9,
     {{"Campo(1)", 7, &AddCode<clCompanhias>, "Companhia não existente!"},
      {"Campo(2)", 8, &AddCode<clTiposSeguros>, "Tipo de Seguro não existente!"}}},
    {"Revisoes",
     "0 1 3 DTPicker1 2 4",
     8,
     {{"Campo(1)", 7, &AddCode<clTiposManut>, "Tipo Manutenção não existente!"}}},
    {"Inspecoes", "0 3 DTPicker1 1 2", 7, {}},
    {"Multas",
     "0 1 3 DTPicker1 4 Check1",
     8,
     {{"Campo(1)", 7, &AddCode<clMotoristas>, "Motorista não existente!"}}},
    {"Sinistros",
     "0 1 3 DTPicker1 4 Check1 5",
     8,
     {{"Campo(1)", 7, &AddCode<clMotoristas>, "Motorista não existente!"}}},
    {"Acessorios",
     "0 1 3 DTPicker1 4 2 7 6 5 8 DTPicker2",
     8,
     {{"Campo(1)", 7, &AddCode<clTiposAcessorios>, "Tipo Acessório não existente!"}}},
};

class RoundTripTest : public DatabaseTest {
 protected:
  RoundTripTest() { AddVehicle(bd, "12-AB-34"); }
  std::unique_ptr<Ficha> New(const std::string& name) {
    auto form = FormCatalog::Shared().Make(name);
    form->mybd = bd;
    form->Load();
    return form;
  }
  Sistema sistema;
};

TEST_F(RoundTripTest, EveryFieldOfAnEventGoesAndComesBack) {
  for (const auto& ficha : kFichas) {
    SCOPED_TRACE(ficha.name);
    const auto made = New(ficha.name);
    auto& form = dynamic_cast<EventForm&>(*made);
    Type(form.Campo[0], "12-AB-34");
    const Screen blank = ScreenOf(form);
    form.UserKey(platform::kKeyTab);
    const bool titled = ficha.name == std::string("Seguros") || ficha.name == std::string("Gastos");
    Screen given;
    for (const Code& code : ficha.codes) {
      given[code.field] = std::string("C") + code.field[6];
      code.add(bd, given[code.field], "Nome de " + given[code.field]);
      auto& field = Find<platform::zor_input>(form, code.field);
      for (const char* wrong : {"NADA", ""}) {
        if (*wrong == '\0' && code.add == &AddCode<clViagens>) continue;  // not every expense has a trip
        host.ExpectBox(code.unknown);
        Enter(field, wrong);
        EXPECT_EQ(form.ActiveControl(), &field);
        EXPECT_EQ(host.boxes.back().title, titled ? "Informação" : "");
      }
      Enter(field, given[code.field]);
    }
    FillOut(form, given);
    const Screen typed = ScreenOf(form);
    const std::string all = std::string("SELECT * FROM zor_PV_") + ficha.name;
    Press(form.botoes.btConf);
    Table expected = {InColumns(typed, "1 " + std::string(ficha.row))};
    EXPECT_EQ(Rows(bd, all), expected);
    ExpectLimits(form, typed, bd, all);

    const auto other = New(ficha.name);
    auto& again = dynamic_cast<EventForm&>(*other);
    EXPECT_EQ(ScreenOf(again), ScreenOf(form)) << "a save leaves an empty screen";
    again.Carrega(1);
    EXPECT_EQ(ScreenOf(again), typed);
    EXPECT_EQ(again.Matricula, "12-AB-34");
    EXPECT_EQ(again.Titulo[ficha.make].Caption, "Renault");
    for (const Code& code : ficha.codes)
      EXPECT_EQ(again.Titulo[code.title].Caption, "Nome de " + given[code.field]);
    Press(again.botoes.btConf);
    EXPECT_EQ(Rows(bd, all), expected) << "shown and saved again, it is the same";

    Type(form.Campo[0], "12-AB-34");
    Press(form.botoes.btConf);
    expected.push_back(InColumns(blank, "2 " + std::string(ficha.row)));
    for (std::size_t i = 1; i < expected[1].size(); ++i)
      if (expected[0][i].find_first_not_of("0123456789,") == std::string::npos && expected[1][i].empty())
        expected[1][i] = "0";
    EXPECT_EQ(Rows(bd, all), expected) << "a blank one has nothing in its columns";
  }
}

}  // namespace
}  // namespace zorCrmParvel
