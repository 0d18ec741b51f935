#include "desktop/shell/start_up.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QFileDialog>
#include <QImage>
#include <tuple>

#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/start/start_page.h"
#include "support/files.h"
#include "support/recording_data_access.h"
#include "user.h"

namespace desktop_test {
namespace {

using desktop::OpenOrAsk;
using desktop::Options;
using desktop::Reply;

class StartUpTest : public testing::Test {
 protected:
  StartUpTest() {
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(picture));
  }

  void ChooseFile(const QString& file) {
    desk.script.Next([file](QWidget& window) {
      auto* dialog = qobject_cast<QFileDialog*>(&window);
      ASSERT_NE(dialog, nullptr);
      dialog->selectFile(file);
      QMetaObject::invokeMethod(dialog, "accept");
    });
  }

  Desk desk;
  const QString picture = desk.folder.filePath("fotografia.png");
};

TEST_F(StartUpTest, APictureIsNoDatabaseAndTheUserMayLeave) {
  const std::string before = testing_support::Contents(picture.toStdString());
  desk.script.Answer("Sair");
  EXPECT_EQ(OpenOrAsk(picture, desk.settings, nullptr), nullptr);
  EXPECT_TRUE(desk.script.boxes[0].contains("Não foi possível abrir a base de dados."));
  EXPECT_EQ(testing_support::Contents(picture.toStdString()), before);
}

TEST_F(StartUpTest, ANewDatabaseInItsPlaceIsOpenedAndRemembered) {
  const QString fresh = desk.folder.filePath("nova.db");
  desk.script.Answer("Criar nova…");
  ChooseFile(fresh);
  const auto workspace = OpenOrAsk(picture, desk.settings, nullptr);
  ASSERT_NE(workspace, nullptr);
  EXPECT_TRUE(QFile::exists(fresh));
  EXPECT_EQ(desktop::DatabaseFor({}, desk.settings), fresh);
  Options named;
  named.database = "outra.db";
  EXPECT_EQ(desktop::DatabaseFor(named, desk.settings), "outra.db");
}

TEST_F(StartUpTest, OnlyTheUserReadsTheSettings) {
  QSettings settings(desk.folder.filePath("novo/definicoes.conf"), QSettings::IniFormat);
  desktop::KeepPrivate(settings);
  settings.setValue("chave", 1);
  settings.sync();
  constexpr auto kOthers = QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther;
  EXPECT_FALSE(QFile::permissions(settings.fileName()) & kOthers);
  EXPECT_FALSE(QFile::permissions(desk.folder.filePath("novo")) & kOthers);
}

TEST_F(StartUpTest, ACopyIsRestoredFromTheWindowAndWhenNothingOpens) {
  const auto brands = [](desktop::Workspace& workspace) {
    return testing_support::Rows(workspace.sistema().ICrmSistema_ZorDataAccess,
                                 "SELECT Codigo FROM zor_PV_Marcas");
  };
  const QString file = desk.folder.filePath("frota.db");
  const QString copy = desk.folder.filePath("copia.db");
  desktop::MainWindow window(desk.settings);
  window.Open(std::make_unique<desktop::Workspace>(file.toStdString()));
  window.workspace()->file()->CopyTo(copy.toStdString());
  window.workspace()->FillDemo();
  window.ShowList("Marcas");
  for (const QString& chosen : {picture, copy}) {
    desk.script.Next([](QWidget& copies) { ClickButton(copies, "Outro ficheiro…"); });
    ChooseFile(chosen);
    desk.script.Answer("Sim");
    desk.script.Answer("OK");
    window.actions().restore->trigger();
    ASSERT_NE(window.workspace(), nullptr);
    EXPECT_EQ(brands(*window.workspace()).empty(), chosen == copy);
  }
  EXPECT_TRUE(desk.script.boxes.last().contains("frota.db.antes-"));
  window.Open(std::make_unique<desktop::Workspace>(":memory:"));

  ASSERT_TRUE(QFile::resize(file, 0));
  desk.script.Answer("Repor cópia…");
  ChooseFile(copy);
  EXPECT_NE(OpenOrAsk(file, desk.settings, nullptr), nullptr);
}

TEST_F(StartUpTest, OpeningAnUnusableFileFromTheWindowKeepsTheDatabaseThatIsOpen) {
  desktop::MainWindow window(desk.settings);
  window.Open(std::make_unique<desktop::Workspace>(":memory:"));
  const auto* before = window.workspace();
  ChooseFile(picture);
  desk.script.Answer("OK");
  QMetaObject::invokeMethod(&window, [&] {
    for (QAction* action : window.findChildren<QAction*>())
      if (action->text().startsWith("&Abrir base")) action->trigger();
  });
  EXPECT_EQ(window.workspace(), before);
  EXPECT_FALSE(window.start().isHidden());
}

TEST(OptionsTest, WordsAreReadAndWrongOnesAnswered) {
  Options options;
  EXPECT_FALSE(desktop::ReadOptions({"--db", "a.db", "--demo", "--lista", "Marcas"}, options));
  EXPECT_EQ(options.database, "a.db");
  EXPECT_TRUE(options.demo);
  EXPECT_EQ(options.list, "Marcas");
  // A double click names the file alone.
  EXPECT_FALSE(desktop::ReadOptions({"outra.db"}, options));
  EXPECT_EQ(options.database, "outra.db");

  const std::tuple<QStringList, int, const char*> cases[] = {
      {{"--help"}, 0, "--retrato"},
      {{"--version"}, 0, PARVEL_VERSION},
      {{"--db"}, 2, "Falta o valor de --db"},
      {{"--db", ""}, 2, "Falta o valor de --db"},
      {{"--nada"}, 2, "Não se conhece a opção --nada"}};
  for (const auto& [words, code, text] : cases) {
    SCOPED_TRACE(text);
    const std::optional<Reply> reply = desktop::ReadOptions(words, options);
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->exit_code, code);
    EXPECT_TRUE(reply->text.contains(text)) << reply->text.toStdString();
  }
}

}  // namespace
}  // namespace desktop_test
