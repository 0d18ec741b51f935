#include "drivers/motoristas.h"
#include "events/acessorios_form.h"
#include "events/event_list.h"
#include "events/gastos_form.h"
#include "events/inspecoes_form.h"
#include "events/multas_form.h"
#include "events/revisoes_form.h"
#include "events/seguros_form.h"
#include "events/sinistros_form.h"
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
};

struct Ficha {
  std::unique_ptr<EventForm> (*make)();
  const char* table;
  std::vector<const char*> row;  // what the columns hold, in their order behind the id
  std::vector<Code> codes;
  int make_title;  // the label of the vehicle's make
};

const Ficha kFichas[] = {
    {&NovaFichaDeEvento<Gastos>,
     "zor_PV_Gastos",
     {"Campo(0)", "Campo(2)", "Campo(3)", "DTPicker1", "Campo(1)", "Campo(5)", "Campo(8)", "Campo(7)",
      "Campo(6)", "Campo(4)"},
     {{"Campo(1)", 7, &AddCode<clViagens>},
      {"Campo(2)", 14, &AddCode<clMotoristas>},
      {"Campo(4)", 12, &AddCode<clTiposGastos>}},
     8},
    {&NovaFichaDeEvento<Seguros>,
     "zor_PV_Seguros",
     {"Campo(0)", "Campo(1)", "Campo(2)", "Campo(3)", "DTPicker1", "Campo(4)", "Campo(5)", "Combo1",
      "DTPicker2", "Check1", "Campo(6)"},
     {{"Campo(1)", 7, &AddCode<clCompanhias>}, {"Campo(2)", 8, &AddCode<clTiposSeguros>}},
     9},
    {&NovaFichaDeEvento<Revisoes>,
     "zor_PV_Revisoes",
     {"Campo(0)", "Campo(1)", "Campo(3)", "DTPicker1", "Campo(2)", "Campo(4)"},
     {{"Campo(1)", 7, &AddCode<clTiposManut>}},
     8},
    {&NovaFichaDeEvento<Inspecoes>,
     "zor_PV_Inspecoes",
     {"Campo(0)", "Campo(3)", "DTPicker1", "Campo(1)", "Campo(2)"},
     {},
     7},
    {&NovaFichaDeEvento<Multas>,
     "zor_PV_Multas",
     {"Campo(0)", "Campo(1)", "Campo(3)", "DTPicker1", "Campo(4)", "Check1"},
     {{"Campo(1)", 7, &AddCode<clMotoristas>}},
     8},
    {&NovaFichaDeEvento<Sinistros>,
     "zor_PV_Sinistros",
     {"Campo(0)", "Campo(1)", "Campo(3)", "DTPicker1", "Campo(4)", "Check1", "Campo(5)"},
     {{"Campo(1)", 7, &AddCode<clMotoristas>}},
     8},
    {&NovaFichaDeEvento<Acessorios>,
     "zor_PV_Acessorios",
     {"Campo(0)", "Campo(1)", "Campo(3)", "DTPicker1", "Campo(4)", "Campo(2)", "Campo(7)", "Campo(6)",
      "Campo(5)", "Campo(8)", "DTPicker2"},
     {{"Campo(1)", 7, &AddCode<clTiposAcessorios>}},
     8},
};

class RoundTripTest : public DatabaseTest {
 protected:
  RoundTripTest() { AddVehicle(bd, "12-AB-34"); }
  std::unique_ptr<EventForm> New(const Ficha& ficha) const {
    auto form = ficha.make();
    form->mybd = bd;
    form->Load();
    return form;
  }
};

TEST_F(RoundTripTest, EveryFieldOfAnEventGoesAndComesBack) {
  for (const Ficha& ficha : kFichas) {
    SCOPED_TRACE(ficha.table);
    const auto form = New(ficha);
    Enter(form->Campo[0], "12-AB-34");
    Screen given;
    for (const Code& code : ficha.codes) {
      given[code.field] = std::string("C") + code.field[6];
      code.add(bd, given[code.field], "Nome de " + given[code.field]);
    }
    FillOut(*form, given);
    const Screen typed = ScreenOf(*form);
    Press(form->botoes.btConf);
    EXPECT_EQ(ScreenOf(*form), ScreenOf(*New(ficha))) << "a save leaves an empty screen";

    std::vector<std::string> expected = {"1"};
    for (const char* control : ficha.row) expected.push_back(typed.at(control));
    const std::string all = std::string("SELECT * FROM ") + ficha.table;
    EXPECT_EQ(Rows(bd, all), (Table{expected}));
    RecordsetRef row;
    bd->AbrirLeitura("", all.c_str(), row);
    ExpectLimits(*form, typed, *row);

    const auto again = New(ficha);
    again->Carrega(1);
    EXPECT_EQ(ScreenOf(*again), typed);
    EXPECT_EQ(again->Matricula, "12-AB-34");
    EXPECT_EQ(again->Titulo[ficha.make_title].Caption, "Renault");
    for (const Code& code : ficha.codes)
      EXPECT_EQ(again->Titulo[code.title].Caption, "Nome de " + given[code.field]);
    Press(again->botoes.btConf);
    EXPECT_EQ(Rows(bd, all), (Table{expected})) << "shown and saved again, it is the same";
  }
}

TEST_F(RoundTripTest, ABlankEventHasNothingInItsColumns) {
  for (const Ficha& ficha : kFichas) {
    SCOPED_TRACE(ficha.table);
    const auto form = New(ficha);
    Type(form->Campo[0], "12-AB-34");
    const Screen blank = ScreenOf(*form);
    Press(form->botoes.btConf);
    std::vector<std::string> expected = {"1"};
    for (const char* control : ficha.row) {
      const auto& field = Find<platform::Control>(*form, control);
      const auto* text = dynamic_cast<const platform::zor_input*>(&field);
      expected.push_back(text != nullptr && text->Numeric() ? "0" : blank.at(control));
    }
    EXPECT_EQ(Rows(bd, std::string("SELECT * FROM ") + ficha.table), (Table{expected}));
  }
}

}  // namespace
}  // namespace zorCrmParvel
