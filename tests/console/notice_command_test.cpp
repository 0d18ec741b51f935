#include <cstdlib>
#include <filesystem>

#include "console/notice_timer.h"
#include "console/program_fixture.h"

namespace console {
namespace {

class NoticeCommandTest : public ProgramFixture {
 protected:
  NoticeCommandTest() { setenv("XDG_DATA_HOME", folder.File("dados").c_str(), 1); }
  ~NoticeCommandTest() override { unsetenv("XDG_DATA_HOME"); }
};

TEST_F(NoticeCommandTest, RecipientsAndServerAreKeptAndAMessageIsShownBeforeItLeaves) {
  ASSERT_EQ(OnDatabase({"demo"}), kDone) << err.str();
  EXPECT_EQ(OnDatabase({"aviso", "--simular"}), kRefused);
  EXPECT_NE(err.str().find("parvel aviso juntar"), std::string::npos);
  EXPECT_EQ(OnDatabase({"aviso", "juntar", "ana"}), kRefused);
  EXPECT_EQ(OnDatabase({"aviso", "juntar", "ana@x.pt", "--nome", "Ana"}), kDone);
  EXPECT_EQ(OnDatabase({"aviso", "juntar", "rui@x.pt", "--departamento", "COM", "--sem-relatorio"}), kDone);
  EXPECT_EQ(OnDatabase({"aviso", "destinatarios"}), kDone);
  EXPECT_EQ(out.str(), "ana@x.pt  Ana  tudo, com os custos do mês\nrui@x.pt    departamento COM\n");
  EXPECT_EQ(OnDatabase({"aviso", "tirar", "rui@x.pt"}), kDone);
  EXPECT_EQ(OnDatabase({"aviso", "tirar", "rui@x.pt"}), kRefused);

  ASSERT_EQ(OnDatabase({"aviso", "--simular"}), kDone) << err.str();
  EXPECT_NE(out.str().find("ana@x.pt: Frota: "), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("Bom dia, Ana."), std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(folder.File("dados/parvel/alertas.ics")));

  EXPECT_EQ(OnDatabase({"aviso"}), kRefused) << "no server yet";
  EXPECT_EQ(OnDatabase({"aviso", "servidor", "--endereco", "http://x"}), kRefused);
  EXPECT_EQ(OnDatabase({"aviso", "servidor", "--endereco", "smtp://127.0.0.1:1", "--de", "frota@x.pt"}),
            kDone);
  EXPECT_EQ(OnDatabase({"aviso"}), kFailed);
  EXPECT_NE(out.str().find("ana@x.pt: não foi enviado. O servidor de correio não responde."),
            std::string::npos)
      << out.str();
  EXPECT_EQ(OnDatabase({"aviso", "servidor", "--utilizador", "frota"}), kDone);
  EXPECT_NE(out.str().find("Servidor: smtp://127.0.0.1:1\nDe: frota@x.pt\nUtilizador: frota\n"),
            std::string::npos);
  EXPECT_EQ(OnDatabase({"aviso"}), kRefused) << "a user needs a password";
}

TEST(NoticeTimerTest, NoNameIsReadAsMoreThanAName) {
  EXPECT_EQ(UnitWord("a b%c\"d\\e$f"), "\"a b%%c\\\"d\\\\e$$f\"");
}

TEST_F(NoticeCommandTest, TheManualHasAPageOfEachCommandAndShellsCompleteThem) {
  ASSERT_EQ(Parvel({"manual", folder.File("")}), kDone) << err.str();
  for (const char* file :
       {"parvel.1", "parvel-aviso-juntar.1", "parvel-relatorio-custos.1", "parvel.bash", "_parvel"})
    EXPECT_TRUE(std::filesystem::exists(folder.File(file))) << file;
  EXPECT_EQ(Parvel({"manual", folder.File("nada/nada")}), kFailed);
  const std::string completed =
      "bash -c 'source " + folder.File("parvel.bash") +
      "; COMP_WORDS=(parvel aviso ju); COMP_CWORD=2; _parvel; [ \"${COMPREPLY[*]}\" = juntar ]'";
  EXPECT_EQ(std::system(completed.c_str()), 0);
}

}  // namespace
}  // namespace console
