// Files as offices get them, each imported, taken back and imported again. Those without a profile beside
// them are guessed. The layouts are of our own making.

#include <filesystem>
#include <fstream>

#include "exchange/assistant/import_session.h"
#include "exchange/assistant/preview_table.h"
#include "exchange/import_fixture.h"
#include "exchange/imports/take_back.h"
#include "exchange/plan/import_plan.h"
#include "exchange/shape/profile_guess.h"
#include "support/whole_text.h"

namespace exchange {
namespace {

struct Layout {
  const char* file;
  const char* kind;    // of those that are guessed
  const char* counts;  // stored, known, aside, refused and all rows
  const char* query;   // of the rows stored, which stand in stored_layouts.txt
};

const Layout kLayouts[] = {
    {"01-cartao-de-frota.csv", "gastos", "3 0 1 3 7, 1870,01",
     "SELECT Matricula, Data, TipoGasto, Qtd, ValorUn, Custo, Km, Obs FROM zor_PV_Gastos WHERE Qtd<>1 ORDER "
     "BY Data"},
    {"02-fuel-statement.csv", "gastos", "4 1 0 0 5, 433,5",
     "SELECT Matricula, Motorista, Data, TipoGasto, Qtd, ValorUn, Custo, Km FROM zor_PV_Gastos WHERE Qtd<>1 "
     "ORDER BY Data, Gst_Id"},
    {"03-portagens.csv", "", "3 0 1 0 4, 2,3",
     "SELECT Matricula, Data, TipoGasto, Qtd, ValorUn, Custo, Obs FROM zor_PV_Gastos WHERE Qtd<>1 ORDER BY "
     "Data"},
    {"04-charging-sessions.csv", "", "3 0 0 0 3, 22,58",
     "SELECT Data, Km, Qtd, ValorUn, Obs FROM zor_PV_Gastos WHERE TipoGasto='CARGA' and Obs>'' ORDER BY "
     "Data"},
    {"07-extracto-1252.csv", "", "3 0 0 0 3, 171,2",
     "SELECT Motorista, TipoGasto, Custo, Km FROM zor_PV_Gastos WHERE Qtd<>1 ORDER BY Data"},
    {"08-releve-utf16.txt", "gastos", "2 0 0 0 2, 178,01",
     "SELECT Data, Custo, Km, Obs FROM zor_PV_Gastos WHERE Qtd<>1 ORDER BY Data"},
    {"09-registos-sem-cabecalho.txt", "", "3 0 2 0 5, 178,5",
     "SELECT Matricula, Data, Qtd, Custo, Km FROM zor_PV_Gastos WHERE Qtd<>1 ORDER BY Data"},
    {"10-frota-por-seccoes.csv", "", "3 0 0 0 3, 0",
     "SELECT Matricula, Marca, Modelo, Categoria, Combustivel, KmActual FROM zor_PV_Viaturas WHERE "
     "Matricula<'12' or Matricula like '1234%' ORDER BY Matricula"},
    {"11-motoristas.csv", "motoristas", "2 1 0 0 3, 0",
     "SELECT Codigo, Nome, DataNasc, ValCartaCond, NIF FROM zor_Funcionarios WHERE Codigo>'0008' ORDER BY "
     "Codigo"},
    {"12-cartas.csv", "cartas", "4 0 0 1 5, 0",
     "SELECT Motorista, TipoCarta, DataValidade FROM zor_CartasCond ORDER BY Motorista, TipoCarta"},
    {"13-facturas.csv", "", "3 0 0 0 3, 155,5",
     "SELECT Matricula, Data, TipoManut, Custo, Obs FROM zor_PV_Revisoes ORDER BY Data"},
    {"14-frota-da-casa.xlsx", "viaturas", "3 0 0 1 4, 0",
     "SELECT Matricula, Marca, Modelo, Combustivel, DataMatricula, ValorInicial, ValorResidual, KmInicial, "
     "KmActual, Obs FROM zor_PV_Viaturas WHERE Matricula<'12' ORDER BY Matricula"}};

class LayoutsTest : public ImportTest {
 protected:
  LayoutsTest() {
    AddVehicle(bd, "AA-11-BB", 60000);
    AddVehicle(bd, "45-67-CD", 5000);
    Sql("UPDATE zor_PV_Viaturas SET DataKmInicial='2024-01-01', CustoTotal=0, CustoMedioKmT=0");
    Sql("UPDATE zor_Funcionarios SET Nome='Ana Silva'");
    AddDriver(bd, "0007", "Rui Costa");
    AddDriver(bd, "0008", "João Manuel Costa");
    Sql("UPDATE zor_PV_TiposGastos SET Nome='Diesel' WHERE Codigo='GASOLEO'");
    Sql("INSERT INTO zor_PV_TiposGastos (Codigo, Nome, Combustivel, CustoUnit) VALUES ('CARGA', 'Carga', 1, "
        "0)");
    Sql("INSERT INTO zor_PV_TiposManut (Codigo, Nome) VALUES ('OLEO', 'Mudança de óleo')");
    AddExpense(bd, "45-67-CD", platform::Date::FromParts(2024, 2, 12), "CARGA", "1", "1", 5430);
    Sql("UPDATE zor_PV_Gastos SET Obs=''");
  }

