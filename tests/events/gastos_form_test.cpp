#include "events/gastos_form.h"

#include "events/upkeep.h"
#include "host/sistema.h"
#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using platform::Date;
using namespace testing_support;

class GastosTest : public DatabaseTest {
 protected:
  GastosTest() {
    AddFleet(bd, 10000);
    form.mybd = bd;
  }
  void OpenForVehicle(const std::string& plate) {
    form.TipoMostrar = 1;
    form.Matricula = plate;
    form.Load();
    form.Carrega(0);
  }
  void Fill(int field, const std::string& text) { Enter(form.Campo[field], text); }
  /// KmActual, Media, CustoMedioKmC, CustoTotal, CustoMedioKmT.
  std::string Figures(const std::string& plate = "12-AB-34") {
    const Table rows = Rows(bd,
                            "SELECT KmActual, Media, CustoMedioKmC, CustoTotal, CustoMedioKmT FROM "
                            "zor_PV_Viaturas WHERE Matricula='" +
                                plate + "'");
    std::string text;
    for (const std::string& figure : rows.at(0)) text += figure + " ";
    return text;
  }
  void Save(const std::string& type, const std::string& quantity, const std::string& cost,
            const std::string& km, int day) {
    form.Carrega(0);
    form.Campo[4].Text = type;
    form.Campo[5].Text = quantity;
    form.Campo[6].Text = cost;
    form.Campo[8].Text = km;
    form.DTPicker1.Value = Date::FromParts(2024, 1, day);
    Press(form.botoes.btConf);
  }
  Table Expenses() {
    return Rows(bd, "SELECT Matricula, TipoGasto, Qtd, Km, ValorUn, Custo FROM zor_PV_Gastos");
  }

  Sistema sistema;
  Gastos form;
};

TEST_F(GastosTest, AFuelExpenseChecksItselfFieldByField) {
  AddExpense(bd, "12-AB-34", Date::FromParts(2024, 2, 1), "GASOLEO", "50", "75",
             11000);  // the last one counts
  AddExpense(bd, "12-AB-34", Date::FromParts(2024, 3, 1), "GASOLEO", "50", "75", 10400);
  form.Load();
  EXPECT_EQ(form.DTPicker1.Value.ToDate(), Date::FromParts(2024, 3, 15, 10, 30));
  Fill(0, "12-AB-34");
  EXPECT_EQ(form.Titulo[8].Caption, "Renault");
  Fill(4, "GASOLEO");
  EXPECT_EQ(form.Campo[7].Text, "1,659") << "the type's usual price";
  host.ExpectBox("Motorista não existente!");
  form.UserKey(platform::kKeyTab);  // a driver field that is visited needs a driver
  host.NextLookup("1");
  form.UserKey(platform::kKeyF3);
  EXPECT_EQ(form.Titulo[14].Caption, "Ana");
  form.UserKey(platform::kKeyTab);  // no trip
  host.ExpectBox("O Tipo de Gasto exige quantidade superior a zero!");
  Fill(5, "0");
  Fill(5, "40");
  EXPECT_EQ(form.Campo[6].Text, "66,36");
  form.UserGoesTo(form.Campo[8]);
  host.ExpectBox("Existe uma quilometragem superior para esta viatura em Gasto anterior.");
  Fill(8, "10399");
  host.ExpectBox("O tipo de Gasto exige quilometragem superior a zero!");
  Fill(8, "");
  Fill(8, "10400");  // equal passes
  Fill(8, "10500");
  for (const auto& box : host.boxes) EXPECT_EQ(box.style, 64);
  Press(form.botoes.btConf);
  EXPECT_EQ(Expenses().back(),
            (std::vector<std::string>{"12-AB-34", "GASOLEO", "40", "10500", "1,659", "66,36"}));
  EXPECT_EQ(form.Campo[0].Text, "");
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
}

TEST_F(GastosTest, CostAndUnitPriceHaveRulesForEveryType) {
  form.Load();
  Fill(0, "12-AB-34");
  Fill(4, "PORTAGEM");
  Fill(2, "1");
  form.UserGoesTo(form.Campo[5]);
  Fill(5, "");
  EXPECT_EQ(form.Campo[5].Text, "0");
  form.UserGoesTo(form.Campo[6]);
  host.ExpectBox("Campo obrigatório!");
  form.UserKey(platform::kKeyTab);
  host.ExpectBox("Deve ser superior zero!");
  Fill(6, "-1");
  Fill(6, "7,5");
  form.Campo[5].Text = "3";
  Fill(7, "2,5");
  EXPECT_EQ(form.Campo[6].Text, "7,5");
  form.UserGoesTo(form.Campo[8]);
  Fill(8, "");
  EXPECT_EQ(form.Campo[8].Text, "0");
  form.UserGoesTo(form.Campo[7]);
  Type(form.Campo[7], "9999999999");
  form.Campo[5].Text = "9999999999";
  EXPECT_THROW(form.UserKey(platform::kKeyTab), platform::RuntimeError) << "the product doesn't fit";
  EXPECT_EQ(form.Campo[6].Text, "7,5");
}

