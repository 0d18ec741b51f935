#include <gtest/gtest.h>

#include "entry/codes.h"
#include "entry/like_last.h"
#include "entry/new_event.h"
#include "entry/vehicle_field.h"
#include "entry/warnings.h"
#include "events/gastos_form.h"
#include "host/sistema.h"
#include "support/database_test.h"
#include "support/whole_text.h"
#include "vehicles/viaturas_form.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;
using platform::Date;

class EntryTest : public DatabaseTest {
 protected:
  EntryTest() { AddFleet(bd, 10000); }
  void Open(Gastos& form) {
    form.mybd = bd;
    form.Load();
  }
  Sistema sistema;
};

TEST_F(EntryTest, CodesAreFoundHoweverTheyAreWritten) {
  const std::vector<entry::KnownCode> codes = {
      {"12-AB-34", ""}, {"GASOLEO", "Gasóleo"}, {"Óleo", ""},   {"A1", "Um"},
      {"a-1", ""},      {"REN", "Renault"},     {"R2", "Dois"}, {"R3", "dois"}};
  const std::pair<const char*, const char*> cases[] = {{"12ab34", "12-AB-34"},
                                                       {"12 ab 34", "12-AB-34"},
                                                       {"gasoleo", "GASOLEO"},
                                                       {"oleo", "Óleo"},
                                                       {"A1", "A1"},
                                                       {"a 1", "a 1"},
                                                       {"99-ZZ-99", "99-ZZ-99"},
                                                       {"-", "-"},
                                                       {"renault", "REN"},
                                                       {"rena", "REN"},
                                                       {"re", "re"},
                                                       {"ren", "REN"},
                                                       {"", ""},
                                                       {"doi", "doi"},
                                                       {"dois", "dois"}};
  for (const auto& [text, meant] : cases) EXPECT_EQ(entry::CodeMeant(codes, text), meant) << text;
  for (const auto& [text, plate] : {std::pair{"12ab34", "12-AB-34"},
                                    {"aa 01-bb", "AA-01-BB"},
                                    {"123456", "123456"},
                                    {"abcdef", "abcdef"},
                                    {"1a2b3c", "1a2b3c"},
                                    {"1ab2c3", "1ab2c3"},
                                    {"az09zz", "AZ-09-ZZ"},
                                    {"12a:34", "12a:34"},
                                    {"12ab345", "12ab345"}})
    EXPECT_EQ(entry::PlateSpelled(text), plate);
  EXPECT_EQ(entry::CodeMade({{"A", ""}}, {{"A", ""}, {"B", ""}}), "B");
  EXPECT_EQ(entry::CodeMade({{"A", ""}}, {{"A", ""}, {"B", ""}, {"C", ""}}), "");
  EXPECT_EQ(entry::CodeMade({{"A", ""}}, {{"A", ""}}), "");
}

/// Each field of a code is the one that the ficha has a list for, and its table can be read.
TEST_F(EntryTest, FieldsOfCodesAreThoseOfTheFichas) {
  std::string text;
  for (const char* name :
       {"Viaturas", "Motoristas", "Gastos", "Seguros", "Revisoes", "Inspecoes", "Acessorios", "Multas",
        "Sinistros", "Categorias", "Companhias", "Departamentos", "Marcas", "Modelos", "TiposAcessorios",
        "TiposSeguro", "TiposGastos", "TiposManut", "Viagens"}) {
    SCOPED_TRACE(name);
    const auto ficha = FormCatalog::Shared().Make(name);
    ficha->mybd = bd;
    ficha->Load();
    for (const platform::Control* control : ficha->Controls()) {
      const entry::CodeField* field = entry::CodeFieldOf(control);
      const auto* input = dynamic_cast<const platform::zor_input*>(control);
      if (field == nullptr) {
        EXPECT_FALSE(input != nullptr && input->PedidoFicha && input->PedidoLista && input->Index() == 0);
        continue;
      }
      text += std::string(name) + " " + std::to_string(field->field) + " " + field->table + " " +
              field->column + " " + std::to_string(static_cast<int>(field->use)) +
              (entry::HoldsPlate(*field) ? " matrícula" : "") +
              (entry::NamesVehicle(*field) ? " da viatura" : "") + ": " + entry::AdviceOn(*field, " X ") +
              " | " + entry::AdviceOn(*field, " ") + " |";
      for (const entry::KnownCode& code : entry::CodesOf(bd, *field))
        text += " " + code.code + "=" + code.name;
      text += "\n";
      EXPECT_TRUE(input->PedidoLista || input->PedidoFicha) << input->Index();
    }
  }
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/entry/fields.txt", text);
}

