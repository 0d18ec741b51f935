#include "console/import_commands.h"

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

TEST_F(ImportCommandsTest, AFileThatIsImportedAgainIsKnownAndTakenBack) {
  KeepProfile();
  EXPECT_EQ(Import({"--criar-codigos"}), kRefused);
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

}  // namespace
}  // namespace console