TEST_F(GastosTest, RulesSleepAfterEscapeAndUntilAKeyIsPressed) {
  form.Load();
  EXPECT_TRUE(form.UserGoesTo(form.Campo[2]));
  EXPECT_TRUE(form.UserGoesTo(form.Campo[5])) << "the mouse alone checks nothing";
  form.UserGoesTo(form.Campo[4]);
  Type(form.Campo[4], "NADA");
  form.UserKey(platform::kKeyEscape);
  EXPECT_NE(form.ActiveControl(), &form.Campo[4]) << "Escape steps back past a field that would refuse";
}

TEST_F(GastosTest, FiguresAfterEachSave) {
  OpenForVehicle("12-AB-34");
  Save("GASOLEO", "50", "75", "10000", 1);
  EXPECT_EQ(Figures(), "10000 0 0 75 0,0075 ") << "the first fill has no consumption";
  Save("GASOLEO", "40", "60", "10500", 10);
  EXPECT_EQ(Figures(), "10500 8 0,12 135 0,0129 ");
  Save("PORTAGEM", "0", "10", "99999", 11);
  EXPECT_EQ(Figures(), "10500 8 0,12 145 0,0138 ") << "another cost moves neither km nor consumption";
  Sql("UPDATE zor_PV_Viaturas SET QtdInicial=10");
  Save("PORTAGEM", "0", "5", "0", 12);
  EXPECT_EQ(Figures(), "10500 10 0,12 150 0,0143 ") << "what was in the tank at first was used, too";
  Sql("UPDATE zor_PV_Viaturas SET KmInicial=99999");
  Save("GASOLEO", "1", "1", "11000", 13);
  EXPECT_EQ(Figures(), "11000 0 0 151 0,0137 ") << "below the initial kilometres nothing is negative";
  Sql("Delete zor_PV_Viaturas");
  Save("GASOLEO", "50", "75", "12000", 14);
  EXPECT_EQ(Rows(bd, "SELECT Matricula, Marca, KmActual FROM zor_PV_Viaturas"),
            (Table{{"12-AB-34", "", "12000"}}))
      << "a vehicle removed meanwhile comes back with its figures alone";
  form.Carrega(0);
  form.Campo[5].Text = "muitos";
  EXPECT_THROW(Press(form.botoes.btConf), platform::RuntimeError);
  EXPECT_EQ(form.Campo[5].Text, "muitos");
  EXPECT_EQ(Expenses().size(), 6U) << "a text in a number stores nothing";
}

TEST_F(GastosTest, SavesAndRemovalsSumDifferently) {
  OpenForVehicle("12-AB-34");
  AddEvent<clAcessorios>(bd, "12-AB-34");
  Sql("UPDATE zor_PV_Acessorios SET Custo=100");
  AddEvent<clInspecoes>(bd, "12-AB-34");
  Sql("UPDATE zor_PV_Inspecoes SET Custo=30");
  Save("GASOLEO", "50", "75", "10000", 1);
  Save("GASOLEO", "40", "60", "10500", 10);
  EXPECT_EQ(Figures(), "10500 8 0,12 265 0,0252 ");
  Save("PORTAGEM", "0", "10", "0", 11);
  form.Carrega(3);
  host.ExpectBox("Vai proceder à anulação do Gasto!\n\rPretende continuar?", platform::kOk);
  Press(form.botoes.btAnular);
  EXPECT_EQ(Figures(), "10500 8 0,27 335 0,0319 ")
      << "accessories twice, inspections not, and the first fill's cost";
  for (int id : {2, 1}) form.Anular(id, "12-AB-34");
  EXPECT_EQ(Figures(), "0 0,5 0 200 0 ") << "with no fuel expense left the kilometres fall to 0, and the "
                                            "consumption comes from the last first fill";
}

TEST_F(GastosTest, AnExpenseIsEnteredByTheKeyboardAlone) {
  OpenForVehicle("12-AB-34");
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
  EXPECT_EQ(Rows(bd, "SELECT Matricula, TipoGasto, Qtd, Custo, Km, Obs FROM zor_PV_Gastos"),
            (Table{{"12-AB-34", "GASOLEO", "40", "66,36", "10500", "cheio"}}));
}

}  // namespace
}  // namespace zorCrmParvel