TEST_F(EntryTest, LikeTheLastTakesTypeDriverAndPriceOfTheVehiclesLast) {
  Gastos form;
  Open(form);
  entry::TakenTypes taken;
  EXPECT_TRUE(entry::TakesLikeLast(form));
  EXPECT_EQ(entry::LikeLast(form, taken), "Escreva primeiro a matrícula.");
  Enter(form.Campo[0], "12-AB-34");
  EXPECT_EQ(entry::LikeLast(form, taken), "A viatura ainda não tem um gasto destes.");
  EventOf<clGastos> fill(bd, "12-AB-34");
  fill.TipoGasto = "GASOLEO";
  fill.Motorista = "1";
  fill.ValorUn = platform::Currency::Parse("1,702");
  fill.Data = Date::FromParts(2024, 3, 1);
  fill.Escrever();
  AddExpense(bd, "12-AB-34", Date::FromParts(2024, 3, 2), "PORTAGEM", "1", "3,5", 0);
  Enter(form.Campo[4], "GASOLEO");
  EXPECT_EQ(entry::LikeLast(form, taken),
            "Como o último: GASOLEO, motorista 1, 1,702 por unidade. Falta a quantidade. Ctrl+D outra vez: o "
            "último de outro tipo.");
  EXPECT_EQ(form.Campo[4].Text + " " + form.Campo[2].Text + " " + form.Campo[7].Text, "GASOLEO 1 1,702");
  EXPECT_EQ(form.ActiveControl(), &form.Campo[5]);
  for (const char* type : {"PORTAGEM", "GASOLEO", "PORTAGEM", "GASOLEO"}) {
    entry::LikeLast(form, taken);
    EXPECT_EQ(form.Campo[4].Text, type) << "each time the last of another type, and round again";
  }
  Enter(form.Campo[5], "40");
  EXPECT_EQ(form.Campo[6].Text, "68,08") << "the ficha's own rules ran";
  bd->ExecutarSql("", "UPDATE zor_PV_Gastos SET Motorista = NULL WHERE TipoGasto = 'PORTAGEM'");
  Gastos other;
  Open(other);
  Enter(other.Campo[0], "12-AB-34");
  host.ExpectBox("Motorista não existente!");
  EXPECT_EQ(entry::LikeLast(other, taken),
            "Como o último: PORTAGEM, 0 por unidade. Falta a quantidade. Ctrl+D outra vez: o último de outro "
            "tipo.");
  Gastos stored;
  Open(stored);
  stored.Carrega(1);
  EXPECT_FALSE(entry::TakesLikeLast(stored));
  EXPECT_EQ(entry::LikeLast(stored, taken), "Só num gasto novo.");
  Viaturas vehicle;
  EXPECT_FALSE(entry::TakesLikeLast(vehicle));
  EXPECT_EQ(entry::LikeLast(vehicle, taken), "");
}

TEST_F(EntryTest, WhatIsOddIsSaidBeforeItIsConfirmed) {
  for (int day = 1; day <= 12; ++day)
    AddExpense(bd, "12-AB-34", Date::FromParts(2024, 3, day), "GASOLEO", "40", "66,36", 10000 + 600 * day);
  Gastos form;
  Open(form);
  EXPECT_FALSE(entry::DraftOn(form)) << "nothing is written yet";
  const std::pair<int, const char*> fields[] = {{0, "12-AB-34"}, {2, "1"},     {4, "GASOLEO"},
                                                {5, "40"},       {7, "1,659"}, {6, "66,36"}};
  for (const auto& [field, text] : fields) form.Campo[field].Text = text;
  ASSERT_TRUE(entry::DraftOn(form));
  const entry::ExpensePast past(bd, entry::DraftOn(form)->date);
  const std::pair<std::pair<int, const char*>, bool> changes[] = {{{8, ""}, false},
                                                                  {{8, "9000"}, true},
                                                                  {{8, "17800"}, false},
                                                                  {{5, "400"}, true},
                                                                  {{0, "99-99-ZZ"}, false}};
  for (const auto& [change, odd] : changes) {
    form.Campo[change.first].Text = change.second;
    const auto said = past.Warnings(*entry::DraftOn(form));
    EXPECT_EQ(!said.empty(), odd) << change.first << " " << change.second << (odd ? "" : said.front());
  }
  form.Campo[0].Text = "12-AB-34 ";
  const std::pair<std::pair<int, const char*>, const char*> texts[] = {
      {{5, "40"}, ""},
      {{5, "400"},
       "36,67 L aos 100 km, quando o habitual é 6,67 L.\n400,00 L, quando o maior abastecimento anterior foi "
       "de 40,00 L.\n"},
      {{8, "9000"},
       "400,00 L, quando o maior abastecimento anterior foi de 40,00 L.\n9000 km, abaixo dos 17200 km já "
       "lidos.\n"},
      {{8, ""}, "400,00 L, quando o maior abastecimento anterior foi de 40,00 L.\n"}};
  for (const auto& [change, part] : texts) {
    form.Campo[change.first].Text = change.second;
    std::string all;
    for (const std::string& one : past.Warnings(*entry::DraftOn(form))) all += one + "\n";
    EXPECT_EQ(all, part);
  }
  // A year and a month are looked back.
  form.Campo[5].Text = "400";
  for (const auto& [days, quantity, most] : {std::tuple{401, "300", "40,00"}, {400, "90", "90,00"}}) {
    AddExpense(bd, "12-AB-34", platform::Today().AddDays(-days), "GASOLEO", quantity, "100", 0);
    EXPECT_EQ(entry::ExpensePast(bd, platform::Today()).Warnings(*entry::DraftOn(form)).front(),
              std::string("400,00 L, quando o maior abastecimento anterior foi de ") + most + " L.");
  }
  bd->ExecutarSql("", "UPDATE zor_Funcionarios SET ValCartaCond = '2024-03-01' WHERE Codigo = '1'");
  EXPECT_EQ(entry::ExpensePast(bd, entry::DraftOn(form)->date).Warnings(*entry::DraftOn(form)).back(),
            "A carta de 1 tinha caducado em 01-03-2024.");
  const std::pair<int, const char*> lacking[] = {{0, " "}, {4, ""}, {6, "0"}};
  for (const auto& [field, text] : lacking) {
    const std::string before = form.Campo[field].Text;
    form.Campo[field].Text = text;
    EXPECT_FALSE(entry::DraftOn(form)) << field;
    form.Campo[field].Text = before;
  }
  form.Campo[8].Text = "muitos";
  EXPECT_EQ(entry::DraftOn(form)->km, 0);
  EXPECT_EQ(entry::DraftOn(form)->driver + entry::DraftOn(form)->price.ToText(), "11,659");
}