  static std::string PathOf(const std::string& file) {
    return PARVEL_SOURCE_DIR "/tests/exchange/layouts/" + file;
  }

  static Profile ProfileOf(const Layout& layout) {
    std::filesystem::path path = PathOf(layout.file);
    if (*layout.kind == '\0') {
      std::ifstream json(path.replace_extension("json"));
      return ProfileFromJson({std::istreambuf_iterator<char>(json), {}});
    }
    const auto reader = OpenTable(path);
    std::vector<TableRow> rows;
    for (TableRow row; rows.size() < 100 && reader->Next(row);) rows.push_back(row);
    Profile profile = GuessProfile(*KindOf(layout.kind), rows);
    EXPECT_STREQ(GuessKind(profile.header)->name, layout.kind);
    profile.name = layout.file;
    return profile;
  }

  std::unique_ptr<ImportPlan> PlanOf(const Layout& layout) {
    auto plan = std::make_unique<ImportPlan>(bd, ProfileOf(layout));
    plan->Load(*OpenTable(PathOf(layout.file)));
    plan->SettleUnknownCodes();
    plan->Check();
    return plan;
  }

  static std::string CountsOf(const Reconciliation& sums) {
    return std::to_string(sums.stored.rows) + " " + std::to_string(sums.known.rows) + " " +
           std::to_string(sums.aside.rows) + " " + std::to_string(sums.refused.rows) + " " +
           std::to_string(sums.file.rows) + ", " + sums.file.amount.ToText();
  }

  static std::string Reasons(const ImportPlan& plan) {
    std::string all;
    for (std::size_t i = 0; i < plan.size(); ++i)
      all += std::to_string(plan.row(i).line) + " " + NameOf(plan.row(i).state) + " " + plan.why(i).column +
             ": " + plan.why(i).reason + "\n";
    return all;
  }

