// Profiles as they are written, kept and recognised, and what each of their rules does to rows.

#include "exchange/profile/profile.h"

#include "exchange/import_fixture.h"
#include "exchange/plan/import_plan.h"
#include "exchange/profile/profile_store.h"
#include "exchange/table_files.h"
#include "support/whole_text.h"

namespace exchange {
namespace {

/// One in which nothing is as usual.
Profile Full() {
  Profile profile;
  profile.name = "Cartão";
  profile.kind = "gastos";
  profile.sheet = "Julho";
  profile.encoding = "Windows-1252";
  profile.separator = "|";
  profile.decimal = ".";
  profile.dateOrder = DateOrder::kMonthFirst;
  profile.calendar1904 = true;
  profile.headerRow = 3;
  profile.headerRows = 2;
  profile.header = {"Viatura", "Dia", "Hora"};
  using When = AsideRule::Test;
  const std::pair<When, const char*> rules[] = {{When::kEquals, "a"},
                                                {When::kDiffers, "b"},
                                                {When::kContains, "c"},
                                                {When::kBegins, "d"},
                                                {When::kEmpty, ""}};
  for (const auto& [test, value] : rules)
    profile.aside.push_back({.column = {.header = "Hora", .position = 2}, .test = test, .value = value});
  profile.recordType = Piece{.header = "", .position = 0};
  profile.recordTypes = {"D", "E"};
  profile.document = Piece{.header = "Doc", .position = 4};
  profile.transaction = Piece{.header = "N.º", .position = 5};
  ColumnMapping& plate = profile.At("Matricula");
  plate.pieces = {
      {.header = "Viatura", .position = 0}, {.header = {}, .constant = "X"}, {.header = {}, .section = true}};
  plate.joint = "-";
  plate.asAbove = true;
  ColumnMapping& cost = profile.At("Custo");
  cost.pieces = {{.header = "", .position = 7}};
  cost.turned = true;
  cost.impliedDecimals = 2;
  profile.learned = {{"TipoGasto", {{"diesel", "GASOLEO"}}}};
  profile.proposeKm = true;
  profile.creditNotes = true;
  return profile;
}

std::string Told(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(ProfileTest, IsWrittenInFullAndReadAgain) {
  const std::string json = ToJson(Full());
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/exchange/profile.txt", json + "\n");
  EXPECT_EQ(ProfileFromJson(json), Full());
  Profile plain;
  plain.name = "a";
  plain.kind = "multas";
  EXPECT_EQ(ProfileFromJson(ToJson(plain)), plain);
  const Profile read = ProfileFromJson(
      R"({"nome":"a","tipo":"b","linhasDeCabecalho":99,"colunas":[{"coluna":"c","de":[],"decimaisImplicitas":9}]})");
  EXPECT_EQ(read.headerRows, 10);
  EXPECT_EQ(read.columns[0].impliedDecimals, 4);
  const std::string none =
      "O texto não é um perfil de importação, ou está incompleto. Exporte um perfil e veja como se escreve.";
  const std::pair<const char*, std::string> faults[] = {
      {"", none},
      {R"({"nome":"a","tipo":"b"})", none},
      {R"({"nome":1,"tipo":"b","colunas":[]})", none},
      {R"({"nome":"a","tipo":"b","colunas":[],"datas":"quando"})",
       "O perfil tem um valor que não se conhece: «quando»."}};
  for (const auto& [text, told] : faults)
    EXPECT_EQ(Told([&, text = text] { ProfileFromJson(text); }), told) << text;
}

class ProfileStoreTest : public ImportTest {
 protected:
  /// Loads a file of expenses by a profile and gives back each row's state and reason.
  std::string States(const std::string& text, const std::function<void(Profile&)>& change) {
    Profile profile;
    profile.kind = "gastos";
    const char* const columns[] = {"Matricula", "Data", "TipoGasto", "Custo", "Obs"};
    profile.header = {"V", "D", "T", "C", "O"};
    for (int i = 0; i < 5; ++i)
      profile.At(columns[i])
          .pieces.push_back({.header = profile.header[static_cast<std::size_t>(i)], .position = i});
    change(profile);
    const std::string file = files.Put("a.csv", text);
    plan = std::make_unique<ImportPlan>(bd, profile);
    plan->Load(*OpenTable(file), [](std::size_t, std::size_t) { return true; });
    plan->Check();
    std::string all;
    for (std::size_t i = 0; i < plan->size(); ++i)
      all += std::to_string(plan->row(i).line) + " " + NameOf(plan->row(i).state) + " " +
             plan->why(i).column + " " + plan->why(i).reason + "\n";
    return all;
  }

  TableFiles files;
  std::unique_ptr<ImportPlan> plan;
};

TEST_F(ProfileStoreTest, IsKeptUnderItsNameAndFoundByTheFile) {
  Profile profile = Full();
  SaveProfile(bd, profile);
  EXPECT_EQ(FindProfile(bd, "cartão "), profile);
  profile.sheet = "Agosto";
  SaveProfile(bd, profile);
  EXPECT_EQ(Rows(bd, "SELECT Nome, Tipo FROM parvel_perfis"), (Table{{"Cartão", "gastos"}}));
  EXPECT_EQ(ListProfiles(bd), std::vector<Profile>{profile});
  Profile other = profile;
  other.aside.clear();
  other.columns = {{.target = "Matricula", .pieces = {{.header = "viatura", .position = 3}}}};
  for (const char* name : {"B", "A"}) {
    other.name = name;
    other.header = {"Viatura", "Dia"};
    if (*name == 'B') other.header.push_back("Local");
    SaveProfile(bd, other);
  }
  const auto fitting = [&](const std::vector<std::string>& header) {
    std::string names;
    for (const Profile& one : ProfilesFor(bd, header)) names += one.name + ";";
    return names;
  };
  EXPECT_EQ(fitting({"Dia", "Viatura", "Local"}), "B;A;");
  EXPECT_EQ(fitting({"Dia", "Viatura"}), "A;B;");
  EXPECT_EQ(fitting({"Viatura", "Dia", "Hora", "1", "2", "3", "4", "5"}), "Cartão;A;B;");
  EXPECT_EQ(fitting({"Dia", "Local"}), "");
  EXPECT_EQ(fitting({}), "");
  EXPECT_TRUE(RemoveProfile(bd, "A"));
  EXPECT_FALSE(RemoveProfile(bd, "A"));
  EXPECT_FALSE(RemoveProfile(bd, "A'"));
  EXPECT_EQ(ListProfiles(bd).size(), 2U);
  const std::string names = "O nome de um perfil tem de 1 a 60 caracteres, sem apóstrofos.";
  for (const std::string& name : {std::string(" "), std::string("a'b"), std::string(61, 'a')}) {
    other.name = name;
    EXPECT_EQ(Told([&] { SaveProfile(bd, other); }), names) << name;
  }
  other.name = std::string(60, 'a');
  SaveProfile(bd, other);
  other.kind = "nada";
  EXPECT_EQ(Told([&] { SaveProfile(bd, other); }),
            "O perfil «" + other.name + "» é de um tipo que não se conhece: «nada».");
  EXPECT_EQ(Told([&] { ImportPlan(bd, other); }), "O perfil é de um tipo que não se conhece: «nada».");
}

TEST_F(ProfileStoreTest, EachRuleSetsItsRowsAside) {
  const std::string text =
      "V;D;T;C;O\n12-AB-34;13-02-2024;PORTAGEM;1;Nada a ver\n12-AB-34;14-02-2024;PORTAGEM;2;Anuidade\n"
      "12-AB-34;15-02-2024;PORTAGEM;3;\n12-AB-34;16-02-2024;PORTAGEM;4;da anuidade\n";
  using When = AsideRule::Test;
  const struct {
    When test;
    const char* value;
    const char* aside;  // the lines
  } cases[] = {{When::kEquals, "ANUIDADE", "3"},
               {When::kDiffers, "anuidade", "245"},
               {When::kContains, "nuida", "35"},
               {When::kBegins, "anui", "3"},
               {When::kEmpty, "", "4"}};
  for (const auto& one : cases) {
    const std::string states = States(text, [&](Profile& profile) {
      profile.aside = {{.column = {.header = "O", .position = 4}, .test = one.test, .value = one.value}};
    });
    std::string aside;
    for (const char* line : {"2", "3", "4", "5"}) {
      const bool is =
          states.find(std::string(line) + " posta de parte  Regra do perfil.") != std::string::npos;
      const bool is_not = states.find(std::string(line) + " nova") != std::string::npos;
      EXPECT_NE(is, is_not) << states;
      if (is) aside += line;
    }
    EXPECT_EQ(aside, one.aside) << static_cast<int>(one.test);
  }
}

TEST_F(ProfileStoreTest, WhatDoesNotFitIsToldBeforeAnyRowIsLookedAt) {
  const auto nothing = [](Profile&) {};
  const std::string row = "12-AB-34;13-02-2024;PORTAGEM;1;a\n";
  EXPECT_EQ(Told([&] { States("V;D;T;X\n" + row, nothing); }),
            "O ficheiro não tem a coluna «C», que o perfil lê.");
  EXPECT_EQ(Told([&] {
              States("V;D;T;C;O\n" + row, [](Profile& p) {
                std::erase_if(p.columns, [](const auto& c) { return c.target == "Data"; });
              });
            }),
            "Falta dizer de onde vem «Data».");
  const std::string doubt = "V;D;T;C;O\n12-AB-34;13-02-2024;PORTAGEM;1.250;a\n";
  EXPECT_EQ(Told([&] { States(doubt, nothing); }),
            "Os números do ficheiro podem ler-se de duas maneiras («1.250»): diga no perfil qual é o sinal "
            "dos decimais.");
  EXPECT_EQ(Told([&] { States("V;D;T;C;O\n12-AB-34;01/02/2024;PORTAGEM;1;a\n", nothing); }),
            "As datas do ficheiro podem ler-se de duas maneiras («01/02/2024»): diga no perfil se o dia vem "
            "antes do mês.");
  EXPECT_EQ(States("antes\n\nV;D;T;C;O\n" + row, nothing), "4 nova  \n") << "the header is looked for";
}

TEST_F(ProfileStoreTest, EachRowIsToldWhatIsWrongWithIt) {
  AddDriver(bd, "2", "Rui Manuel Costa");
  AddDriver(bd, "3", "Rui Pedro Costa");
  const std::string states =
      States("V;D;T;C;O\n12-AB-34;13-02-2024;PORTAGEM;1;" + std::string(151, 'o') +
                 "\n12-AB-34;13-02-1750;PORTAGEM;1;a\n"
                 "12-AB-34;10:00;PORTAGEM;1;a\n12-AB-34;nunca;PORTAGEM;1;a\n12-AB-34;13-02-2024;PORTAGEM;"
                 "999999999999999999;a\n"
                 "12-AB-34;13-02-2024;PORTAGEM;uma;a\n12-AB-34;13-02-2024;Portagens;2;Rui "
                 "Costa\n12-AB-34;;PORTAGEM;1;a\n"
                 "12-AB-34;13-02-2024;PORTAGEM;1;ana\n",
             [](Profile& profile) {
               profile.At("Motorista").pieces = {{.header = "O", .position = 4}};
               profile.learned["Custo"]["uma"] = "1,5";
               profile.learned["Motorista"] = {{"a", "1"}, {std::string(151, 'o'), "1"}};
             });
  EXPECT_EQ(states,
            "2 aviso  As observações foram cortadas a 150 caracteres. Outro gasto igual no mesmo dia.\n"
            "3 recusada Data «13-02-1750» é uma data antes de 1753.\n"
            "4 recusada Data «10:00» é só uma hora: falta o dia.\n"
            "5 recusada Data «nunca» não é uma data.\n"
            "6 recusada Custo «999999999999999999» não é um número.\n"
            "7 nova  \n"
            "8 recusada Motorista «Rui Costa» serve a vários (2, 3): escolha um.\n"
            "9 recusada Data Campo obrigatório!\n"
            "10 nova  \n");
  EXPECT_EQ(plan->Values(0)[9], std::string(150, 'o'));
  EXPECT_EQ(plan->Cells(5), (std::vector<std::string>{"12-AB-34", "13-02-2024", "PORTAGEM", "uma", "a"}));
}

TEST_F(ProfileStoreTest, RowsBeyondTheFirstAreReadLikeThem) {
  std::string text = "V;D;T;C;O\n";
  for (int i = 1; i <= 200; ++i) text += "12-AB-34;13-02-2024;PORTAGEM;" + std::to_string(i) + ";n\n";
  States(text, [](Profile&) {});
  EXPECT_EQ(plan->size(), 200U);
  EXPECT_EQ(plan->Sums().stored.rows, 200);
  EXPECT_EQ(plan->Sums().stored.amount, platform::Currency(20100));
  EXPECT_EQ(plan->row(199).line, 201);
}

}  // namespace
}  // namespace exchange