TEST_F(EntryTest, AFieldIsSetOnManyVehiclesAsTheirFichasWould) {
  AddVehicle(bd, "99-ZZ-99");
  AddCode<clDepartamentos>(bd, "COM", "Comercial");
  const std::vector<std::string> plates = {"12-AB-34", "99-ZZ-99", "00-XX-00"};
  const auto field = entry::VehicleField::kDepartment;
  ASSERT_EQ(entry::ValuesOf(bd, plates, field).size(), 2U);
  EXPECT_EQ(entry::SetField(bd, {{"12-AB-34", ""}}, field, "COM"), 1U);
  EXPECT_EQ(entry::SetField(bd, entry::ValuesOf(bd, plates, field), field, "COM"), 1U);
  EXPECT_EQ(Rows(bd, "SELECT Matricula FROM zor_PV_Viaturas WHERE Departamento = 'COM'").size(), 2U);
  EXPECT_THROW(entry::SetField(bd, {{"12-AB-34", ""}}, field, "XYZ"), platform::RuntimeError);
  const auto responsible = entry::VehicleField::kResponsible;
  EXPECT_EQ(entry::SetField(bd, {{"12-AB-34", ""}, {"00-XX-00", ""}}, responsible, std::string(40, 'n')), 1U);
  EXPECT_EQ(entry::ValuesOf(bd, {"12-AB-34"}, responsible)[0].value, std::string(40, 'n'));
  EXPECT_THROW(entry::SetField(bd, {{"12-AB-34", ""}}, responsible, std::string(41, 'n')),
               platform::RuntimeError);
  EXPECT_EQ(entry::SetField(bd, {{"12-AB-34", ""}}, field, ""), 1U);
  EXPECT_EQ(entry::Departments(bd), (std::vector<std::pair<std::string, std::string>>{{"COM", "Comercial"}}));
  EXPECT_EQ(Rows(bd, "SELECT Departamento, Responsavel, Inactiva FROM zor_PV_Viaturas ORDER BY Matricula"),
            (Table{{"", std::string(40, 'n'), "0"}, {"COM", "", "0"}}));
  const auto inactive = entry::VehicleField::kInactive;
  for (const char* value : {"1", "0"}) {
    EXPECT_EQ(entry::SetField(bd, {{"99-ZZ-99", ""}}, inactive, value), 1U);
    EXPECT_EQ(entry::ValuesOf(bd, {"99-ZZ-99"}, inactive)[0].value, value);
    EXPECT_EQ(entry::SetField(bd, {{"99-ZZ-99", ""}}, inactive, value), 0U);
  }
  bd->ExecutarSql("", "UPDATE zor_PV_Viaturas SET Responsavel = NULL");
  bd->ExecutarSql("", "UPDATE zor_PV_Departamentos SET Nome = NULL");
  EXPECT_EQ(entry::ValuesOf(bd, {"12-AB-34"}, responsible)[0].value, "");
  EXPECT_EQ(entry::Departments(bd), (std::vector<std::pair<std::string, std::string>>{{"COM", ""}}));
}

TEST_F(EntryTest, ANewEventIsOpenedFromATab) {
  AddEvents(bd, "12-AB-34");
  Viaturas vehicle;
  vehicle.mybd = bd;
  vehicle.Load();
  vehicle.CarregaViatura("12-AB-34");
  ASSERT_EQ(entry::EventButtonsOf(vehicle).size(), 7U);
  for (const entry::EventButton& button : entry::EventButtonsOf(vehicle)) {
    vehicle.UserSelectsTab(vehicle.SSTab1, button.tab);
    host.NextForm([](platform::Form& form) {
      EXPECT_EQ(dynamic_cast<EventForm&>(form).Seg_Id, 0) << form.Name;
      EXPECT_EQ(dynamic_cast<EventForm&>(form).Matricula, "12-AB-34");
    });
    entry::OpenNewEvent(vehicle, button);
  }
}

}  // namespace
}  // namespace zorCrmParvel