  /// All that the module's tables hold but the numbers that the database gives.
  std::map<std::string, std::vector<std::vector<std::string>>> Everything() {
    std::map<std::string, std::vector<std::vector<std::string>>> tables;
    for (const ImportKind& kind : ImportKinds()) {
      auto& rows = tables[kind.table];
      rows = Rows(bd, std::string("SELECT * FROM ") + kind.table);
      for (auto& row : rows)
        if (kind.numbered) row.erase(row.begin());
      std::sort(rows.begin(), rows.end());
    }
    return tables;
  }
};

TEST_F(LayoutsTest, AreImportedTakenBackAndImportedAgainAsTheFirstTime) {
  std::string text;
  for (const Layout& layout : kLayouts) {
    SCOPED_TRACE(layout.file);
    const auto before = Everything();
    const auto plan = PlanOf(layout);
    EXPECT_EQ(CountsOf(plan->Sums()), layout.counts) << Reasons(*plan);
    EXPECT_EQ(Everything(), before) << "looking changes nothing";
    const StoredImport stored = plan->Store(layout.file, "soma", "ana");
    EXPECT_EQ(CountsOf(stored.rows), layout.counts);
    text += std::string("= ") + layout.file + "\n";
    for (const auto& row : Rows(bd, layout.query)) {
      for (const std::string& value : row) text.append(value).append("|");
      text += "\n";
    }
    const auto first = Everything();
    EXPECT_EQ(PlanOf(layout)->Sums().stored.rows, 0) << "a second run adds nothing";
    const TakenBack back = TakeBackImport(bd, stored.number);
    EXPECT_TRUE(back.kept.empty());
    EXPECT_EQ(back.gone, 0);
    const StoredImport again = PlanOf(layout)->Store(layout.file, "soma", "ana");
    EXPECT_EQ(Everything(), first);
    TakeBackImport(bd, again.number);
  }
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/exchange/stored_layouts.txt", text);
}

/// A profile in one line.
std::string InOneLine(const Profile& profile) {
  std::istringstream json(ToJson(profile));
  std::string all;
  for (std::string line; std::getline(json >> std::ws, line);) all += line;
  return all + "\n";
}

/// What the assistant shows of a file before anybody decided anything.
std::string ShownOf(const ImportSession& session) {
  std::string text = session.Facts() + "; " + session.kind().name + "; em falta:";
  for (const std::string& column : session.Missing()) text += " " + column;
  text += "\n";
  for (std::size_t i = 0; i < session.columns(); ++i) {
    text += "  " + session.Heading(i) + (session.IsHidden(i) ? " (escondida)" : "") + " → " +
            session.TargetOf(i) + ":";
    for (const std::string& sample : session.Samples(i, 3)) text += " «" + sample + "»";
    text += "\n";
  }
  return text;
}

std::string QuestionsOf(const ImportPlan& plan) {
  std::string text;
  for (const Question& question : plan.questions())
    text += std::string(question.about == Question::About::kDateOrder ? "data " : "decimais ") +
            question.example + "?\n";
  return text;
}

/// What a plan's rows become, with the codes that lack and afterwards.
std::string BecomesOf(ImportPlan& plan) {
  if (!plan.questions().empty()) return QuestionsOf(plan);
  plan.Check();
  std::string text;
  const std::vector<NewCode> unknown = plan.UnknownCodes();
  if (!unknown.empty()) text = ClipboardText(PreviewTable(plan));
  for (const NewCode& code : unknown) {
    text += "cria " + code.table + " " + code.code + " " + code.name + (code.fuel ? " combustível" : "") +
            " linhas " + std::to_string(code.rows) + ":";
    for (const std::string& one : code.texts) text += " «" + one + "»";
    for (const NamedCode& one : code.similar) text += " ou " + one.code + " " + one.name;
    text += "\n";
  }
  plan.SettleUnknownCodes();
  plan.Check();
  const Reconciliation sums = plan.Sums();
  for (const Tally& tally :
       {sums.file, sums.stored, sums.warned, sums.known, sums.aside, sums.credits, sums.refused})
    text += std::to_string(tally.rows) + " (" + tally.amount.ToText() + ") ";
  text += sums.declared ? "declarado " + sums.declared->ToText() + "\n" : "\n";
  text += ClipboardText(PreviewTable(plan)) + "recusadas:\n";
  std::ostringstream refused;
  plan.WriteRefused(refused);
  return text + refused.str();
}

TEST_F(LayoutsTest, AreShownWholeBeforeAnythingIsStored) {
  std::string text;
  for (const Layout& layout : kLayouts) {
    ImportSession session(bd, PathOf(layout.file));
    text += std::string("= ") + layout.file + "\n" + ShownOf(session) + InOneLine(session.profile());
    if (*layout.kind == '\0') session.Use(ProfileOf(layout));
    text += BecomesOf(*session.Plan({})) + "\n";
  }
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/exchange/shown_layouts.txt", text);
}

}  // namespace
}  // namespace exchange
