// What an operator says of a file before its rows are looked at.

#include "exchange/assistant/import_session.h"

#include "exchange/import_fixture.h"
#include "exchange/profile/profile_store.h"
#include "exchange/table_files.h"

namespace exchange {
namespace {

class SessionTest : public ImportTest {
 protected:
  std::string Mapped(const ImportSession& session) {
    std::string text;
    for (std::size_t i = 0; i < session.columns(); ++i)
      text += session.Heading(i) + ">" + session.TargetOf(i) + ";";
    for (const std::string& column : session.Missing()) text += " falta " + column;
    return text;
  }

  TableFiles files;
};

TEST_F(SessionTest, ColumnsAreSentWhereTheOperatorSays) {
  const std::string file =
      files.Put("a.csv", "Matrícula;Data;Coisa;Nota\n12-AB-34;20-01-2024;PORTAGEM;a;60\n12-AB-34;;;b\n");
  ImportSession session(bd, file);
  EXPECT_EQ(session.file(), file);
  session.Choose(*KindOf("gastos"));
  EXPECT_EQ(Mapped(session), "Matrícula>Matricula;Data>Data;Coisa>;Nota>;Coluna 5>; falta TipoGasto");
  EXPECT_EQ(session.Samples(4, 9), (std::vector<std::string>{"60", ""}));
  EXPECT_EQ(session.Samples(0, 1), (std::vector<std::string>{"12-AB-34"}));
  session.SetConstant("TipoGasto", "GASOLEO");
  EXPECT_EQ(session.ConstantOf("TipoGasto"), "GASOLEO");
  session.SetConstant("TipoGasto", "PORTAGEM");
  EXPECT_EQ(session.profile().Find("TipoGasto")->pieces.size(), 1U);
  EXPECT_TRUE(session.Missing().empty());
  session.SetConstant("TipoGasto", "");
  EXPECT_EQ(session.ConstantOf("TipoGasto"), "");
  session.Map(2, "TipoGasto");
  session.SetConstant("TipoGasto", "PORTAGEM");
  EXPECT_EQ(session.ConstantOf("TipoGasto"), "PORTAGEM") << "after a column";
  session.SetConstant("TipoGasto", "");
  session.Map(4, "Custo");
  session.Map(3, "");
  EXPECT_EQ(Mapped(session), "Matrícula>Matricula;Data>Data;Coisa>TipoGasto;Nota>;Coluna 5>Custo;");
  session.Map(2, "Obs");
  session.Map(3, "Obs");
  EXPECT_EQ(Mapped(session),
            "Matrícula>Matricula;Data>Data;Coisa>Obs;Nota>Obs;Coluna 5>Custo; falta TipoGasto");
  session.SetConstant("TipoGasto", "PORTAGEM");
  const auto plan = session.Plan({});
  plan->Check();
  EXPECT_EQ(plan->Values(0), (std::vector<std::string>{"12-AB-34", "20-01-2024", "PORTAGEM", "", "", "", "",
                                                       "60", "", "PORTAGEM a"}));
  EXPECT_EQ(plan->size(), 2U);
  session.Choose(*KindOf("multas"));
  EXPECT_EQ(Mapped(session), "Matrícula>Matricula;Data>Data;Coisa>;Nota>;Coluna 5>;");
}

TEST_F(SessionTest, TheFirstSheetThatIsSeenIsOpenAndProfilesAreFoundAgain) {
  const std::string sheet = R"(<worksheet><cols><col min="2" max="2" hidden="1"/></cols><sheetData><row>)";
  const auto cells = [](const char* first, const char* second) {
    std::string row;
    for (const char* text : {first, second})
      row += std::string("<c t='inlineStr'><is><t>") + text + "</t></is></c>";
    return row + "</row>";
  };
  const std::string file = files.Zip(
      "f.xlsx", {{"xl/workbook.xml",
                  "<workbook xmlns:r='u/relationships'><sheets><sheet name='Nota' state='hidden' r:id='r1'/>"
                  "<sheet name='Frota' r:id='r2'/></sheets></workbook>"},
                 {"xl/_rels/workbook.xml.rels",
                  "<Relationships><Relationship Id='r1' Type='x/worksheet' Target='a.xml'/>"
                  "<Relationship Id='r2' Type='x/worksheet' Target='b.xml'/></Relationships>"},
                 {"xl/a.xml", sheet + cells("Nome", "Código") + "</sheetData></worksheet>"},
                 {"xl/b.xml", sheet + cells("Viatura", "Marca") + "<row>" + cells("AA-00-BB", "REN") +
                                  "</sheetData></worksheet>"}});
  ImportSession session(bd, file);
  EXPECT_EQ(session.sheet(), 1U);
  EXPECT_EQ(session.sheets().size(), 2U);
  EXPECT_EQ(session.profile().sheet, "Frota");
  EXPECT_STREQ(session.kind().name, "viaturas");
  EXPECT_EQ(Mapped(session), "Viatura>Matricula;Marca>Marca;");
  EXPECT_TRUE(session.IsHidden(1));
  EXPECT_FALSE(session.IsHidden(0));
  EXPECT_TRUE(session.known().empty());
  Profile profile = session.profile();
  profile.name = "Da casa";
  SaveProfile(bd, profile);
  session.OpenSheet(0);
  EXPECT_EQ(session.profile().sheet, "");
  EXPECT_TRUE(session.known().empty());
  session.OpenSheet(1);
  ASSERT_EQ(session.known().size(), 1U);
  EXPECT_EQ(session.profile(), profile);
  session.Choose(*KindOf("motoristas"));
  session.Use(profile);
  EXPECT_EQ(session.Plan({})->size(), 1U);
}

}  // namespace
}  // namespace exchange
