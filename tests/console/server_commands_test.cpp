#include "console/server_commands.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "console/program_fixture.h"
#include "store/password.h"

namespace console {

using store::KnownPassword;
using store::PasswordFromFile;
using store::TakePassword;
namespace {

namespace fs = std::filesystem;

class ServerCommandsTest : public ProgramFixture {
 protected:
  ServerCommandsTest() { unsetenv("PARVEL_SENHA"); }
  bool Says(const char* text) const { return (out.str() + err.str()).find(text) != std::string::npos; }

  const std::string server = "Driver=SQLite3;Database=" + File("servidor.db");
};

TEST_F(ServerCommandsTest, TheTablesArePrintedAndThoseThatLackAreTold) {
  EXPECT_EQ(Parvel({"esquema"}), kDone);
  EXPECT_EQ(out.str().find("-- versão "), 0U);
  EXPECT_EQ(Parvel({"--ligacao", server, "esquema"}), kDone);
  EXPECT_EQ(out.str().find("CREATE TABLE zor_PV_Categorias ("), 0U) << out.str();
  EXPECT_EQ(Parvel({"--ligacao", server, "verificar"}), kRefused);
  EXPECT_TRUE(Says("zor_PV_Viaturas: falta a tabela\n")) << out.str();
  EXPECT_EQ(Parvel({"--ligacao", server, "lista", "Marcas"}), kFailed);
  EXPECT_EQ(err.str().find("Falta a tabela na base de dados."), 0U) << err.str();
  EXPECT_TRUE(Says("Pormenores: Erro -2147217865: Invalid object name 'zor_PV_Marcas'.")) << err.str();
}

TEST_F(ServerCommandsTest, ATransferNeedsAFileAServerAndItsTables) {
  EXPECT_EQ(Parvel({"--ligacao", server, "transferir", "--de", File("nada.db")}), kFailed);
  EXPECT_TRUE(Says("Não há o ficheiro"));
  EXPECT_FALSE(fs::exists(File("nada.db")));
  ASSERT_EQ(OnDatabase({"lista", "Marcas"}), kDone);
  EXPECT_EQ(Parvel({"--ligacao", server, "transferir", "--de", database}), kFailed);
  EXPECT_TRUE(Says("Faltam tabelas em ")) << err.str();
  EXPECT_EQ(Parvel({"transferir", "--de", database}), kFailed);
  EXPECT_TRUE(Says("Falta o servidor"));
  EXPECT_EQ(Parvel({"transferir"}), kUsage);
}

TEST_F(ServerCommandsTest, WhatWentToTheServerIsCounted) {
  sqlserver::Traffic traffic;
  traffic.statements = 1234;
  traffic.trips = 56;
  traffic.rows = 7;
  traffic.bytes = 2048L * 1024;
  PrintTraffic(traffic, out);
  EXPECT_EQ(out.str(), "Servidor: 1.234 pedidos, 56 esperas pela rede, 7 registos lidos (2.048 kB).\n");
  traffic.slowest = std::chrono::milliseconds(1500);
  traffic.slowestStatement = "SELECT a\nFROM b" + std::string(300, 'x');
  out.str("");
  PrintTraffic(traffic, out);
  EXPECT_EQ(out.str().substr(out.str().find('\n') + 1),
            "O mais lento: 1,500 s, SELECT a FROM b" + std::string(185, 'x') + "\n");
  EXPECT_EQ(Parvel({"--ligacao", server, "--diagnostico", "esquema"}), kDone);
  EXPECT_TRUE(Says("\nServidor: ") || Says("Servidor: ")) << err.str();
}

TEST_F(ServerCommandsTest, WrongConnectionsAreTold) {
  struct Case {
    std::vector<std::string> arguments;
    int code;
    const char* text;
  };
  const std::vector<Case> cases = {
      {{"--db", "a.db", "--ligacao", server, "lista"}, kUsage, "não vão juntas"},
      {{"--ligacao", server + ";PWD=segredo", "verificar"}, kFailed, "A senha não vai na ligação"},
      {{"--ligacao", "Driver=NaoHa;Server=srv", "verificar"}, kFailed, "não está instalado nesta máquina"},
      {{"--ligacao", server, "copia", File("copia.db")}, kFailed, "o próprio servidor que a faz"},
      {{"--ligacao", server + ";UID=ana", "--senha-ficheiro", File("senha"), "verificar"},
       kFailed,
       "Não é possível ler o ficheiro da senha"},
      {{"--ligacao", server, "--tempo-limite", "-1", "verificar"}, kUsage, "não se entendem"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Parvel(c.arguments), c.code);
    EXPECT_TRUE(Says(c.text)) << err.str();
    EXPECT_FALSE(Says("segredo"));
  }
}

TEST_F(ServerCommandsTest, ThePasswordIsReadFromWhereNobodyElseReads) {
  std::ofstream(File("senha")) << "seg;redo\r\nresto\n";
  fs::permissions(File("senha"), fs::perms::owner_read | fs::perms::group_read);
  EXPECT_THROW(PasswordFromFile(File("senha")), std::runtime_error);
  fs::permissions(File("senha"), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(KnownPassword(File("senha"))->text(), "seg;redo");
  setenv("PARVEL_SENHA", "do ambiente", 1);
  EXPECT_EQ(KnownPassword(File("senha"))->text(), "do ambiente");
  const char* place = getenv("PARVEL_SENHA");
  EXPECT_EQ(TakePassword()->text(), "do ambiente");
  EXPECT_EQ(std::string(place), "") << "it can be seen from outside as long as the program runs";
  EXPECT_EQ(getenv("PARVEL_SENHA"), nullptr) << "what is started from here inherits it";
  EXPECT_FALSE(KnownPassword(""));
  fs::resize_file(File("senha"), 0);
  EXPECT_THROW(PasswordFromFile(File("senha")), std::runtime_error);
}

}  // namespace
}  // namespace console
