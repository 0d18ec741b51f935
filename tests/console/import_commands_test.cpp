#include "console/import_commands.h"

#include <filesystem>
#include <fstream>

#include "console/program_fixture.h"

namespace console {
namespace {

class ImportCommandsTest : public ProgramFixture {
 protected:
  ImportCommandsTest() {
    Put("v.csv", "Matricula\n10-GJ-10\n");
    OnDatabase({"importar", "viaturas", File("v.csv")});
    Put("extracto.csv",
        "Matrícula;Data;Produto;Litros;Valor c/ IVA;Odómetro\n10GJ10;13/11/2025;Diesel "
        "Plus;45,20;75,94;1500\n"
        "10GJ10;14/11/2025;Diesel Plus;40;70;1400\nZZ-99-ZZ;15/11/2025;Diesel Plus;10;17;900\n"
        "Total;;;;162,94;\n");
  }
  void Put(const std::string& name, const std::string& text) const { std::ofstream(File(name)) << text; }
  std::string Content(const std::string& name) const {
    std::ifstream in(File(name));
    return {std::istreambuf_iterator<char>(in), {}};
  }
  /// The profile that is proposed for the statement, named and kept.
  void KeepProfile() {
    ASSERT_EQ(OnDatabase({"perfis", "propor", "gastos", File("extracto.csv")}), kDone) << err.str();
    Put("perfil.json", out.str());
    ASSERT_EQ(OnDatabase({"perfis", "importar", File("perfil.json")}), kDone) << err.str();
  }
  int Import(std::vector<std::string> more) {
    std::vector<std::string> all = {"importar", "gastos", File("extracto.csv"), "--perfil", "extracto"};
    all.insert(all.end(), more.begin(), more.end());
    return OnDatabase(all);
  }
};

TEST_F(ImportCommandsTest, AFileIsMappedLookedAtStoredAndTakenBack) {
  KeepProfile();
  EXPECT_EQ(Import({"--simular"}), kRefused);
  EXPECT_NE(out.str().find("linha 2, recusada, TipoGasto: «Diesel Plus» não se conhece"), std::string::npos)
      << out.str();
  EXPECT_EQ(Import({"--simular", "--criar-codigos", "--linhas", File("linhas.csv")}), kRefused);
  EXPECT_NE(out.str().find("Entrariam: 1 (75,94)\nJá existiam: 0 (0)\nPostas de parte: 0 (0)\nRecusadas: 2 "
                           "(87)\nNo ficheiro: 3 (162,94)\nO próprio ficheiro diz 162,94: confere\n"),
            std::string::npos)
      << out.str();
  EXPECT_NE(Content("linhas.csv").find("\n3;recusada;"), std::string::npos) << Content("linhas.csv");
  EXPECT_EQ(Import({"--criar-codigos", "--recusadas", File("recusadas.csv")}), kRefused);
  EXPECT_NE(out.str().find("Novas: 1 (75,94)"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("Importação 2; anula-se"), std::string::npos);
  EXPECT_EQ(Content("recusadas.csv"),
            "Matrícula;Data;Produto;Litros;Valor c/ IVA;Odómetro\n10GJ10;14/11/2025;Diesel Plus;40;70;1400\n"
            "ZZ-99-ZZ;15/11/2025;Diesel Plus;10;17;900\n");
  EXPECT_EQ(Import({}), kRefused);
  EXPECT_NE(err.str().find("Este ficheiro já foi importado"), std::string::npos) << err.str();
  EXPECT_NE(out.str().find("Novas: 0 (0)\nJá existiam: 1"), std::string::npos) << out.str();
  EXPECT_EQ(OnDatabase({"importacoes"}), kDone);
  EXPECT_NE(out.str().find("gastos  2 linhas  extracto.csv  extracto"), std::string::npos) << out.str();
  EXPECT_EQ(OnDatabase({"importacoes", "anular", "2"}), kDone) << out.str();
  EXPECT_EQ(out.str(), "2 linhas tiradas, 0 ficam, 0 já não existiam\n");
  EXPECT_EQ(OnDatabase({"importacoes", "anular", "2"}), kFailed);
  EXPECT_NE(err.str().find("já foi anulada"), std::string::npos);
}

TEST_F(ImportCommandsTest, WhatIsImportedAndAttachedStandsInTheHistory) {
  Put("v.csv", "Matricula\n10-GJ-10\n20-GJ-20\n");
  EXPECT_EQ(OnDatabase({"importar", "viaturas", File("v.csv")}), kDone);
  EXPECT_EQ(OnDatabase({"importar", "viaturas", File("v.csv")}), kDone) << "nothing of it is new";
  EXPECT_EQ(OnDatabase({"anexos", "5", "10-GJ-10", "--juntar", File("a.pdf")}), kDone);
  EXPECT_EQ(OnDatabase({"historico"}), kDone);
  std::istringstream told(out.str());
  std::vector<std::string> ends;
  for (std::string line; std::getline(told, line);) ends.push_back(line.substr(line.find("root") + 6));
  EXPECT_EQ(ends, (std::vector<std::string>{"Anexos: Juntar, 10-GJ-10", "Importação 2: v.csv (1 linha)",
                                            "Importação 1: v.csv (1 linha)"}))
      << out.str();
  EXPECT_EQ(OnDatabase({"anular", "3"}), kDone);
  EXPECT_EQ(OnDatabase({"anexos", "5", "10-GJ-10"}), kDone);
  EXPECT_EQ(out.str(), "Sem ficheiros anexados.\n");
  EXPECT_EQ(OnDatabase({"anular", "2"}), kDone) << err.str();
  EXPECT_EQ(OnDatabase({"lista", "Viaturas", "--csv"}), kDone);
  EXPECT_EQ(out.str().find("20-GJ-20"), std::string::npos);
  EXPECT_NE(out.str().find("10-GJ-10"), std::string::npos);
}

TEST_F(ImportCommandsTest, WhatCantBeDoneIsTold) {
  KeepProfile();
  const struct {
    std::vector<std::string> words;
    int code;
    const char* text;
  } cases[] = {
      {{"perfis"}, kDone, "extracto (gastos)"},
      {{"perfis", "exportar", "extracto"}, kDone, "\"nome\": \"extracto\""},
      {{"perfis", "exportar", "outro"}, kFailed, "Não há o perfil «outro»"},
      {{"perfis", "importar", File("nada.json")}, kFailed, "Não é possível ler o ficheiro"},
      {{"perfis", "importar", File("v.csv")}, kFailed, "perfil"},
      {{"perfis", "propor", "nada", File("v.csv")}, kFailed, "Não se importa «nada»"},
      {{"perfis", "remover", "outro"}, kRefused, "Não há o perfil"},
      {{"perfis", "baralhar"}, kUsage, "Use: parvel perfis"},
      {{"importacoes", "anular", "x"}, kUsage, "Use: parvel importacoes"},
      {{"importacoes", "anular", "7"}, kFailed, "Não há a importação 7"},
      {{"importar", "viaturas", File("v.csv"), "--perfil", "extracto"},
       kFailed,
       "é de gastos, não de viaturas"},
      {{"importar", "gastos", File("extracto.csv"), "--perfil", "extracto", "--linhas", File("a.doc")},
       kFailed,
       "xlsx"},
      {{"importar", "gastos", File("extracto.csv"), "--recusadas", File("r.csv")},
       kUsage,
       "precisa de outra"},
      {{"perfis", "remover", "extracto"}, kDone, ""},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(OnDatabase(one.words), one.code) << one.text << out.str() << err.str();
    EXPECT_NE((out.str() + err.str()).find(one.text), std::string::npos) << out.str() << err.str();
  }
}

}  // namespace
}  // namespace console
