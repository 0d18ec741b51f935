#include "console/console_host.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "platform/screen/dialogs.h"
#include "platform/screen/form.h"
#include "store/paths.h"
#include "support/errors.h"
#include "support/temporary_folder.h"

namespace console {

using store::DefaultDatabasePath;
namespace {

TEST(ConsoleHost, ShowsTextsAndDeclines) {
  std::ostringstream messages;
  ConsoleHost host(messages);
  EXPECT_EQ(host.MsgBox("Feito", platform::kOkOnly, ""), platform::kOk);
  EXPECT_EQ(host.MsgBox("Apagar?", platform::kYesNo | platform::kExclamation, "Viatura"), platform::kNo);
  EXPECT_EQ(host.MsgBox("Apagar?", platform::kOkCancel, "Viatura"), platform::kCancel);
  host.OpenDocument("a.pdf");
  platform::MapaListagem report;
  report.Titulo = "Mapa";
  host.ShowReport(report);
  platform::ListaPesquisa lookup;
  EXPECT_EQ(host.ShowLookup(lookup), "");
  EXPECT_EQ(messages.str(), "Feito\nViatura: Apagar?\nViatura: Apagar?\na.pdf\nMapa\n");
  EXPECT_EQ(host.InputBox("Nome", "", "x"), "");
  EXPECT_FALSE(host.OpenFile({}));
  EXPECT_EQ(host.TemporaryFolder().back(), '/');
  platform::Form form;
  EXPECT_EQ(testing_support::NumberOf([&] { host.ShowModal(form, nullptr); }), platform::kNoSuchMember);
}

TEST(Paths, TheDatabaseIsInTheUsersDataFolder) {
  const testing_support::TemporaryFolder folder;
  const char* const home = std::getenv("HOME");
  const std::string before = home == nullptr ? "" : home;
  setenv("HOME", folder.File("").c_str(), 1);
  setenv("XDG_DATA_HOME", "relativa", 1);
  EXPECT_EQ(DefaultDatabasePath(), folder.File(".local/share/parvel/frota.db"));
  setenv("XDG_DATA_HOME", "/dev/null", 1);
  EXPECT_THROW(DefaultDatabasePath(), std::runtime_error);
  unsetenv("XDG_DATA_HOME");
  setenv("HOME", "", 1);
  EXPECT_THROW(DefaultDatabasePath(), std::runtime_error);
  setenv("HOME", before.c_str(), 1);
}

}  // namespace
}  // namespace console
