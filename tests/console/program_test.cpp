#include "console/program.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "console/console_host.h"
#include "console/list_printer.h"
#include "console/program_fixture.h"
#include "exchange/table/table_reader.h"
#include "store/paths.h"

namespace console {

using store::DefaultDatabasePath;
namespace {

namespace fs = std::filesystem;

class ProgramTest : public ProgramFixture {};

TEST(ConsoleHostTest, TheTemporaryFolderIsTheUsersAloneAndGoesWithTheHost) {
  std::ostringstream messages;
  std::string made;
  {
    ConsoleHost host(messages);
    made = host.TemporaryFolder();
    EXPECT_EQ(host.TemporaryFolder(), made);
    EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all);
    std::ofstream(made + "foto.jpg") << "x";
  }
  EXPECT_FALSE(fs::exists(made));
}

TEST_F(ProgramTest, FillsShowsAndCopiesADatabase) {
  ASSERT_EQ(OnDatabase({"demo"}), kDone) << err.str();
  EXPECT_EQ(OnDatabase({"demo"}), kRefused) << "demonstration data never goes into a database with records";
  EXPECT_NE(err.str().find("vazia"), std::string::npos);
  const struct {
    std::vector<std::string> arguments;
    std::string begin;
  } calls[] = {
      {{"lista", "Marcas"}, "Código  Designação\n------  -------------\nAUDI    Audi\nBMW     BMW\n"},
      {{"lista", "TiposGastos", "--csv"}, "Codigo;Nome\nADBLUE;AdBlue\n"},
      {{"lista", "Marcas", "--json"}, "["},
      {{"motorista", "0002"}, "Codigo                  0002\n"}};
  for (const auto& call : calls) {
    EXPECT_EQ(OnDatabase(call.arguments), kDone) << err.str();
    EXPECT_EQ(out.str().substr(0, call.begin.size()), call.begin);
  }
  ASSERT_EQ(OnDatabase({"exportar", "Gastos", File("gastos.xlsx")}), kDone) << err.str();
  exchange::TableRow row;
  ASSERT_TRUE(exchange::OpenTable(File("gastos.xlsx"))->Next(row));
  EXPECT_EQ(row.cells[0].text, "Matrícula");
  EXPECT_EQ(OnDatabase({"exportar", "Gastos", File("gastos.pdf")}), kFailed);
  EXPECT_EQ(OnDatabase({"exportar", "Nada", File("nada.csv")}), kRefused);
  const std::string copy = File("copia.db");
  ASSERT_EQ(OnDatabase({"copia", copy}), kDone) << err.str();
  EXPECT_EQ(OnDatabase({"copia", copy}), kFailed) << "a copy never overwrites";
  ASSERT_EQ(OnDatabase({"motorista", "0002", "--json"}), kDone);
  const std::string person = out.str();
  ASSERT_EQ(Parvel({"--db", copy, "motorista", "0002", "--json"}), kDone);
  EXPECT_EQ(out.str(), person);
  EXPECT_EQ(nlohmann::json::parse(person)["Codigo"], "0002");
}

TEST_F(ProgramTest, RestoresACopyAndChecksAFile) {
  ASSERT_EQ(OnDatabase({"demo"}), kDone) << err.str();
  ASSERT_EQ(OnDatabase({"copia", File("copia.db")}), kDone);
  fs::permissions(database, fs::perms(0644));
  EXPECT_EQ(OnDatabase({"verificar"}), kRefused) << "others may read it";
  EXPECT_NE(out.str().find("chmod 600"), std::string::npos) << out.str();
  std::ofstream(database) << "";
  EXPECT_EQ(OnDatabase({"verificar"}), kFailed);
  EXPECT_NE(err.str().find("está vazio"), std::string::npos) << err.str();
  EXPECT_EQ(OnDatabase({"repor", File("nada.db")}), kFailed);
  ASSERT_EQ(OnDatabase({"repor", File("copia.db")}), kDone) << err.str();
  EXPECT_NE(out.str().find(database + ".antes-"), std::string::npos) << out.str();
  EXPECT_EQ(Parvel({"--db", File("copia.db"), "verificar"}), kDone);
  EXPECT_NE(out.str().find("tudo em ordem"), std::string::npos) << out.str();
  EXPECT_EQ(OnDatabase({"lista", "Marcas"}), kDone);
}

TEST_F(ProgramTest, NamesAreNamesOfFiles) {
  const fs::path before = fs::current_path();
  fs::current_path(File(""));
  for (const char* name : {"file:x.db", ":memory:", "file:y.db?mode=memory", "a'b;c.db"}) {
    EXPECT_EQ(Parvel({"--db", name, "lista", "Marcas"}), kDone) << err.str();
    EXPECT_TRUE(fs::exists(name)) << name;
    EXPECT_EQ(Parvel({"--db", name, "copia", std::string(name) + ".copia"}), kDone) << err.str();
    EXPECT_TRUE(fs::exists(std::string(name) + ".copia")) << name;
  }
  fs::current_path(before);
  setenv("XDG_DATA_HOME", File("").c_str(), 1);
  for (const char* option : {"--db", "--ligacao"}) {
    EXPECT_EQ(Parvel({option, "", "lista", "Marcas"}), kUsage);
    EXPECT_NE(err.str().find("Falta o nome em " + std::string(option)), std::string::npos) << err.str();
  }
  EXPECT_FALSE(fs::exists(File("parvel")));
  EXPECT_EQ(OnDatabase({"copia", ""}), kFailed);
  unsetenv("XDG_DATA_HOME");
}

TEST_F(ProgramTest, WhoStartsALongImportKnowsThatOthersWait) {
  std::ofstream(File("viaturas.csv")) << "Matricula\n" << std::string(2'100'000, '\n');
  OnDatabase({"importar", "viaturas", File("viaturas.csv")});
  EXPECT_NE(err.str().find("só podem ler"), std::string::npos) << err.str();
}

TEST_F(ProgramTest, SaysWhatIsWrongByItsExitCode) {
  EXPECT_EQ(Parvel({}), kUsage);
  EXPECT_EQ(Parvel({"faz"}), kUsage);
  EXPECT_EQ(Parvel({"copia"}), kUsage);
  EXPECT_EQ(Parvel({"lista", "Marcas", "--csv", "--json"}), kUsage);
  EXPECT_FALSE(fs::exists(database)) << "nothing is created by a call that isn't understood";
  EXPECT_EQ(OnDatabase({"lista", "marcas"}), kRefused);
  EXPECT_NE(err.str().find("Marcas"), std::string::npos);
  std::ofstream(database) << "\x89PNG is no database, and longer than a header of one hundred bytes would "
                             "have to be to be taken for something else";
  EXPECT_EQ(OnDatabase({"lista", "Marcas"}), kFailed);
  EXPECT_FALSE(err.str().empty());
  EXPECT_EQ(Parvel({"--version"}), kDone);
  EXPECT_EQ(out.str().find("parvel "), 0U);
  EXPECT_EQ(Parvel({"--help"}), kDone);
  EXPECT_NE(out.str().find("copia"), std::string::npos);
}

TEST_F(ProgramTest, WhatCannotBeWrittenIsToldAndFails) {
  std::ofstream(File("x.csv")) << "Codigo;Nome\n0001;x\n";
  ASSERT_EQ(OnDatabase({"importar", "motoristas", File("x.csv")}), kDone);
  for (const std::string line : {"--help", "lista", "lista Motoristas", "lista Motoristas --csv",
                                 "lista Motoristas --json", "motorista 0001", "alertas", "alertas --json",
                                 "anexos 5 X", "copia COPIA", "importar motoristas CSV", "esquema"}) {
    SCOPED_TRACE(line);
    std::vector<std::string> command = {"--db", database};
    std::istringstream words(line);
    for (std::string word; words >> word;)
      command.push_back(word == "CSV" ? File("x.csv") : word == "COPIA" ? File("copia.db") : word);
    std::ofstream full("/dev/full");
    err.str("");
    EXPECT_EQ(console::Run(command, full, err), kFailed);
    EXPECT_NE(err.str().find("Não foi possível escrever"), std::string::npos) << err.str();
  }
  EXPECT_EQ(OnDatabase({"alertas", "--ics", "/dev/full"}), kFailed);
  EXPECT_EQ(err.str(), "Não foi possível escrever o calendário /dev/full.\n");
}

TEST_F(ProgramTest, ImportsAndPrintsAVehicle) {
  std::ofstream(File("v.csv")) << "Matricula\nP\n";
  ASSERT_EQ(OnDatabase({"importar", "viaturas", File("v.csv")}), kDone) << err.str();
  std::ofstream(File("i.csv")) << "Matricula;Data;Custo\nP;01-01-2024;45.123\n";
  EXPECT_EQ(OnDatabase({"importar", "inspecoes", File("i.csv")}), kFailed);
  EXPECT_NE(err.str().find("«--decimal ,»"), std::string::npos) << err.str();
  EXPECT_EQ(OnDatabase({"importar", "inspecoes", File("i.csv"), "--decimal", "x"}), kUsage);
  EXPECT_EQ(OnDatabase({"importar", "inspecoes", File("i.csv"), "--decimal", "."}), kDone);
  EXPECT_EQ(
      out.str(),
      "1 novo, 0 já existiam, 0 recusados\nImportação 2; anula-se com «parvel importacoes anular 2».\n");
  EXPECT_EQ(OnDatabase({"importar", "nada", File("i.csv")}), kUsage);
  EXPECT_NE(err.str().find("viaturas, motoristas, gastos"), std::string::npos);
  EXPECT_EQ(OnDatabase({"importar", "gastos", File("não há.csv")}), kFailed);

  ASSERT_EQ(OnDatabase({"viatura", "P", "--json"}), kDone);
  EXPECT_EQ(nlohmann::json::parse(out.str())["inspeccoes"][0]["Custo"], 45.123);
  ASSERT_EQ(OnDatabase({"viatura", "P"}), kDone);
  EXPECT_EQ(out.str().find("Matricula      P\n"), 0U) << out.str();
  EXPECT_EQ(OnDatabase({"viatura", "D'OR"}), kRefused);
  EXPECT_NE(err.str().find("«D'OR»"), std::string::npos);
  EXPECT_EQ(OnDatabase({"motorista", "ninguém"}), kRefused);
  EXPECT_EQ(out.str(), "");
}

TEST_F(ProgramTest, OpensTheUsersOwnDatabaseByDefault) {
  setenv("XDG_DATA_HOME", File("").c_str(), 1);
  EXPECT_EQ(DefaultDatabasePath(), File("parvel/frota.db"));
  EXPECT_EQ(Parvel({"lista", "Marcas", "--csv"}), kDone);
  EXPECT_EQ(out.str(), "Codigo;Nome\n");
  EXPECT_EQ(fs::status(File("parvel/frota.db")).permissions(), fs::perms(0600));
  EXPECT_EQ(fs::status(File("parvel")).permissions(), fs::perms(0700));
  unsetenv("XDG_DATA_HOME");
}

TEST(ListPrinter, WritesEachKindOfValueForItsReader) {
  auto rows = platform::MakeRef<platform::MemoryRecordset>();
  rows->Append("Nome", platform::FieldType::kText, 50);
  rows->Append("Data", platform::FieldType::kDate, 8);
  rows->Append("Custo", platform::FieldType::kCurrency, 8);
  rows->Append("Seg_Id", platform::FieldType::kLong, 4);
  rows->Open();
  rows->AddNew();
  rows->Fields("Nome").SetValue("João \"Zé\"; Silva");
  rows->Fields("Data").SetValue(platform::Date::FromParts(2024, 2, 29));
  rows->Fields("Custo").SetValue(platform::Currency::Parse("66,36"));
  rows->Update();
  rows->AddNew();
  rows->Fields("Data").SetValue(platform::Date::FromParts(2024, 2, 29, 8, 30));
  rows->Update();
  GridForm form;
  form.Grelha.SetDataSource(rows);
  form.Grelha.Column("Seg_Id").hidden = true;
  form.Grelha.Column("Custo").format = "#,##0.00";
  const auto print = [&](Output format) {
    std::ostringstream out;
    PrintList(out, form.Grelha, format);
    return out.str();
  };
  EXPECT_EQ(print(Output::kCsv),
            "Nome;Data;Custo\n\"João \"\"Zé\"\"; Silva\";2024-02-29;66.36\n"
            ";2024-02-29 08:30:00;\n");
  EXPECT_EQ(print(Output::kTable),
            "Nome              Data                 Custo\n"
            "----------------  -------------------  -----\n"
            "João \"Zé\"; Silva  29-02-2024           66,36\n"
            "                  29-02-2024 08:30:00\n");
  const auto json = nlohmann::json::parse(print(Output::kJson));
  EXPECT_EQ(json[0]["Custo"], 66.36);
  EXPECT_TRUE(json[1]["Nome"].is_null());
}

}  // namespace
}  // namespace console
