#include "vehicles/viaturas_form.h"

#include <set>
#include <tuple>

#include "host/sistema.h"
#include "platform/files.h"
#include "support/database_test.h"
#include "support/screen.h"
#include "support/temporary_folder.h"
#include "vehicles/viaturas_fields.h"
#include "vehicles/viaturas_tabs.h"

namespace zorCrmParvel {
namespace {

using platform::Date;
using namespace testing_support;

constexpr const char* kPlate = "12-AB-34";

class ViaturasFormTest : public DatabaseTest {
 protected:
  ViaturasFormTest() {
    for (const char* table : {"Marcas", "Modelos", "Categorias", "Departamentos", "Companhias"})
      Sql(std::string("INSERT INTO zor_PV_") + table + " (Codigo, Nome) VALUES ('C1', 'Nome em " + table +
          "')");
    form.mybd = bd;
    form.Load();
  }
  void Leave(int field, const std::string& text) { Enter(form.Campo[field], text); }
  void OpenLocked(const std::string& plate) {
    form.Edicao = true;
    form.CarregaViatura(plate);
  }
  Table Plates() { return Rows(bd, "SELECT Matricula FROM zor_PV_Viaturas order by Matricula"); }

  Sistema sistema;
  Viaturas form;
};

TEST_F(ViaturasFormTest, AVehicleIsTypedFromNothing) {
  form.UserKey(platform::kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.Check1) << "an empty plate is left without a word";
  form.UserGoesTo(form.Campo[0]);
  Leave(0, kPlate);
  Type(form.Campo[1], "c1");
  host.NextForm([](platform::Form& ficha) { EXPECT_EQ(ficha.Caption, "Marcas"); });
  form.UserKey(platform::kKeyF4);
  form.UserKey(platform::kKeyTab);
  EXPECT_EQ(form.Titulo[13].Caption, "Nome em Marcas");
  host.NextLookup("C1");
  form.UserKey(platform::kKeyF3);
  EXPECT_EQ(form.Titulo[14].Caption, "Nome em Modelos");
  EXPECT_EQ(form.ActiveControl(), &form.SSTab1);
  form.UserKey(platform::kKeyEnter);
  EXPECT_EQ(form.ActiveControl(), &form.Campo[10]) << "the first field of the first tab";
  Leave(10, "C1");
  Leave(13, "C1");
  Leave(3, "12500");
  form.UserSelectsTab(form.SSTab1, kDUC);
  EXPECT_EQ(form.ActiveControl(), &form.DTPicker1[3]);
  form.UserPicksDate(form.DTPicker1[3], Date::FromParts(2020, 2, 10));
  form.UserToggles(form.chkBxSeloPago);
  form.UserSelectsTab(form.SSTab1, kLeasing);
  EXPECT_EQ(form.ActiveControl(), &form.Campo[20]);
  Press(form.botoes.btConf);
  EXPECT_EQ(
      Rows(bd, "SELECT Marca, KmActual, DataMatricula, DataSelo, SeloPago, DataPrxRev FROM zor_PV_Viaturas"),
      (Table{{"c1", "12500", "10-02-2020", "28-02-2025", "True", "15-03-2024"}}));
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
  EXPECT_EQ(form.Titulo[13].Caption, "");
  EXPECT_EQ(form.SSTab1.Tab, kIdentificacao);
}

TEST_F(ViaturasFormTest, ADateThatIsTakenAwayIsNullAndShownAsToday) {
  AddVehicle(bd, kPlate);
  form.CarregaViatura(kPlate);
  form.UserGoesTo(form.Check1);  // leaving the plate reads its vehicle
  for (int date : {0, 8, 9, 12}) form.DTPicker1[date].Value = platform::Variant::Null{};
  Press(form.botoes.btConf);
  EXPECT_EQ(Rows(bd, "SELECT ValContrato, DataPrxRev, DataPrxInsp, DtDescarga FROM zor_PV_Viaturas"),
            (Table{{"NULL", "NULL", "NULL", "00:00:00"}}));
  form.CarregaViatura(kPlate);
  for (int date : {0, 8, 9}) EXPECT_EQ(form.DTPicker1[date].Value.ToText(), "15-03-2024") << date;
  EXPECT_EQ(form.DTPicker1[12].Value, platform::Variant(Date())) << "shown as it stands";
}

TEST_F(ViaturasFormTest, FieldsHoldTheFocusInTheirOwnWords) {
  // Without a message the field is left.
  const std::tuple<int, int, const char*, const char*> cases[] = {
      {kIdentificacao, 1, "", "Marca não existente!"},
      {kIdentificacao, 1, "NADA", "Marca não existente!"},
      {kIdentificacao, 10, "NADA", "Departamento não existente!"},
      {kIdentificacao, 12, "NADA", "Modelo não existente!"},
      {kIdentificacao, 13, "", "Categoria não existente!"},
      {kLeasing, 20, "NADA", "Companhia não existente!"},
      {kLeasing, 20, "", ""},
      {kDUC, 24, "", "Campo obrigatório!"},
      {kDUC, 24, "1950", "Valor inválido!"},
      {kDUC, 24, "1951", ""},
      {kDUC, 24, "2023", ""},
      {kDUC, 24, "2024", "Valor inválido!"},
  };
  for (const auto& [tab, field, text, message] : cases) {
    SCOPED_TRACE(std::string(text) + message);
    Viaturas ficha;
    ficha.mybd = bd;
    ficha.Load();
    ficha.UserSelectsTab(ficha.SSTab1, tab);
    if (*message != '\0') host.ExpectBox(message);
    Enter(ficha.Campo[field], text);
    EXPECT_EQ(ficha.ActiveControl() == &ficha.Campo[field], *message != '\0');
  }
  for (const auto& box : host.boxes) EXPECT_EQ(box.style, 64);
}

TEST_F(ViaturasFormTest, InitialKmBecomeTheCurrentOnesUntilThereAreSome) {
  for (const auto& [current, after] : {std::pair{"", "500"}, {"0", "500"}, {"0,00", "500"}, {"1", "1"}}) {
    SCOPED_TRACE(current);
    form.Campo[8].Text = current;
    form.UserGoesTo(form.Campo[3]);
    Leave(3, "500");
    EXPECT_EQ(form.Campo[8].Text, after);
  }
  form.UserGoesTo(form.Campo[3]);
  form.Campo[3].Text = "muitos";
  form.Campo[8].Text.clear();
  EXPECT_EQ(NumberOf([&] { form.UserKey(platform::kKeyTab); }), platform::kTypeMismatch)
      << "the text that was copied is read as a number";
}

TEST_F(ViaturasFormTest, AKnownPlateReplacesWhatIsThereAndANewOneKeepsIt) {
  AddVehicle(bd, kPlate, 700);
  Type(form.Campo[3], "999");
  Type(form.Campo[0], "99-ZZ-99");
  form.UserGoesTo(form.Campo[3]);
  EXPECT_EQ(form.Campo[3].Text, "999");
  Type(form.Campo[0], kPlate);
  form.UserGoesTo(form.Campo[3]);
  EXPECT_EQ(form.Campo[3].Text, "700");
  form.UserGoesTo(form.Campo[0]);
  form.UserKey(platform::kKeyEscape);
  EXPECT_TRUE(form.IsClosed());
}

TEST_F(ViaturasFormTest, ArrowsSaveTheVehicleThatIsLeft) {
  AddVehicle(bd, "A");
  AddVehicle(bd, "B");
  form.CarregaViatura("A");
  form.UserSelectsTab(form.SSTab1, kObs);
  Type(form.Campo[16], "mudada");
  Press(form.botoes.btNavega[2]);
  EXPECT_EQ(form.Campo[0].Text, "B");
  EXPECT_EQ(Rows(bd, "SELECT Obs FROM zor_PV_Viaturas WHERE Matricula='A'"), (Table{{"mudada"}}));
  form.Campo[16].Text = "última";
  Press(form.botoes.btNavega[2]);
  EXPECT_EQ(form.Campo[0].Text, "B");
  EXPECT_EQ(form.Campo[16].Text, "última") << "past the last it is saved and read again";
  Press(form.botoes.btNavega[1]);
  EXPECT_EQ(form.Campo[0].Text, "A");
  std::string plate = "B";
  form.Navega(4, plate);
  EXPECT_EQ(plate, "A") << "no arrow: the plate is that of the record in hand";
  EXPECT_FALSE(form.ComparaValores());
  form.Campo[3].Text = "muitos";
  EXPECT_THROW(Press(form.botoes.btNavega[3]), platform::RuntimeError);
  EXPECT_EQ(form.Campo[0].Text + form.Campo[3].Text, "Amuitos") << "a text in a number stops the move";
  Press(form.botoes.btCancelar);
  Press(form.botoes.btNavega[0]);
  EXPECT_EQ(Plates(), (Table{{""}, {"A"}, {"B"}})) << "from an empty screen, an empty vehicle is saved";
}

TEST_F(ViaturasFormTest, ARemovalWarnsOfEachKindOfEvent) {
  const char* const warnings[] = {
      "Existem Acessórios associados à Viatura!", "Existem Apólices associados à Viatura!",
      "Existem Sinistros associadas à Viatura!",  "Existem Multas associados à Viatura!",
      "Existem Revisões associadas à Viatura!",   "Existem Gastos associados à Viatura!",
      "Existem Inspecções associadas à Viatura!"};
  const auto expect = [&](int oks, bool refused) {
    host.ExpectBox("Vai proceder à anulação da Viatura!\n\rPretende continuar?", platform::kOk);
    for (int i = 0; i < oks; ++i) host.ExpectBox(warnings[i], platform::kOk);
    if (refused) host.ExpectBox(warnings[oks], platform::kCancel);
  };
  AddVehicle(bd, kPlate);
  expect(0, false);
  form.CarregaViatura(kPlate);
  Press(form.botoes.btAnular);
  EXPECT_EQ(Plates().size(), 1U) << "a vehicle without events is only cleared away";
  EXPECT_EQ(form.Campo[0].Text, "");

  AddEvents(bd, kPlate);
  host.ExpectBox("Vai proceder à anulação da Viatura!\n\rPretende continuar?", platform::kCancel);
  OpenLocked(kPlate);
  Press(form.botoes.btAnular);
  EXPECT_EQ(form.Campo[0].Text, "") << "cancelling clears, too";
  EXPECT_TRUE(form.Campo[0].Enabled);

  expect(3, true);
  form.CarregaViatura(kPlate);
  Press(form.botoes.btAnular);
  EXPECT_EQ(Plates().size(), 1U);
  form.CarregaViatura(kPlate);
  host.ExpectBox(warnings[0], platform::kCancel);
  form.Anular();
  EXPECT_EQ(form.Campo[0].Text, kPlate) << "a refusal leaves the screen as it was";
  expect(7, false);
  form.CarregaViatura(kPlate);
  Press(form.botoes.btAnular);
  for (const auto& box : host.boxes) EXPECT_EQ(box.style, 1 + 64 + 256) << "OK and Cancel, the latter first";
  EXPECT_TRUE(Plates().empty());
  EXPECT_TRUE(Rows(bd, "SELECT Id FROM zor_PV_Multas").empty());
}

TEST_F(ViaturasFormTest, ThePhotoIsKeptAtOnceAndGoesWithoutAQuestion) {
  const TemporaryFolder folder;
  host.temporaryFolder = folder.File("");
  const std::string file = folder.File("x.jpg");
  platform::WriteFile(file, "imagem");
  Type(form.Campo[0], kPlate);  // a plate that has no row yet
  host.AnswerFile(std::nullopt);
  Press(form.PicAdd);
  EXPECT_EQ(form.ShowImg1.Shown(), "");
  EXPECT_EQ(host.dialogs.back().text, "Ficheiros Jpg (*.jpg; )|*.jpg");
  host.AnswerFile(file);
  Press(form.PicAdd);
  EXPECT_TRUE(platform::FileExists(form.ShowImg1.Shown()));
  Press(form.botoes.btCancelar);
  EXPECT_EQ(form.ShowImg1.Shown(), "");
  AddVehicle(bd, kPlate);
  form.CarregaViatura(kPlate);
  EXPECT_NE(form.ShowImg1.Shown(), "");
  Press(form.PicDel);
  EXPECT_EQ(form.ShowImg1.Shown(), "");
  form.CarregaViatura(kPlate);
  EXPECT_EQ(form.ShowImg1.Shown(), "");
}

}  // namespace
}  // namespace zorCrmParvel
