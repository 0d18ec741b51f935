#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>

#include "console/notice_timer.h"
#include "console/program_fixture.h"
#include "notice/mail_server.h"
#include "support/files.h"

namespace console {
namespace {

using testing_support::Contents;

using NoticeCommandTest = ProgramFixture;

TEST_F(NoticeCommandTest, AMessageIsShownBeforeItLeaves) {
  ASSERT_EQ(OnDatabase({"demo"}), kDone) << err.str();
  EXPECT_EQ(OnDatabase({"aviso", "juntar", "ana@x.pt", "--nome", "Ana"}), kDone);
  ASSERT_EQ(OnDatabase({"aviso", "--simular"}), kDone) << err.str();
  EXPECT_NE(out.str().find("ana@x.pt: Frota: "), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("Bom dia, Ana."), std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(folder.File("dados/parvel/alertas.ics")));

  EXPECT_EQ(OnDatabase({"aviso", "servidor", "--endereco", "smtp://127.0.0.1:1", "--de", "frota@x.pt"}),
            kDone);
  EXPECT_EQ(OnDatabase({"aviso"}), kFailed);
  EXPECT_NE(out.str().find("ana@x.pt: não foi enviado. O servidor de correio não responde."),
            std::string::npos)
      << out.str();
  EXPECT_EQ(OnDatabase({"aviso", "servidor", "--utilizador", "frota"}), kDone);
  EXPECT_EQ(OnDatabase({"aviso"}), kRefused) << "a user needs a password";
  notice_test::MailServer server(notice_test::Behaviour::kTakes, true);
  EXPECT_EQ(OnDatabase({"aviso", "servidor", "--endereco", server.Url(), "--autoridade", server.Authority()}),
            kDone);
  setenv("PARVEL_SENHA_CORREIO", "senha", 1);
  EXPECT_EQ(OnDatabase({"aviso"}), kDone) << out.str();
  unsetenv("PARVEL_SENHA_CORREIO");
  EXPECT_TRUE(std::regex_match(out.str(), std::regex("ana@x.pt: \\d+ avisos enviados.\n"))) << out.str();
  EXPECT_NE(server.Messages().at(0).find("AGZyb3RhAHNlbmhh"), std::string::npos) << "user and password";
  std::ofstream(File("senha")) << "outra";
  std::filesystem::permissions(File("senha"), std::filesystem::perms::owner_read);
  EXPECT_EQ(OnDatabase({"aviso", "--senha-correio-ficheiro", File("senha")}), kDone);
  EXPECT_EQ(out.str(), "ana@x.pt: nada de novo.\n");
}

/// Stands in for the system's manager of timers: keeps its calls, and fails where the test says so.
class NoticeTimerFixture : public NoticeCommandTest {
 protected:
  NoticeTimerFixture() {
    std::filesystem::create_directory(File("bin"));
    std::ofstream(File("bin/systemctl"))
        << "#!/bin/sh\necho \"$@\" >> " << File("chamadas") << "\n[ ! -e " << File("recusa") << " ]\n";
    std::filesystem::permissions(File("bin/systemctl"), std::filesystem::perms::owner_all);
    setenv("XDG_CONFIG_HOME", File("config").c_str(), 1);
    setenv("PATH", (File("bin:") + path).c_str(), 1);
  }
  ~NoticeTimerFixture() override {
    unsetenv("XDG_CONFIG_HOME");
    setenv("PATH", path.c_str(), 1);
  }
  std::string Unit(const char* ending) const {
    const std::string file = File(std::string("config/systemd/user/parvel-aviso.") + ending);
    return std::filesystem::exists(file) ? Contents(file) : "";
  }

  const std::string path = std::getenv("PATH");
};

TEST_F(NoticeTimerFixture, TheSystemIsAskedToCallTheProgramEveryDay) {
  const std::string program = "\"" + std::filesystem::read_symlink("/proc/self/exe").string() + "\"";
  EXPECT_EQ(OnDatabase({"aviso", "--retirar"}), kDone);
  EXPECT_EQ(out.str(), "Não estava instalado.\n");
  EXPECT_EQ(OnDatabase({"aviso", "--instalar", "--senha-correio-ficheiro", File("senha")}), kDone);
  EXPECT_EQ(out.str(), "Avisa todos os dias às 8 horas. Para deixar: parvel aviso --retirar.\n");
  EXPECT_EQ(Unit("service"),
            "[Unit]\nDescription=Avisos da frota por correio\nStartLimitIntervalSec=6h\nStartLimitBurst=8\n\n"
            "[Service]\nType=oneshot\nExecStart=" +
                program + " --db \"" + database + "\" aviso --senha-correio-ficheiro \"" + File("senha") +
                "\"\nRestart=on-failure\nRestartSec=15min\nRestartPreventExitStatus=1 2\n");
  EXPECT_EQ(
      Unit("timer"),
      "[Unit]\nDescription=Avisos da frota por correio, todos os dias\n\n[Timer]\nOnCalendar=*-*-* 08:00\n"
      "Persistent=true\n\n[Install]\nWantedBy=timers.target\n");
  EXPECT_EQ(
      Parvel({"--ligacao", "DSN=frota", "--senha-ficheiro", "s", "aviso", "--calendario", "--instalar"}),
      kDone);
  EXPECT_EQ(out.str(),
            "Escreve o calendário todos os dias às 8 horas. Para deixar: parvel aviso --retirar.\n");
  EXPECT_NE(Unit("service").find(program + " --ligacao \"DSN=frota\" --senha-ficheiro \"" +
                                 std::filesystem::absolute("s").string() + "\" aviso --calendario\n"),
            std::string::npos)
      << Unit("service");
  EXPECT_EQ(OnDatabase({"aviso", "--retirar"}), kDone);
  EXPECT_EQ(out.str(), "Deixa de avisar por si.\n");
  EXPECT_EQ(Unit("service") + Unit("timer"), "");
  EXPECT_EQ(Contents(File("chamadas")),
            "--user daemon-reload\n--user enable --now parvel-aviso.timer\n"
            "--user daemon-reload\n--user enable --now parvel-aviso.timer\n"
            "--user disable --now parvel-aviso.timer\n--user daemon-reload\n");
  EXPECT_EQ(OnDatabase({"aviso", "--instalar"}), kDone);
  std::ofstream(File("recusa")) << "sim";
  for (const char* act : {"--retirar", "--instalar"}) {
    EXPECT_EQ(OnDatabase({"aviso", act}), kFailed);
    EXPECT_EQ(Unit("service") + Unit("timer"), "") << act;
  }
  EXPECT_EQ(err.str().substr(0, 44), "O sistema não aceita temporizadores do util");
  EXPECT_EQ(Unit("service") + Unit("timer"), "");
}

TEST_F(NoticeCommandTest, TheCalendarIsWrittenWhereProgramsFindIt) {
  ASSERT_EQ(OnDatabase({"demo"}), kDone) << err.str();
  const std::string file = File("dados/parvel/alertas.ics");
  EXPECT_EQ(OnDatabase({"aviso", "--calendario"}), kDone);
  EXPECT_EQ(out.str(), "Calendário escrito em " + file +
                           "\nOs programas de calendário assinam-no por file://" + file + "\n");
  EXPECT_EQ(Contents(file).substr(0, 15), "BEGIN:VCALENDAR");
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
