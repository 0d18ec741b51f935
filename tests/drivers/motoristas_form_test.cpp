#include "drivers/motoristas_form.h"

#include "drivers/licence_classes.h"
#include "drivers/motoristas_list.h"
#include "platform/format.h"
#include "support/database_test.h"
#include "support/grid_window.h"
#include "support/screen.h"

namespace zorCrmParvel {
namespace {

using platform::Date;
using namespace testing_support;

class MotoristasFormTest : public DatabaseTest {
 protected:
  MotoristasFormTest() {
    AddDriver(bd, "1", "Ana");
    AddDriver(bd, "2", "Zé");
    form.mybd = bd;
    form.Load();
  }
  void GoTo(const std::string& code) {
    form.UserGoesTo(form.Campo[0]);
    Enter(form.Campo[0], code);
  }
  Table Names() { return Rows(bd, "SELECT Codigo, Nome FROM zor_Funcionarios ORDER BY Codigo"); }
  Table Classes() { return Rows(bd, "SELECT Motorista, TipoCarta, DataValidade FROM zor_CartasCond"); }

  Motoristas form;
};

TEST_F(MotoristasFormTest, AnUnknownCodeBeginsANewDriver) {
  form.UserKey(platform::kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]) << "an empty one is none";
  GoTo("1");
  EXPECT_EQ(form.Campo[1].Text, "Ana");
  GoTo("7");
  EXPECT_EQ(form.Campo[0].Text, "7");
  EXPECT_EQ(form.Campo[1].Text, "") << "the fields of the last driver are cleared";
  Type(form.Campo[1], "Nova");
  form.UserPicksDate(form.DTPicker1[2], Date::FromParts(2030, 1, 2));
  form.UserSelectsTab(form.SSTab1, 2);
  EXPECT_EQ(form.ActiveControl(), &form.Campo[15]);
  form.UserPicksDate(form.DTPicker1[6], platform::Variant::Null{});
  Press(form.botoes.btConf);
  EXPECT_EQ(Rows(bd,
                 "SELECT Nome, ValCartaoCid, DataCartaoCid, ValidadePassa, DataValBI FROM zor_Funcionarios "
                 "WHERE Codigo='7'"),
            (Table{{"Nova", "02-01-2030", "00:00:00", "NULL", "15-03-2024"}}));
  EXPECT_EQ(form.Campo[0].Text, "");
  form.UserKey(platform::kKeyEscape);
  EXPECT_TRUE(form.IsClosed());
}

TEST_F(MotoristasFormTest, ThePersonnelTableGivesWhoTheyAreAndTheFleetTheRest) {
  GoTo("1");
  FillOut(form);
  Screen personal = ScreenOf(form);
  Press(form.botoes.btConf);
  Motoristas linked;
  linked.mybd = linked.bdSal = bd;
  linked.Load();
  linked.UsaPessoal = true;
  Sql("INSERT INTO Func1 (Nfunc, Nome, Morada, Localid, CdPostal, NFiscal, DtNasc, BI, DtBI, Emissao, "
      "Telefone, Telemove, Email, Passpo, NUMERO_CARTAO_CIDADAO) VALUES ('1', 'p1', 'p3', 'p8', 'p7', 'p13', "
      "'1980.05.06', 'p9', '2001.02.03', 'p10', 'p6', 'p5', 'p4', 'p15', 'p11')");
  Enter(linked.Campo[0], "1");
  for (int field : {1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 15})
    personal["Campo(" + std::to_string(field) + ")"] = "p" + std::to_string(field);
  personal["DTPicker1(0)"] = "06-05-1980";
  personal["DTPicker1(1)"] = "03-02-2001";
  personal["DTPicker1(7)"] = "00:00:00";  // the validity of the identity card isn't read on this path
  EXPECT_EQ(ScreenOf(linked), personal);
  host.ExpectBox("Deve preencher o funcionário na aplicação de Pessoal");
  linked.UserGoesTo(linked.Campo[0]);
  Enter(linked.Campo[0], "2");
  EXPECT_EQ(linked.ActiveControl(), &linked.Campo[0]) << "the personnel table decides who exists";
  for (int field = 1; field <= linked.Campo.UBound(); ++field)
    EXPECT_EQ(linked.Campo[field].Enabled, personal["Campo(" + std::to_string(field) + ")"][0] != 'p')
        << field;
  EXPECT_FALSE(linked.DTPicker1[0].Enabled || linked.DTPicker1[1].Enabled || linked.btLista[7].Enabled);
}

TEST_F(MotoristasFormTest, ADateThatIsTakenAwayIsNullOrZeroAndShownAsToday) {
  form.CarregaFicha("1");
  for (int date : {5, 6, 8, 9, 10}) form.DTPicker1[date].Value = platform::Variant::Null{};
  Press(form.botoes.btConf);
  EXPECT_EQ(Rows(bd,
                 "SELECT DataPassa, ValidadePassa, DtInicioCartaoCondutor, DtFimCartaoCondutor, DtDescarga "
                 "FROM zor_Funcionarios WHERE Codigo='1'"),
            (Table{{"NULL", "NULL", "00:00:00", "00:00:00", "00:00:00"}}));
  form.CarregaFicha("1");
  for (int date : {5, 6, 8, 9, 10}) EXPECT_EQ(form.DTPicker1[date].Value.ToText(), "15-03-2024") << date;
}

TEST_F(MotoristasFormTest, AMoveSavesWhoIsLeft) {
  GoTo("2");
  form.Campo[1].Text = "José";
  Press(form.botoes.btNavega[2]);
  EXPECT_EQ(form.Campo[0].Text, "2") << "the last driver is saved and shown again";
  EXPECT_EQ(form.Campo[1].Text, "José");
  Press(form.botoes.btNavega[0]);
  EXPECT_EQ(form.Campo[1].Text, "Ana");
  EXPECT_EQ(Names(), (Table{{"1", "Ana"}, {"2", "José"}}));
  std::string code = "2";
  form.Navega(4, code);
  EXPECT_EQ(code, "1") << "no arrow: the code is that of the record in hand";
  EXPECT_FALSE(form.ComparaValores());
}

TEST_F(MotoristasFormTest, LicenceClassesAreTypedPickedAndTakenAway) {
  GoTo("1");
  form.UserSelectsTab(form.SSTab1, 1);
  ASSERT_EQ(form.Grelha.RowCount(), 10);
  EXPECT_TRUE(form.UserEditsCell(form.Grelha, 0, "15-03-2024")) << "today passes when it is typed";
  host.ExpectBox("A Data de Validade não pode ser inferior à data dia!");
  EXPECT_FALSE(form.UserEditsCell(form.Grelha, 1, "14-03-2024"));
  host.ExpectBox("Data inválida!");
  EXPECT_FALSE(form.UserEditsCell(form.Grelha, 1, "31-02-2025"));

  form.UserSelectsRow(form.Grelha, 3);
  EXPECT_TRUE(form.MonthView1.Visible);
  host.ExpectBox("A data de Validade não pode ser inferior à data dia!");
  form.UserClicksDate(form.MonthView1, Date::FromParts(2024, 3, 15));
  EXPECT_FALSE(form.MonthView1.Visible) << "today is too early in the calendar";
  form.UserSelectsRow(form.Grelha, 4);
  form.UserClicksDate(form.MonthView1, Date::FromParts(2030, 5, 6));
  form.UserSelectsRow(form.Grelha, 5);
  form.UserGoesTo(form.MonthView1);
  form.MonthView1.Value = Date::FromParts(2024, 3, 1);
  host.ExpectBox("A Data de Validade não pode ser inferior à data dia!");
  form.UserKey(platform::kKeyEnter);
  Press(form.botoes.btConf);
  EXPECT_EQ(Classes(), (Table{{"1", "0", "15-03-2024"}, {"1", "4", "06-05-2030"}}));

  GoTo("1");
  EXPECT_EQ(form.Grelha.CellText(4, 0), TiposCarta()[4]);
  EXPECT_EQ(form.Grelha.CellText(4, 1), "06-05-2030");
  form.UserSelectsTab(form.SSTab1, 1);
  form.UserEditsCell(form.Grelha, 4, "");
  form.UserEditsCell(form.Grelha, 0, "01-01-2031");
  Press(form.botoes.btConf);
  EXPECT_EQ(Classes(), (Table{{"1", "0", "01-01-2031"}}));
  GoTo("2");
  EXPECT_EQ(form.Grelha.CellText(0, 1), "") << "the classes are the driver's own";
}

TEST_F(MotoristasFormTest, TheCalendarServesTheRowsByTheKeyboard) {
  GoTo("1");
  form.UserSelectsTab(form.SSTab1, 1);
  form.UserSelectsRow(form.Grelha, 4);
  EXPECT_EQ(form.MonthView1.Value, platform::Today());
  form.UserKey('5');
  ASSERT_EQ(form.ActiveControl(), &form.Grelha) << "only Enter opens the calendar";
  for (int day : {6, 7}) {  // and again on the row that it served
    form.UserKey(platform::kKeyEnter);
    ASSERT_EQ(form.ActiveControl(), &form.MonthView1);
    form.UserMovesToDate(form.MonthView1, Date::FromParts(2030, 5, day));
    form.UserKey('5');
    ASSERT_EQ(form.ActiveControl(), &form.MonthView1) << "only Enter takes the day";
    form.UserKey(platform::kKeyEnter);
    EXPECT_EQ(form.ActiveControl(), &form.Grelha);
    EXPECT_FALSE(form.MonthView1.Visible);
    EXPECT_EQ(form.Grelha.CellText(4, 1), "0" + std::to_string(day) + "-05-2030");
  }
  form.UserSelectsRow(form.Grelha, 4);
  EXPECT_TRUE(form.MonthView1.Visible) << "a click on the same row";
  EXPECT_EQ(form.MonthView1.Value, Date::FromParts(2030, 5, 7));
  form.UserGoesTo(form.MonthView1);
  form.UserKey(platform::kKeyEscape);
  EXPECT_EQ(form.ActiveControl(), &form.Grelha);
}

TEST_F(MotoristasFormTest, ThePostalCodePicksADriverAllTheSameAndNoFileLeavesThePhoto) {
  GoTo("1");
  for (const char* code : {"2", "1234567890"}) {  // which is longer than the field
    host.NextLookup(code);
    Press(form.btLista[7]);
    EXPECT_EQ(form.Campo[7].Text, "2");
  }
  const int shown = form.ShowImg1.Revision();
  for (const std::optional<std::string>& choice : {std::optional<std::string>(), {""}}) {
    host.AnswerFile(choice);
    Press(form.PicAdd);
  }
  EXPECT_EQ(form.ShowImg1.Revision(), shown);
  EXPECT_EQ(host.dialogs.back().text, "Ficheiros Jpg (*.jpg; )|*.jpg");
}

}  // namespace
}  // namespace zorCrmParvel
